#!/usr/bin/python3
"""Checks mass and energy of the closed room: balance.py CASE.

Mass stays, and the internal energy of the room, the integral of (rho h - p), grows by the heat that comes
through the walls. That is looked at in the second half: at first a step is long for the layer on the
hot floor, and from the start on the two differ by 12 %, with half the step by 4 %."""
import pathlib
import sys


def rows(name):
    """Numbers of the table of a function object; a patch has a name, which is left out."""
    (file,) = pathlib.Path(sys.argv[1], "postProcessing", name).glob("0/*.dat")
    lines = [line.split() for line in file.read_text().split("\n") if line and line[0] != "#"]
    return [[float(word) for word in line if not word[0].isalpha()] for line in lines]


heat = {}  # W, by time
for time, _, _, watts in rows("wallHeatFlux"):
    heat[time] = heat.get(time, 0) + watts
mass, energy = {}, {}
for (time, kg, pressure), (_, enthalpy) in zip(rows("integral"), rows("enthalpy")):
    mass[time] = kg
    energy[time] = enthalpy - pressure

times = sorted(mass)
half = times[len(times) // 2 - 1 :]
lost = mass[times[-1]] / mass[times[0]] - 1
gained = energy[half[-1]] - energy[half[0]]
taken = sum((b - a) * (heat[a] + heat[b]) / 2 for a, b in zip(half, half[1:]))
print(f"{mass[times[0]]:.1f} kg, at the end {lost:+.1e} of it")
print(f"{half[0]:g} s to {half[-1]:g} s: energy {gained:.5g} J, heat {taken:.5g} J: {gained / taken - 1:+.1e}")
if not (abs(lost) < 1e-9 and abs(gained / taken - 1) < 0.02):
    sys.exit("balance.py: mass or energy is not balanced")
