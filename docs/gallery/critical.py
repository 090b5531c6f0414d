#!/usr/bin/python3
"""Density and isobaric heat capacity along isobars and over the plane around the critical point."""

import numpy as np
from matplotlib.colors import LogNorm
from style import LIMITS, co2, dome, plt, save

figure, ((dens_axes, cp_axes), (dens_map, cp_map)) = plt.subplots(2, 2, figsize=(9.5, 7.2), sharex=True)

temp = np.linspace(295.0, 325.0, 1201)
isobars = (6.5, 7.0, 7.38, 8.0, 9.0, 10.0)
for pres, colour in zip(isobars, plt.get_cmap("viridis")(np.linspace(0.0, 0.9, len(isobars)))):
    state = co2.tp(temp, 1e3 * pres, outputs=["dens", "cp"])
    dens_axes.plot(temp, state.dens, color=colour)
    cp_axes.plot(temp, state.cp, color=colour, label=f"{pres:g} MPa")
dens_axes.set(ylabel="density, kg/m³")
cp_axes.set(ylabel="cp, kJ/(kg K)", yscale="log")
cp_axes.legend()

pres = np.linspace(6500.0, 10000.0, 600)
state = co2.tp(temp, pres[:, None], outputs=["dens", "cp"])
line = dome()
ridge = pres[pres > LIMITS.pcrit]
of_ridge = np.argmax(state.cp[pres > LIMITS.pcrit], axis=1)
for axes, values, norm, unit in ((dens_map, state.dens, None, "density, kg/m³"),
                                 (cp_map, state.cp, LogNorm(1.0, 100.0), "cp, kJ/(kg K)")):
    axes.grid(False)
    image = axes.pcolormesh(temp, pres / 1e3, values, norm=norm, cmap="magma", rasterized=True)
    figure.colorbar(image, ax=axes, label=unit, extend="max" if norm else "neither")
    axes.plot(line.liq.temp, line.liq.pres / 1e3, color="white", lw=2.0)
    axes.plot(temp[of_ridge], ridge / 1e3, color="white", lw=1.2, ls="--")
    axes.plot(LIMITS.tcrit, LIMITS.pcrit / 1e3, "wo", ms=5, mec="black")
    axes.set(xlabel="temperature, K", ylabel="pressure, MPa", xlim=(295.0, 325.0), ylim=(6.5, 10.0))
figure.suptitle("Saturation line and critical point (white), largest cp of an isobar (dashed)", fontsize=11)
save(figure, __file__)
