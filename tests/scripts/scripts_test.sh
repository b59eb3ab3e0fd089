#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# What the scripts say before they do anything: their usage, and what they would install.
# Usage: tests/scripts/scripts_test.sh
set -euo pipefail
cd "$(dirname "$0")/../.."

fail() {
  echo "$*" >&2
  exit 1
}

for script in scripts/*.sh; do
  [ "$script" != scripts/prelude.sh ] || continue
  # Looked at first: without it, -h would run the script.
  [ "$(grep -m 1 -v '^#' "$script")" = 'source "$(dirname "$0")/prelude.sh"' ] ||
    fail "$script: doesn't begin with the prelude"
  for help in -h --help; do
    (cd / && "$OLDPWD/$script" $help) | grep "^Usage: $script" >/dev/null ||
      fail "$script $help: doesn't print its usage"
  done
done
for script in scripts/mutate.py scripts/mutate-simply.py; do
  "$script" -h | grep "^Usage: $script" >/dev/null || fail "$script -h: no usage"
done

# A machine on which all but one package are there, and nothing can be installed in earnest.
machine=$(mktemp -d)
trap 'rm -rf "$machine"' EXIT
tool() {
  printf '#!/bin/sh\n%s\n' "$2" >"$machine/$1"
  chmod +x "$machine/$1"
}
tool dpkg-query 'case "$*" in *" ninja-build") echo not-installed ;; *) echo installed ;; esac'
tool apt-get "echo apt-get \"\$@\" >>'$machine/calls'"
tool id 'echo 0'

status=0
said=$(PATH=$machine:$PATH ZELTARN_NO_INSTALL=1 scripts/install-deps.sh 2>&1) || status=$?
[ "$status" = 1 ] && [ "$said" = "Missing Debian packages: ninja-build" ] && [ ! -e "$machine/calls" ] ||
  fail "with ZELTARN_NO_INSTALL=1: status $status, said '$said'"

said=$(PATH=$machine:$PATH ZELTARN_NO_INSTALL=0 scripts/install-deps.sh)
[ "$said" = "Installing Debian packages with apt-get: ninja-build" ] &&
  grep -q 'apt-get install .* ninja-build$' "$machine/calls" ||
  fail "said '$said', ran $(cat "$machine/calls")"
