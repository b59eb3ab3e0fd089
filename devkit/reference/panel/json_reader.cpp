// SPDX-License-Identifier: Apache-2.0
#include "devkit/reference/panel/json_reader.h"

#include <sstream>

#include "devkit/reference/panel/json_file.h"
#include "devkit/reference/panel/panel_error.h"

namespace tarn::reference {
namespace {

// "expected a number from 0 to 1", "expected 1".
template <typename T>
std::string Expected(const char* what, T low, T high) {
  std::ostringstream text;
  text << "expected ";
  if (low != high) text << what << " from " << low << " to ";
  text << high;
  return text.str();
}

}  // namespace

void JsonValue::Refuse(const std::string& reason) const { throw PanelError(Located(reason)); }

bool JsonValue::Bool() const {
  if (!value_->is_boolean()) Refuse("expected true or false");
  return value_->get<bool>();
}

double JsonValue::Number() const {
  if (!value_->is_number()) Refuse("expected a number");
  return value_->get<double>();
}

double JsonValue::Number(Range range) const {
  const double number = value_->is_number() ? value_->get<double>() : 0;
  if (!value_->is_number() || number < range.low || number > range.high) {
    Refuse(Expected("a number", range.low, range.high));
  }
  return number;
}

int64_t JsonValue::Integer(int64_t low, int64_t high) const {
  const bool fits = value_->is_number_integer() &&
                    (!value_->is_number_unsigned() || value_->get<uint64_t>() <= INT64_MAX);
  const int64_t number = fits ? value_->get<int64_t>() : 0;
  if (!fits || number < low || number > high) Refuse(Expected("an integer", low, high));
  return number;
}

std::string JsonValue::Text() const {
  if (!IsString()) Refuse("expected a text");
  return value_->get<std::string>();
}

std::vector<JsonValue> JsonValue::Elements(size_t min, size_t max) const {
  if (!IsArray() || value_->size() < min || value_->size() > max) {
    if (min == max) Refuse("expected an array of " + std::to_string(min));
    Refuse(Expected("an array with a length", min, max));
  }
  return Elements();
}

std::vector<JsonValue> JsonValue::Elements() const {
  if (!IsArray()) Refuse("expected an array");
  std::vector<JsonValue> elements;
  elements.reserve(value_->size());
  for (const nlohmann::json& element : *value_) {
    elements.emplace_back(element, path_ + "[" + std::to_string(elements.size()) + "]");
  }
  return elements;
}

ObjectReader::ObjectReader(const JsonValue& object) : object_(object) {
  if (!object.IsObject()) object.Refuse("expected an object");
}

std::optional<JsonValue> ObjectReader::Find(const std::string& key) {
  known_.insert(key);
  const auto found = object_.value_->find(key);
  if (found == object_.value_->end()) return std::nullopt;
  return JsonValue(*found, object_.path_ + "." + key);
}

JsonValue ObjectReader::Need(const std::string& key) {
  const std::optional<JsonValue> value = Find(key);
  if (!value) object_.Refuse("key \"" + key + "\" is missing");
  return *value;
}

bool ObjectReader::Bool(const std::string& key, bool absent) {
  const std::optional<JsonValue> value = Find(key);
  return value ? value->Bool() : absent;
}

double ObjectReader::Number(const std::string& key, Range range, double absent) {
  const std::optional<JsonValue> value = Find(key);
  return value ? value->Number(range) : absent;
}

int64_t ObjectReader::Integer(const std::string& key, int64_t low, int64_t high, int64_t absent) {
  const std::optional<JsonValue> value = Find(key);
  return value ? value->Integer(low, high) : absent;
}

void ObjectReader::Finish() const {
  for (const auto& entry : object_.value_->items()) {
    if (!known_.contains(entry.key())) object_.Refuse("unknown key " + ShownText(entry.key()));
  }
}

}  // namespace tarn::reference
