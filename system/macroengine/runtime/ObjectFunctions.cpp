#include <Platform.h>

#include <algorithm>

#include "objects/ImageFile.h"
#include "objects/UI_MacroImage.h"
#include "runtime/FunctionTable.h"
#include "runtime/OuterWorld.h"

// A macro cannot trap errors, so an object that cannot be had is Empty, which a macro can test.

UI_MacroVariant MacroCreateObject(int argc, UI_MacroVariant* argv) {
    if (argc < 1 || argc > 2 || !argv)
        return Fail(errIncorrectArgument);
    RefuseWhileLooking();
    const auto name = static_cast<SYS_String>(argv[0]);
    UI_MacroVariant object;
    if (IsGiven(argc, argv, 1))
        object.CreateObject(name, static_cast<SYS_String>(argv[1]));
    else
        object.CreateObject(name.c_str());
    return object;
}

UI_MacroVariant MacroGetObject(int argc, UI_MacroVariant* argv) {
    if (argc < 1 || argc > 2 || !argv)
        return Fail(errIncorrectArgument);
    RefuseWhileLooking();
    UI_MacroVariant object;
    if (!IsGiven(argc, argv, 1)) {
        object.GetObject(static_cast<SYS_String>(argv[0]), "");
        return object;
    }
    if (!IsGiven(argc, argv, 0)) {
        object.GetActiveObject(static_cast<SYS_String>(argv[1]).c_str());
        return object;
    }
    const auto path = static_cast<SYS_String>(argv[0]);
    object.GetObject(path, static_cast<SYS_String>(argv[1]));
    return object;
}

UI_MacroVariant MacroGetRef(int argc, UI_MacroVariant* argv) {
    if (argc != 1 || !argv)
        return Fail(errIncorrectArgument);
    const auto name = static_cast<SYS_String>(argv[0]);
    MacroSupport* processor = MacroSupport::GetProcessor();
    if (!processor || !processor->GetProcedures().Lookup(SYS_StrNoCase(name)))
        return Fail(errIncorrectArgument);
    UI_MacroVariant procedure;
    procedure.SetFunctionRefVal(name, processor);
    return procedure;
}

namespace {

/// A side of the wanted size; 0 leaves it to the file.
int sideOf(int argc, const UI_MacroVariant* argv, int place) {
    return IsGiven(argc, argv, place) ? std::max(static_cast<int>(argv[place]), 0) : 0;
}

} // namespace

UI_MacroVariant MacroLoadImage(int argc, UI_MacroVariant* argv) {
    if (argc < 1 || argc > 3 || !argv)
        return Fail(errIncorrectArgument);
    const auto path = static_cast<SYS_String>(argv[0]);
    const int width = sideOf(argc, argv, 1);
    const int height = sideOf(argc, argv, 2);
    if (!GetPlatform().Exists(path))
        return Fail(errCannotOpenFile, path);
    ImageData image;
    if (!ReadImageFile(path, width, height, image))
        return Fail("Invalid image file: " + path);
    return UI_MacroImage::Make(std::move(image));
}
