#!/usr/bin/env bash
# Installs what is missing, configures and builds. Quiet unless something fails.
# Usage: scripts/build.sh [PRESET]
#   PRESET   release (default), asan, tsan, arm64, fuzz or coverage; builds into build/PRESET
# ZELTARN_NO_INSTALL=1 in the environment: only says what is missing, see install-deps.sh.
source "$(dirname "$0")/prelude.sh"
# SPDX-License-Identifier: Apache-2.0

build() {
  local preset=$1 log
  [ -e "build/$preset/build.ninja" ] || echo "Building into build/$preset, which takes some minutes the first time ..."
  case $preset in
    release) scripts/install-deps.sh ;;
    *) scripts/install-deps.sh verify ;;
  esac
  [ "$preset" != arm64 ] || scripts/arm64-sysroot.sh
  log=$(mktemp)
  if ! { cmake --preset "$preset" && cmake --build --preset "$preset"; } >"$log" 2>&1; then
    cat "$log" >&2
    rm -f "$log"
    return 1
  fi
  rm -f "$log"
}
build "${1:-release}"
