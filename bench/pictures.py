#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""A picture of 12 megapixels: zelctl's processor time beside OpenColorIO's.

OpenColorIO applies the CLF that `zelctl export` writes, on one core, to the same 8-bit
samples. Five rounds in turn; the median of each.
"""
import pathlib
import re
import resource
import statistics
import subprocess
import sys
import tempfile
import time

import numpy as np
import PyOpenColorIO as ocio
from PIL import Image

WIDTH, HEIGHT = 4000, 3000
MODES = {"srgb": "matrix", "display_p3": "gamut table"}
ROUNDS = 5


def photograph():
    """Soft waves with some noise."""
    y, x = np.mgrid[0:HEIGHT, 0:WIDTH]
    waves = np.stack([128 + 100 * np.sin(x / 300) + 20 * np.sin(y / 37),
                      120 + 90 * np.cos(y / 400 + x / 900), 100 + 90 * np.sin((x + y) / 500)], -1)
    waves += np.random.default_rng(1).normal(0, 3, waves.shape)
    return np.clip(waves, 0, 255).astype(np.uint8)


def command_seconds(command):
    before = resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL)
    return resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime - before


def pixel_seconds(bench, kind):
    table = subprocess.run([*bench, f"--benchmark_filter=pixels, {kind}"], check=True,
                           capture_output=True, text=True).stdout
    pixels, microseconds = re.search(rf"(\d+) pixels, {kind} +([\d.]+) us", table).groups()
    return float(microseconds) * 1e-6 * WIDTH * HEIGHT / float(pixels)


def ocio_seconds(clf, picture):
    processor = ocio.Config.CreateRaw().getProcessor(
        ocio.FileTransform(str(clf), interpolation=ocio.INTERP_BEST))
    depth = ocio.BIT_DEPTH_UINT8
    apply = processor.getOptimizedCPUProcessor(depth, depth, ocio.OPTIMIZATION_LOSSLESS).apply
    shown = picture.copy()
    packed = ocio.PackedImageDesc(shown, WIDTH, HEIGHT, 3, depth, 1, 3, 3 * WIDTH)
    start = time.process_time()
    apply(packed)
    return time.process_time() - start


def main():
    zelctl, *bench = sys.argv[1:]
    picture = photograph()
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        Image.fromarray(picture).save(folder / "in.png", compress_level=1)
        print(f"{'':14}{'whole':>8}{'--small':>9}{'pixels':>8}{'OpenColorIO':>13}{'pixels/OCIO':>13}")
        for mode, kind in MODES.items():
            clf = folder / f"{mode}.clf"
            subprocess.run([zelctl, "export", mode, "--format", "clf", "-o", clf], check=True)
            render = [zelctl, "render", mode, "--threads", "1", "--image", folder / "in.png", "-o",
                      folder / "out.png"]
            rounds = [(command_seconds(render), command_seconds([*render, "--small"]),
                       pixel_seconds(bench, kind), ocio_seconds(clf, picture))
                      for _ in range(ROUNDS)]
            whole, small, pixels, other = (statistics.median(column) for column in zip(*rounds))
            ratio = statistics.median(row[2] / row[3] for row in rounds)
            print(f"{mode:14}{whole:8.2f}{small:9.2f}{pixels:8.2f}{other:13.2f}{ratio:13.2f}")


if __name__ == "__main__":
    main()
