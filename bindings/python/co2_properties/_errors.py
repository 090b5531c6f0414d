"""What is said about states that have no result."""

from __future__ import annotations

import warnings

import numpy as np

from . import _core
from ._results import UNITS

MODES = ("raise", "warn", "nan", "ierr")
CALLER = 5  # above report: run, evaluate, the function of the entry, and whoever called that


class PropertyError(ValueError):
    """A state has no result.

    Attributes: `code` of the first such state, its `index` in the arrays (a tuple, empty for a single
    state) and its `inputs`, a dictionary; `counts`, how often each code occurred.
    """

    def __init__(self, text: str, code: int, index: tuple[int, ...], inputs: dict[str, float],
                 counts: dict[int, int]) -> None:
        super().__init__(text, code, index, inputs, counts)
        self.code, self.index, self.inputs, self.counts = code, index, inputs, counts

    def __str__(self) -> str:
        return str(self.args[0])


class PropertyWarning(UserWarning):
    """Some states of an array have no result, or one that is less accurate."""


def report(function, inputs, codes, mode):
    """Raises or warns about the codes that deserve it.

    inputs: arrays by name, of the shape of the codes; without those that results have overwritten.
    """
    told = (codes > 0) | ((codes < 0) & (codes % -100 != -1))
    if mode == "raise" and (codes > 0).any():
        told = codes > 0
    index = tuple(int(i) for i in np.unravel_index(np.argmax(told), told.shape))
    code = int(codes[index])
    first = {name: float(array[index]) for name, array in inputs.items()}
    found, how_often = np.unique(codes[told], return_counts=True)
    counts = dict(zip(found.tolist(), how_often.tolist()))
    given = " at " * bool(first) + ", ".join(f"{name} = {value!r} {UNITS[name]}".rstrip(" -")
                      for name, value in first.items())
    if codes.ndim == 0:
        text = f"{function}: code {code}{given}: {_core.message(code)}"
    else:
        each = "; ".join(f"{n} with code {c}, {_core.message(c)}" for c, n in counts.items())
        at = index[0] if codes.ndim == 1 else index
        text = (f"{function}: {sum(counts.values())} of {codes.size} states: {each}; "
                f"the first at index {at}: code {code}{given}")
    if mode == "raise" and code > 0:
        raise PropertyError(text, code, index, first, counts)
    warnings.warn(PropertyWarning(text), stacklevel=CALLER)
