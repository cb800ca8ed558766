#!/usr/bin/env python3
"""How much a rigid base under an elastic layer takes from the settlement of a piled raft: exactly, and
by subtracting the half-space's settlement at the depth of the base (Steinbrenner, 1934).

    build/release/hosts/slab/slab examples/piled-raft.toml --quiet --json raft.json
    tools/layer_correction.py raft.json --modulus 20 --poisson 0.3 --thickness 20

The loads on shafts, bases and raft stay those of the results. A point load at depth c in the layer is
taken to pieces J0(kr) (Hankel transform); in each the Love function is (A + Bz) exp(-kz) + (C + Dz)
exp(kz). The field to add to the half-space's frees the surface and holds the base in both directions.
Needs NumPy.
"""

import argparse
import json
import math

import numpy as np


class Layer:
    def __init__(self, modulus, poisson, thickness):
        self.nu = poisson
        self.G = modulus / (2 * (1 + poisson))
        self.H = thickness
        x, w = np.polynomial.legendre.leggauss(60)
        last = 60 / thickness  # exp(-k H) is 1e-26 there
        self.k, self.weights = (x + 1) / 2 * last, w / 2 * last
        self.bessel_angles = np.sin((np.arange(64) + 0.5) * math.pi / 64)
        self.known = {}

    def states(self, k, z, top, bottom):
        """Rows u, w, sigma, tau; columns of A, B with exp(-k (z - top)), C, D with exp(k (z - bottom))."""
        nu, columns = self.nu, []
        for sign, origin in ((-k, top), (k, bottom)):
            e = math.exp(sign * (z - origin))
            powers = [sign**n * e for n in range(4)]
            products = [z * sign**n * e + (n * sign ** (n - 1) * e if n else 0) for n in range(4)]
            for f, f1, f2, f3 in (powers, products):
                columns.append(
                    [k * f1 / (2 * self.G),
                     ((1 - 2 * nu) * f2 - 2 * (1 - nu) * k * k * f) / (2 * self.G),
                     (1 - nu) * f3 - (2 - nu) * k * k * f1,
                     k * (nu * f2 + (1 - nu) * k * k * f)])
        return np.array(columns).T

    def half_space_at_base(self, k, c):
        """u and w of the half-space at depth H by a point load 1 at depth c."""
        below = self.states(k, c, c, c)
        jump = -k / (2 * math.pi)
        if c == 0:
            constants = np.linalg.solve(below[2:, :2], [jump, 0])
        else:
            matrix, right = np.zeros((6, 6)), np.zeros(6)
            matrix[:2, :4] = self.states(k, 0, 0, c)[2:]
            matrix[2:, :4] = -self.states(k, c, 0, c)
            matrix[2:, 4:] = below[:, :2]
            right[4] = jump
            constants = solve_scaled(matrix, right)[4:]
        return self.states(k, self.H, c, c)[:2, :2] @ constants

    def pieces(self, c, z):
        """For each k what is to be added to w of the half-space: exactly, and by subtraction."""
        if (c, z) not in self.known:
            rows = []
            for k in self.k:
                u, w = self.half_space_at_base(k, c)
                matrix = np.vstack((self.states(k, 0, 0, self.H)[2:],
                                    self.states(k, self.H, 0, self.H)[:2]))
                constants = solve_scaled(matrix, np.array([0, 0, -u, -w]))
                rows.append([(self.states(k, z, 0, self.H) @ constants)[1], -w])
            self.known[c, z] = np.array(rows)
        return self.known[c, z]

    def correction(self, r, c, z):
        bessel = np.cos(np.outer(self.k * r, self.bessel_angles)).mean(axis=1)
        return (self.weights * bessel) @ self.pieces(c, z)


def solve_scaled(matrix, right):
    scale = np.abs(matrix).max(axis=0)
    return np.linalg.solve(matrix / scale, right) / scale


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("results")
    for name in ("modulus", "poisson", "thickness"):
        parser.add_argument("--" + name, type=float, required=True)
    parser.add_argument("--length", type=float, default=10, help="of the piles")
    arguments = parser.parse_args()
    layer = Layer(arguments.modulus, arguments.poisson, arguments.thickness)
    with open(arguments.results) as file:
        results = json.load(file)
    nodes = results["nodes"]
    loads = [(n["x"], n["y"], 0, n["contact_force"]) for n in nodes if n["contact_force"]]
    for pile in results["piles"]:
        head, count = nodes[pile["node"] - 1], len(pile["segments"])
        for i, force in enumerate(pile["segments"]):
            loads.append((head["x"], head["y"], arguments.length * (i + 0.5) / count, force))
        loads.append((head["x"], head["y"], arguments.length, pile["base"]))
    middle = arguments.length / 2
    print("   x      y    settlement of the pile at half its length")
    for pile in results["piles"]:
        head = nodes[pile["node"] - 1]
        change = sum(force * layer.correction(math.hypot(x - head["x"], y - head["y"]), c, middle)
                     for x, y, c, force in loads)
        print("%6.2f %6.2f   base takes %.4g, by subtraction %.4g" % (
            head["x"], head["y"], -change[0], -change[1]))


if __name__ == "__main__":
    main()
