// SPDX-License-Identifier: Apache-2.0
#include <bit>
#include <new>
#include <stdexcept>
#include <vector>

#include "devkit/zelctl/picture/png_error.h"
#include "devkit/zelctl/picture/png_file.h"

namespace zelctl {
namespace {

struct Writer {
  png_structp png = nullptr;
  png_infop info = nullptr;

  ~Writer() { png_destroy_write_struct(&png, &info); }
};

void Append(png_structp png, png_bytep bytes, size_t size) {
  auto* file = static_cast<std::string*>(png_get_io_ptr(png));
  try {
    file->append(reinterpret_cast<const char*>(bytes), size);
    return;
  } catch (const std::bad_alloc&) {  // told below, where nothing is left to unwind
  }
  png_error(png, "out of memory");
}

void Flush(png_structp /*png*/) {}

// libpng jumps out of it: nothing here may need a destructor.
bool Write(const Writer& writer, const Picture& picture, PngSize size, png_bytepp rows,
           std::string* file) {
  if (setjmp(png_jmpbuf(writer.png)) != 0) return false;
  png_set_write_fn(writer.png, file, Append, Flush);
  png_set_IHDR(writer.png, writer.info, picture.width, picture.height,
               static_cast<int>(picture.bit_depth),
               picture.channels == 4 ? PNG_COLOR_TYPE_RGB_ALPHA : PNG_COLOR_TYPE_RGB,
               PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  if (size == PngSize::kQuick) {  // a fifth larger than a small one
    constexpr int kQuickLevel = 1;
    png_set_filter(writer.png, PNG_FILTER_TYPE_BASE, PNG_FILTER_SUB);
    png_set_compression_level(writer.png, kQuickLevel);
  }
  png_set_rows(writer.png, writer.info, rows);
  const bool swap = picture.bit_depth == 16 && std::endian::native == std::endian::little;
  png_write_png(writer.png, writer.info, swap ? PNG_TRANSFORM_SWAP_ENDIAN : PNG_TRANSFORM_IDENTITY,
                nullptr);
  return true;
}

}  // namespace

std::string EncodePng(Picture* picture, PngSize size) {
  PngMessage message = {};
  Writer writer;
  writer.png = png_create_write_struct(PNG_LIBPNG_VER_STRING, &message, KeepMessage, PassWarning);
  if (writer.png != nullptr) writer.info = png_create_info_struct(writer.png);
  if (writer.info == nullptr) throw std::bad_alloc();
  std::vector<png_bytep> rows(picture->height);
  for (size_t i = 0; i < rows.size(); ++i) rows[i] = picture->Rows<uint8_t>(i, 1).data();
  std::string file;
  if (!Write(writer, *picture, size, rows.data(), &file)) {
    throw std::runtime_error(std::string("can't encode the picture: ") + message.data());
  }
  return file;
}

}  // namespace zelctl
