"""One function for each pair of inputs, and those of saturation."""

from __future__ import annotations

from collections.abc import Callable, Iterable, Mapping
from typing import Any, Literal, TypeVar, Union

from . import _core
from ._core import saturation, state
from ._evaluate import evaluate, evaluate_saturation
from ._results import Saturation, State

Numbers = Any  # a number, or whatever NumPy makes an array of
Names = Union[str, Iterable[str], None]
Out = Union[Mapping[str, Any], Saturation, None]
Errors = Union[Literal["raise", "warn", "nan", "ierr"], None]
Threads = Union[int, None]
Function = TypeVar("Function", bound=Callable[..., Any])

COMMON = """
Numbers or arrays, which are broadcast; the values of the result are floats, or arrays of float64 of
that shape, Series of pandas or arrays of xarray where such go in.

outputs, derivatives: names of what is computed, of all in `OUTPUTS` and `DERIVATIVES`; without, the
    nineteen outputs and no derivatives. "all" are all of them.
out: arrays for results by name, float64 and of the shape of the result (`ierr`: int32), as a
    dictionary or an earlier result.
errors: what is done about states without a result, which have a code above 0: "raise" a
    PropertyError; "warn", a PropertyWarning that counts the codes; "nan", nothing but the NaN that
    stands for every value that does not exist; "ierr", not even that: zeros, as the library has them.
    Without, "raise" for numbers and "warn" for arrays. The codes are in `ierr` in any case.
threads: how many work on an array, None for as many as there are processors; the results are the
    same to the bit.
"""


def documented(function: Function) -> Function:
    """Appends what all functions have in common to the text of one."""
    indented = "".join(f"    {line}".rstrip(" ") for line in COMMON.splitlines(keepends=True))
    function.__doc__ = (function.__doc__ or "").rstrip() + "\n" + indented + "    "
    return function


# entries: begin, written by scripts/generate_entries


@documented
def td(temp: Numbers, dens: Numbers, *, outputs: Names = None, derivatives: Names = (),
       out: Out = None, errors: Errors = None, threads: Threads = 1) -> State:
    """State from temperature and density.

    temp: temperature, K
    dens: density, kg/m3

    Codes: 0; -101 two phases and one of cv, cp, ssnd, visc, cond is present; the errors, in the
    order of the tests: 103 density below 0.0035287466, 102 temperature above 1500, 101
    temperature below 240, 103 pressure below 1, 104 pressure above 100000. NaN comes out in the
    outputs that depend on it.
    """
    made = state(State, 0, outputs, derivatives, out, errors, temp, dens)
    if made is not None:
        return made
    return evaluate(0, {"temp": temp, "dens": dens}, outputs, derivatives, out, errors,
                    threads)


@documented
def tp(temp: Numbers, pres: Numbers, *, outputs: Names = None, derivatives: Names = (),
       out: Out = None, errors: Errors = None, threads: Threads = 1) -> State:
    """State from temperature and pressure; never two-phase.

    temp: temperature, K
    pres: pressure, kPa

    Codes: 0; 203 pressure below 1, 204 pressure above 100000, 201 temperature below 240, 205
    pressure equal to that of saturation, where the state is undefined, 202 temperature above
    1500, 207 the density was not found. NaN as pressure gives 205 below the critical temperature
    and 207 from it on; NaN as temperature gives 207.
    """
    made = state(State, 1, outputs, derivatives, out, errors, temp, pres)
    if made is not None:
        return made
    return evaluate(1, {"temp": temp, "pres": pres}, outputs, derivatives, out, errors,
                    threads)


@documented
def ph(pres: Numbers, enth: Numbers, *, outputs: Names = None, derivatives: Names = (),
       out: Out = None, errors: Errors = None, threads: Threads = 1) -> State:
    """State from pressure and enthalpy.

    pres: pressure, kPa
    enth: specific enthalpy, kJ/kg

    Codes: 0; -301 two phases and one of cv, cp, ssnd is present: visc and cond are those of the
    phases weighted by quality; -302 within 0.08 K of the critical temperature, pressure or
    enthalpy are met to 1e-2 instead of 1e-4; the errors 303 pressure below 1, 304 pressure above
    100000, 301 temperature below 240, 302 temperature above 1500, both however far, 305 not a
    finite number.
    """
    made = state(State, 2, outputs, derivatives, out, errors, pres, enth)
    if made is not None:
        return made
    return evaluate(2, {"pres": pres, "enth": enth}, outputs, derivatives, out, errors,
                    threads)


@documented
def ps(pres: Numbers, entr: Numbers, *, outputs: Names = None, derivatives: Names = (),
       out: Out = None, errors: Errors = None, threads: Threads = 1) -> State:
    """State from pressure and entropy.

    pres: pressure, kPa
    entr: specific entropy, kJ/(kg K)

    Codes: 0; as those of co2_ph, from 401 on; in two phases visc and cond have no value either.
    """
    made = state(State, 3, outputs, derivatives, out, errors, pres, entr)
    if made is not None:
        return made
    return evaluate(3, {"pres": pres, "entr": entr}, outputs, derivatives, out, errors,
                    threads)


@documented
def du(dens: Numbers, inte: Numbers, *, outputs: Names = None, derivatives: Names = (),
       out: Out = None, errors: Errors = None, threads: Threads = 1) -> State:
    """State from density and internal energy.

    dens: density, kg/m3
    inte: specific internal energy, kJ/kg

    Codes: 0; -501 two phases and one of cv, cp, ssnd, visc, cond is present; the errors 503
    density below 0.0035287466 or pressure below 1, 501 temperature below 240, 502 temperature
    above 1500, 504 pressure above 100000, 505 an input is not a finite number or no state was
    found.
    """
    made = state(State, 4, outputs, derivatives, out, errors, dens, inte)
    if made is not None:
        return made
    return evaluate(4, {"dens": dens, "inte": inte}, outputs, derivatives, out, errors,
                    threads)


@documented
def dh(dens: Numbers, enth: Numbers, *, outputs: Names = None, derivatives: Names = (),
       out: Out = None, errors: Errors = None, threads: Threads = 1) -> State:
    """State from density and enthalpy.

    dens: density, kg/m3
    enth: specific enthalpy, kJ/kg

    Codes: 0; -601 two phases and one of cv, cp, ssnd, visc, cond is present; the errors 603
    density below 0.0035287466 or pressure below 1, 601 temperature below 240, 602 temperature
    above 1500, 604 pressure above 100000, 605 an input is not a finite number or no state was
    found.
    """
    made = state(State, 5, outputs, derivatives, out, errors, dens, enth)
    if made is not None:
        return made
    return evaluate(5, {"dens": dens, "enth": enth}, outputs, derivatives, out, errors,
                    threads)


@documented
def ds(dens: Numbers, entr: Numbers, *, outputs: Names = None, derivatives: Names = (),
       out: Out = None, errors: Errors = None, threads: Threads = 1) -> State:
    """State from density and entropy.

    dens: density, kg/m3
    entr: specific entropy, kJ/(kg K)

    Codes: 0; -701 two phases and one of cv, cp, ssnd, visc, cond is present; the errors 703
    density below 0.0035287466 or pressure below 1, 701 temperature below 240, 702 temperature
    above 1500, 704 pressure above 100000, 705 an input is not a finite number or no state was
    found.
    """
    made = state(State, 6, outputs, derivatives, out, errors, dens, entr)
    if made is not None:
        return made
    return evaluate(6, {"dens": dens, "entr": entr}, outputs, derivatives, out, errors,
                    threads)


@documented
def dp(dens: Numbers, pres: Numbers, *, outputs: Names = None, derivatives: Names = (),
       out: Out = None, errors: Errors = None, threads: Threads = 1) -> State:
    """State from density and pressure.

    dens: density, kg/m3
    pres: pressure, kPa

    Codes: 0; -801 two phases and one of cv, cp, ssnd, visc, cond is present; the errors 803
    density below 0.0035287466 or pressure below 1, 801 temperature below 240, 802 temperature
    above 1500, 804 pressure above 100000, 805 an input is not a finite number or no state was
    found.
    """
    made = state(State, 7, outputs, derivatives, out, errors, dens, pres)
    if made is not None:
        return made
    return evaluate(7, {"dens": dens, "pres": pres}, outputs, derivatives, out, errors,
                    threads)


@documented
def hs(enth: Numbers, entr: Numbers, *, outputs: Names = None, derivatives: Names = (),
       out: Out = None, errors: Errors = None, threads: Threads = 1) -> State:
    """State from enthalpy and entropy.

    enth: specific enthalpy, kJ/kg
    entr: specific entropy, kJ/(kg K)

    Codes: 0; -901 two phases and one of cv, cp, ssnd, visc, cond is present; the errors 901
    temperature below 240, 902 temperature above 1500, 903 pressure below 1, 904 pressure above
    100000, 905 an input is not a finite number or no state was found.
    """
    made = state(State, 8, outputs, derivatives, out, errors, enth, entr)
    if made is not None:
        return made
    return evaluate(8, {"enth": enth, "entr": entr}, outputs, derivatives, out, errors,
                    threads)


@documented
def pu(pres: Numbers, inte: Numbers, *, outputs: Names = None, derivatives: Names = (),
       out: Out = None, errors: Errors = None, threads: Threads = 1) -> State:
    """State from pressure and internal energy.

    pres: pressure, kPa
    inte: specific internal energy, kJ/kg

    Codes: 0; as those of co2_ph, from 1001 on; in two phases visc and cond have no value either.
    """
    made = state(State, 9, outputs, derivatives, out, errors, pres, inte)
    if made is not None:
        return made
    return evaluate(9, {"pres": pres, "inte": inte}, outputs, derivatives, out, errors,
                    threads)


@documented
def ts(temp: Numbers, entr: Numbers, *, outputs: Names = None, derivatives: Names = (),
       out: Out = None, errors: Errors = None, threads: Threads = 1) -> State:
    """State from temperature and entropy.

    temp: temperature, K
    entr: specific entropy, kJ/(kg K)

    Codes: 0; -1101 two phases and one of cv, cp, ssnd, visc, cond is present; the errors 1101
    temperature below 240, 1102 temperature above 1500, 1103 the state has a pressure below 1,
    1104 above 100000, 1105 an input is not a finite number or no state was found.
    """
    made = state(State, 10, outputs, derivatives, out, errors, temp, entr)
    if made is not None:
        return made
    return evaluate(10, {"temp": temp, "entr": entr}, outputs, derivatives, out, errors,
                    threads)


@documented
def tx(temp: Numbers, qual: Numbers, *, outputs: Names = None, derivatives: Names = (),
       out: Out = None, errors: Errors = None, threads: Threads = 1) -> State:
    """State from temperature and quality.

    temp: temperature, K
    qual: vapour mass fraction (998, 999: supercritical)

    Codes: 0; -1401 one of cv, cp, ssnd, visc, cond is present; the errors 1401 temperature below
    240, 1402 above 304.1282, 1405 an input is not a number, 1406 quality below 0 or above 1.
    """
    made = state(State, 11, outputs, derivatives, out, errors, temp, qual)
    if made is not None:
        return made
    return evaluate(11, {"temp": temp, "qual": qual}, outputs, derivatives, out, errors,
                    threads)


@documented
def px(pres: Numbers, qual: Numbers, *, outputs: Names = None, derivatives: Names = (),
       out: Out = None, errors: Errors = None, threads: Threads = 1) -> State:
    """State from pressure and quality.

    pres: pressure, kPa
    qual: vapour mass fraction (998, 999: supercritical)

    Codes: 0; -1501 one of cv, cp, ssnd, visc, cond is present; the errors 1503 pressure below
    1282.4835, 1504 above 7377.3, 1505 an input is not a number, 1506 quality below 0 or above 1.
    """
    made = state(State, 12, outputs, derivatives, out, errors, pres, qual)
    if made is not None:
        return made
    return evaluate(12, {"pres": pres, "qual": qual}, outputs, derivatives, out, errors,
                    threads)
# entries: end

_SAT_T, _SAT_P = (_core.ENTRIES.index(name) for name in ("sat_t", "sat_p"))


@documented
def sat_t(temp: Numbers, *, outputs: Names = None, derivatives: Names = (), out: Out = None,
          errors: Errors = None, threads: Threads = 1) -> Saturation:
    """Saturated liquid and vapour at a temperature.

    temp: temperature, K, 240 to 304.1282

    Codes: 0; 1201 temperature below 240, 1202 above 304.1282, 1205 not a number.
    """
    made = saturation(State, _SAT_T, outputs, derivatives, out, errors, temp)
    if made is not None:
        return Saturation(*made)
    return evaluate_saturation(_SAT_T, {"temp": temp}, outputs, derivatives, out, errors, threads)


@documented
def sat_p(pres: Numbers, *, outputs: Names = None, derivatives: Names = (), out: Out = None,
          errors: Errors = None, threads: Threads = 1) -> Saturation:
    """Saturated liquid and vapour at a pressure.

    pres: pressure, kPa, 1282.4835 to 7377.3

    Codes: 0; 1303 pressure below 1282.4835, 1304 above 7377.3, 1305 not a number.
    """
    made = saturation(State, _SAT_P, outputs, derivatives, out, errors, pres)
    if made is not None:
        return Saturation(*made)
    return evaluate_saturation(_SAT_P, {"pres": pres}, outputs, derivatives, out, errors, threads)
