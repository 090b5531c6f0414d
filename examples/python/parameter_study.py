#!/usr/bin/python3
"""Outlet states of a compressor over a grid of four parameters, in a file that need not fit in memory.

Usage: parameter_study.py FILE.npy [--states N] [--processes N]

The parameters are temperature and pressure at the inlet, pressure ratio and isentropic efficiency, with
as many values each as make about N states, 10^8 (2.4 GB) if nothing else is said. FILE.npy is an array
of NumPy with these four axes and the fields `temp` (K) and `dens` (kg/m3) at the outlet and `work`
(kJ/kg), for `numpy.load(FILE, mmap_mode="r")`; the values of the parameters go to FILE.axes.npz.

Processes work on blocks, one for each inlet temperature. Those that are on the disk are marked in
FILE.marks.npy: a study that was interrupted, by whatever, goes on there when it is started again, and the
result is the same to the bit. Needs NumPy and tqdm.
"""

import argparse
import concurrent.futures
import multiprocessing
import os
import pathlib
import resource
import signal
import sys
import threading
import time

import numpy as np
from numpy.lib.format import open_memmap
from tqdm import tqdm

import co2_properties as co2

FIELDS = np.dtype([("temp", float), ("dens", float), ("work", float)])
CHECKPOINT = 5.0  # seconds of work that may be lost


def axes_of(states):
    count = max(2, round(states**0.25))
    return {"temp": np.linspace(305.0, 325.0, count), "pres": np.linspace(7500.0, 10000.0, count),
            "ratio": np.linspace(1.5, 3.5, count), "efficiency": np.linspace(0.7, 0.95, count)}


def evaluate(axes, block, results):
    """Fills `results`, an array of FIELDS with the axes pressure, ratio and efficiency."""
    pres = axes["pres"][:, None, None]
    inlet = co2.tp(axes["temp"][block], pres, outputs=["enth", "entr"])
    outlet_pres = pres * axes["ratio"][:, None]
    isentropic = co2.ps(outlet_pres, inlet.entr, outputs=["enth"])
    work = (isentropic.enth - inlet.enth) / axes["efficiency"]
    results["work"] = work
    co2.ph(outlet_pres, inlet.enth + work, out={name: results[name] for name in ("temp", "dens")})


def do_block(path, axes, block):
    evaluate(axes, block, open_memmap(path, mode="r+")[block])


def checkpoint(path, futures):
    """Marks the blocks that are done, once they are on the disk."""
    done = [block for future, block in futures.items()
            if future.done() and not future.cancelled() and not future.exception()]
    with open(path, "rb+") as file:
        os.fsync(file)
    marks = open_memmap(beside(path, "marks.npy"), mode="r+")
    marks[done] = True
    marks.flush()


def beside(path, suffix):
    return path.with_suffix(f".{suffix}")


def open_study(path, axes):
    """Numbers of the blocks that are left of a study, which is made if it does not exist."""
    shape = tuple(map(len, axes.values()))
    if not beside(path, "marks.npy").exists():
        if path.exists():
            sys.exit(f"{path} exists, and is no study: name another file")
        np.savez(beside(path, "axes.npz"), **axes)
        open_memmap(path, mode="w+", dtype=FIELDS, shape=shape)  # sparse: takes no time
        marks = beside(path, "new.npy")
        np.save(marks, np.zeros(shape[0], bool))
        os.replace(marks, beside(path, "marks.npy"))  # last, and at once: it says that all is there
    with np.load(beside(path, "axes.npz")) as known:
        if any(not np.array_equal(known[name], values) for name, values in axes.items()):
            sys.exit(f"{path} is of another study: remove it and what lies beside it, or name another")
    return np.flatnonzero(~np.load(beside(path, "marks.npy"))).tolist()


def start_worker():
    """Leaves interrupts to the parent, which waits for blocks that are begun; ends when that does."""
    signal.signal(signal.SIGINT, signal.SIG_IGN)

    def follow():
        multiprocessing.parent_process().join()
        os._exit(1)

    threading.Thread(target=follow, daemon=True).start()


def run(path, states, processes):
    axes = axes_of(states)
    left, size = open_study(path, axes), axes["temp"].size**3
    with concurrent.futures.ProcessPoolExecutor(processes, initializer=start_worker) as pool, \
            tqdm(total=size * axes["temp"].size, initial=size * (axes["temp"].size - len(left)),
                 unit=" states", unit_scale=True) as bar:
        futures = {pool.submit(do_block, path, axes, block): block for block in left}
        written = time.monotonic()
        try:
            for future in concurrent.futures.as_completed(futures):
                future.result()
                bar.update(size)
                if time.monotonic() - written > CHECKPOINT:
                    checkpoint(path, futures)
                    written = time.monotonic()
        finally:
            pool.shutdown(cancel_futures=True)
            checkpoint(path, futures)
    return size * len(left)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("file", type=pathlib.Path, metavar="FILE.npy")
    parser.add_argument("--states", type=float, default=1e8)
    parser.add_argument("--processes", type=int, help="as many as there are processors by default")
    options = parser.parse_args()
    started = time.perf_counter()
    try:
        done = run(options.file, options.states, options.processes)
    except KeyboardInterrupt:
        sys.exit("interrupted: the same command goes on")
    seconds = time.perf_counter() - started
    used = [resource.getrusage(who) for who in (resource.RUSAGE_SELF, resource.RUSAGE_CHILDREN)]
    processor = sum(one.ru_utime + one.ru_stime for one in used)
    memory = max(one.ru_maxrss for one in used) / 1e3
    print(f"{done:.3g} states in {seconds:.1f} s, {done / seconds / 1e6:.1f} million per second, and "
          f"{processor:.1f} s of processor time; {options.file.stat().st_size / 1e6:.0f} MB, at most "
          f"{memory:.0f} MB of memory per process")


if __name__ == "__main__":
    main()
