#!/usr/bin/env bash
# Installs what is missing, configures and builds. Quiet unless something fails.
# Usage: scripts/build.sh [PRESET]
set -euo pipefail
cd "$(dirname "$0")/.."

build() {
  local preset=$1 log
  log=$(mktemp)
  [ -e "build/$preset/build.ninja" ] || echo "Building into build/$preset, which takes some minutes the first time ..."
  case $preset in
    release) scripts/install-deps.sh ;;
    *) scripts/install-deps.sh verify ;;
  esac
  [ "$preset" != arm64 ] || scripts/arm64-sysroot.sh
  if ! { cmake --preset "$preset" && cmake --build --preset "$preset"; } >"$log" 2>&1; then
    cat "$log" >&2
    rm -f "$log"
    return 1
  fi
  rm -f "$log"
}
build "${1:-release}"
