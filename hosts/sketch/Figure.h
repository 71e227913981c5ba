#pragma once

#include <string>

enum class FigureKind { Line, Rectangle, Circle, Text };

constexpr int kNoColor = -1;

struct Point {
    double x = 0;
    double y = 0;
};

/// How figures are drawn. Colours are numbers with red in the low byte, as macros have them.
struct Pen {
    int stroke = 0;
    int fill = kNoColor;
    double width = 1;
    bool dashed = false;

    bool operator==(const Pen&) const = default;
};

struct TextStyle {
    std::string family = "sans-serif";
    std::string align = "left"; // or "center", "right"
    double size = 12;
    bool bold = false;
    bool italic = false;

    bool operator==(const TextStyle&) const = default;
};

/// One shape of a drawing. Its numbers are multiples of a hundredth.
struct Figure {
    FigureKind kind = FigureKind::Line;
    std::string name;
    std::string layer;
    double x = 0; // a line begins here, a rectangle has its corner here, a circle its centre
    double y = 0;
    double width = 0; // of a line: to its other end, either way; of a circle: the radius
    double height = 0;
    Pen pen;
    std::string text;
    TextStyle style;

    bool operator==(const Figure&) const = default;

    /// Whether a click there means this figure.
    bool IsHit(Point at) const;
};

/// "Line", "Rectangle", "Circle" or "Text".
const char* KindName(FigureKind kind);
