#include "tests/devkit/zelctl/png_pixels.h"

#include <png.h>

std::string PngOf(const Pixels& row) {
  png_image image = {};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(row.size());
  image.height = 1;
  image.format = PNG_FORMAT_RGBA;
  std::string bytes(PNG_IMAGE_PNG_SIZE_MAX(image), '\0');
  png_alloc_size_t size = bytes.size();
  png_image_write_to_memory(&image, bytes.data(), &size, 0, row.data(), 0, nullptr);
  bytes.resize(size);
  return bytes;
}

Pixels ReadPixels(const std::string& path) {
  png_image image = {};
  image.version = PNG_IMAGE_VERSION;
  if (png_image_begin_read_from_file(&image, path.c_str()) == 0) return {};
  image.format = PNG_FORMAT_RGBA;
  Pixels pixels(size_t{image.width} * image.height);
  if (png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr) == 0) return {};
  return pixels;
}
