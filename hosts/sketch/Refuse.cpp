#include "Refuse.h"

#include <UI_Macro.h>

#include <stdexcept>

void Refuse(const std::string& why) {
    UI_Macro::OnError(why.c_str());
    throw std::logic_error(why); // there is no engine that could have raised it
}
