#!/usr/bin/python3
"""Temperature-entropy diagram with lines of constant pressure, enthalpy and density."""

import numpy as np
from style import LIMITS, co2, draw_dome, label, plt, save

figure, axes = plt.subplots(figsize=(9.0, 6.4))
entr = np.linspace(0.8, 2.9, 700)

for pres in (1.5, 2.5, 4, 6, 7.38, 9, 12, 20, 40, 80):
    state = co2.ps(1e3 * pres, entr, outputs=["temp"], errors="nan")
    axes.plot(entr, state.temp, color="tab:red", lw=0.9)
    height = 438.0 if pres == 7.38 else 455.0
    at = np.nanargmin(np.abs(state.temp - height))
    label(axes, entr[at], height, f"{pres:g}", "tab:red")

temp = np.linspace(240.0, 480.0, 600)
for enth in range(200, 601, 50):
    state = co2.hs(enth, entr, outputs=["temp"], errors="nan")
    axes.plot(entr, state.temp, color="tab:blue", lw=0.9, ls="--")
    near = np.flatnonzero(np.abs(state.temp - (395.0 if enth > 400 else 256.0)) < 3.0)
    if near.size:
        label(axes, entr[near[-1]], state.temp[near[-1]], f"{enth} kJ/kg", "tab:blue")

for dens in (20, 50, 100, 200, 467.6, 700, 900):
    state = co2.td(temp, dens, outputs=["entr"], errors="nan")
    axes.plot(state.entr, temp, color="tab:green", lw=0.9, ls=":")
    at = np.searchsorted(temp, 345.0)
    label(axes, state.entr[at], temp[at], f"{dens:g}", "tab:green")

draw_dome(axes, "entr", "temp")
axes.plot(co2.td(LIMITS.tcrit, LIMITS.dcrit).entr, LIMITS.tcrit, "ko", ms=4)
axes.set(xlim=(0.8, 2.9), ylim=(240.0, 480.0), xlabel="specific entropy, kJ/(kg K)",
         ylabel="temperature, K", title="Isobars (red, MPa), isenthalps (blue), isochores (green, kg/m³)")
save(figure, __file__)
