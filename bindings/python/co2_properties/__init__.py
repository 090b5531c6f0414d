"""Thermodynamic and transport properties of carbon dioxide.

    >>> import co2_properties as co2
    >>> state = co2.ph(8000.0, 400.0)          # pressure in kPa, enthalpy in kJ/kg
    >>> round(state.temp, 2), round(state.dens, 1)
    (312.59, 284.1)

Every function takes numbers or arrays, which are broadcast, and returns a `State` with an attribute
for each property, `state.temp`. It gets its name from what it is given, t temperature, d density, p
pressure, h enthalpy, s entropy, u internal energy, x quality: td, tp, ph, ps, du, dh, ds, dp, hs, pu,
ts, tx, px, and sat_t and sat_p for both phases at saturation.

Units: temperature K, pressure kPa, density kg/m3, energies kJ/kg, entropy and heat capacities
kJ/(kg K), speed of sound m/s, viscosity uPa s, thermal conductivity W/(m K). Range: 240 K to 1500 K and
1 kPa to 100000 kPa; gas, liquid, supercritical and two-phase. What a state has no value of, such as cp
of two phases, is NaN.
"""

from ._core import __version__, message
from ._entries import sat_p, sat_t
from ._errors import PropertyError, PropertyWarning
from ._info import Info, info
from ._results import DERIVATIVES, MEANINGS, OUTPUTS, UNITS, Saturation, State

__all__ = ["DERIVATIVES", "Info", "MEANINGS", "OUTPUTS", "PropertyError", "PropertyWarning",
           "Saturation", "State", "UNITS", "__version__", "info", "message", "sat_p", "sat_t"]

# entries: begin, written by scripts/generate_entries
from ._entries import td, tp, ph, ps, du, dh, ds, dp, hs, pu, ts, tx, px

__all__ += ["td", "tp", "ph", "ps", "du", "dh", "ds", "dp", "hs", "pu", "ts", "tx", "px"]
# entries: end
