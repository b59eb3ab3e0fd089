// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/text_width.h"

#include <clocale>
#include <cwchar>

namespace zelctl {
namespace {

// The C library's tables, whatever the user's locale is.
class Utf8Locale {
 public:
  Utf8Locale()
      : utf8_(newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr)),
        before_(utf8_ == nullptr ? nullptr : uselocale(utf8_)) {}
  ~Utf8Locale() {
    if (utf8_ == nullptr) return;
    uselocale(before_);
    freelocale(utf8_);
  }
  Utf8Locale(const Utf8Locale&) = delete;
  Utf8Locale& operator=(const Utf8Locale&) = delete;

 private:
  const locale_t utf8_;
  const locale_t before_;
};

// Calls `see` with each character, the bytes that it takes and its columns.
template <typename See>
void ForEachCharacter(const std::string& text, See see) {
  const Utf8Locale locale;
  std::mbstate_t state = {};
  for (size_t at = 0; at < text.size();) {
    wchar_t character = 0;
    const size_t size = std::mbrtowc(&character, text.data() + at, text.size() - at, &state);
    const bool valid = size > 0 && size <= text.size() - at;
    const int columns = valid ? wcwidth(character) : 1;
    if (!valid) {
      character = 0xfffd;
      state = {};
    }
    see(static_cast<char32_t>(character), text.substr(at, valid ? size : 1),
        columns < 0 ? size_t{1} : static_cast<size_t>(columns));
    at += valid ? size : 1;
  }
}

}  // namespace

size_t DisplayWidth(const std::string& text) {
  size_t width = 0;
  ForEachCharacter(text, [&](char32_t, const std::string&, size_t columns) { width += columns; });
  return width;
}

std::string Shortened(const std::string& text, size_t columns) {
  if (DisplayWidth(text) <= columns) return text;
  std::string shortened;
  size_t width = 1;  // of the ellipsis
  ForEachCharacter(text, [&](char32_t, const std::string& bytes, size_t more) {
    width += more;
    if (width <= columns) shortened += bytes;
  });
  return shortened + "\u2026";
}

bool IsUtf8(const std::string& text) {
  bool valid = true;
  ForEachCharacter(text, [&](char32_t c, const std::string& bytes, size_t) {
    if (c == 0xfffd && bytes.size() == 1) valid = false;
  });
  return valid;
}

std::u32string Characters(const std::string& text) {
  std::u32string characters;
  ForEachCharacter(text, [&](char32_t c, const std::string&, size_t) { characters += c; });
  return characters;
}

}  // namespace zelctl
