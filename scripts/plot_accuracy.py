#!/usr/bin/python3
"""Maps of the errors of the library, from the files that `accuracy_report --csv FOLDER` writes.

Usage: scripts/plot_accuracy.py FOLDER DOCS

Reads FOLDER/saturation.csv and, of the other two, what is there. From FOLDER/states.csv it makes
accuracy_<quantity>.png for density, h, cp, w, viscosity and conductivity and accuracy_critical.png
in DOCS; from FOLDER/derivatives.csv, which `accuracy_report --derivatives --csv FOLDER` writes,
accuracy_derivatives.png. Each pixel shows the largest error of the states in it. Needs numpy and
matplotlib.
"""

import os
import sys

import matplotlib

matplotlib.use("Agg")
import matplotlib.pyplot as plt
import numpy as np
from matplotlib.colors import BoundaryNorm
from matplotlib.ticker import FixedLocator, FuncFormatter, NullLocator

T_CRIT, D_CRIT = 304.1282, 467.6
BOX = (302.9, 310.0, 350.0, 580.0)  # K, K, kg/m3, kg/m3

# Column, title, label of the colour bar, file.
DOMAIN_MAPS = (
    ("density", "Density at given temperature and pressure", "relative error"),
    ("h", "Enthalpy", "error, kJ/kg"),
    ("cp", "Isobaric heat capacity", "relative error"),
    ("w", "Speed of sound", "relative error"),
    ("viscosity", "Viscosity", "relative error"),
    ("conductivity", "Thermal conductivity", "relative error"),
)
CRITICAL_MAPS = (
    ("p", "Pressure, relative"),
    ("h", "Enthalpy, kJ/kg"),
    ("cp", "cp, relative"),
    ("cv", "cv, relative"),
    ("w", "Speed of sound, relative"),
    ("conductivity", "Conductivity, relative"),
)
DERIVATIVE_MAPS = (
    ("dpdd_u", "(dp/drho) at constant u"),
    ("dddp_h", "(drho/dp) at constant h"),
    ("dtdp_h", "(dT/dp) at constant h"),
    ("dddh_p", "(drho/dh) at constant p"),
    ("ssnd_eq", "Equilibrium speed of sound"),
    ("fundam", "Fundamental derivative"),
)


def read_csv(path):
    with open(path, encoding="ascii") as file:
        names = file.readline().strip().split(",")
    values = np.loadtxt(path, delimiter=",", skiprows=1)
    return dict(zip(names, values.T))


def largest_in_bins(x, y, size, x_edges, y_edges):
    """Largest size in every bin; NaN in those without a state."""
    i = np.searchsorted(x_edges, x, side="right") - 1
    j = np.searchsorted(y_edges, y, side="right") - 1
    inside = (i >= 0) & (i < len(x_edges) - 1) & (j >= 0) & (j < len(y_edges) - 1)
    grid = np.full((len(y_edges) - 1, len(x_edges) - 1), -np.inf)
    np.maximum.at(grid, (j[inside], i[inside]), np.where(np.isnan(size), np.inf, size)[inside])
    return np.where(grid == -np.inf, np.nan, grid)


def decades(sizes, shown):
    """Half-decade colour levels; one bin in a hundred may lie above the last."""
    values = sizes[np.isfinite(sizes) & (sizes > 0.0)]
    top = np.ceil(2 * np.log10(np.quantile(values, 0.99))) / 2
    return 10.0 ** np.arange(top - shown, top + 0.25, 0.5)


def draw(figure, axes, grid, x_edges, y_edges, shown):
    levels = decades(grid, shown)
    colours = matplotlib.colormaps["viridis"].resampled(len(levels) + 1)
    image = axes.pcolormesh(
        x_edges, y_edges, grid, cmap=colours, norm=BoundaryNorm(levels, colours.N, extend="both")
    )
    image.set_rasterized(True)
    whole = [v for v in levels if abs(np.log10(v) - round(np.log10(v))) < 1e-9]
    bar = figure.colorbar(image, ax=axes, ticks=whole, pad=0.02)
    bar.ax.yaxis.set_major_formatter(FuncFormatter(lambda v, _: f"$10^{{{round(np.log10(v))}}}$"))
    bar.ax.yaxis.set_minor_locator(NullLocator())
    return bar


def domain_map(states, dome, column, title, label, path):
    figure, axes = plt.subplots(figsize=(8.5, 5.2), constrained_layout=True)
    # Densities on a square-root scale: gas and liquid both get room.
    d_edges = np.linspace(0.0, np.sqrt(1260.0), 221) ** 2
    t_edges = np.geomspace(240.0, 1500.0, 171)
    grid = largest_in_bins(states["dens"], states["temp"], np.abs(states[column]), d_edges, t_edges)
    bar = draw(figure, axes, grid, d_edges, t_edges, 4.0)
    bar.set_label(label)
    axes.plot(dome["dens_vap"], dome["temp"], "k", lw=1.0)
    axes.plot(dome["dens_liq"], dome["temp"], "k", lw=1.0)
    axes.add_patch(
        plt.Rectangle((BOX[2], BOX[0]), BOX[3] - BOX[2], BOX[1] - BOX[0], fill=False, ec="r", lw=0.8)
    )
    axes.set_xscale("function", functions=(lambda d: np.sqrt(np.maximum(d, 0)), np.square))
    axes.set_yscale("log")
    axes.set_xlim(0.0, 1260.0)
    axes.set_ylim(240.0, 1500.0)
    axes.xaxis.set_major_locator(FixedLocator([0, 10, 50, 100, 200, 300, 467.6, 600, 800, 1000, 1200]))
    axes.yaxis.set_major_locator(FixedLocator([240, 270, 304, 350, 400, 500, 600, 800, 1000, 1250, 1500]))
    axes.yaxis.set_minor_locator(NullLocator())
    axes.xaxis.set_major_formatter(FuncFormatter(lambda v, _: f"{v:g}"))
    axes.yaxis.set_major_formatter(FuncFormatter(lambda v, _: f"{v:g}"))
    axes.set_xlabel("density, kg/m3")
    axes.set_ylabel("temperature, K")
    axes.set_title(title)
    save(figure, path)


def critical_map(states, dome, maps, bins, title, path):
    figure, all_axes = plt.subplots(3, 2, figsize=(10.0, 10.5), constrained_layout=True)
    # Linear within 0.02 K of the critical temperature, logarithmic in the distance beyond.
    width = 0.02
    scale = (
        lambda t: np.arcsinh((t - T_CRIT) / width),
        lambda u: T_CRIT + width * np.sinh(np.clip(u, -12.0, 12.0)),
    )
    d_edges = np.linspace(BOX[2], BOX[3], bins[0] + 1)
    t_edges = scale[1](np.linspace(scale[0](302.0), scale[0](310.0), bins[1] + 1))
    inside = (states["temp"] > 302.0) & (states["temp"] < 310.0)
    for axes, (column, name) in zip(all_axes.flat, maps):
        # An error of 0 stands for what was not compared.
        shown = inside & (states[column] != 0.0)
        grid = largest_in_bins(
            states["dens"][shown],
            states["temp"][shown],
            np.abs(states[column][shown]),
            d_edges,
            t_edges,
        )
        draw(figure, axes, grid, d_edges, t_edges, 5.0)
        axes.plot(dome["dens_vap"], dome["temp"], "k", lw=1.0)
        axes.plot(dome["dens_liq"], dome["temp"], "k", lw=1.0)
        axes.axhline(304.14, color="r", lw=0.6)
        axes.set_yscale("function", functions=scale)
        axes.set_xlim(BOX[2], BOX[3])
        axes.set_ylim(302.0, 310.0)
        axes.yaxis.set_major_locator(FixedLocator([302, 303, 303.8, 304.05, 304.1282, 304.2, 304.4, 305, 307, 310]))
        axes.yaxis.set_major_formatter(FuncFormatter(lambda v, _: f"{v:g}"))
        axes.set_title(name, fontsize=10)
    if title:
        figure.suptitle(title, fontsize=11)
    for axes in all_axes[-1, :]:
        axes.set_xlabel("density, kg/m3")
    for axes in all_axes[:, 0]:
        axes.set_ylabel("temperature, K")
    save(figure, path)


def save(figure, path):
    """Saved without metadata that changes from run to run, in a palette: small and reproducible."""
    from PIL import Image

    figure.savefig(path, dpi=100, metadata={"Software": None})
    plt.close(figure)
    Image.open(path).convert("RGB").quantize(64, dither=Image.Dither.NONE).save(path, optimize=True)


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    folder, docs = sys.argv[1:]
    dome = read_csv(os.path.join(folder, "saturation.csv"))
    if os.path.exists(path := os.path.join(folder, "states.csv")):
        states = read_csv(path)
        for column, title, label in DOMAIN_MAPS:
            image = os.path.join(docs, f"accuracy_{column}.png")
            domain_map(states, dome, column, title, label, image)
        image = os.path.join(docs, "accuracy_critical.png")
        critical_map(states, dome, CRITICAL_MAPS, (140, 120), None, image)
    if os.path.exists(path := os.path.join(folder, "derivatives.csv")):
        image = os.path.join(docs, "accuracy_derivatives.png")
        title = "Relative errors of derivatives, of both phases and of mixtures"
        critical_map(read_csv(path), dome, DERIVATIVE_MAPS, (70, 60), title, image)


if __name__ == "__main__":
    main()
