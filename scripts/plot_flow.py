#!/usr/bin/python3
"""Profiles of a shock tube and of a pipe that empties, from the files of `flow --csv FOLDER`.

Usage: scripts/plot_flow.py FOLDER DOCS

Reads tube.csv and pipe.csv, writes flow_tube.png and flow_pipe.png into DOCS. Needs numpy and
matplotlib.
"""

import csv
import os
import sys

import matplotlib

matplotlib.use("Agg")
import matplotlib.pyplot as plt
import numpy as np


def read_profiles(path):
    """Columns as arrays, a NaN where a field is empty, in a list with one entry for each time."""
    with open(path, encoding="ascii", newline="") as file:
        rows = list(csv.DictReader(file))
    profiles = {}
    for row in rows:
        profiles.setdefault(row["time"], []).append(row)
    return [
        {name: np.array([float(row[name] or "nan") for row in part]) for name in part[0]}
        for part in profiles.values()
    ]


def save(figure, path):
    """Saved without metadata that changes from run to run, in a palette: small and reproducible."""
    from PIL import Image

    figure.savefig(path, dpi=110, metadata={"Software": None})
    plt.close(figure)
    Image.open(path).convert("RGB").quantize(64, dither=Image.Dither.NONE).save(path, optimize=True)


def finish(all_axes, length):
    for axes in all_axes.flat:
        axes.set_xlim(0.0, length)
        axes.grid(alpha=0.3)
    for axes in all_axes[-1]:
        axes.set_xlabel("x, m")


def draw_tube(profile, path):
    panels = [
        ("dens", 1.0, "density, kg/m³"),
        ("pres", 1e-3, "pressure, MPa"),
        ("velo", 1.0, "velocity, m/s"),
        ("temp", 1.0, "temperature, K"),
    ]
    figure, all_axes = plt.subplots(2, 2, figsize=(9.0, 6.2), sharex=True, constrained_layout=True)
    x = profile["x"]
    for axes, (name, unit, label) in zip(all_axes.flat, panels):
        axes.plot(x, unit * profile[name + "_exact"], color="black", lw=1.2, label="exact")
        axes.plot(
            x, unit * profile[name], "o", ms=3.0, mfc="none", mew=0.7, color="tab:red",
            label=f"{len(x)} cells",
        )
        axes.set_ylabel(label)
    all_axes[0, 0].legend(loc="upper right", fontsize=9)
    finish(all_axes, x[0] + x[-1])
    figure.suptitle(f"Shock tube after {1e3 * profile['time'][0]:.2f} ms", fontsize=12)
    save(figure, path)


def draw_pipe(profiles, path):
    panels = [
        ("pres", 1e-3, "pressure, MPa"),
        ("dens", 1.0, "density, kg/m³"),
        ("velo", 1.0, "velocity, m/s"),
        ("qual", 1.0, "vapour mass fraction"),
    ]
    figure, all_axes = plt.subplots(2, 2, figsize=(9.0, 6.2), sharex=True, constrained_layout=True)
    colours = plt.get_cmap("viridis")(np.linspace(0.0, 0.85, len(profiles)))
    for axes, (name, unit, label) in zip(all_axes.flat, panels):
        for profile, colour in zip(profiles, colours):
            x = profile["x"]
            time = f"{1e3 * profile['time'][0]:.0f} ms"
            values = np.nan_to_num(profile[name]) if name == "qual" else profile[name]
            axes.plot(x, unit * values, color=colour, lw=1.6, label=time)
            exact = profile.get(name + "_exact")
            if exact is not None and np.isfinite(exact).all():
                axes.plot(x, unit * exact, color="tab:red", lw=1.2, ls=(0, (4, 3)),
                          label=f"{time}, exact")
        axes.set_ylabel(label)
        axes.set_ylim(bottom=0.0)
    all_axes[0, 0].legend(loc="upper right", fontsize=9)
    finish(all_axes, x[0] + x[-1])
    figure.suptitle("Pipe opened at its right end", fontsize=12)
    save(figure, path)


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    folder, docs = sys.argv[1:]
    draw_tube(read_profiles(os.path.join(folder, "tube.csv"))[0], os.path.join(docs, "flow_tube.png"))
    draw_pipe(read_profiles(os.path.join(folder, "pipe.csv")), os.path.join(docs, "flow_pipe.png"))


if __name__ == "__main__":
    main()
