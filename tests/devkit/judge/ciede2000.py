# SPDX-License-Identifier: Apache-2.0
"""CIE L*a*b* and the CIEDE2000 colour difference, on arrays whose last axis is the colour."""
import numpy as np


def lab(xyz, white):
    """CIE 15:2004, section 8.2.1, for XYZ in the units of `white`."""
    ratio = np.asarray(xyz, float) / np.asarray(white, float)
    # Light below zero, of a colour that can't be shown, goes on along the straight part.
    f = np.where(ratio > (6 / 29)**3, np.cbrt(ratio), ratio * (29 / 6)**2 / 3 + 4 / 29)
    x, y, z = np.moveaxis(f, -1, 0)
    return np.stack([116 * y - 16, 500 * (x - y), 200 * (y - z)], axis=-1)


def _hue(b, a):
    return np.degrees(np.arctan2(b, a)) % 360


def difference(first, second):
    """CIEDE2000 with kL = kC = kH = 1.

    G. Sharma, W. Wu, E. N. Dalal, The CIEDE2000 Color-Difference Formula, Color Research &
    Application 30 (2005), equations 2 to 22.
    """
    l1, a1, b1 = np.moveaxis(np.asarray(first, float), -1, 0)
    l2, a2, b2 = np.moveaxis(np.asarray(second, float), -1, 0)
    mean_chroma7 = ((np.hypot(a1, b1) + np.hypot(a2, b2)) / 2)**7
    stretch = 1.5 - 0.5 * np.sqrt(mean_chroma7 / (mean_chroma7 + 25.0**7))
    a1, a2 = stretch * a1, stretch * a2
    c1, c2 = np.hypot(a1, b1), np.hypot(a2, b2)
    h1, h2 = _hue(b1, a1), _hue(b2, a2)
    grey = c1 * c2 == 0

    turn = h2 - h1
    turn = np.where(turn > 180, turn - 360, np.where(turn < -180, turn + 360, turn))
    turn = np.where(grey, 0, turn)
    d_hue = 2 * np.sqrt(c1 * c2) * np.sin(np.radians(turn / 2))

    total = h1 + h2  # opposite hues, as near as doubles tell, have their middle between them
    around = np.where(total < 360, total + 360, total - 360)
    hue = np.where(grey, total, np.where(abs(h1 - h2) > 180 + 1e-9, around, total) / 2)
    lightness, chroma = (l1 + l2) / 2, (c1 + c2) / 2

    def wave(factor, offset):
        return np.cos(np.radians(factor * hue + offset))

    t = 1 - 0.17 * wave(1, -30) + 0.24 * wave(2, 0) + 0.32 * wave(3, 6) - 0.20 * wave(4, -63)
    off_centre = (lightness - 50)**2
    s_l = 1 + 0.015 * off_centre / np.sqrt(20 + off_centre)
    s_c = 1 + 0.045 * chroma
    s_h = 1 + 0.015 * chroma * t
    rotation = 30 * np.exp(-((hue - 275) / 25)**2)
    r_t = -np.sin(np.radians(2 * rotation)) * 2 * np.sqrt(chroma**7 / (chroma**7 + 25.0**7))
    dl, dc, dh = (l2 - l1) / s_l, (c2 - c1) / s_c, d_hue / s_h
    return np.sqrt(np.maximum(dl**2 + dc**2 + dh**2 + r_t * dc * dh, 0))
