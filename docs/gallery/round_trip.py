#!/usr/bin/python3
"""How well a state comes back: (T, rho) to (p, h) by td and back by ph, over the whole range."""

import numpy as np
from matplotlib.colors import LogNorm
from style import co2, draw_dome, plt, save

figure, all_axes = plt.subplots(1, 2, figsize=(10.5, 5.0), sharey=True)
temp = np.geomspace(240.1, 1499.0, 420)[:, None]
dens = np.linspace(0.3, np.sqrt(1250.0), 520) ** 2  # gas and liquid both get room

there = co2.td(temp, dens, outputs=["pres", "enth", "qual"], errors="nan")  # not beyond 100 MPa
back = co2.ph(there.pres, there.enth, outputs=["temp", "dens"], errors="nan")
known = np.isfinite(there.pres)
mixture = (there.qual >= 0.0) & (there.qual <= 1.0)
print(f"{known.sum()} states, {(known & (back.ierr > 0)).sum()} without a way back")

for axes, now, then, title in ((all_axes[0], back.temp, temp, "temperature"),
                               (all_axes[1], back.dens, dens, "density")):
    error = np.abs(now / then - 1.0)
    for where, some in (("one phase", known & ~mixture), ("two phases", known & mixture)):
        print(f"{title}, {where}: half below {np.median(error[some]):.1e}, at worst {error[some].max():.1e}")
    axes.set_facecolor("0.85")
    axes.grid(False)
    image = axes.pcolormesh(dens, temp[:, 0], np.maximum(error, 1e-16), cmap="viridis",
                            norm=LogNorm(1e-16, 1e-5), rasterized=True)
    draw_dome(axes, "dens", "temp")
    axes.set_xscale("function", functions=(lambda d: np.sqrt(np.maximum(d, 0.0)), np.square))
    axes.set_yscale("log")
    axes.set(title=f"relative deviation of {title}", xlabel="density, kg/m³", xlim=(0.0, 1250.0),
             ylim=(240.0, 1500.0))
    axes.set_xticks([0, 20, 100, 200, 300, 467.6, 700, 900, 1200], "0 20 100 200 300 467.6 700 900 1200".split())
    axes.set_yticks([240, 304, 400, 500, 700, 1000, 1500], "240 304 400 500 700 1000 1500".split())
    axes.minorticks_off()
all_axes[0].set_ylabel("temperature, K")
figure.colorbar(image, ax=all_axes, extend="min")
save(figure, __file__)
