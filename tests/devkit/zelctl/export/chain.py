# SPDX-License-Identifier: Apache-2.0
"""The colour blocks in double precision, from the tables of `zelctl export --format json`."""
import json

import numpy as np

EXPONENTS = [(0, 0, 0), (1, 0, 0), (0, 1, 0), (0, 0, 1), (1, 1, 0), (0, 1, 1), (1, 0, 1),
             (2, 0, 0), (0, 2, 0), (0, 0, 2), (1, 1, 1)]


class Chain:
    def __init__(self, path):
        self.blocks = json.loads(path.read_text())

    def __call__(self, signal):
        return self.gamma("gc", self.pcc(self.gamut(self.gamma("igc", signal))))

    def gamma(self, name, values):
        block = self.blocks[name]
        values = np.clip(values, 0, 1)
        if block is None:
            return values
        tables = [block[channel] for channel in ("red", "green", "blue")]
        # Straight between entries: in the signal for IGC, in the root of light for GC.
        axis = np.sqrt if name == "gc" else np.asarray
        return np.stack([np.interp(axis(values[:, i]), axis(table["in"]), table["code"])
                         for i, table in enumerate(tables)], axis=-1) / (2**block["bits"] - 1)

    def gamut(self, light):
        block = self.blocks["gamut"]
        if block is None:
            return light
        axis = np.array(block["axis"])
        nodes = np.array(block["nodes"]).reshape(17, 17, 17, 3) / (2**block["bits"] - 1)
        low = np.clip(np.searchsorted(axis, light, side="right") - 1, 0, 15)
        share = (light - axis[low]) / (axis[low + 1] - axis[low])
        order = np.argsort(-share, axis=-1, kind="stable")
        sorted_share = np.take_along_axis(share, order, axis=-1)
        weights = -np.diff(sorted_share, axis=-1, prepend=1, append=0)
        corner, rows = low.copy(), np.arange(len(light))
        result = weights[:, :1] * nodes[tuple(corner.T)]
        for step in range(3):
            corner[rows, order[:, step]] += 1
            result += weights[:, step + 1:step + 2] * nodes[tuple(corner.T)]
        return result

    def pcc(self, light):
        rows = self.blocks["pcc"]
        if rows is None:
            return light
        terms = np.stack([np.prod((255 * light)**np.array(e), axis=-1) for e in EXPONENTS])
        return np.stack([np.array(rows[row]) @ terms for row in "rgb"], axis=-1) / 255
