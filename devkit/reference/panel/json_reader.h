// SPDX-License-Identifier: Apache-2.0

// Reading checked values from JSON. Whatever is not as it should be throws a
// PanelError that begins with the value's JSON path.
#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace tarn::reference {

// Bounds of a number, both allowed.
struct Range {
  double low;
  double high;
};

// A value and the path that leads to it. Refers to the value, does not own it.
class JsonValue {
 public:
  JsonValue(const nlohmann::json& value, std::string path)
      : value_(&value), path_(std::move(path)) {}

  [[noreturn]] void Refuse(const std::string& reason) const;

  // A text about the value, with its path.
  std::string Located(const std::string& text) const { return path_ + ": " + text; }

  bool IsString() const { return value_->is_string(); }
  bool IsObject() const { return value_->is_object(); }
  bool IsArray() const { return value_->is_array(); }

  bool Bool() const;
  double Number() const;
  double Number(Range range) const;
  int64_t Integer(int64_t low, int64_t high) const;
  std::string Text() const;

  // The elements of an array, of any number or of one that has from `min` to `max` of them.
  std::vector<JsonValue> Elements() const;
  std::vector<JsonValue> Elements(size_t min, size_t max) const;

 private:
  friend class ObjectReader;

  const nlohmann::json* value_;
  std::string path_;
};

// Reads an object key by key. Keys that nobody asked for are refused by Finish.
class ObjectReader {
 public:
  explicit ObjectReader(const JsonValue& object);

  const JsonValue& Object() const { return object_; }

  std::optional<JsonValue> Find(const std::string& key);
  JsonValue Need(const std::string& key);

  bool Bool(const std::string& key, bool absent);
  double Number(const std::string& key, Range range, double absent);
  int64_t Integer(const std::string& key, int64_t low, int64_t high, int64_t absent);

  void Finish() const;

 private:
  JsonValue object_;
  std::set<std::string> known_;
};

}  // namespace tarn::reference
