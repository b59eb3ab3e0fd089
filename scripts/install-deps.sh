#!/usr/bin/env bash
# Installs the Debian packages that building, testing and running need. Does
# nothing, and needs no rights, where all are there.
# Usage: scripts/install-deps.sh [verify]
#   verify   with what only verification needs
# ZELTARN_NO_INSTALL=1 in the environment: says what is missing, installs nothing, and
# fails where something is.
source "$(dirname "$0")/prelude.sh"
# SPDX-License-Identifier: Apache-2.0

packages=(
  clang clang-format clang-tidy llvm          # compiler, gates, binary tools
  libc++-dev libc++abi-dev                    # the platform's standard library
  cmake ninja-build
  googletest                                  # sources: built against libc++
  nlohmann-json3-dev libcli11-dev             # reference parser, zelctl
  gnuplot-nox fontconfig libpng-dev           # zelctl's pictures
  liblcms2-dev                                # zelctl's ICC profiles
  libbenchmark-dev                            # bench
  python3-numpy python3-pil python3-png        # the judge of colours in tests
  python3-jsonschema                          # the schema of what zelctl prints
  man-db groff-base                           # the man page
  pkgconf python3                             # tests of what is installed
)
if [ "${1:-}" = verify ]; then
  packages+=(
    libclang-rt-14-dev                        # sanitizers, fuzzer, coverage
    lld qemu-user                             # 64-bit Arm
  shellcheck
    blueprint-tools golang-android-soong-dev  # Android.bp: the platform's build tool,
    golang-go golang-github-google-blueprint-dev  # from its sources
    golang-github-golang-protobuf-1-3-dev
    android-liblog                            # the platform's own log
    abigail-tools                             # the ABI
    opencolorio-tools python3-pyopencolorio   # readers of the files that zelctl exports
    ffmpeg liblcms2-utils argyll
    colord-data colord-tests icc-profiles-free  # profiles and measurements of others
  )
fi

missing=()
for package in "${packages[@]}"; do
  status=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
  [ "$status" = installed ] || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

if [ "${ZELTARN_NO_INSTALL:-0}" != 0 ]; then
  echo "Missing Debian packages: ${missing[*]}" >&2
  exit 1
fi
as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
echo "Installing Debian packages with ${as_root[*]:+${as_root[*]} }apt-get: ${missing[*]}"
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
  apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
