#!/usr/bin/env bash
# Remakes the sample picture and the pictures of docs/pictures.
# Usage: scripts/pictures.sh
source "$(dirname "$0")/prelude.sh"

scripts/build.sh release
zelctl() { build/release/bin/zelctl "$@"; }
sample=devkit/pictures/sample.png
docs=docs/pictures
mkdir -p "$docs"

devkit/pictures/make_sample.py "$sample"
zelctl plot display_p3 --color-transform night:3400 --dimming 0.6 -o "$docs/mode.png"
zelctl plot bt2020_st2084 --what gamut -o "$docs/gamut.png"
# Fine tables, so that what one sees is the mode and not their steps.
for mode in native srgb; do
  zelctl render "$mode" --igc-bits 16 --gc-bits 12 --image "$sample" \
    -o "$docs/sample-$mode.png" >/dev/null
done
