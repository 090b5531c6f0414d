#!/usr/bin/python3
"""The compressor of a Brayton cycle near the critical point: over its inlet, and as a map of a machine."""

import numpy as np
from style import co2, plt, save

EFFICIENCY, TURBINE_EFFICIENCY, HIGH_PRES = 0.89, 0.93, 20000.0
figure, ((work_axes, temp_axes), (share_axes, map_axes)) = plt.subplots(2, 2, figsize=(9.5, 7.4))

temp, pres = np.linspace(304.5, 330.0, 300), np.linspace(7400.0, 10000.0, 300)[:, None]
inlet = co2.tp(temp, pres, outputs=["enth", "entr"])
work = (co2.ps(HIGH_PRES, inlet.entr, outputs=["enth"]).enth - inlet.enth) / EFFICIENCY
outlet = co2.ph(HIGH_PRES, inlet.enth + work, outputs=["temp"])
hot = co2.tp(823.15, HIGH_PRES)
turbine = (hot.enth - co2.ps(pres, hot.entr, outputs=["enth"]).enth) * TURBINE_EFFICIENCY
for axes, values, steps, title in (
        (work_axes, work, np.arange(15, 61, 5), "work to 20 MPa, kJ/kg"),
        (temp_axes, outlet.temp, np.arange(320, 421, 10), "outlet temperature, K"),
        (share_axes, 100.0 * work / turbine, np.arange(10, 51, 5), "work, % of the turbine's")):
    axes.grid(False)
    axes.contourf(temp, pres[:, 0] / 1e3, values, steps, cmap="viridis", alpha=0.85, extend="both")
    lines = axes.contour(temp, pres[:, 0] / 1e3, values, steps, colors="black", linewidths=0.6)
    axes.clabel(lines, fontsize=8)
    axes.set(title=title, xlabel="inlet temperature, K", ylabel="inlet pressure, MPa")

# A machine whose head and efficiency depend on the flow coefficient alone, by assumed parabolas.
DIAMETER, flow = 0.1, np.linspace(0.02, 0.06, 80)
head = 0.55 * (1.0 - ((flow - 0.015) / 0.07) ** 2)  # isentropic, over the tip speed squared
for (temp_in, pres_in), colour in (((305.0, 7700.0), "tab:blue"), ((310.0, 7700.0), "tab:green"),
                                   ((320.0, 7700.0), "tab:red")):
    start = co2.tp(temp_in, pres_in)
    for speed in (140.0, 170.0, 200.0):  # of the tip, m/s
        end = co2.hs(start.enth + head * speed**2 / 1e3, start.entr, outputs=["pres"])
        mass_flow = flow * start.dens * speed * DIAMETER**2
        ratio = end.pres / pres_in
        map_axes.plot(mass_flow, ratio, color=colour,
                      label=f"inlet {temp_in:.0f} K, {start.dens:.0f} kg/m³" if speed == 140.0 else None)
        if temp_in == 305.0:
            map_axes.text(mass_flow[0], ratio[0] + 0.03, f"{speed:.0f} m/s", color=colour, fontsize=8)
map_axes.set(title="one machine, inlet at 7.7 MPa, tip speeds", xlabel="mass flow, kg/s",
             ylabel="pressure ratio", ylim=(1.0, 3.6))
map_axes.legend(loc="upper right")
save(figure, __file__)
