#include "SvgWriter.h"

#include "Values.h"

#include <cstdint>
#include <vector>

namespace {

constexpr int kGridColor = 0xE0E0E0;

// --- text ------------------------------------------------------------------------------------

/// The length of the UTF-8 character at the front, 0 if there is none.
std::size_t characterLength(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(0);
    if (lead < 0x80)
        return 1;
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < length)
        return 0;
    std::uint32_t code = lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80)
            return 0;
        code = code << 6 | (byte(i) & 0x3Fu);
    }
    const bool isShortest = code >= (length == 4 ? 0x10000u : length == 3 ? 0x800u : 0x80u);
    const bool isHalf = code >= 0xD800 && code <= 0xDFFF;
    const bool isNoCharacter = code == 0xFFFE || code == 0xFFFF;
    return isShortest && !isHalf && !isNoCharacter && code <= 0x10FFFF ? length : 0;
}

/// Text as XML may have it; what cannot stand there becomes a replacement character.
std::string escaped(std::string_view text) {
    std::string out;
    while (!text.empty()) {
        const std::size_t length = characterLength(text);
        const auto first = static_cast<unsigned char>(text.front());
        if (length == 0 || first < 32 || first == 127)
            out += "\xEF\xBF\xBD";
        else if (first == '&')
            out += "&amp;";
        else if (first == '<')
            out += "&lt;";
        else if (first == '>')
            out += "&gt;";
        else if (first == '"')
            out += "&quot;";
        else
            out += text.substr(0, length);
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return out;
}

std::string colorText(int color) {
    if (color == kNoColor)
        return "none";
    static constexpr char kDigits[] = "0123456789abcdef";
    std::string text = "#";
    for (int shift : {0, 8, 16}) { // red is the low byte
        text += kDigits[color >> (shift + 4) & 15];
        text += kDigits[color >> shift & 15];
    }
    return text;
}

std::string attribute(const char* name, const std::string& value) {
    return std::string(" ") + name + "=\"" + value + '"';
}

std::string attribute(const char* name, double value) { return attribute(name, NumberText(value)); }

// --- figures ---------------------------------------------------------------------------------

std::string strokeOf(const Pen& pen) {
    std::string text = attribute("stroke", colorText(pen.stroke));
    text += attribute("stroke-width", pen.width);
    if (pen.dashed)
        text += attribute("stroke-dasharray",
                          NumberText(pen.width * 4) + " " + NumberText(pen.width * 3));
    return text;
}

std::string lineOf(const Figure& figure) {
    return "<line" + attribute("x1", figure.x) + attribute("y1", figure.y) +
           attribute("x2", ToGrid(figure.x + figure.width)) +
           attribute("y2", ToGrid(figure.y + figure.height)) + strokeOf(figure.pen);
}

std::string rectangleOf(const Figure& figure) {
    return "<rect" + attribute("x", figure.x) + attribute("y", figure.y) +
           attribute("width", figure.width) + attribute("height", figure.height) +
           attribute("fill", colorText(figure.pen.fill)) + strokeOf(figure.pen);
}

std::string circleOf(const Figure& figure) {
    return "<circle" + attribute("cx", figure.x) + attribute("cy", figure.y) +
           attribute("r", figure.width) + attribute("fill", colorText(figure.pen.fill)) +
           strokeOf(figure.pen);
}

std::string textAttributes(const Figure& figure) {
    const TextStyle& style = figure.style;
    std::string text = attribute("font-family", escaped(style.family)) +
                       attribute("font-size", style.size) +
                       attribute("fill", colorText(figure.pen.stroke));
    if (style.align != "left")
        text += attribute("text-anchor", style.align == "center" ? "middle" : "end");
    if (style.bold)
        text += attribute("font-weight", "bold");
    if (style.italic)
        text += attribute("font-style", "italic");
    return text;
}

/// One element for each line of the text.
std::string textOf(const Figure& figure, const std::string& indent) {
    std::string out;
    std::string_view rest = figure.text;
    for (double y = figure.y;; y = ToGrid(y + figure.style.size * 1.25)) {
        const std::size_t end = rest.find('\n');
        out += indent + "<text" + attribute("x", figure.x) + attribute("y", y) +
               textAttributes(figure) + ">" + escaped(rest.substr(0, end)) + "</text>\n";
        if (end == std::string_view::npos)
            return out;
        rest.remove_prefix(end + 1);
    }
}

std::string figureText(const Figure& figure, const std::string& indent) {
    switch (figure.kind) {
    case FigureKind::Line:
        return indent + lineOf(figure) + "/>\n";
    case FigureKind::Rectangle:
        return indent + rectangleOf(figure) + "/>\n";
    case FigureKind::Circle:
        return indent + circleOf(figure) + "/>\n";
    case FigureKind::Text:
        return textOf(figure, indent);
    }
    return {};
}

// --- page ------------------------------------------------------------------------------------

std::string pageText(const PageOptions& page) {
    const std::string width = NumberText(page.width);
    const std::string height = NumberText(page.height);
    std::string text = "<svg xmlns=\"http://www.w3.org/2000/svg\"" + attribute("width", width) +
                       attribute("height", height) +
                       attribute("viewBox", "0 0 " + width + " " + height) +
                       " xml:space=\"preserve\">\n";
    text += "  <title>" + escaped(page.title) + "</title>\n";
    text += "  <rect" + attribute("width", "100%") + attribute("height", "100%") +
            attribute("fill", colorText(page.background)) + "/>\n";
    return text;
}

/// The distances of the grid lines within a side of the page.
std::vector<double> gridPlaces(double distance, double side) {
    std::vector<double> places;
    for (int i = 1; ToGrid(i * distance) < side; ++i)
        places.push_back(ToGrid(i * distance));
    return places;
}

/// All grid lines are one path.
std::string gridText(const PageOptions& page) {
    if (page.grid <= 0)
        return {};
    std::string path;
    for (double x : gridPlaces(page.grid, page.width))
        path += "M" + NumberText(x) + " 0V" + NumberText(page.height);
    for (double y : gridPlaces(page.grid, page.height))
        path += "M0 " + NumberText(y) + "H" + NumberText(page.width);
    return "  <path" + attribute("d", path) + attribute("stroke", colorText(kGridColor)) +
           attribute("stroke-width", "0.5") + "/>\n";
}

} // namespace

std::string WriteSvg(const Editor& editor) {
    const Drawing& drawing = editor.GetDrawing();
    std::string text = pageText(drawing.GetOptions()) + gridText(drawing.GetOptions());
    for (const Editor::Layer& layer : editor.GetLayers()) {
        std::string figures;
        for (int number : drawing.GetOrder()) {
            const Figure& figure = *drawing.Get(number);
            if (layer.visible && figure.layer == layer.name)
                figures += figureText(figure, "    ");
        }
        if (!figures.empty())
            text += "  <g" + attribute("data-layer", escaped(layer.name)) +
                    " stroke-linecap=\"round\">\n" + figures + "  </g>\n";
    }
    return text + "</svg>\n";
}
