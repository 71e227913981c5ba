#pragma once

#include "Editor.h"

#include <string>

/// The picture as SVG. The same drawing gives the same bytes on every machine.
std::string WriteSvg(const Editor& editor);
