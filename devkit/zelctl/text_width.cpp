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

}  // namespace

size_t DisplayWidth(const std::string& text) {
  const Utf8Locale locale;
  std::mbstate_t state = {};
  size_t columns = 0;
  for (size_t at = 0; at < text.size();) {
    wchar_t character = 0;
    const size_t size = std::mbrtowc(&character, text.data() + at, text.size() - at, &state);
    const bool valid = size > 0 && size <= text.size() - at;
    const int width = valid ? wcwidth(character) : 1;
    columns += width < 0 ? 1 : static_cast<size_t>(width);
    at += valid ? size : 1;
    if (!valid) state = {};
  }
  return columns;
}

}  // namespace zelctl
