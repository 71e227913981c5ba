#pragma once

#include <SYS_String.h>

#include <cstdint>
#include <string_view>
#include <vector>

using namespace kel_ns;

/// A picture: rows from the top, each pixel 0xAARRGGBB.
struct ImageData {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
};

/// Reads a bitmap, or the first bitmap of an icon or cursor, by the extension of the name. Knows 1,
/// 4, 8, 24 and 32 bits a pixel without compression. Icons and cursors are stretched to the width
/// and height, where 0 leaves that side as it is; bitmaps keep their size. False, with `image` as
/// it was, for anything else, and for a picture of more than kMaxImagePixels.
bool ReadImageFile(const char* path, int width, int height, ImageData& image);

/// The same for the bytes of a file, in its own size.
bool ReadBitmap(std::string_view bytes, ImageData& image);
bool ReadIcon(std::string_view bytes, ImageData& image);

constexpr std::int64_t kMaxImagePixels = std::int64_t{1} << 26;
