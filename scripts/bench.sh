#!/usr/bin/env bash
# Measures the release build against its floors.
# Usage: scripts/bench.sh [--check] [Google Benchmark option ...]
#   --check   compares with the targets, and fails where one is missed
source "$(dirname "$0")/prelude.sh"
# SPDX-License-Identifier: Apache-2.0

scripts/build.sh release
bench=build/release/bench
# The stand-in run-time libraries come before those of the reference.
LD_LIBRARY_PATH=$PWD/$bench:$PWD/build/release/lib exec env vendor.display.zelloglevel=0 \
  "$bench/zeltarn_bench" --benchmark_enable_random_interleaving=true \
  --benchmark_repetitions=15 --benchmark_min_time=0.05 "$@"
