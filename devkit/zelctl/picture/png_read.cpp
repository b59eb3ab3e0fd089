// SPDX-License-Identifier: Apache-2.0
#include <bit>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>

#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/input.h"
#include "devkit/zelctl/picture/png_error.h"
#include "devkit/zelctl/picture/png_file.h"

namespace zelctl {
namespace {

// More than any panel has; keeps a small file from claiming all memory.
constexpr uint64_t kMaxPixels = uint64_t{1} << 26;

struct ImageFreer {
  void operator()(png_image* image) const { png_image_free(image); }
};

struct FileCloser {
  void operator()(FILE* file) const { std::fclose(file); }
};

[[noreturn]] void Refuse(const std::string& path, const std::string& reason) {
  const bool short_file = reason == "Read Error";  // libpng's words
  throw UsageError("can't read picture " + path + ": " +
                   (short_file ? "the file ends too early" : reason));
}

struct Reader {
  png_structp png = nullptr;
  png_infop info = nullptr;

  ~Reader() { png_destroy_read_struct(&png, &info, nullptr); }
};

// libpng jumps out of it: nothing here may need a destructor.
bool ReadRows(const Reader& reader, FILE* file) {
  if (setjmp(png_jmpbuf(reader.png)) != 0) return false;
  png_init_io(reader.png, file);
  const bool swap = std::endian::native == std::endian::little;
  png_read_png(reader.png, reader.info,
               PNG_TRANSFORM_EXPAND | PNG_TRANSFORM_GRAY_TO_RGB |
                   (swap ? PNG_TRANSFORM_SWAP_ENDIAN : PNG_TRANSFORM_IDENTITY),
               nullptr);
  return true;
}

// From the gamma that the file states to sRGB's, as libpng does it for 8 bits.
void ToSrgbCodes(double gamma, Picture* picture) {
  constexpr double kSrgbGamma = 2.2;
  constexpr double kSame = 0.05;  // libpng's
  constexpr double kMaxSample = UINT16_MAX;
  if (std::abs(gamma * kSrgbGamma - 1) < kSame) return;
  std::vector<uint16_t> codes(size_t{UINT16_MAX} + 1);
  for (size_t i = 0; i < codes.size(); ++i) {
    const double code = std::pow(static_cast<double>(i) / kMaxSample, 1 / (gamma * kSrgbGamma));
    codes[i] = static_cast<uint16_t>(std::lround(kMaxSample * code));
  }
  const std::span<uint16_t> samples = picture->Rows<uint16_t>(0, picture->height);
  for (size_t at = 0; at < samples.size(); at += picture->channels) {
    for (size_t i = 0; i < 3; ++i) samples[at + i] = codes[samples[at + i]];
  }
}

// libpng's simplified reader, below, makes 16-bit samples linear light.
Picture Read16Bits(const std::string& path, FILE* file) {
  if (std::fseek(file, 0, SEEK_SET) != 0) Refuse(path, "16 bits can't be read from a pipe");
  PngMessage message = {};
  Reader reader;
  reader.png = png_create_read_struct(PNG_LIBPNG_VER_STRING, &message, KeepMessage, PassWarning);
  if (reader.png != nullptr) reader.info = png_create_info_struct(reader.png);
  if (reader.info == nullptr) throw std::bad_alloc();
  if (!ReadRows(reader, file)) Refuse(path, message.data());
  Picture picture = {.width = png_get_image_width(reader.png, reader.info),
                     .height = png_get_image_height(reader.png, reader.info),
                     .channels = png_get_channels(reader.png, reader.info),
                     .bit_depth = 16,
                     .bytes = {}};
  picture.bytes.reserve(picture.RowBytes() * picture.height);
  const png_bytepp rows = png_get_rows(reader.png, reader.info);
  for (size_t i = 0; i < picture.height; ++i) {
    picture.bytes.insert(picture.bytes.end(), rows[i], rows[i] + picture.RowBytes());
  }
  double gamma = 0;
  if (png_get_gAMA(reader.png, reader.info, &gamma) != 0) ToSrgbCodes(gamma, &picture);
  return picture;
}

}  // namespace

Picture ReadPng(const std::string& path) {
  RequireReadable(path, "picture");
  const std::unique_ptr<FILE, FileCloser> file(std::fopen(path.c_str(), "rb"));
  if (file == nullptr) Refuse(path, std::strerror(errno));
  png_image image = {};
  const std::unique_ptr<png_image, ImageFreer> freer(&image);
  image.version = PNG_IMAGE_VERSION;
  if (png_image_begin_read_from_stdio(&image, file.get()) == 0) Refuse(path, image.message);
  if (uint64_t{image.width} * image.height > kMaxPixels) {
    Refuse(path, "it has more than 64 megapixels");
  }
  if ((image.format & PNG_FORMAT_FLAG_LINEAR) != 0) return Read16Bits(path, file.get());
  const bool alpha = (image.format & PNG_FORMAT_FLAG_ALPHA) != 0;
  image.format = alpha ? PNG_FORMAT_RGBA : PNG_FORMAT_RGB;
  Picture picture = {.width = image.width,
                     .height = image.height,
                     .channels = alpha ? size_t{4} : size_t{3},
                     .bytes = std::vector<uint8_t>(PNG_IMAGE_SIZE(image))};
  if (png_image_finish_read(&image, nullptr, picture.bytes.data(), 0, nullptr) == 0) {
    Refuse(path, image.message);
  }
  return picture;
}

}  // namespace zelctl
