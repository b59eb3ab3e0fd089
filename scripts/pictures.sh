#!/usr/bin/env bash
# Remakes the sample picture and the pictures of docs/pictures; that of the report only
# where the package chromium is there.
# Usage: scripts/pictures.sh
source "$(dirname "$0")/prelude.sh"
# SPDX-License-Identifier: Apache-2.0

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
  zelctl render "$mode" --igc-bits 16 --gc-bits 12 --small --image "$sample" \
    -o "$docs/sample-$mode.png" >/dev/null
done

# The page's picture, as a browser shows it: headless, with a profile of its own.
if ! command -v chromium >/dev/null; then
  echo "No chromium: $docs/report.png stays as it is" >&2
  exit 0
fi
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
zelctl report -o "$work/report.html"
chromium --headless --no-sandbox --disable-gpu --disable-quic --no-first-run \
  --disable-background-networking --disable-component-update --disable-sync \
  --hide-scrollbars --user-data-dir="$work/profile" --window-size=1240,1130 \
  --screenshot="$work/report.png" "file://$work/report.html" 2>/dev/null
mv "$work/report.png" "$docs/report.png"
