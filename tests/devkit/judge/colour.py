# SPDX-License-Identifier: Apache-2.0
"""Transfer functions and matrices of the standards, written from their text alone."""
import numpy as np

PRIMARIES = {  # x and y of red, green, blue and white
    "srgb": [(0.640, 0.330), (0.300, 0.600), (0.150, 0.060), (0.3127, 0.3290)],  # IEC 61966-2-1
    "display_p3": [(0.680, 0.320), (0.265, 0.690), (0.150, 0.060), (0.3127, 0.3290)],  # EG 432-1
    "dcip3": [(0.680, 0.320), (0.265, 0.690), (0.150, 0.060), (0.314, 0.351)],  # RP 431-2
    "bt2020": [(0.708, 0.292), (0.170, 0.797), (0.131, 0.046), (0.3127, 0.3290)],  # BT.2020
}
WHITES = {"D50": (0.3457, 0.3585), "D65": (0.3127, 0.3290), "DCI": (0.314, 0.351)}


def xyz_of(xy):
    x, y = xy
    return np.array([x / y, 1, (1 - x - y) / y])


def rgb_to_xyz(primaries):
    """SMPTE RP 177: white of the four at Y = 1."""
    columns = np.stack([xyz_of(xy) for xy in primaries[:3]], axis=1)
    return columns * np.linalg.solve(columns, xyz_of(primaries[3]))


def bradford(source, destination):
    """ICC.1, annex E; XYZ under one white to XYZ under the other."""
    cone = np.array([[0.8951, 0.2664, -0.1614], [-0.7502, 1.7135, 0.0367],
                     [0.0389, -0.0685, 1.0296]])
    gains = (cone @ destination) / (cone @ source)
    return np.linalg.solve(cone, gains[:, None] * cone)


def srgb_light(signal):
    return np.where(signal <= 0.04045, signal / 12.92,
                    np.maximum((signal + 0.055) / 1.055, 0)**2.4)


def bt1886_luminance(signal, peak, black):
    """BT.1886, annex 1."""
    root, low = peak**(1 / 2.4), black**(1 / 2.4)
    return (root - low)**2.4 * np.maximum(signal + low / (root - low), 0)**2.4


def pq_luminance(signal):
    """BT.2100, table 4: EOTF of PQ."""
    root = signal**(1 / 78.84375)
    return 10000 * (np.maximum(root - 0.8359375, 0) / (18.8515625 - 18.6875 * root))**(1 / 0.1593017578125)


def pq_signal(luminance):
    """BT.2100, table 4: inverse EOTF of PQ."""
    power = (np.asarray(luminance) / 10000)**0.1593017578125
    return ((0.8359375 + 18.8515625 * power) / (1 + 18.6875 * power))**78.84375


def hlg_system_gamma(peak):
    """BT.2100, table 5, notes 5e and 5f."""
    if 400 <= peak <= 2000:
        return 1.2 + 0.42 * np.log10(peak / 1000)
    return 1.2 * 1.111**np.log2(peak / 1000)


def hlg_luminance(signal, peak, black):
    """BT.2100, table 5: EOTF of HLG, the system gamma on the luminance of the colour."""
    gamma = hlg_system_gamma(peak)
    beta = np.sqrt(3 * (black / peak)**(1 / gamma))
    e = np.maximum((1 - beta) * signal + beta, 0)
    a, b, c = 0.17883277, 0.28466892, 0.55991073
    scene = np.where(e <= 0.5, e**2 / 3, (np.exp((e - c) / a) + b) / 12)
    y = scene @ np.array([0.2627, 0.6780, 0.0593])
    return peak * np.maximum(y, 1e-30)[..., None]**(gamma - 1) * scene


def eetf(luminance, content, panel):
    """BT.2390, section 5.4.1: roll-off of PQ from the content's (peak, black) to the panel's."""
    low, high = pq_signal(content[1]), pq_signal(content[0])
    span = high - low
    e1 = np.clip((pq_signal(luminance) - low) / span, 0, 1)
    min_lum, max_lum = (pq_signal(panel[1]) - low) / span, (pq_signal(panel[0]) - low) / span
    knee = 1.5 * max_lum - 0.5
    t = np.clip((e1 - knee) / (1 - knee), 0, None) if knee < 1 else np.zeros_like(e1)
    spline = ((2 * t**3 - 3 * t**2 + 1) * knee + (t**3 - 2 * t**2 + t) * (1 - knee)
              + (-2 * t**3 + 3 * t**2) * max_lum)
    e2 = np.where(e1 < knee, e1, spline) if max_lum < 1 else e1
    e3 = e2 + max(min_lum, 0) * (1 - e2)**4
    return pq_luminance(np.clip(e3 * span + low, 0, 1))
