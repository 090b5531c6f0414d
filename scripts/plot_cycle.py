#!/usr/bin/python3
"""Diagrams of a recompression Brayton cycle, from the files that `brayton --csv FOLDER` writes.

Usage: scripts/plot_cycle.py FOLDER DOCS

Writes brayton_ts.png, brayton_ph.png and brayton_recuperators.png into DOCS. Needs numpy and
matplotlib.
"""

import csv
import os
import sys

import matplotlib

matplotlib.use("Agg")
import matplotlib.pyplot as plt
import numpy as np
from matplotlib.ticker import FixedLocator, FuncFormatter, NullLocator

# Colour and name in the legend of the process lines whose name has the key in it.
STYLES = {
    "compressor": ("tab:blue", "compressors"),
    "turbine": ("tab:purple", "turbine"),
    "heater": ("tab:red", "heater"),
    "cooler": ("tab:cyan", "cooler"),
    "low-temperature": ("tab:green", "low-temperature recuperator"),
    "high-temperature": ("tab:orange", "high-temperature recuperator"),
}


def read_csv(path):
    """Rows with numbers where a field is one; the number of a state point stays a text."""

    def value(name, text):
        try:
            return text if name == "point" else float(text)
        except ValueError:
            return text

    with open(path, encoding="ascii", newline="") as file:
        rows = list(csv.DictReader(file))
    return [{name: value(name, text) for name, text in row.items()} for row in rows]


def column(rows, name):
    return np.array([row[name] for row in rows])


def groups(rows, name):
    """The rows with each value of a column, in the order of the file."""
    keys = dict.fromkeys(column(rows, name))
    return {key: [row for row in rows if row[name] == key] for key in keys}


def style(process):
    return next(STYLES[key] for key in STYLES if key in process)


def draw_lines(axes, lines, x, y):
    seen = set()
    for process, rows in groups(lines, "process").items():
        colour, label = style(process)
        axes.plot(
            column(rows, x),
            column(rows, y),
            color=colour,
            lw=1.8,
            label=None if label in seen else label,
        )
        seen.add(label)


def draw_points(axes, states, x, y, offsets):
    """Real state points with their numbers; those that share a place share a label."""
    places = {}
    for state in states:
        if state["point"].endswith("s"):
            continue
        spot = tuple(axes.transData.transform((state[x], state[y])))
        near = next((s for s in places if np.hypot(s[0] - spot[0], s[1] - spot[1]) < 6.0), spot)
        places.setdefault(near, []).append(state)
    for shared in places.values():
        axes.plot(shared[0][x], shared[0][y], "o", ms=5, mfc="white", mec="black", zorder=3)
        axes.annotate(
            ", ".join(state["point"] for state in shared),
            (shared[0][x], shared[0][y]),
            textcoords="offset points",
            xytext=offsets.get(shared[0]["point"], (6, 6)),
            fontsize=10,
            ha="center",
            va="center",
        )


def draw_dome(axes, dome, x, y):
    """The saturation line; `x` is enth or entr, `y` temp or pres."""
    values = np.concatenate([column(dome, x + "_liq"), column(dome, x + "_vap")[::-1]])
    heights = np.concatenate([column(dome, y), column(dome, y)[::-1]])
    axes.fill(values, heights, color="0.93", zorder=0)
    axes.plot(values, heights, "k", lw=1.0)
    axes.plot(values[len(dome) - 1], dome[-1][y], "k^", ms=5, label="critical point")


def diagram_ts(states, lines, dome, path):
    figure, axes = plt.subplots(figsize=(7.5, 5.4), constrained_layout=True)
    draw_dome(axes, dome, "entr", "temp")
    draw_lines(axes, lines, "entr", "temp")
    axes.set_ylim(240.0, 1.06 * column(states, "temp").max())
    axes.set_xlabel("entropy, kJ/(kg K)")
    axes.set_ylabel("temperature, K")
    axes.grid(alpha=0.3)
    axes.legend(loc="upper left", fontsize=9)
    offsets = {"1": (-9, 6), "2": (-9, 6), "3": (-16, 10), "6": (-10, 7)}
    offsets |= {"7": (0, 11), "8": (12, 0), "9": (9, -9), "10": (14, -4)}
    draw_points(axes, states, "entr", "temp", offsets)
    save(figure, path)


def diagram_ph(states, lines, dome, path):
    figure, axes = plt.subplots(figsize=(7.5, 5.4), constrained_layout=True)
    draw_dome(axes, dome, "enth", "pres")
    draw_lines(axes, lines, "enth", "pres")
    axes.set_yscale("log")
    axes.set_ylim(3000.0, 1.6 * column(states, "pres").max())
    ticks = [3000, 4000, 5000, 7000, 10000, 15000, 20000, 25000, 30000]
    axes.yaxis.set_major_locator(FixedLocator(ticks))
    axes.yaxis.set_minor_locator(NullLocator())
    axes.yaxis.set_major_formatter(FuncFormatter(lambda v, _: f"{v / 1000:g}"))
    axes.set_xlabel("enthalpy, kJ/kg")
    axes.set_ylabel("pressure, MPa")
    axes.grid(alpha=0.3)
    axes.legend(loc="lower right", fontsize=9)
    offsets = {point: (0, -12) for point in ("8", "9", "10")}
    offsets |= {point: (0, 12) for point in ("2", "3", "6", "7")}
    draw_points(axes, states, "enth", "pres", offsets | {"1": (-11, 0)})
    save(figure, path)


def diagram_recuperators(recuperators, path):
    figure, all_axes = plt.subplots(
        2, 2, figsize=(9.0, 5.6), sharex="col", height_ratios=[3, 2], constrained_layout=True
    )
    for i, (name, rows) in enumerate(groups(recuperators, "recuperator").items()):
        duty, hot, cold = (column(rows, key) for key in ("duty", "temp_hot", "temp_cold"))
        pinch = np.argmin(hot - cold)
        upper, lower = all_axes[:, i]
        upper.plot(duty, hot, color="tab:red", label="hot side")
        upper.plot(duty, cold, color="tab:blue", label="cold side")
        upper.set_title(f"{name} recuperator", fontsize=11)
        upper.legend(loc="upper left", fontsize=9)
        lower.plot(duty, hot - cold, color="black", lw=1.5)
        label = f"pinch {(hot - cold)[pinch]:.2f} K"
        spot = (duty[pinch], (hot - cold)[pinch])
        lower.plot(*spot, "o", color="tab:red", clip_on=False, label=label)
        lower.legend(loc="best", fontsize=9)
        lower.set_xlim(0.0, duty[-1])
        lower.set_ylim(bottom=0.0, top=1.15 * (hot - cold).max())
        lower.set_xlabel("duty from the cold end, kJ/kg")
        for axes in (upper, lower):
            axes.grid(alpha=0.3)
    all_axes[0, 0].set_ylabel("temperature, K")
    all_axes[1, 0].set_ylabel("difference, K")
    save(figure, path)


def save(figure, path):
    """Saved without metadata that changes from run to run, in a palette: small and reproducible."""
    from PIL import Image

    figure.savefig(path, dpi=110, metadata={"Software": None})
    plt.close(figure)
    Image.open(path).convert("RGB").quantize(64, dither=Image.Dither.NONE).save(path, optimize=True)


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    folder, docs = sys.argv[1:]
    states, lines, recuperators, dome = (
        read_csv(os.path.join(folder, name + ".csv"))
        for name in ("states", "lines", "recuperators", "saturation")
    )
    diagram_ts(states, lines, dome, os.path.join(docs, "brayton_ts.png"))
    diagram_ph(states, lines, dome, os.path.join(docs, "brayton_ph.png"))
    diagram_recuperators(recuperators, os.path.join(docs, "brayton_recuperators.png"))


if __name__ == "__main__":
    main()
