#!/usr/bin/python3
"""States block by block in arrays of Dask, and in those of xarray that Dask holds.

Usage: dask_blocks.py [--states N] [--scheduler threads|processes|synchronous]

Dask hands blocks, which are NumPy arrays, to its threads, to processes, or to a cluster that it knows:
the functions are the same. It computes what is asked for, and holds few blocks at a time.
"""

import argparse

import dask
import dask.array as da
import numpy as np
import xarray as xr

import co2_properties as co2


def dens_cp(pres, enth):
    """Density and isobaric heat capacity of a block, along a first axis."""
    state = co2.ph(pres, enth, outputs=["dens", "cp"])
    return np.stack([state.dens, state.cp])


def dens(pres, enth):
    return co2.ph(pres, enth, outputs=["dens"]).dens


def with_dask(pres, enth, chunk):
    """Two properties over the plane, an array of Dask with the axes property, pressure, enthalpy."""
    pres = da.from_array(pres[:, None], chunks=chunk)
    enth = da.from_array(enth[None, :], chunks=chunk)
    return da.map_blocks(dens_cp, pres, enth, dtype=float, new_axis=0,
                         chunks=((2,), pres.chunks[0], enth.chunks[1]))


def with_xarray(pres, enth, chunk):
    """Density over the plane, with the coordinates of the inputs."""
    pres = xr.DataArray(pres, dims="pres", coords={"pres": pres}).chunk(pres=chunk)
    enth = xr.DataArray(enth, dims="enth", coords={"enth": enth}).chunk(enth=chunk)
    return xr.apply_ufunc(dens, pres, enth, dask="parallelized", output_dtypes=[float])


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--states", type=float, default=1e7)
    parser.add_argument("--scheduler", default="threads")
    options = parser.parse_args()
    count = round(options.states**0.5)
    plane = np.linspace(7500.0, 30000.0, count), np.linspace(300.0, 900.0, count)
    with dask.config.set(scheduler=options.scheduler):
        dens_mean, cp_most = da.compute(*(f(x) for f, x in zip((da.mean, da.max),
                                                               with_dask(*plane, 500))))
        print(f"mean density {dens_mean:.3f} kg/m3, largest cp {cp_most:.3f} kJ/(kg K)")
        isobar = with_xarray(*plane, 500).sel(pres=8000.0, method="nearest").compute()
        print(f"at {isobar.pres.item():.0f} kPa from {isobar.min().item():.3f} to "
              f"{isobar.max().item():.3f} kg/m3")


if __name__ == "__main__":
    main()
