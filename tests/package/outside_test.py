# SPDX-License-Identifier: Apache-2.0
"""The tree as those outside see it: what is installed, and what can be built with it.

The surroundings come in ZEL_ variables from tests/package/CMakeLists.txt.
"""

import concurrent.futures
import json
import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest

SOURCE = pathlib.Path(os.environ["ZEL_SOURCE"])
BUILD = pathlib.Path(os.environ["ZEL_BUILD"])
VERSION = os.environ["ZEL_VERSION"]
CXX = os.environ["ZEL_CXX"]
LIB = os.environ["ZEL_LIBDIR"]
ENVIRONMENT = {k: v for k, v in os.environ.items() if not k.startswith(("ZEL_", "LD_", "CMAKE_"))}
STRICT = "-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror".split()
LIBCXX = ["-std=c++17", "-stdlib=libc++"]
EXAMPLES = {"host": "host", "mode_parser": "libtarn-json-mode-parser.so",
            "algo_library": "libtarn-algo.so"}
UMBRELLAS = ["interface/host.h", "bridge/library.h"]


def files_in(folder):
    return sorted(str(f.relative_to(folder)) for f in folder.rglob("*") if not f.is_dir())


class Outside(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="zeltarn-")
        self.addCleanup(folder.cleanup)
        self.work = pathlib.Path(folder.name).resolve()
        self.prefix = self.work / "prefix"
        self.call("cmake", "--install", BUILD, "--prefix", self.prefix)
        self.headers = self.prefix / "include/zeltarn"
        shutil.copytree(self.prefix / "share/doc/zeltarn/examples", self.work / "examples")

    def call(self, *command, status=0, **variables):
        """Runs the command in the working folder; what it printed, errors too."""
        run = subprocess.run([str(word) for word in command], cwd=self.work, text=True,
                             env={**ENVIRONMENT, **{k: str(v) for k, v in variables.items()}},
                             stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        self.assertEqual(run.returncode, status, f"{command}\n{run.stdout}")
        return run.stdout

    def compile(self, text, *options, status=0):
        """Compiles a file outside that sees the installed headers."""
        with tempfile.NamedTemporaryFile("w", suffix=".cpp", dir=self.work) as file:
            file.write(text)
            file.flush()
            return self.call(CXX, "-I", self.headers, *options, file.name, status=status)

    def move_prefix(self):
        self.prefix = self.prefix.rename(self.work / "elsewhere")

    def check_runs(self, host, libraries):
        """The devkit, and the examples with it, from wherever the prefix is now."""
        zelctl = self.prefix / "bin/zelctl"
        modes = json.loads(self.call(zelctl, "--json", "--log-level", "0", "modes"))["modes"]
        self.assertEqual([mode["label"] for mode in modes][1:3], ["srgb", "display_p3"])
        parser, algo = libraries
        rules = json.loads(self.call(zelctl, "validate", "--json", "--parser", parser, "--algo",
                                     algo, "--arg", "no file"))["rules"]
        self.assertEqual({rule["result"] for rule in rules}, {"passed"}, rules)
        self.assertGreater(len(rules), 35)

        plugin = self.prefix / LIB / "libzeltarn.so"
        panel = self.prefix / "share/zeltarn/panels/phone-oled.json"
        self.check_host(self.call(host, plugin, panel), "vivid", "0.5400")
        self.check_host(self.call(host, plugin, "no file", LD_LIBRARY_PATH=":".join(
            str(library.parent) for library in libraries)), "warm", "0.4860")
        for arguments, status, says in (((plugin, "no file"), 1, "Init answered -22"),
                                        ((panel, panel), 1, "invalid ELF header"),
                                        ((parser, panel), 1, "GetVcPostBlendInterface"),
                                        ((), 2, "usage: host PLUGIN TEXT")):
            self.assertIn(says, self.call(host, *arguments, status=status))

    def check_host(self, output, mode, green):
        """Warm and dimmed, after the switch to the panel's last mode."""
        self.assertRegex(output, rf"(?s)\nnative\n.*\n{mode}\n.*    on   0.0000   0.0000   {green}   ")

    def test_Install(self):
        components = {"plugin": ["libzeltarn.so"], "development": [],
                      "devkit": ["libcutils.so", "liblog.so", "libtarn-algo.so",
                                 "libtarn-json-mode-parser.so"]}
        together = []
        for component, libraries in components.items():
            prefix = self.work / component
            self.call("cmake", "--install", BUILD, "--prefix", prefix, "--component", component)
            together += files_in(prefix)
            self.assertEqual([f.name for f in sorted(prefix.rglob("*.so"))], libraries)
        self.assertEqual(sorted(together), files_in(self.prefix))
        self.assertEqual(files_in(self.work / "plugin"), [f"{LIB}/libzeltarn.so"])
        for folder, installed in (("docs", "doc/zeltarn/docs"), ("examples", "doc/zeltarn/examples"),
                                  ("devkit/panels", "zeltarn/panels")):
            self.assertEqual(files_in(self.prefix / "share" / installed), files_in(SOURCE / folder))

    def test_Relocatable(self):
        """No file knows where it was built or installed."""
        for file in [self.prefix / name for name in files_in(self.prefix)]:
            contents = file.read_bytes()
            if contents.startswith(b"\x7fELF"):
                dynamic = self.call("llvm-readelf", "-d", file)
                paths = re.findall(r"R(?:UN)?PATH.*\[(.*)\]", dynamic)
                self.assertEqual(paths, ["$ORIGIN"] if file.suffix == ".so" else [], file)
                stripped = self.work / "stripped"  # debug information names the sources
                self.call("llvm-strip", "-g", file, "-o", stripped)
                contents = stripped.read_bytes()
            for folder in (SOURCE, BUILD, self.prefix):
                self.assertNotIn(bytes(folder), contents, file)

    def test_Version(self):
        released = re.findall(r"^## (\d\S+)", (SOURCE / "CHANGELOG.md").read_text(), re.M)
        pkg_config = self.call("pkg-config", "--modversion", "zeltarn",
                               PKG_CONFIG_PATH=self.prefix / LIB / "pkgconfig")
        self.assertEqual([released[0], pkg_config.strip()], [VERSION, VERSION])
        for wanted, status in (("2.0", 0), (VERSION, 0), ("1.9", 1), ("3.0", 1)):
            (self.work / "CMakeLists.txt").write_text(
                "cmake_minimum_required(VERSION 3.16)\nproject(asks LANGUAGES NONE)\n"
                f"find_package(zeltarn {wanted} REQUIRED)\n")
            self.call("cmake", "-S", ".", "-B", f"asks-{wanted}", "-G", "Ninja", status=status,
                      CMAKE_PREFIX_PATH=self.prefix)

    def test_Headers(self):
        """Each compiles alone, and belongs to one side or the other."""
        includes = "".join(f'#include "{name}"\n' for name in UMBRELLAS)
        rule = self.compile(includes, *LIBCXX, "-MM").replace("\\\n", " ")
        needed = [pathlib.Path(word) for word in rule.split() if word.endswith(".h")]
        found = files_in(self.headers)
        self.assertEqual(found, sorted(str(path.relative_to(self.headers)) for path in needed))
        cases = [(name, standard) for name in found for standard in ("17", "20")]
        with concurrent.futures.ThreadPoolExecutor(2) as pool:
            list(pool.map(lambda case: self.compile(
                f'#include "{case[0]}"\n', f"-std=c++{case[1]}", "-stdlib=libc++", *STRICT,
                "-fsyntax-only"), cases))

    def test_Names(self):
        """Outside namespaces, and among macros, there is nothing but the contract."""
        own = "".join(f'#include "{name}"\n' for name in UMBRELLAS)
        text = "".join((self.headers / name).read_text() for name in files_in(self.headers))
        standard = "\n".join(sorted(set(re.findall(r"#include <.*>", text)))) + "\n"

        def new(pattern, *options):
            with_own, without = (set(re.findall(pattern, self.compile(code, *LIBCXX, *options), re.M))
                                 for code in (own, standard))
            return with_own - without

        names = new(r"^[|`]-(?!StaticAssert).*?\b([^_\W]\w*)(?: definition)?$", "-fsyntax-only",
                    "-fno-color-diagnostics", "-Xclang", "-ast-dump")
        self.assertEqual(names, {"velaricolor", "tarn", "zeltarn", "pcc_coeff_data"})
        macros = new(r"^#define (\w+)", "-dM", "-E")
        self.assertEqual([name for name in macros if not name.startswith("ZEL_")], [])

    def test_BlockTables(self):
        """The comments' tables of blocks say what the records are."""
        names = (self.headers / "plugin/block_names.h").read_text()
        for umbrella, side in zip(UMBRELLAS, ("velaricolor", "tarn")):
            rows = re.findall(r'^// +("\w+") +(\w+) +(\d+)$',
                              (self.headers / umbrella).read_text(), re.M)
            self.assertEqual(len(rows), 10)
            code = f'#include "{umbrella}"\n'
            for name, record, size in rows:
                self.assertIn(name, names)
                code += (f"static_assert(sizeof({side}::{record}) == {size} && "
                         f"{side}::{record}::kVersion == {size}, {name});\n")
            self.compile(code, *LIBCXX, "-fsyntax-only")

    def test_OtherPlatforms(self):
        """One message each, and it says what is missing."""
        stubs = self.work / "include/gnu"  # which a 64-bit machine lacks
        stubs.mkdir(parents=True)
        (stubs / "stubs-32.h").touch()
        machine = "/usr/include/" + os.environ["ZEL_ARCHITECTURE"]
        for umbrella in UMBRELLAS:
            for options, says in (
                    (["-std=c++17", "-stdlib=libstdc++"], "build with clang.. -stdlib=libc"),
                    (["-std=c++14", "-stdlib=libc++"], "need C..17 or later"),
                    ([*LIBCXX, "-m32", "-isystem", stubs.parent, "-isystem", machine],
                     "those of a 64-bit machine")):
                output = self.compile(f'#include "{umbrella}"\n', *options, "-fsyntax-only", status=1)
                self.assertEqual(len(re.findall("error:", output)), 1, output)
                self.assertRegex(output, says)

    def test_CMake(self):
        def build(folder, *options):
            for example in EXAMPLES:
                self.call("cmake", "-S", f"examples/{example}", "-B", f"{folder}/{example}", "-G",
                          "Ninja", f"-DCMAKE_CXX_COMPILER={CXX}", *options,
                          f"-DCMAKE_PREFIX_PATH={self.prefix}",
                          f"-DCMAKE_CXX_FLAGS={' '.join(STRICT)}")
                self.call("cmake", "--build", f"{folder}/{example}")
            host, *libraries = [self.work / folder / name for name in map("/".join, EXAMPLES.items())]
            return host, libraries

        built = build("build")
        self.check_runs(*built)
        self.move_prefix()
        self.check_runs(*built)
        self.check_runs(*build("build-20", "-DCMAKE_CXX_STANDARD=20"))

    def test_PkgConfig(self):
        def build(folder, *options):
            (self.work / folder).mkdir()
            flags = self.call("pkg-config", "--cflags", "--libs", "zeltarn",
                              PKG_CONFIG_PATH=self.prefix / LIB / "pkgconfig").split()
            host, *libraries = [self.work / folder / name for name in EXAMPLES.values()]
            for example, output in zip(EXAMPLES, (host, *libraries)):
                kind = [] if output == host else ["-shared", "-fPIC"]
                self.call(CXX, f"examples/{example}/{example}.cpp", *flags, *kind, *STRICT, *options,
                          "-o", output)
            return host, libraries

        built = build("build")
        self.check_runs(*built)
        self.move_prefix()
        self.check_runs(*built)
        self.check_runs(*build("build-20", "-std=c++20"))

    def test_Subdirectory(self):
        """A project around this one: nothing is imposed on it, and it gets no devkit."""
        (self.work / "CMakeLists.txt").write_text(f"""
            cmake_minimum_required(VERSION 3.25)
            project(around LANGUAGES CXX)
            add_subdirectory({SOURCE} zeltarn)
            add_executable(host examples/host/host.cpp)
            target_link_libraries(host PRIVATE zeltarn::host)
            add_library(tarn-json-mode-parser SHARED examples/mode_parser/mode_parser.cpp)
            target_link_libraries(tarn-json-mode-parser PRIVATE zeltarn::library)
            foreach(name BUILD_TYPE CXX_STANDARD CXX_FLAGS LIBRARY_OUTPUT_DIRECTORY INSTALL_RPATH)
              if(NOT "${{CMAKE_${{name}}}}" STREQUAL "")
                message(SEND_ERROR "CMAKE_${{name}} is ${{CMAKE_${{name}}}}")
              endif()
            endforeach()""")
        self.call("cmake", "-S", ".", "-B", "build", "-G", "Ninja", f"-DCMAKE_CXX_COMPILER={CXX}",
                  "-DCMAKE_UNITY_BUILD=ON", "-DCMAKE_EXPORT_COMPILE_COMMANDS=ON")
        self.assertNotIn("warning", self.call("cmake", "--build", "build"))
        build = self.work / "build"
        commands = {re.search(r"CMakeFiles/([^/]+)\.dir", command)[1]: command for command in (
            entry["command"] for entry in json.loads((build / "compile_commands.json").read_text()))}
        self.assertEqual(set(commands), {"host", "tarn-json-mode-parser", "zeltarn", "zel_log",
                                         "zel_cutils"})
        self.assertNotRegex(commands["host"], "-W|-ffp-contract|-fstack-protector|-O|-g")
        self.assertNotIn("-Werror", commands["zeltarn"])
        output = self.call(build / "host", build / "zeltarn/lib/libzeltarn.so", "no file",
                           LD_LIBRARY_PATH=build)
        self.check_host(output, "warm", "0.4860")
        self.call("cmake", "--install", build, "--prefix", self.work / "parent")
        self.assertFalse((self.work / "parent").exists())

    def test_Readme(self):
        """Its commands, in a folder that has the build and the examples alone."""
        blocks = re.findall(r"^```sh\n(.*?)^```", (SOURCE / "README.md").read_text(), re.M | re.S)
        (self.work / "build").mkdir()
        (self.work / "build/release").symlink_to(BUILD)
        output = self.call("bash", "-euc", "".join(blocks), HOME=self.work)
        for mode, green in (("vivid", "0.5400"), ("warm", "0.4860")):
            self.check_host(output, mode, green)
        self.assertRegex(output, r"\n\d\d passed, 0 failed, 0 warnings, 0 skipped\n")


if __name__ == "__main__":
    unittest.main()
