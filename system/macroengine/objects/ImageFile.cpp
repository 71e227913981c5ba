// Bitmaps and icons. Every number comes from a file that may be broken or hostile: all sums are in
// 64 bits, and no byte is looked at that the file does not have.

#include "objects/ImageFile.h"

#include <Platform.h>
#include <SFM_FilePath.h>

#include <memory>
#include <utility>

namespace {

constexpr std::int64_t kMaxFileBytes = 0x3FFFFFFF;
constexpr std::uint32_t kOpaque = 0xFF000000u;

/// Little-endian numbers by their place; 0 behind the end, which the caller has ruled out.
class Bytes {
public:
    explicit Bytes(std::string_view bytes) : m_Bytes(bytes) {}

    std::int64_t GetSize() const { return static_cast<std::int64_t>(m_Bytes.size()); }
    bool Has(std::int64_t at, std::int64_t count) const {
        return at >= 0 && count >= 0 && at <= GetSize() && count <= GetSize() - at;
    }
    std::uint32_t Byte(std::int64_t at) const {
        return Has(at, 1) ? static_cast<unsigned char>(m_Bytes[static_cast<std::size_t>(at)]) : 0;
    }
    std::uint32_t Word(std::int64_t at) const { return Byte(at) | Byte(at + 1) << 8; }
    std::uint32_t Long(std::int64_t at) const { return Word(at) | Word(at + 2) << 16; }
    std::string_view From(std::int64_t at) const {
        return m_Bytes.substr(static_cast<std::size_t>(at));
    }

private:
    std::string_view m_Bytes;
};

/// What stands in front of the pixels.
struct Header {
    std::int64_t width = 0;
    std::int64_t height = 0;
    bool isTopDown = false;
    int bits = 0;
    std::int64_t colors = 0;     // in the palette
    std::int64_t colorBytes = 4; // of one colour of the palette
    std::int64_t palette = 0;    // where it begins

    std::int64_t RowBytes(int bitsPerPixel) const { return (width * bitsPerPixel + 31) / 32 * 4; }
};

constexpr std::int64_t kCoreSize = 12;
constexpr std::int64_t kInfoSize = 40;

/// Reads the header at `at`; false for a form that is not known.
bool readHeader(const Bytes& file, std::int64_t at, Header& header) {
    if (!file.Has(at, 4))
        return false;
    const std::int64_t size = file.Long(at);
    if ((size != kCoreSize && size < kInfoSize) || !file.Has(at, size))
        return false;
    std::int64_t colors = 0;
    if (size == kCoreSize) {
        header.width = file.Word(at + 4);
        header.height = file.Word(at + 6);
        header.bits = static_cast<int>(file.Word(at + 10));
        header.colorBytes = 3;
    } else {
        header.width = static_cast<std::int32_t>(file.Long(at + 4));
        header.height = static_cast<std::int32_t>(file.Long(at + 8));
        header.bits = static_cast<int>(file.Word(at + 14));
        constexpr std::uint32_t kUncompressed = 0;
        if (file.Long(at + 16) != kUncompressed)
            return false;
        colors = file.Long(at + 32);
    }
    header.isTopDown = header.height < 0;
    if (header.isTopDown)
        header.height = -header.height;
    if (header.bits == 1 || header.bits == 4 || header.bits == 8) {
        const std::int64_t most = std::int64_t{1} << header.bits;
        header.colors = colors > 0 && colors < most ? colors : most;
    } else if (header.bits == 24 || header.bits == 32) {
        header.colors = 0; // a palette here is only a hint, and is passed over
    } else {
        return false;
    }
    header.palette = at + size;
    return header.width > 0 && header.height > 0;
}

bool isSizeBearable(const Header& header) {
    return header.width <= kMaxImagePixels && header.height <= kMaxImagePixels / header.width;
}

std::uint32_t colorAt(const Bytes& file, std::int64_t at) {
    return file.Byte(at) | file.Byte(at + 1) << 8 | file.Byte(at + 2) << 16;
}

std::vector<std::uint32_t> readPalette(const Bytes& file, const Header& header) {
    std::vector<std::uint32_t> palette;
    for (std::int64_t i = 0; i < header.colors; ++i)
        palette.push_back(kOpaque | colorAt(file, header.palette + i * header.colorBytes));
    return palette;
}

/// The index in a row of 1, 4 or 8 bits a pixel; the leftmost pixel has the highest bits.
unsigned indexAt(const Bytes& file, std::int64_t row, std::int64_t x, int bits) {
    const std::int64_t perByte = 8 / bits;
    const auto shift = static_cast<unsigned>((perByte - 1 - x % perByte) * bits);
    return file.Byte(row + x / perByte) >> shift & ((1u << bits) - 1);
}

/// Reads the pixels that begin at `at`; their alpha is kept as it stands in the file.
bool readPixels(const Bytes& file, const Header& header, std::int64_t at, ImageData& image) {
    const std::int64_t rowBytes = header.RowBytes(header.bits);
    if (!isSizeBearable(header) || !file.Has(at, rowBytes * header.height) ||
        !file.Has(header.palette, header.colors * header.colorBytes))
        return false;
    const std::vector<std::uint32_t> palette = readPalette(file, header);
    image.width = static_cast<int>(header.width);
    image.height = static_cast<int>(header.height);
    image.pixels.reserve(static_cast<std::size_t>(header.width * header.height));
    for (std::int64_t y = 0; y < header.height; ++y) {
        const std::int64_t row = at + rowBytes * (header.isTopDown ? y : header.height - 1 - y);
        for (std::int64_t x = 0; x < header.width; ++x) {
            if (header.bits == 32) {
                image.pixels.push_back(file.Long(row + 4 * x));
            } else if (header.bits == 24) {
                image.pixels.push_back(kOpaque | colorAt(file, row + 3 * x));
            } else {
                const unsigned index = indexAt(file, row, x, header.bits);
                image.pixels.push_back(index < palette.size() ? palette[index] : kOpaque);
            }
        }
    }
    return true;
}

/// Takes the transparency of an icon from the 1-bit mask behind its pixels.
void applyMask(const Bytes& file, const Header& header, std::int64_t at, ImageData& image) {
    const std::int64_t rowBytes = header.RowBytes(1);
    if (!file.Has(at, rowBytes * header.height))
        return; // a cut file: all is opaque
    for (std::int64_t y = 0; y < header.height; ++y)
        for (std::int64_t x = 0; x < header.width; ++x)
            if (indexAt(file, at + rowBytes * (header.height - 1 - y), x, 1) != 0)
                image.pixels[static_cast<std::size_t>(y * header.width + x)] &= ~kOpaque;
}

bool hasAlpha(const ImageData& image) {
    for (const std::uint32_t pixel : image.pixels)
        if ((pixel & kOpaque) != 0)
            return true;
    return false;
}

void makeOpaque(ImageData& image) {
    for (std::uint32_t& pixel : image.pixels)
        pixel |= kOpaque;
}

/// A bitmap inside an icon: twice as high as the picture, since the mask follows the pixels.
bool readIconImage(std::string_view bytes, ImageData& image) {
    const Bytes file(bytes);
    Header header;
    if (!readHeader(file, 0, header) || header.isTopDown || header.height % 2 != 0)
        return false;
    header.height /= 2;
    const std::int64_t pixels = header.palette + header.colors * header.colorBytes;
    ImageData read;
    if (!readPixels(file, header, pixels, read))
        return false;
    if (header.bits != 32 || !hasAlpha(read)) {
        makeOpaque(read);
        applyMask(file, header, pixels + header.RowBytes(header.bits) * header.height, read);
    }
    image = std::move(read);
    return true;
}

/// Each pixel becomes the one that lies below its middle. A side of 0 stays as it is.
bool stretch(int width, int height, ImageData& image) {
    const std::int64_t toX = width > 0 ? width : image.width;
    const std::int64_t toY = height > 0 ? height : image.height;
    if (toX == image.width && toY == image.height)
        return true;
    if (toY > kMaxImagePixels / toX)
        return false;
    ImageData target;
    target.width = static_cast<int>(toX);
    target.height = static_cast<int>(toY);
    target.pixels.reserve(static_cast<std::size_t>(toX * toY));
    for (std::int64_t y = 0; y < toY; ++y) {
        const std::int64_t row = (2 * y + 1) * image.height / (2 * toY) * image.width;
        for (std::int64_t x = 0; x < toX; ++x) {
            const std::int64_t place = row + (2 * x + 1) * image.width / (2 * toX);
            target.pixels.push_back(image.pixels[static_cast<std::size_t>(place)]);
        }
    }
    image = std::move(target);
    return true;
}

bool readWholeFile(const char* path, SYS_String& bytes) {
    std::unique_ptr<PlatformFile> file;
    __int64 size = 0;
    if (GetPlatform().OpenFile(path, PlatformFileOptions(), file) != PlatformStatus::Ok ||
        file->GetSize(size) != PlatformStatus::Ok || size < 0 || size > kMaxFileBytes)
        return false;
    char part[65536];
    std::size_t read = 0;
    do {
        if (file->Read(part, sizeof part, read) != PlatformStatus::Ok ||
            bytes.GetLength() + static_cast<__int64>(read) > kMaxFileBytes)
            return false;
        bytes.Append(part, read);
    } while (read > 0);
    return true;
}

} // namespace

bool ReadBitmap(std::string_view bytes, ImageData& image) {
    constexpr std::int64_t kFileHeader = 14;
    const Bytes file(bytes);
    Header header;
    if (!file.Has(0, kFileHeader) || !bytes.starts_with("BM") ||
        !readHeader(file, kFileHeader, header))
        return false;
    ImageData read;
    if (!readPixels(file, header, file.Long(10), read))
        return false;
    makeOpaque(read); // the fourth byte of a plain bitmap means nothing
    image = std::move(read);
    return true;
}

bool ReadIcon(std::string_view bytes, ImageData& image) {
    constexpr std::int64_t kDirectory = 6;
    constexpr std::int64_t kEntry = 16;
    const Bytes file(bytes);
    const std::uint32_t type = file.Word(2);
    if (!file.Has(0, kDirectory) || file.Word(0) != 0 || (type != 1 && type != 2))
        return false;
    const std::int64_t count = file.Word(4);
    for (std::int64_t i = 0; i < count; ++i) {
        const std::int64_t entry = kDirectory + i * kEntry;
        if (!file.Has(entry, kEntry))
            return false;
        const std::int64_t size = file.Long(entry + 8);
        const std::int64_t at = file.Long(entry + 12);
        if (file.Has(at, size) &&
            readIconImage(file.From(at).substr(0, static_cast<std::size_t>(size)), image))
            return true;
    }
    return false;
}

bool ReadImageFile(const char* path, int width, int height, ImageData& image) {
    SYS_String bytes;
    if (!readWholeFile(path, bytes))
        return false;
    const SYS_String extension = SFM_FilePath(path).GetFileExtension();
    if (extension.CompareNoCase(".ico") != 0 && extension.CompareNoCase(".cur") != 0)
        return ReadBitmap(bytes.View(), image);
    ImageData read;
    if (!ReadIcon(bytes.View(), read) || !stretch(width, height, read))
        return false;
    image = std::move(read);
    return true;
}
