"""Constants and limits."""

from typing import NamedTuple

from . import _core


class Info(NamedTuple):
    """Reference constants and limits."""

    tcrit: float  #: critical temperature, K
    dcrit: float  #: critical density, kg/m3
    pcrit: float  #: critical pressure, kPa, rounded
    tmin: float  #: lowest temperature accepted, K
    tmax: float  #: highest temperature accepted, K
    pmin: float  #: lowest pressure accepted, kPa
    pmax: float  #: highest pressure accepted, kPa
    tsatmin: float  #: lowest temperature of the saturation line, K
    psatmin: float  #: saturation pressure there, kPa


def info() -> Info:
    """Critical point and limits of the range, as an `Info`; `info().tcrit` is in K."""
    return Info(*_core.info())
