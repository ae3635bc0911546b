#include "render/LookOptions.h"

#include <CLI/CLI.hpp>
#include <sstream>

#include "formats/Text.h"

namespace zyr {
namespace {

constexpr int kLeastSide = 64, kMostSide = 8192;

bool parseSize(const std::string& text, cv::Size& size) {
    std::istringstream words(text);
    char times = 0;
    if (!(words >> size.width >> times >> size.height) || times != 'x' || !words.eof())
        return false;
    const auto isGood = [](int side) { return side >= kLeastSide && side <= kMostSide; };
    return isGood(size.width) && isGood(size.height);
}

bool parseBackground(const std::string& text, cv::Vec3b& color) {
    if (text == "white" || text == "black") {
        color = cv::Vec3b::all(text == "white" ? 255 : 0);
        return true;
    }
    const bool isHex = text.size() == 7 && text[0] == '#' &&
                       text.find_first_not_of("0123456789abcdefABCDEF", 1) == std::string::npos;
    if (!isHex) return false;
    const int value = std::stoi(text.substr(1), nullptr, 16);
    color = cv::Vec3b(static_cast<uchar>(value & 255), static_cast<uchar>(value >> 8 & 255),
                      static_cast<uchar>(value >> 16));
    return true;
}

bool parseColor(const std::string& text, std::optional<ColorBy>& color) {
    if (text == "height") color = ColorBy::Height;
    if (text == "rgb") color = ColorBy::Rgb;
    if (text == "normal") color = ColorBy::Normal;
    return color.has_value();
}

bool parsePointSize(const std::string& text, std::optional<double>& size) {
    double value = 0.0;
    if (!parseNumber(text, value) || !(value >= 0.5 && value <= 200.0)) return false;
    size = value;
    return true;
}

/// An option whose text a function takes, or refuses.
template <class Take>
void add(CLI::App& command, const char* name, const char* type, const char* help, Take take) {
    const auto callback = [name, type, take](const std::string& text) {
        if (!take(text)) throw CLI::ValidationError(name, "not " + std::string(type) + ": " + text);
    };
    command.add_option_function<std::string>(name, callback, help)->type_name(type);
}

bool takeView(const std::string& text, std::optional<View>& result) {
    View view;
    if (!parseView(text, view)) return false;
    result = view;
    return true;
}

}  // namespace

void addLookOptions(CLI::App& command, Look& look) {
    add(command, "--view", "top|bottom|front|side|iso|AZ,EL",
        "From where; AZ and EL in degrees, 0,0 is the front and 0,90 above [what fits the file]",
        [&look](const std::string& text) { return takeView(text, look.view); });
    add(command, "--color", "height|rgb|normal",
        "What colours mean [rgb where the file has colours, else height]",
        [&look](const std::string& text) { return parseColor(text, look.color); });
    add(command, "--size", "WxH", "Pixels of the picture, 64 to 8192 each [1200x900]",
        [&look](const std::string& text) { return parseSize(text, look.size); });
    add(command, "--background", "white|black|#RRGGBB", "Behind all [#f8f9fa]",
        [&look](const std::string& text) { return parseBackground(text, look.background); });
    add(command, "--point-size", "PIXELS",
        "Draws points alone, also of a cloud in a grid, so large: 0.5 to 200 [by their spacing]",
        [&look](const std::string& text) { return parsePointSize(text, look.pointSize); });
    command.add_flag("--flat", look.isFlat, "A triangle is a facet, whatever the normals");
    command.add_flag("--bare", look.isBare, "Without text, legend, axes and scale bar");
}

}  // namespace zyr
