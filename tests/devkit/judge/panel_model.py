# SPDX-License-Identifier: Apache-2.0
"""What a mode's codes are to show, and what a panel shows of the codes that drive it.

Colours are XYZ in cd/m2. A panel emits its black, of its own white, and on top of it what its
three channels add.
"""
import numpy as np

from ciede2000 import lab
from colour import (PRIMARIES, WHITES, bradford, bt1886_luminance, eetf, hlg_luminance,
                    pq_luminance, rgb_to_xyz, srgb_light, xyz_of)

DIFFUSE_WHITE = 203  # cd/m2 and, of HLG, 75 % signal: BT.2408, table 1


def isotonic(light):
    """The rising sequence nearest to `light`: largest means of what lies before, least of after."""
    count = len(light)
    means = [[np.mean(light[i:j + 1]) if i <= j else np.inf for j in range(count)]
             for i in range(count)]
    return np.array([max(min(means[i][k:]) for i in range(k + 1)) for k in range(count)])


def ramp_light(transfer, signal):
    """Of each channel, linear between the points of its ramp."""
    ramp = transfer["ramp"]
    channels = [ramp[key] for key in ("red", "green", "blue")] if isinstance(ramp, dict) \
        else [ramp] * 3
    light = []
    for channel, points in enumerate(channels):
        x, y = np.array(points, float).T
        x = x / transfer.get("full_scale", 1)
        if transfer.get("fit") == "isotonic":
            y = isotonic(y)
        light.append(np.interp(signal[..., channel], x, (y - y[0]) / (y[-1] - y[0])))
    return np.stack(light, axis=-1)


def relative_light(transfer, signal):
    if transfer == "linear":
        return signal
    if transfer == "srgb":
        return srgb_light(signal)
    if "gamma" in transfer:
        return signal**transfer["gamma"]
    return ramp_light(transfer, signal)


def gamut_of(value):
    return [tuple(value[key]) for key in ("red", "green", "blue")]


class Panel:
    """What a description says of its panel."""

    def __init__(self, description):
        panel = description["panel"]
        self.white = tuple(panel["white"])
        self.primaries = gamut_of(panel["primaries"])
        self.peak = panel["luminance"]["peak"]
        self.black = panel["luminance"].get("black", 0)
        self.transfer = panel["transfer"]
        self.matrix = rgb_to_xyz(self.primaries + [self.white])

    def emitted(self, light):
        return (self.black + (self.peak - self.black) * light) @ self.matrix.T

    def shown(self, signal):
        return self.emitted(relative_light(self.transfer, signal))

    def light_for(self, xyz):
        """Of each channel; outside 0 to 1 for what the panel can't show."""
        channels = xyz @ np.linalg.inv(self.matrix).T
        return (channels - self.black) / (self.peak - self.black)


    def signal_for(self, light):
        steps = np.repeat(np.linspace(0, 1, 65536)[:, None], 3, axis=1)
        lights = relative_light(self.transfer, steps)
        return np.stack([np.interp(light[:, i], lights[:, i], steps[:, i]) for i in range(3)], 1)


class Target:
    """What a mode's description asks for."""

    def __init__(self, panel, mode):
        target = mode.get("target", {})
        primaries = target.get("primaries", "panel")
        self.panel = panel
        white = panel.white
        if primaries == "panel":
            corners = panel.primaries
        elif isinstance(primaries, str):
            *corners, white = PRIMARIES[primaries]
        else:
            corners = gamut_of(primaries)
        stated = target.get("white", white)
        white = panel.white if stated == "panel" else WHITES.get(stated, stated) \
            if isinstance(stated, str) else tuple(stated)
        self.adaptation = target.get("adaptation", True)
        self.transfer = target.get("transfer", "panel")
        if self.transfer == "panel":
            self.transfer = panel.transfer
        matrix = rgb_to_xyz(list(corners) + [white])
        if self.adaptation:
            self.matrix = bradford(xyz_of(white), xyz_of(panel.white)) @ matrix
        else:
            self.matrix = matrix / (np.linalg.inv(panel.matrix) @ xyz_of(white)).max()

    def is_absolute(self):
        return self.transfer in ("hlg", "st2084") or "st2084" in self.transfer

    def channels(self, signal):
        """cd/m2 of each channel, in the target's primaries."""
        peak, black = self.panel.peak, self.panel.black
        if self.transfer == "bt1886":
            return bt1886_luminance(signal, peak, black)
        if self.transfer == "hlg":
            return hlg_luminance(signal, peak, black)
        if self.transfer == "st2084":
            return pq_luminance(signal)
        if "st2084" in self.transfer:
            content = self.transfer["st2084"]
            return eetf(pq_luminance(signal), (content["peak"], content.get("black", 0)),
                        (peak, black))
        return black + (peak - black) * relative_light(self.transfer, signal)

    def xyz(self, signal, clipped=False):
        channels = self.channels(signal)
        if clipped:
            channels = np.minimum(channels, self.panel.peak)
        if self.is_absolute():
            return channels @ self.matrix.T
        # The panel's own black lies below whatever is shown relative to it.
        above = (channels - self.panel.black) @ self.matrix.T
        return above + self.panel.emitted(np.zeros(3))

    def lab(self, xyz, white="diffuse"):
        y = self.panel.peak
        if self.is_absolute() and white == "diffuse":
            y = DIFFUSE_WHITE
            if self.transfer == "hlg":
                y = self.channels(np.full(3, 0.75))[0]
        return lab(xyz, y * self.matrix.sum(axis=1))
