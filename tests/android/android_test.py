#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Android.bp, read by the platform's own tools, against CMake's preset "android".

bpfmt checks the form. Soong (the platform's build tool, from Debian's sources, with
stand-ins for the platform's modules) turns it into commands; CMake does the same with a
stand-in for the NDK. Sources, libraries and the flags that matter must be the same, and
every source, and a user of either header library, must pass the compiler with exactly
Soong's flags. Their headers are Debian's for 64-bit Arm: there is no platform tree here.

"""

import json
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
HERE = ROOT / "tests/android"
WORK = ROOT / "build/android"
SYSROOT = ROOT / "build/arm64-sysroot"
GO = pathlib.Path("/usr/share/gocode")  # where Debian keeps Go sources
PLUGIN = "vendor/zeltarn"

PRODUCT = {
    "BuildNumberFile": "build_number.txt", "Platform_sdk_version": 30,
    "Platform_version_active_codenames": ["S"], "Platform_vndk_version": "30",
    "DeviceName": "device", "DeviceArch": "arm64", "DeviceArchVariant": "armv8-a",
    "DeviceCpuVariant": "generic", "DeviceAbi": ["arm64-v8a"],
    "DeviceSecondaryArch": "arm", "DeviceSecondaryArchVariant": "armv8-a",
    "DeviceSecondaryCpuVariant": "generic", "DeviceSecondaryAbi": ["armeabi-v7a"],
    "DeviceVndkVersion": "current", "HostArch": "x86_64",
}


def run(*command, cwd=ROOT, **environment):
    done = subprocess.run([str(c) for c in command], cwd=cwd, text=True, capture_output=True,
                          env={**os.environ, **environment})
    if done.returncode != 0:
        raise AssertionError(f"{shlex.join(map(str, command))}\n{done.stdout}{done.stderr}")
    return done.stdout


def write(file, text):
    file.parent.mkdir(parents=True, exist_ok=True)
    file.write_text(text)


def build_soong():
    """The platform's build tool. Debian's own binary of it knows no C++ modules."""
    program = WORK / "soong_build"
    source = HERE / "platform.go"
    if not program.exists() or program.stat().st_mtime < source.stat().st_mtime:
        package = WORK / "go/src/soong_build"
        shutil.copytree(GO / "src/android/soong/cmd/soong_build", package, dirs_exist_ok=True)
        shutil.copy(source, package)
        run("go", "build", "-o", program, ".", cwd=package, GO111MODULE="off", CGO_ENABLED="0",
            GOPATH=f"{WORK}/go:{GO}", GOCACHE=f"{WORK}/go/cache", GOFLAGS="")
    return program


def plant_tree(tree, soong):
    """A platform tree that holds the plug-in, two users of its headers, and stand-ins."""
    shutil.rmtree(tree, ignore_errors=True)
    (tree / PLUGIN).mkdir(parents=True)
    for folder in ROOT.iterdir():
        if folder.name not in ("Android.bp", "build", ".git"):
            (tree / PLUGIN / folder.name).symlink_to(folder)
    # Licence modules are younger than the Soong that Debian has.
    recipe = (ROOT / "Android.bp").read_text()
    recipe, removed = re.subn(r"^(package|license) \{\n.*?^\}\n", "", recipe, flags=re.S | re.M)
    assert removed == 2, "Android.bp: a package and a license module expected"
    write(tree / PLUGIN / "Android.bp", recipe)

    write(tree / "Android.bp",
          run(soong, "--platform-modules") + (HERE / "platform.bp").read_text())
    for library in ("libc", "libm", "libdl", "liblog"):
        write(tree / f"{library}.map.txt", "")
    (tree / "prebuilts/ndk/current/sources/cxx-stl/llvm-libc++/libs").mkdir(parents=True)
    write(tree / "some_host.cpp", '#include "interface/host.h"\nvelaricolor::ColorModeList list;\n')
    write(tree / "some_library.cpp", '#include "bridge/library.h"\ntarn::ColorModeList list;\n')


def soong_commands():
    """By module, its commands as lists of words."""
    soong = build_soong()
    tree = WORK / "tree"
    plant_tree(tree, soong)
    write(tree / "out/soong.variables", json.dumps(PRODUCT))
    write(tree / "out/recipes", f"Android.bp\n{PLUGIN}/Android.bp\n")
    shutil.copy(soong, tree / "out/soong_build")
    run("out/soong_build", "-l", "out/recipes", "-b", "out", "-n", "out", "-o", "out/build.ninja",
        "-globFile", "out/globs.ninja", "-d", "out/dependencies", "Android.bp", cwd=tree)
    commands = {}
    for module in ("libzeltarn", "some_host", "some_library"):
        listed = run("ninja", "-w", "dupbuild=warn", "-f", "out/build.ninja", "-t", "commands",
                     module, cwd=tree)
        commands[module] = [shlex.split(line) for line in listed.splitlines()
                            if f"/{module}/" in line and "bin/clang++ " in line]
    return tree, commands


def cmake_target():
    """The plug-in as CMake builds it for Android, and the names of all targets."""
    build = WORK / "cmake"
    platform = WORK / "platform"
    shutil.rmtree(build, ignore_errors=True)
    write(build / ".cmake/api/v1/query/codemodel-v2", "")
    write(platform / "lib/libcutils.so", "")
    shutil.copytree(ROOT / "devkit/platform/include/cutils", platform / "include/cutils",
                    dirs_exist_ok=True)
    run("cmake", "--preset", "android", "-B", build, f"-DZELTARN_PLATFORM={platform}",
        ANDROID_NDK_ROOT=str(HERE / "ndk"))
    targets = [json.loads(file.read_text())
               for file in (build / ".cmake/api/v1/reply").glob("target-*.json")]
    return ({t["name"]: t for t in targets}["zeltarn"],
            {t["name"] for t in targets if t["type"] != "INTERFACE_LIBRARY"})


def effective(words):
    """By what a compiler flag is about, the last one, which is the one that holds."""
    flags = {}
    for word in words:
        if word.startswith("-f") or word.startswith("-m") or word.startswith("-std"):
            about = re.sub(r"^-(.)no-", r"-\1", word.split("=")[0])
            flags["-fstack-protector" if "stack-protector" in about else about] = word
        elif word.startswith("-O"):
            flags["-O"] = word
        elif word.startswith(("-D", "-U")):
            flags[word[2:].split("=")[0]] = word
    return flags


def linker_words(words):
    """What reaches the linker by -Wl, as a set, with one name for each thing."""
    passed = []
    for word in words:
        if word.startswith("-Wl,"):
            passed += word[4:].replace("--version-script=", "--version-script,").split(",")
    pairs = {f"{a} {b}" for a, b in zip(passed, passed[1:]) if a in ("-z", "--version-script")}
    return {pair.replace(f"{ROOT}/", "").replace(f"{PLUGIN}/", "") for pair in pairs} | {
        "-z defs" for word in passed if word == "--no-undefined"}


class Android(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.tree, commands = soong_commands()
        cls.compiles = [c for c in commands["libzeltarn"] if "-c" in c]
        cls.links = [c for c in commands["libzeltarn"] if "-shared" in c]
        cls.users = [c for user in ("some_host", "some_library") for c in commands[user]
                     if "-c" in c]
        cls.cmake, cls.cmake_targets = cmake_target()

    def test_form(self):
        self.assertEqual(run("bpfmt", "-d", ROOT / "Android.bp", HERE / "platform.bp"), "")

    def test_sources(self):
        self.assertEqual(sorted(c[-1].removeprefix(PLUGIN + "/") for c in self.compiles),
                         sorted(s["path"] for s in self.cmake["sources"]))

    def test_cmake_builds_the_plug_in_alone(self):
        self.assertEqual(self.cmake_targets, {"zeltarn"})

    def test_compiler_flags(self):
        group, = self.cmake["compileGroups"]
        words = [w for f in group["compileCommandFragments"] for w in shlex.split(f["fragment"])]
        wanted = effective(words)
        wanted.pop("-stdlib")  # Soong names the library's headers and links libc++.so
        # The compiler's defaults, which Soong turns round.
        wanted.update(effective(["-fexceptions", "-frtti"]))
        for command in self.compiles:
            got = effective(command)
            self.assertEqual({about: got.get(about) for about in wanted}, wanted, command[-1])

    def test_link(self):
        self.assertEqual(len(self.links), 1, "built for more than 64-bit Arm")
        link = self.links[0]
        words = [f["fragment"] for f in self.cmake["link"]["commandFragments"]]
        wanted = linker_words(w for f in words for w in f.split())
        self.assertIn("--version-script plugin/exports.map", wanted)
        self.assertLessEqual(wanted, linker_words(link))

        def libraries(names):
            return {re.sub(r"^-l|^lib|\.so$", "", pathlib.Path(name).name) for name in names}
        linked = libraries(w for w in link if re.search(r"^out/(?!.*/libzeltarn/).*\.so$", w))
        standard = {"c++", "c", "m", "dl"}
        self.assertLessEqual(standard, linked)
        self.assertEqual(libraries(w for w in words if w.startswith("-l") or w.endswith(".so")),
                         linked - standard)

    def test_passes_the_compiler_with_the_flags_of_soong(self):
        together = self.tree / "together.cpp"
        write(together, "".join(f'#include "{c[-1]}"\n' for c in self.compiles))
        headers = [SYSROOT / "usr/lib/llvm-14/include/c++/v1",
                   SYSROOT / "usr/include/aarch64-linux-gnu", SYSROOT / "usr/include"]
        for command in [self.compiles[0][:-1] + [together.name], *self.users]:
            words = command[next(i for i, w in enumerate(command) if w.endswith("clang++")) + 1:]
            for option, arguments in (("-c", 0), ("-MD", 0), ("-MF", 1), ("-o", 1)):
                place = words.index(option)
                del words[place:place + arguments + 1]
            run("clang++", "-fsyntax-only", "-Werror", "-I.", f"-I{ROOT}/devkit/platform/include",
                *(w for folder in headers for w in ("-isystem", folder)), *words, cwd=self.tree)


if __name__ == "__main__":
    unittest.main(verbosity=2)
