#!/usr/bin/env bash
# Builds everything and runs all tests; ends with ctest's summary.
# Usage: scripts/test.sh [PRESET] [CTEST OPTION ...]
set -euo pipefail
cd "$(dirname "$0")/.."

preset=${1:-release}
shift || true
scripts/build.sh "$preset"
ctest --preset "$preset" "$@"
