#include "render/View.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <sstream>

namespace zyr {
namespace {

/// Rounded to far below a pixel, as the last bit of a sine differs between machines.
double rounded(double value) {
    return std::round(value * 1e12) / 1e12 + 0.0;
}

struct NamedView {
    const char* name;
    double azimuth, elevation;
};

constexpr double kIsoElevation = 35.26438968275465;
constexpr std::array<NamedView, 5> kNamed = {{{"top", 0, 90},
                                              {"bottom", 0, -90},
                                              {"front", 0, 0},
                                              {"side", 90, 0},
                                              {"iso", 45, kIsoElevation}}};

bool spansOrigin(const Bounds& bounds, int axis) {
    return bounds.low[axis] < 0.0 && bounds.high[axis] > 0.0;
}

/// Whether a camera at the origin may have seen this along z, at an angle that cameras have.
bool isBeforeOrigin(const Bounds& bounds) {
    constexpr double kWidest = 3.5;  // times the distance: 120 degrees
    const double far = std::max(std::abs(bounds.low[2]), std::abs(bounds.high[2]));
    const cv::Vec3d extent = bounds.high - bounds.low;
    return spansOrigin(bounds, 0) && spansOrigin(bounds, 1) && !spansOrigin(bounds, 2) &&
           std::max(extent[0], extent[1]) < kWidest * far;
}

}  // namespace

View viewFrom(double azimuth, double elevation) {
    constexpr double kDegree = CV_PI / 180.0;
    const double sinA = rounded(std::sin(azimuth * kDegree));
    const double cosA = rounded(std::cos(azimuth * kDegree));
    const double sinE = rounded(std::sin(elevation * kDegree));
    const double cosE = rounded(std::cos(elevation * kDegree));
    const cv::Vec3d right(cosA, sinA, 0.0), eye(sinA * cosE, -cosA * cosE, sinE);
    return {right, eye.cross(right), eye};
}

bool parseView(const std::string& text, View& view) {
    for (const NamedView& named : kNamed)
        if (text == named.name) {
            view = viewFrom(named.azimuth, named.elevation);
            return true;
        }
    std::istringstream words(text);
    double azimuth = 0.0, elevation = 0.0;
    char comma = 0;
    if (!(words >> azimuth >> comma >> elevation) || comma != ',' || !words.eof()) return false;
    if (!(std::abs(azimuth) <= 360.0 && std::abs(elevation) <= 90.0)) return false;
    view = viewFrom(azimuth, elevation);
    return true;
}

View naturalView(const Subject& subject, const Bounds& bounds) {
    if (subject.isHeightMap) return viewFrom(0, 90);
    // Axes to the right, down and away from the camera, or to the right, up and towards it.
    if (isBeforeOrigin(bounds) && bounds.low[2] > 0.0) return viewFrom(0, -90);
    if (isBeforeOrigin(bounds) && bounds.high[2] < 0.0) return viewFrom(0, 90);
    return viewFrom(25, 45);
}

}  // namespace zyr
