"""What the functions return."""

from __future__ import annotations

from collections.abc import Iterator, Mapping
from typing import Any

import numpy as np

from . import _core

OUTPUTS = tuple(name for name, _, _ in _core.QUANTITIES[: _core.OUTPUT_COUNT])
DERIVATIVES = tuple(name for name, _, _ in _core.QUANTITIES[_core.OUTPUT_COUNT :])
LINE = {"latent_heat": ("kJ/kg", "enthalpy of vaporization"),
        "dpdt_sat": ("kPa/K", "slope dp/dT of the saturation line")}
UNITS = {name: unit for name, unit, _ in _core.QUANTITIES} | {k: v[0] for k, v in LINE.items()}
MEANINGS = {name: text for name, _, text in _core.QUANTITIES} | {k: v[1] for k, v in LINE.items()}


def _brief(value):
    """One line for a number or an array."""
    if np.ndim(value) == 0:
        return f"{value:.10g}"
    array = np.asarray(value)
    values = np.array2string(array.ravel(), precision=6, threshold=4, edgeitems=2,
                             max_line_width=10**6)
    return f"{values}  {array.shape}"


def _lines(values, indent=2):
    width = max(map(len, values), default=0)
    return "".join(
        f"\n{' ' * indent}{name:{width}}  {_brief(value)} {UNITS.get(name, '-')}".rstrip(" -")
        for name, value in values.items())


class State(_core.Values, Mapping[str, Any]):
    """Properties of a state, or of an array of states: a mapping from names to values.

    `state.temp` and `state["temp"]` are the temperature, a float or an array of the shape that the
    inputs were broadcast to; `dict(state)` holds all that was asked for. `state.ierr` is the status: 0,
    negative with a warning, positive with an error (`co2_properties.message` has the text). What has no
    value is NaN. `MEANINGS` and `UNITS` have an entry for each name.
    """

    __slots__ = ()

    def __getitem__(self, name: str) -> Any:
        if name not in self._names:
            raise KeyError(name)
        return getattr(self, name)

    def __iter__(self) -> Iterator[str]:
        return iter(self._names)

    def __len__(self) -> int:
        return len(self._names)

    def __contains__(self, name: object) -> bool:
        return name in self._names

    def __repr__(self) -> str:
        return f"State{_lines({**self, 'ierr': self.ierr})}"

    def __reduce__(self) -> tuple[Any, ...]:
        return State, (dict(self), self.ierr)


class Saturation:
    """Both phases at saturation.

    `liq` and `vap` are the `State` of the saturated liquid and vapour, `latent_heat` is the enthalpy of
    vaporization, kJ/kg, `dpdt_sat` the slope dp/dT of the saturation line, kPa/K, `ierr` the status.
    """

    __slots__ = ("liq", "vap", "latent_heat", "dpdt_sat", "ierr")

    def __init__(self, liq: State, vap: State, latent_heat: Any, dpdt_sat: Any, ierr: Any) -> None:
        self.liq, self.vap, self.ierr = liq, vap, ierr
        self.latent_heat, self.dpdt_sat = latent_heat, dpdt_sat

    def __repr__(self) -> str:
        line = {name: getattr(self, name) for name in (*LINE, "ierr")}
        return (f"Saturation{_lines(line)}\n  liq{_lines(self.liq, 4)}\n  vap{_lines(self.vap, 4)}")

    def __reduce__(self) -> tuple[Any, ...]:
        return Saturation, tuple(getattr(self, name) for name in self.__slots__)
