#pragma once

#include <cstddef>
#include <string_view>

/// How many bytes the character at the front of a text takes; 0 if they are no UTF-8.
std::size_t Utf8Length(std::string_view text);
/// Whether a byte stands for a control character.
inline bool IsControl(char c) { return static_cast<unsigned char>(c) < ' ' || c == 0x7F; }
