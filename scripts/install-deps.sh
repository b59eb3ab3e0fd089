#!/usr/bin/env bash
# Installs the Debian packages that building, testing and running need. Does
# nothing, and needs no rights, where all are there.
# Usage: scripts/install-deps.sh [verify]   with what only verification needs
set -euo pipefail

packages=(
  clang clang-format clang-tidy llvm          # compiler, gates, binary tools
  libc++-dev libc++abi-dev                    # the platform's standard library
  cmake ninja-build
  googletest                                  # sources: built against libc++
  nlohmann-json3-dev libcli11-dev             # reference parser, zelctl
  gnuplot-nox libpng-dev                      # zelctl's pictures
  libbenchmark-dev                            # bench
  python3-numpy python3-pil                   # the judge of colours in tests
  pkgconf python3                             # tests of what is installed
)
if [ "${1:-}" = verify ]; then
  packages+=(
    libclang-rt-14-dev                        # sanitizers, fuzzer, coverage
    lld qemu-user                             # 64-bit Arm
  )
fi

missing=()
for package in "${packages[@]}"; do
  status=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
  [ "$status" = installed ] || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
echo "Installing: ${missing[*]}"
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
  apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
