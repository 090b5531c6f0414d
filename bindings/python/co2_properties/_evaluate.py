"""The road of a call that is more than one state without anything to look at."""

import difflib
import operator
import os
from collections.abc import Mapping

import numpy as np

from . import _core, _errors, _labels
from ._results import DERIVATIVES, LINE, OUTPUTS, UNITS, Saturation, State

SLOTS = {name: slot for slot, (name, _, _) in enumerate(_core.QUANTITIES)}


def evaluate(entry, arguments, outputs, derivatives, out, errors, threads):
    """The `State` for an entry, its index in _core.ENTRIES, and arguments by name."""
    given = {(name,): array for name, array in checked(out).items()}
    if out is not None and outputs is None and not derivatives:
        outputs = [name for name in out if name != "ierr"]
    names = names_of(outputs, derivatives)
    inputs, label = prepare(arguments)
    found = run(entry, inputs, {(name,): SLOTS[name] for name in names}, given, errors, threads)
    codes = found.pop(("ierr",))
    return State({name: label(array, name) for (name,), array in found.items()},
                 label(codes, "ierr"))


def evaluate_saturation(entry, arguments, outputs, derivatives, out, errors, threads):
    """The `Saturation` for an entry."""
    phases = ("liq", "vap")
    names = names_of(outputs, derivatives)
    slots = {(phase, name): at * len(SLOTS) + SLOTS[name]
             for at, phase in enumerate(phases) for name in names}
    slots |= {(name,): 2 * len(SLOTS) + at for at, name in enumerate(LINE)}
    if isinstance(out, Saturation):
        out = {name: getattr(out, name) for name in Saturation.__slots__}
    given = {}
    for name, part in checked(out).items():
        given |= ({(name, of): array for of, array in checked(part).items()} if name in phases
                  else {(name,): part})
    inputs, label = prepare(arguments)
    found = run(entry, inputs, slots, given, errors, threads)
    codes = label(found[("ierr",)], "ierr")
    return Saturation(
        *(State({name: label(found[phase, name], name) for name in names}, codes)
          for phase in phases),
        *(label(found[(name,)], name) for name in LINE), codes)


def checked(out):
    """Arrays for results by name, or for those of a phase."""
    if out is not None and not isinstance(out, Mapping):
        raise TypeError("out is a dictionary of arrays by name, or an earlier result")
    return out or {}


def names_of(outputs, derivatives):
    """The names that are asked for, each once."""
    asked = []
    for names, all_names, none in ((outputs, OUTPUTS, OUTPUTS), (derivatives, DERIVATIVES, ())):
        if names is None:
            names = none
        elif isinstance(names, str):
            names = all_names if names == "all" else (names,)
        asked.extend(names)
    for name in asked:
        if name not in SLOTS:
            near = difflib.get_close_matches(str(name), SLOTS, 1)
            hint = f"; did you mean {near[0]!r}?" if near else ""
            raise ValueError(f"no property is called {name!r}{hint}")
    return tuple(dict.fromkeys(asked))


def prepare(arguments):
    """Arrays of double with a common shape, by name, and what labels results like the inputs."""
    unlabelled, label = _labels.separate(arguments)
    arrays = {name: as_array(value, name) for name, value in unlabelled.items()}
    shape = np.broadcast(*arrays.values()).shape
    if label is None:
        label = _number if shape == () else _array
    return {name: array if array.shape == shape else np.broadcast_to(array, shape)
            for name, array in arrays.items()}, label


def _number(array, _name):
    return array.item()


def _array(array, _name):
    return array


def as_array(value, name):
    """An array of double; the value itself if it is one."""
    if hasattr(value, "m_as"):  # a quantity with a unit, which would get lost
        magnitude = f"its magnitude in {UNITS[name]}".removesuffix(" in -")
        raise TypeError(f"{name} has a unit: give {magnitude}")
    array = np.asanyarray(value)
    if array.dtype.kind not in "iufO" or value is None:
        raise TypeError(f"{name} has to be a number or an array of numbers, not of {array.dtype}")
    if isinstance(array, np.ma.MaskedArray):
        return array.astype(np.float64).filled(np.nan)
    return np.asarray(array, np.float64)


def run(entry, inputs, slots, given, errors, threads):
    """Arrays by path, those of `slots` and the codes."""
    mode = errors
    shape = next(iter(inputs.values())).shape
    if mode is None:
        mode = "raise" if shape == () else "warn"
    if mode not in _errors.MODES:
        raise ValueError(f"errors is one of {', '.join(_errors.MODES)}, not {errors!r}")
    for path, array in given.items():
        if path not in slots and path != ("ierr",):
            raise ValueError(f"out has {'.'.join(path)}, which was not asked for")
        check_out(array, ".".join(path), np.int32 if path == ("ierr",) else np.float64, shape)
    check_apart(given)
    inputs = {name: apart(array, given) for name, array in inputs.items()}
    # Results lie in memory as the inputs do.
    like = next((a for a in inputs.values() if 0 not in a.strides), np.broadcast_to(0.0, shape))
    found = {path: given.get(path) for path in (*slots, ("ierr",))}
    for path, array in found.items():
        if array is None:
            dtype = np.int32 if path == ("ierr",) else np.float64
            found[path] = np.empty_like(like, dtype=dtype, subok=False)
    codes = found[("ierr",)]
    # The order in which the codes lie in memory is that of the work.
    in_order = codes
    if ("ierr",) in given and not codes.flags.forc:
        in_order = np.empty_like(like, dtype=np.int32, subok=False)
    told = _core.arrays(entry, tuple(inputs.values()), in_order,
                        {slot: found[path] for path, slot in slots.items()}, mode != "ierr",
                        threads_of(threads))
    if in_order is not codes:
        codes[...] = in_order
    if told and mode in ("raise", "warn"):
        kept = {name: array for name, array in inputs.items()
                if not any(overlap(array, result) for result in given.values())}
        _errors.report(_core.ENTRIES[entry], kept, codes, mode)
    return found


def check_out(array, name, dtype, shape):
    if not isinstance(array, np.ndarray):
        raise TypeError(f"out[{name!r}] has to be a NumPy array, not {type(array).__name__}")
    if array.dtype != dtype:
        raise TypeError(f"out[{name!r}] has to be of {np.dtype(dtype)}, not {array.dtype}")
    if array.shape != shape:
        raise ValueError(f"out[{name!r}] has the shape {array.shape}, the inputs have {shape}")
    if not array.flags.writeable:
        raise ValueError(f"out[{name!r}] is read-only")


def overlap(one, other):
    try:
        return np.shares_memory(one, other, max_work=10**4)
    except np.TooHardError:
        return True


def check_apart(given):
    """Refuses results that would overwrite each other."""
    arrays = list(given.items())
    for at, (path, array) in enumerate(arrays):
        steps = zip(array.strides, array.shape)
        if array.size > 0 and any(stride == 0 and n > 1 for stride, n in steps):
            raise ValueError(f"out[{'.'.join(path)!r}] has several elements in one place")
        for other_path, other in arrays[:at]:
            if overlap(array, other):
                raise ValueError(f"out[{'.'.join(path)!r}] overlaps out[{'.'.join(other_path)!r}]")


def apart(array, given):
    """The input, copied if a result overlaps it without being the very same array."""
    for result in given.values():
        same = (array.__array_interface__["data"][0] == result.__array_interface__["data"][0]
                and array.strides == result.strides)
        if not same and overlap(array, result):
            return array.copy()
    return array


def threads_of(threads):
    if threads is None:
        return _available()
    if operator.index(threads) < 1:
        raise ValueError(f"threads is a positive number, or None for all processors, not {threads}")
    return operator.index(threads)


def _available():
    """Processors that this process may use."""
    return len(os.sched_getaffinity(0)) if hasattr(os, "sched_getaffinity") else os.cpu_count() or 1
