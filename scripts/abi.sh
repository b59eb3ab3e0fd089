#!/usr/bin/env bash
# Compares every record, id and interface of the boundary, on this machine and on 64-bit
# Arm, with what tests/abi/boundary.abi says; any difference fails and names itself.
# Usage: scripts/abi.sh [--update]
#   --update   writes what is now to tests/abi/boundary.abi, to be reviewed and committed
source "$(dirname "$0")/prelude.sh"
# SPDX-License-Identifier: Apache-2.0

case "$*" in
  "" | --update) ;;
  *)
    echo "scripts/abi.sh: $*: not an option" >&2
    exit 2
    ;;
esac
scripts/install-deps.sh verify
scripts/arm64-sysroot.sh
baseline=tests/abi/boundary.abi
work=build/abi
mkdir -p "$work"
# Of types that no header of ours defines, the name.
only=(--exported-interfaces-only --drop-private-types)
headers=()
for folder in interface bridge modes convert pcc handlers plugin; do
  headers+=(--headers-dir "$folder")
done

# Compiles the boundary as MACHINE's, and dumps its ABI into build/abi.
dump() {
  local machine=$1
  shift
  clang++ "$@" -std=c++20 -stdlib=libc++ -g -fstandalone-debug -fPIC -shared -fvisibility=hidden \
    -Wall -Wextra -Werror -Wno-unused-parameter -I. tests/abi/boundary.cpp -o "$work/$machine.so"
  abidw "${only[@]}" "${headers[@]}" --no-architecture --no-corpus-path --no-comp-dir-path \
    --no-show-locs --no-elf-needed --no-parameter-names "$work/$machine.so" \
    --out-file "$work/$machine.abi"
}
dump "$(uname -m)"
dump arm64 --target=aarch64-linux-gnu --sysroot=build/arm64-sysroot -fuse-ld=lld

if [ "$*" = --update ]; then
  cp "$work/arm64.abi" "$baseline"
  echo "$baseline: written"
fi
failed=0
for machine in "$(uname -m)" arm64; do
  if abidiff --harmless "${only[@]}" --no-architecture "$baseline" "$work/$machine.abi"; then
    echo "$machine: as in $baseline"
  else
    echo "$machine: not as in $baseline" >&2
    failed=1
  fi
done
exit $failed
