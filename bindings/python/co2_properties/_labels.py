"""Series of pandas and arrays of xarray: what goes in labelled comes out labelled.

Neither is imported here: only who has imported it can pass one.
"""

import sys

import numpy as np

from ._results import MEANINGS, UNITS


def _type(module, name):
    return getattr(sys.modules.get(module), name, ())


def separate(arguments):
    """Arguments without labels, and label(array, name), which gives a result those of the inputs."""
    for of_type, separate_these in ((_type("pandas", "Series"), _series),
                                    (_type("xarray", "DataArray"), _data_arrays)):
        labelled = {name: value for name, value in arguments.items() if isinstance(value, of_type)}
        if labelled:
            values, label = separate_these(labelled)
            return {**arguments, **values}, label
    return arguments, None


def _series(labelled):
    index = next(iter(labelled.values())).index
    if not all(series.index.equals(index) for series in labelled.values()):
        raise ValueError(f"the indices of {' and '.join(labelled)} differ: align them first")

    def label(array, name):
        if array.shape != index.shape:
            return array
        return sys.modules["pandas"].Series(array, index=index, name=name, copy=False)

    return {name: _values(series) for name, series in labelled.items()}, label


def _values(series):
    if isinstance(series.dtype, np.dtype) or series.dtype.kind not in "iuf":
        return series.to_numpy()
    return series.to_numpy(np.float64, na_value=np.nan)  # a type of pandas, with missing values


def _data_arrays(labelled):
    xarray = sys.modules["xarray"]
    arrays = xarray.broadcast(*xarray.align(*labelled.values(), join="exact", copy=False))
    like, coords = arrays[0], arrays[0].coords
    for other in arrays[1:]:  # those that are not dimensions and differ are dropped, as in a sum
        coords = coords.merge(other.coords).coords

    def label(array, name):
        if array.shape != like.shape:
            return array
        attributes = {"units": UNITS[name], "long_name": MEANINGS[name]} if name in UNITS else {}
        return xarray.DataArray(array, coords, like.dims, name, attributes)

    return dict(zip(labelled, (array.values for array in arrays))), label
