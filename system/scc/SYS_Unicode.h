#pragma once

#include <SYS_String.h>

#include <string>
#include <string_view>

namespace kel_ns {

/// Between bytes and wide text. Bytes are read as UTF-8; a byte b that belongs to no valid sequence
/// becomes the code unit 0xDC00 + b and turns back into that byte, so any bytes survive the way
/// there and back. A surrogate that stands alone and is no such byte is written as three bytes.
KEL_MCR_API std::u16string SYS_ToUtf16(std::string_view bytes);
KEL_MCR_API SYS_String SYS_FromUtf16(std::u16string_view text);
KEL_MCR_API std::wstring SYS_ToWide(std::string_view bytes);
KEL_MCR_API SYS_String SYS_FromWide(std::wstring_view text);

} // namespace kel_ns
