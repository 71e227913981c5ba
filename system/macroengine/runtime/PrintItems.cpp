#include "runtime/PrintItems.h"

// Print itself never calls these; as values of their own they are text.

namespace {

UI_MacroVariant repeat(char c, int argc, UI_MacroVariant* argv) {
    const int count = argc > 0 && argv ? static_cast<int>(argv[0]) : 1;
    return count > 0 ? UI_MacroVariant(SYS_String(c, static_cast<std::size_t>(count)))
                     : UI_MacroVariant("");
}

} // namespace

UI_MacroVariant PrintItemTab(int argc, UI_MacroVariant* argv) { return repeat('\t', argc, argv); }

UI_MacroVariant PrintItemSpc(int argc, UI_MacroVariant* argv) { return repeat(' ', argc, argv); }

UI_MacroVariant PrintItemSemicolon(int argc, UI_MacroVariant* argv) {
    return repeat(';', argc, argv);
}
