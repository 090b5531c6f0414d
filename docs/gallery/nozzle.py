#!/usr/bin/python3
"""A converging-diverging nozzle that expands liquid and dense gas into two phases, in equilibrium."""

import numpy as np
from style import co2, draw_dome, plt, save

INLETS = ((290.0, 9000.0), (310.0, 10000.0), (340.0, 10000.0))  # K, kPa, at rest
figure, ((ts_axes, mach_axes), (flux_axes, qual_axes)) = plt.subplots(2, 2, figsize=(9.5, 7.2))

for (temp, pres), colour in zip(INLETS, ("tab:blue", "tab:green", "tab:red")):
    start = co2.tp(temp, pres)
    down = np.linspace(pres, 1500.0, 3000)
    state = co2.ps(down, start.entr, outputs=["temp", "dens", "enth", "qual"], derivatives=["ssnd_eq"])
    velo = np.sqrt(2e3 * np.maximum(start.enth - state.enth, 0.0))  # kJ/kg to m2/s2
    flux = state.dens * velo
    # Choked where the flow is as fast as sound: on the saturation line the speed of sound drops to that
    # of the mixture at once, and the flow may pass from slower to faster there.
    throat = np.argmax(velo >= state.ssnd_eq)
    qual = np.clip(state.qual, 0.0, 1.0)
    text = f"{temp:.0f} K, {pres / 1e3:.0f} MPa"
    for axes, values in ((mach_axes, velo / state.ssnd_eq), (flux_axes, flux / 1e3),
                         (qual_axes, np.where(state.temp < 304.1282, qual, np.nan))):
        axes.plot(down / 1e3, values, color=colour, label=text)
        axes.plot(down[throat] / 1e3, values[throat], "o", color=colour, ms=6, mec="black")
    ts_axes.plot(np.full_like(down, start.entr), state.temp, color=colour)
    ts_axes.plot(start.entr, state.temp[throat], "o", color=colour, ms=6, mec="black")
    print(f"{text}: throat at {down[throat] / 1e3:.3f} MPa, {state.temp[throat]:.2f} K, "
          f"{flux[throat] / 1e3:.2f} t/(m2 s), {velo[throat]:.1f} m/s; "
          f"largest flux at {down[np.argmax(flux)] / 1e3:.3f} MPa")

draw_dome(ts_axes, "entr", "temp")
ts_axes.set(xlabel="specific entropy, kJ/(kg K)", ylabel="temperature, K", ylim=(240.0, 345.0))
mach_axes.set(ylabel="Mach number, equilibrium sound", ylim=(0.0, 2.5))
mach_axes.axhline(1.0, color="black", lw=0.8)
flux_axes.set(ylabel="mass flux, 10³ kg/(m² s)")
qual_axes.set(ylabel="vapour mass fraction")
for axes in (mach_axes, flux_axes, qual_axes):
    axes.set(xlabel="pressure, MPa", xlim=(10.0, 1.5))
mach_axes.legend(loc="upper left")
figure.suptitle("Isentropic expansion from rest; dots: the throat, choked", fontsize=11)
save(figure, __file__)
