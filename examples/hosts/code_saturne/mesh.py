#!/usr/bin/python3
"""Writes channel.msh: 400 mm by 1 mm, one cell thick; inlet 1, outlet 2, walls 3, sides 4."""
nx, ny = 80, 20
lengths = (0.4, 1e-3, 1e-3)


def node(i, j, k):
    return 1 + i + (nx + 1) * (j + (ny + 1) * k)


def square(i, j):
    return [(i, j), (i + 1, j), (i + 1, j + 1), (i, j + 1)]


nodes = [(i, j, k) for k in range(2) for j in range(ny + 1) for i in range(nx + 1)]
cells, quads = [], []
for i in range(nx):
    for j in range(ny):
        for k in range(2):
            quads.append((4, [node(*corner, k) for corner in square(i, j)]))
        cells.append([node(*corner, k) for k in range(2) for corner in square(i, j)])
for group, i in ((1, 0), (2, nx)):
    quads += [(group, [node(i, j + a, b) for a, b in square(0, 0)]) for j in range(ny)]
quads += [(3, [node(i + a, j, b) for a, b in square(0, 0)]) for j in (0, ny) for i in range(nx)]

elements = [(3, group, corners) for group, corners in quads] + [(5, 5, cell) for cell in cells]
with open("channel.msh", "w", encoding="ascii") as mesh:
    print(f"$MeshFormat\n2.2 0 8\n$EndMeshFormat\n$Nodes\n{len(nodes)}", file=mesh)
    for i, j, k in nodes:
        print(node(i, j, k), lengths[0] * i / nx, lengths[1] * j / ny, lengths[2] * k, file=mesh)
    print(f"$EndNodes\n$Elements\n{len(elements)}", file=mesh)
    for number, (kind, group, corners) in enumerate(elements, 1):
        print(number, kind, 2, group, group, *corners, file=mesh)
    print("$EndElements", file=mesh)
