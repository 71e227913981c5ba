#include "Figure.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kReach = 2; // how far beside a line a click still means it
constexpr double kCharacterWidth = 0.6;

double distanceToLine(const Figure& line, Point at) {
    const double length2 = line.width * line.width + line.height * line.height;
    double along = 0;
    if (length2 > 0)
        along = ((at.x - line.x) * line.width + (at.y - line.y) * line.height) / length2;
    along = std::clamp(along, 0.0, 1.0);
    return std::hypot(at.x - line.x - along * line.width, at.y - line.y - along * line.height);
}

bool isWithin(Point at, double left, double top, double width, double height) {
    return at.x >= left && at.x <= left + width && at.y >= top && at.y <= top + height;
}

bool isOnText(const Figure& text, Point at) {
    const double width = kCharacterWidth * text.style.size * static_cast<double>(text.text.size());
    double left = text.x;
    if (text.style.align != "left")
        left -= text.style.align == "center" ? width / 2 : width;
    return isWithin(at, left, text.y - text.style.size, width, text.style.size);
}

} // namespace

bool Figure::IsHit(Point at) const {
    switch (kind) {
    case FigureKind::Line:
        return distanceToLine(*this, at) <= std::max(kReach, pen.width / 2);
    case FigureKind::Rectangle:
        return isWithin(at, x, y, width, height);
    case FigureKind::Circle:
        return std::hypot(at.x - x, at.y - y) <= width;
    case FigureKind::Text:
        return isOnText(*this, at);
    }
    return false;
}

const char* KindName(FigureKind kind) {
    switch (kind) {
    case FigureKind::Line:
        return "Line";
    case FigureKind::Rectangle:
        return "Rectangle";
    case FigureKind::Circle:
        return "Circle";
    case FigureKind::Text:
        return "Text";
    }
    return "";
}
