#!/usr/bin/python3
"""A transcritical heat pump: its cycle, and the high pressure that serves best."""

import numpy as np
from style import co2, draw_dome, plt, save

EVAPORATION, SUPERHEAT, EFFICIENCY = 268.15, 5.0, 0.75  # K, K, isentropic efficiency
LOW_PRES = co2.sat_t(EVAPORATION).vap.pres
inlet = co2.tp(EVAPORATION + SUPERHEAT, LOW_PRES)
high_pres = np.linspace(7500.0, 15000.0, 1501)


def compressed(pres):
    """Enthalpy at the outlet of the compressor."""
    return inlet.enth + (co2.ps(pres, inlet.entr, outputs=["enth"]).enth - inlet.enth) / EFFICIENCY


def heating(pres, cooled_to):
    """Heat that is given over the work that is taken."""
    hot = compressed(pres)
    return (hot - co2.tp(cooled_to, pres, outputs=["enth"]).enth) / (hot - inlet.enth)


figure, (ph_axes, cop_axes) = plt.subplots(1, 2, figsize=(10.0, 4.8))
for cooled_to, colour in ((308.15, "tab:blue"), (313.15, "tab:green"), (318.15, "tab:orange"),
                          (323.15, "tab:red")):
    cop = heating(high_pres, cooled_to)
    best = np.argmax(cop)
    cop_axes.plot(high_pres / 1e3, cop, color=colour, label=f"{cooled_to - 273.15:.0f} °C")
    cop_axes.plot(high_pres[best] / 1e3, cop[best], "o", color=colour, mec="black")
    print(f"gas cooled to {cooled_to:.2f} K: best at {high_pres[best] / 1e3:.2f} MPa, {cop[best]:.3f}")
    if cooled_to in (308.15, 323.15):
        pres = high_pres[best]
        end = co2.tp(cooled_to, pres).enth
        real = np.geomspace(LOW_PRES, pres, 50)  # drawn as if the losses came evenly
        isotherm = np.geomspace(2000.0, 30000.0, 400)
        ph_axes.plot(np.concatenate([compressed(real), [end, end, inlet.enth]]),
                     np.concatenate([real, [pres, LOW_PRES, LOW_PRES]]) / 1e3, color=colour, lw=2.0)
        over = co2.tp(cooled_to, isotherm, outputs=["enth"])
        ph_axes.plot(over.enth, isotherm / 1e3, color=colour, lw=0.9, ls="--",
                     label=f"isotherm {cooled_to - 273.15:.0f} °C")
draw_dome(ph_axes, "enth", "pres", 1e-3)
ph_axes.set(yscale="log", xlim=(180.0, 560.0), ylim=(2.0, 20.0), xlabel="specific enthalpy, kJ/kg",
            ylabel="pressure, MPa", title="cycle at its best high pressure")
ph_axes.set_yticks([2, 3, 5, 7, 10, 15, 20], ["2", "3", "5", "7", "10", "15", "20"])
ph_axes.minorticks_off()
ph_axes.legend(loc="lower center")
cop_axes.set(xlabel="high pressure, MPa", ylabel="heat given / work taken", ylim=(1.0, 3.5),
             title="evaporation at −5 °C; gas cooled to")
cop_axes.legend(loc="lower right")
save(figure, __file__)
