// Recorded macros draw what the gestures drew: the examples, and whatever chance brings.

#include "SketchFixture.h"

#include <random>

namespace {

namespace fs = std::filesystem;
using SketchRoundTrip = Sketch;

const fs::path kExamples = fs::path(TEST_PROJECT_DIR) / "examples" / "sketch";

// --- examples --------------------------------------------------------------------------------

TEST_F(SketchRoundTrip, ExamplesDrawTheirPictures) {
    int macros = 0;
    int scripts = 0;
    for (const auto& entry : fs::directory_iterator(kExamples)) {
        fs::path file = entry.path();
        const std::string extension = file.extension().string();
        if (extension == ".mcr") {
            ++macros;
            const ProgramResult played = sketch({"play", file.string()});
            EXPECT_EQ(played.err, "");
            EXPECT_EQ(played.out, ReadWholeFile(file.replace_extension(".svg").string())) << file;
        } else if (extension == ".gestures") {
            ++scripts;
            const Recording recording = record(ReadWholeFile(file.string()));
            EXPECT_EQ(recording.result.err, "");
            EXPECT_EQ(recording.result.status, 0);
            EXPECT_EQ(recording.macro, ReadWholeFile(file.replace_extension(".mcr").string()))
                << file;
            EXPECT_EQ(recording.svg, ReadWholeFile(file.replace_extension(".svg").string()))
                << file;
        }
    }
    EXPECT_EQ(macros, 5);
    EXPECT_EQ(scripts, 2);
}

// --- any gestures ----------------------------------------------------------------------------

/// Lines of gestures, right and wrong, from a seed.
class RandomScript {
public:
    explicit RandomScript(unsigned seed) : m_Random(seed) {}

    std::string Make(int lines) {
        std::string script;
        while (lines-- > 0)
            script += line() + "\n";
        return script;
    }

private:
    std::string oneOf(const std::vector<std::string>& choices) {
        return choices[m_Random() % choices.size()];
    }
    std::string number() {
        const int cents = static_cast<int>(m_Random() % 20000) - 2000;
        return oneOf({std::to_string(cents / 100), std::to_string(cents) + "e-2",
                      std::to_string(cents) + "e-3"});
    }
    std::string numbers(int count) {
        std::string text;
        while (count-- > 0)
            text += " " + number();
        return text;
    }
    std::string color() { return oneOf({"red", "none", "#a0b1c2", "SteelBlue", "blurple"}); }
    std::string name() {
        return oneOf({"Line1", "Circle1", "Rectangle2", "Text1", "Text2", "\"my \"\"shape\"\"\""});
    }
    std::string field() {
        return oneOf({"title " + name(),
                      "width" + number().insert(0, " "),
                      "grid 20",
                      "grid 0",
                      "background " + color(),
                      "text \"\xC3\xA4 <&>\"",
                      "align center",
                      "size 9.5",
                      "bold on",
                      "italic off",
                      "family serif",
                      "red 12",
                      "blue 300",
                      "stroke " + color(),
                      "fill " + color(),
                      "strokewidth 2.5",
                      "dashed on",
                      "textsize 8",
                      "name " + name(),
                      "x" + numbers(1),
                      "radius" + numbers(1),
                      "layer A"});
    }
    std::string line() {
        switch (m_Random() % 16) {
        case 0:
        case 1:
            return "line" + numbers(4);
        case 2:
            return "rectangle" + numbers(4);
        case 3:
            return "circle" + numbers(3);
        case 4:
            return "text" + numbers(2) + " " + name();
        case 5:
        case 6:
            return "set " + field();
        case 7:
            return "change " + field();
        case 8:
            return oneOf({"select all", "select none", "select " + name(), "click" + numbers(2)});
        case 9:
            return oneOf({"layer A", "layer B", "show A off", "show A on", "show C off"});
        case 10:
            return oneOf(
                {"move" + numbers(2), "paint " + color(), "paint red " + color(), "delete"});
        case 11:
            return oneOf({"undo", "redo", "undo", "relative on", "relative off"});
        case 12:
            return "press" + numbers(2);
        case 13:
            return oneOf({"drag" + numbers(2), "drag" + numbers(2), "release"});
        case 14:
            return oneOf({"open options", "open text", "open font", "open color"});
        default:
            return oneOf({"ok", "ok", "cancel", "release"});
        }
    }

    std::mt19937 m_Random;
};

TEST_F(SketchRoundTrip, WhateverIsRecordedPlaysBackAndIsUndone) {
    const std::string empty = sketch({"play", write("empty.mcr", "")}).out;
    int drawn = 0;
    for (unsigned seed = 1; seed <= 60; ++seed) {
        const std::string script = RandomScript(seed).Make(150);
        const Recording recording = record(script, "prompt");
        EXPECT_NE(recording.macro, "");
        drawn += recording.svg != empty;
        expectSamePicture(recording, "seed " + std::to_string(seed) + "\n");

        std::string undone = script + "release\ncancel\ncancel\ncancel\n";
        for (int i = 0; i < 160; ++i)
            undone += "undo\n";
        EXPECT_EQ(record(undone, "prompt").svg, empty) << "seed " << seed;
        if (HasFailure())
            break;
    }
    EXPECT_GT(drawn, 50);
}

} // namespace
