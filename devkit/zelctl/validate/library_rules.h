// SPDX-License-Identifier: Apache-2.0

// What both libraries have in common: opening, starting and ending them as the
// plug-in does.
#pragma once

#include <dlfcn.h>

#include <future>
#include <memory>
#include <string>
#include <vector>

#include "bridge/library_handle.h"
#include "bridge/tarn_intf.h"
#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/validate/cxx_runtime.h"
#include "devkit/zelctl/validate/rule.h"
#include "interface/payload.h"

namespace zelctl {

// A library under examination. A subject derived from it says the library's names, its
// factory's symbol, which thread calls the factory, and whether it may be missing.
template <typename Interface>
struct LibrarySubject {
  using Factory = Interface* (*)(int, int);

  LibrarySubject(std::string file_to_open, std::string text, RuleChannel* listener)
      : file(std::move(file_to_open)), arg(std::move(text)), channel(listener) {}

  // Said before each call, for the library may not come back from it.
  void Doing(const std::string& what) const { channel->Doing(what); }

  std::string file;  // a path, or a name for the loader to find
  std::string arg;
  RuleChannel* channel;
  Stage stage = Stage::kNothing;
  velaricolor::LibraryHandle library;
  Factory factory = nullptr;
  std::unique_ptr<Interface> object;  // goes before its library
};

// The result of `call`, made on a thread of its own.
template <typename Call>
auto OnOwnThread(Call call) {
  return std::async(std::launch::async, call).get();
}

// Whether a library left an envelope as it was.
inline bool SameEnvelope(const tarn::TarnPayload& a, const tarn::TarnPayload& b) {
  return a.version == b.version && a.len == b.len && a.prop == b.prop && a.payload == b.payload;
}

template <typename Subject>
Finding Open(Subject& subject) {
  subject.Doing("opening the library");
  if (!subject.library.Open(subject.file)) {
    return {subject.MayBeMissing() ? Verdict::kWarning : Verdict::kFailed, dlerror()};
  }
  if (const std::string other = ForeignCxxRuntime(subject.file); !other.empty()) {
    return {Verdict::kFailed, other};
  }
  subject.stage = Stage::kOpened;
  return {Verdict::kPassed, subject.file};
}

template <typename Subject>
Finding FindFactory(Subject& subject) {
  void* symbol = subject.library.Symbol(Subject::kSymbol);
  if (symbol == nullptr) {
    return {Verdict::kFailed, "no " + std::string(Subject::kSymbol) + " is exported"};
  }
  subject.factory = reinterpret_cast<typename Subject::Factory>(symbol);
  subject.stage = Stage::kExported;
  return {Verdict::kPassed, Subject::kSymbol};
}

template <typename Subject>
Finding MakeObject(Subject& subject) {
  subject.Doing("calling the factory");
  const auto make = [&] {
    return subject.factory(tarn::kTarnMajorVersion, tarn::kTarnMinorVersion);
  };
  subject.object.reset(Subject::kMadeAtStartUp ? OnOwnThread(make) : make());
  if (subject.object == nullptr) return {Verdict::kFailed, "null for version 2.0"};
  subject.stage = Stage::kMade;
  return {Verdict::kPassed, "version 2.0"};
}

// A warning only: the plug-in never asks for another.
template <typename Subject>
Finding RefuseOtherVersions(Subject& subject) {
  subject.Doing("calling the factory for other versions");
  Tally versions;
  for (const auto& [major, minor] : {std::pair(3, 0), {2, 1}, {1, 0}}) {
    const decltype(subject.object) other(subject.factory(major, minor));
    versions.See(other == nullptr, "version " + std::to_string(major) + "." + std::to_string(minor),
                 "an object");
  }
  return versions.Sum(Verdict::kWarning, "other versions get null");
}

template <typename Subject>
Finding Initialise(Subject& subject) {
  subject.Doing("calling Init");
  const int code = OnOwnThread([&] { return subject.object->Init(subject.arg); });
  if (code != 0) return {Verdict::kFailed, "Init answered " + CodeText(code)};
  subject.stage = Stage::kStarted;
  return {Verdict::kPassed, "Init answered 0"};
}

template <typename Subject>
Finding EndTwice(Subject& subject) {
  subject.Doing("calling DeInit");
  subject.object->DeInit();
  subject.Doing("calling DeInit a second time");
  subject.object->DeInit();
  subject.Doing("destroying the object");
  subject.object.reset();
  return {Verdict::kPassed, "DeInit twice, then destroyed"};
}

// As a second Init of the plug-in does; destroyed without DeInit this time.
template <typename Subject>
Finding StartAgain(Subject& subject) {
  subject.Doing("destroying the object");
  subject.object.reset();
  for (const auto step :
       {Open<Subject>, FindFactory<Subject>, MakeObject<Subject>, Initialise<Subject>}) {
    Finding finding = step(subject);
    if (finding.verdict != Verdict::kPassed) return {Verdict::kFailed, finding.seen};
  }
  subject.Doing("destroying the object without DeInit");
  subject.object.reset();
  return {Verdict::kPassed, "reopened, initialised, destroyed without DeInit"};
}

// The rules of any library around those of its own kind.
template <typename Subject>
std::vector<Rule<Subject>> AroundRules(const std::vector<Rule<Subject>>& own) {
  std::vector<Rule<Subject>> rules = {
      {"opens", Stage::kNothing, Open<Subject>},
      {"exports its factory", Stage::kOpened, FindFactory<Subject>},
      {"makes an object", Stage::kExported, MakeObject<Subject>},
      {"refuses other versions", Stage::kExported, RefuseOtherVersions<Subject>},
      {"initialises", Stage::kMade, Initialise<Subject>}};
  rules.insert(rules.end(), own.begin(), own.end());
  rules.push_back({"ends", Stage::kStarted, EndTwice<Subject>});
  rules.push_back({"starts again", Stage::kStarted, StartAgain<Subject>});
  return rules;
}

}  // namespace zelctl
