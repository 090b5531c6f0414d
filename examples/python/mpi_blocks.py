#!/usr/bin/python3
"""States on all processes of MPI, which write their parts to one file.

Usage: mpiexec -n 4 mpi_blocks.py FILE.npy [--states N]

Each process works on its rows of a plane of pressure and enthalpy and writes their densities to where they
belong in an array of NumPy; a sum over all processes follows. The file system has to be one that all see.
"""

import argparse

import numpy as np
from mpi4py import MPI
from numpy.lib.format import open_memmap

import co2_properties as co2


def rows_of(rank, ranks, count):
    """First row of a process and the one after its last."""
    return rank * count // ranks, (rank + 1) * count // ranks


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("file", metavar="FILE.npy")
    parser.add_argument("--states", type=float, default=1e7)
    options = parser.parse_args()
    world = MPI.COMM_WORLD
    count = round(options.states**0.5)
    pres, enth = np.linspace(7500.0, 30000.0, count), np.linspace(300.0, 900.0, count)

    offset = None
    if world.rank == 0:  # NumPy writes what comes before the values
        offset = open_memmap(options.file, mode="w+", dtype=float, shape=(count, count)).offset
    offset = world.bcast(offset)

    first, end = rows_of(world.rank, world.size, count)
    dens = co2.ph(pres[first:end, None], enth, outputs=["dens"]).dens
    file = MPI.File.Open(world, options.file, MPI.MODE_WRONLY)
    file.Write_at_all(offset + first * count * dens.itemsize, dens)
    file.Close()

    total = world.reduce(dens.sum())
    if world.rank == 0:
        print(f"{world.size} processes, mean density {total / count**2:.3f} kg/m3")


if __name__ == "__main__":
    main()
