#!/usr/bin/python3
"""Pressure-enthalpy diagram with lines of constant temperature, entropy, density and quality."""

import numpy as np
from style import LIMITS, co2, draw_dome, label, plt, save

figure, axes = plt.subplots(figsize=(9.0, 6.4))
pres = np.geomspace(1000.0, 50000.0, 600)

for temp in range(250, 491, 20):  # isobars inside the dome are isotherms: that part is a straight line
    state = co2.tp(temp, pres, outputs=["enth"], errors="nan")
    enth, height = state.enth, pres
    if temp < LIMITS.tcrit:
        line = co2.sat_t(float(temp), outputs=["enth", "pres"])
        place = np.searchsorted(pres, line.vap.pres)
        enth = np.insert(enth, place, [line.vap.enth, line.liq.enth])
        height = np.insert(pres, place, [line.vap.pres] * 2)
    axes.plot(enth, height / 1e3, color="tab:red", lw=0.9)
    if temp < 350 or temp in (350, 390):
        at = np.searchsorted(height, 33000.0 if temp < 350 else 1150.0)
        label(axes, enth[at], height[at] / 1e3, f"{temp} K", "tab:red")

for entr in np.arange(1.0, 2.81, 0.2):
    state = co2.ps(pres, entr, outputs=["enth"], errors="nan")
    axes.plot(state.enth, pres / 1e3, color="tab:blue", lw=0.9, ls="--")
    at = np.nanargmin(np.abs(np.log(pres / 40000.0) + np.maximum(state.enth - 350.0, 0.0) / 80.0))
    label(axes, state.enth[at], pres[at] / 1e3, f"{entr:.1f}", "tab:blue")

for dens in (20, 40, 80, 150, 300, 500, 700, 900, 1000):
    state = co2.dp(dens, pres, outputs=["enth"], errors="nan")
    axes.plot(state.enth, pres / 1e3, color="tab:green", lw=0.9, ls=":")
    at = np.searchsorted(pres, 22000.0) if dens > 300 else np.nanargmin(np.abs(state.enth - 590.0))
    label(axes, state.enth[at], pres[at] / 1e3, f"{dens} kg/m³" if dens < 500 else dens, "tab:green")

under = np.linspace(1283.0, LIMITS.pcrit, 300)
for qual in np.arange(0.2, 0.81, 0.2):
    axes.plot(co2.px(under, qual, outputs=["enth"]).enth, under / 1e3, color="gray", lw=0.8)
    label(axes, co2.px(1600.0, qual).enth, 1.6, f"x = {qual:.1f}", "gray")

draw_dome(axes, "enth", "pres", 1e-3)
axes.set(xlim=(130.0, 650.0), ylim=(1.0, 50.0), yscale="log", xlabel="specific enthalpy, kJ/kg",
         ylabel="pressure, MPa", title="Isotherms (red), isentropes (blue, kJ/(kg K)), isochores "
         "(green), quality (grey)")
axes.set_yticks([1, 2, 3, 5, 7.38, 10, 20, 30, 50], ["1", "2", "3", "5", "7.38", "10", "20", "30", "50"])
axes.minorticks_off()
save(figure, __file__)
