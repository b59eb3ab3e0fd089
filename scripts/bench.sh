#!/usr/bin/env bash
# Measures the release build against its floors.
# Usage: scripts/bench.sh [--check] [Google Benchmark option ...]
#        scripts/bench.sh --tail | --footprint
#        scripts/bench.sh --pictures
#   --check     compares with the targets, and fails where one is missed
#   --tail      the slowest mode switches while four threads get properties
#   --footprint size, relocations, memory
#   --pictures  a picture of 12 megapixels beside OpenColorIO, which
#               scripts/install-deps.sh verify installs
source "$(dirname "$0")/prelude.sh"
# SPDX-License-Identifier: Apache-2.0

scripts/build.sh release
bench=build/release/bench
# The stand-in run-time libraries come before those of the reference.
run=(env "LD_LIBRARY_PATH=$PWD/$bench:$PWD/build/release/lib" vendor.display.zelloglevel=0 "$bench/zeltarn_bench")
case "${1:-}" in
  --footprint)
    stripped=$(mktemp)
    trap 'rm -f "$stripped"' EXIT
    llvm-strip -o "$stripped" build/release/lib/libzeltarn.so
    echo "size of the stripped library: $(stat -c %s "$stripped") bytes"
    echo "relocations: $(llvm-readelf -rW "$stripped" | grep -c '^[0-9a-f]\{16\}')"
    "${run[@]}" --footprint
    exit
    ;;
  --tail) exec "${run[@]}" --tail ;;
  --pictures) exec /usr/bin/python3 bench/pictures.py build/release/bin/zelctl "${run[@]}" ;;
esac
exec "${run[@]}" --benchmark_enable_random_interleaving=true --benchmark_repetitions=15 \
  --benchmark_min_time=0.05 "$@"
