#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// How many bytes the character at the front of a text takes; 0 if they are no UTF-8.
std::size_t Utf8Length(std::string_view text);
/// How many bytes the control character at the front of a text takes, the two-byte ones of UTF-8
/// among them; 0 if there is none.
std::size_t ControlLength(std::string_view text);
/// A text that no terminal takes for commands: a blank for each control character.
std::string WithoutControls(std::string_view text);
