// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/png_file.h"

#include <png.h>

#include <memory>
#include <stdexcept>

#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/input.h"

namespace zelctl {
namespace {

// More than any panel has; keeps a small file from claiming all memory.
constexpr uint64_t kMaxPixels = uint64_t{1} << 26;

struct ImageFreer {
  void operator()(png_image* image) const { png_image_free(image); }
};

// The library states sRGB's gamma, in the chunk behind the header, of whatever it
// writes.
void RemoveGamma(std::string* file) {
  constexpr size_t kHeaderEnd = 8 + 25;  // signature, IHDR
  constexpr size_t kGammaSize = 16;
  if (file->compare(kHeaderEnd + 4, 4, "gAMA") == 0) file->erase(kHeaderEnd, kGammaSize);
}

}  // namespace

Picture ReadPng(const std::string& path) {
  RequireReadable(path, "picture");
  png_image image = {};
  const std::unique_ptr<png_image, ImageFreer> freer(&image);
  image.version = PNG_IMAGE_VERSION;
  const auto refuse = [&path](const std::string& reason) {
    throw UsageError("can't read picture " + path + ": " + reason);
  };
  if (png_image_begin_read_from_file(&image, path.c_str()) == 0) refuse(image.message);
  if (uint64_t{image.width} * image.height > kMaxPixels) refuse("it has more than 64 megapixels");
  const bool alpha = (image.format & PNG_FORMAT_FLAG_ALPHA) != 0;
  image.format = alpha ? PNG_FORMAT_RGBA : PNG_FORMAT_RGB;
  image.flags |= PNG_IMAGE_FLAG_16BIT_sRGB;  // not linear light, unless the file says so
  Picture picture = {.width = image.width,
                     .height = image.height,
                     .channels = alpha ? size_t{4} : size_t{3},
                     .samples = std::vector<uint8_t>(PNG_IMAGE_SIZE(image))};
  if (png_image_finish_read(&image, nullptr, picture.samples.data(), 0, nullptr) == 0) {
    refuse(image.message);
  }
  return picture;
}

std::string EncodePng(const Picture& picture) {
  png_image image = {};
  image.version = PNG_IMAGE_VERSION;
  image.width = picture.width;
  image.height = picture.height;
  image.format = picture.channels == 4 ? PNG_FORMAT_RGBA : PNG_FORMAT_RGB;
  image.flags = PNG_IMAGE_FLAG_COLORSPACE_NOT_sRGB;
  std::string bytes(PNG_IMAGE_PNG_SIZE_MAX(image), '\0');
  png_alloc_size_t size = bytes.size();
  if (png_image_write_to_memory(&image, bytes.data(), &size, 0, picture.samples.data(), 0,
                                nullptr) == 0) {
    throw std::runtime_error(std::string("can't encode the picture: ") + image.message);
  }
  bytes.resize(size);
  RemoveGamma(&bytes);
  return bytes;
}

}  // namespace zelctl
