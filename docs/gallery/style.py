"""What the pictures of the gallery have in common: style, saturation dome, file format."""

import pathlib
import sys

import matplotlib

matplotlib.use("Agg")
import matplotlib.pyplot as plt
import numpy as np
from PIL import Image

import co2_properties as co2

LIMITS = co2.info()
plt.rcParams.update({
    "figure.constrained_layout.use": True, "figure.figsize": (8.0, 5.2), "font.size": 10,
    "axes.grid": True, "grid.alpha": 0.25, "axes.titlesize": 11, "lines.linewidth": 1.6,
    "legend.fontsize": 9, "legend.framealpha": 0.9})


def dome(points=400):
    """Saturated liquid and vapour from the lowest temperature to the critical point, denser there."""
    temp = LIMITS.tcrit - (LIMITS.tcrit - LIMITS.tsatmin) * np.linspace(1.0, 0.0, points) ** 3
    return co2.sat_t(temp)


def draw_dome(axes, x, y, scale=1.0):
    """The line of both phases, liquid first; `scale` is for the vertical axis."""
    line = dome()
    axes.plot(np.append(line.liq[x], line.vap[x][::-1]),
              scale * np.append(line.liq[y], line.vap[y][::-1]), color="black", lw=1.8, zorder=3)


def label(axes, x, y, text, colour, **options):
    """A small text on a white ground, as that of an isoline."""
    axes.text(x, y, text, color=colour, fontsize=8, ha="center", va="center", zorder=4,
              clip_on=True, bbox={"fc": "white", "ec": "none", "pad": 0.8}, **options)


def save(figure, script):
    """Writes SCRIPT.png into the folder that the command names, or beside the script: in a palette and
    without metadata, small and the same from run to run."""
    script = pathlib.Path(script)
    folder = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else script.parent
    path = folder / f"{script.stem}.png"
    figure.savefig(path, dpi=110, metadata={"Software": None})
    Image.open(path).convert("RGB").quantize(256, dither=Image.Dither.NONE).save(path, optimize=True)
