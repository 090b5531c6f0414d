#!/usr/bin/python3
"""Draws profiles across the channel and checks the balance of energy: profiles.py FOLDER of a run."""
import pathlib
import sys

import numpy

folder = pathlib.Path(sys.argv[1])
files = sorted(folder.glob("cells_*.csv"))
cells = numpy.concatenate([numpy.loadtxt(file, delimiter=",") for file in files])
inlet, outlet, walls = map(float, files[0].read_text().split("\n")[0].split()[1:])
x, _, _, temp, _ = cells.T
missing = (outlet - inlet) / walls - 1
print(f"{len(files)} processes, {len(cells)} cells, {temp.min():.1f} K to {temp.max():.1f} K")
print(f"enthalpy in {inlet:.4f} W, out {outlet:.4f} W, walls {walls:.4f} W: {missing:+.1e}")

try:
    import matplotlib
except ImportError:
    print("No matplotlib, no figure.")
else:
    matplotlib.use("Agg")
    import matplotlib.pyplot as plt

    figure, axes = plt.subplots(1, 3, figsize=(10, 4), sharey=True, constrained_layout=True)
    for station in numpy.unique(x)[[0, 19, 39, 59, 79]]:
        profile = cells[numpy.abs(x - station) < 1e-9]
        profile = profile[profile[:, 1].argsort()]
        for axis, column in zip(axes, (2, 3, 4)):
            axis.plot(profile[:, column], 1e3 * profile[:, 1], label=f"{1e3 * station:.0f} mm")
    for axis, label in zip(axes, ("velocity, m/s", "temperature, K", "density, kg/m$^3$")):
        axis.set_xlabel(label)
    axes[0].set_ylabel("y, mm")
    axes[0].legend(title="x")
    figure.savefig(folder / "profiles.png", dpi=120)

if not (abs(missing) < 1e-3 and len(files) == 2 and temp.min() < 307 < 309 < temp.max()):
    sys.exit("profiles.py: the energy is not balanced, or the case is another one")
