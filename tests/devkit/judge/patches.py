# SPDX-License-Identifier: Apache-2.0
"""The test colours, as 8-bit codes of a mode's own signal."""
import numpy as np

from colour import PRIMARIES, WHITES, bradford, rgb_to_xyz, srgb_light, xyz_of

# The chart in sRGB, 8 bits, as its maker publishes it.
COLOR_CHECKER = """
115 82 68    194 150 130  98 122 157   87 108 67    133 128 177  103 189 170
214 126 44   80 91 166    193 90 99    94 60 108    157 188 64   224 163 46
56 61 150    70 148 73    175 54 60    231 199 31   187 86 149   8 133 161
243 243 242  200 200 200  160 160 160  122 122 121  85 85 85     52 52 52
"""


def color_checker_xyz():
    """Relative to D65 at Y = 1."""
    signal = np.array(COLOR_CHECKER.split(), float).reshape(24, 3) / 255
    return srgb_light(signal) @ rgb_to_xyz(PRIMARIES["srgb"]).T


def color_checker(target):
    """The chart under the mode's white; in HDR its white diffuser has diffuse white's luminance.

    Each patch is looked for by bisection of every channel, which asks nothing of a curve but that
    it rises; a few rounds settle HLG, whose channels depend on each other.
    """
    white = target.matrix.sum(axis=1)
    top = target.panel.peak
    if target.is_absolute():
        top = target.channels(np.full(3, 0.75))[0] if target.transfer == "hlg" else 203
    wanted = top * color_checker_xyz() @ bradford(xyz_of(WHITES["D65"]), white / white[1]).T * white[1]
    channels = wanted @ np.linalg.inv(target.matrix).T
    signal = np.full((24, 3), 0.5)
    for _ in range(30):
        for i in range(3):
            low, high = np.zeros(24), np.ones(24)
            for _ in range(12):
                signal[:, i] = (low + high) / 2
                above = target.channels(signal)[:, i] > channels[:, i]
                low, high = np.where(above, low, signal[:, i]), np.where(above, signal[:, i], high)
    return np.round(255 * signal).astype(np.uint8)


def greys(count):
    return np.repeat(np.round(np.linspace(0, 255, count)).astype(np.uint8)[:, None], 3, axis=1)


def grid(side):
    steps = np.round(np.linspace(0, 255, side)).astype(np.uint8)
    return np.stack(np.meshgrid(steps, steps, steps, indexing="ij"), axis=-1).reshape(-1, 3)
