#!/usr/bin/env bash
# Unpacks what 64-bit Arm programs are built against and run with into
# build/arm64-sysroot: libc, libc++, the compiler's runtime and the libraries that
# the devkit uses, from Debian's own arm64 packages. The machine's package lists stay as they are.
# Usage: scripts/arm64-sysroot.sh
source "$(dirname "$0")/prelude.sh"
# SPDX-License-Identifier: Apache-2.0

packages=(
  libc6 libc6-dev linux-libc-dev libcrypt1 libcrypt-dev
  libgcc-s1 libgcc-12-dev gcc-12-base
  libc++1-14 libc++-14-dev libc++abi1-14 libc++abi-14-dev libunwind-14 libunwind-14-dev
  nlohmann-json3-dev libcli11-dev libpng-dev libpng16-16 zlib1g zlib1g-dev
  liblcms2-dev liblcms2-2
)
sysroot=build/arm64-sysroot
stamp=$sysroot/.complete
wanted=$(printf '%s\n' "${packages[@]}" "links within")
[ "$(cat "$stamp" 2>/dev/null || true)" != "$wanted" ] || exit 0

work=$PWD/build/arm64-packages
rm -rf "$sysroot" "$work"
mkdir -p "$sysroot" "$work"/{lists/partial,cache/archives/partial,debs}
: >"$work/status"
apt=(apt-get -qq
  -o APT::Architecture=arm64 -o APT::Architectures=arm64
  -o Dir::State::Lists="$work/lists" -o Dir::State::status="$work/status"
  -o Dir::Cache="$work/cache" -o Debug::NoLocking=1 -o APT::Sandbox::User=root)
"${apt[@]}" update
(cd "$work/debs" && "${apt[@]}" download "${packages[@]}")
for deb in "$work"/debs/*.deb; do dpkg-deb -x "$deb" "$sysroot"; done
# Links lead to places on a device; here they must stay within, or the linker takes the
# static library beside one that leads nowhere.
find "$sysroot" -type l -lname '/*' | while read -r link; do
  target=$sysroot$(readlink "$link")
  ln -sfn "$(realpath -m -s --relative-to="$(dirname "$link")" "$target")" "$link"
done
rm -rf "$work"
printf '%s\n' "$wanted" >"$stamp"
