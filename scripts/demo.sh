#!/usr/bin/env bash
# Builds what is missing, and switches the colour modes of the sample panel.
# Usage: scripts/demo.sh
source "$(dirname "$0")/prelude.sh"
# SPDX-License-Identifier: Apache-2.0

# Shows a command and its output; of the log, only errors.
show() {
  local heading=$1
  shift
  printf '\n# %s\n$ zelctl %s\n' "$heading" "$*"
  build/release/bin/zelctl "$@"
}

scripts/build.sh release
show "The colour modes of the panel" modes
show "A mode: its hardware blocks, and the PCC block in full" render display_p3
show "The switch to another mode, then night light, then dimming: the PCC block step by step" \
  render srgb --from display_p3 --color-transform night:3400 --dimming 0.6 --steps
