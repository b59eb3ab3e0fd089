// Runs the built program as a shell would.
#pragma once

#include <string>

struct ZelctlRun {
  int status = -1;
  std::string out;
  std::string err;
};

// `arguments` is shell text; `environment` is put before the program ("NAME=value").
ZelctlRun RunZelctl(const std::string& arguments, const std::string& environment = "");

// With the fake plug-in instead of the real one.
ZelctlRun RunWithFake(const std::string& arguments, const std::string& environment = "");

// The text of the file at `path`.
std::string ReadFile(const std::string& path);

// A file of this test program, which holds `text`.
std::string WriteFile(const std::string& name, const std::string& text);
