#include "picture/HeightColors.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace zyr {
namespace {

/// The round step (1, 2 or 5 times a power of ten) that cuts the range into about six.
double tickStep(const HeightRange& range) {
    const double rough = (range.high - range.low) / 6.0;
    const double power = std::pow(10.0, std::floor(std::log10(rough)));
    for (double factor : {1.0, 2.0, 5.0})
        if (rough <= factor * power * 1.0001) return factor * power;
    return 10.0 * power;
}

}  // namespace

HeightRange HeightRange::of(const cv::Mat& height) {
    std::vector<double> values;
    for (auto it = height.begin<double>(); it != height.end<double>(); ++it)
        if (!std::isnan(*it)) values.push_back(*it);
    if (values.empty()) return {};
    std::sort(values.begin(), values.end());
    const std::size_t rare = values.size() / 200;
    HeightRange range{values[rare], values[values.size() - 1 - rare]};
    const double least = std::max(1e-9 * std::abs(range.high), 1e-9);
    if (range.high - range.low < least) range = {range.low - least, range.high + least};
    return range;
}

double HeightRange::fraction(double height) const {
    return std::clamp((height - low) / (high - low), 0.0, 1.0);
}

std::vector<double> HeightRange::ticks() const {
    const double step = tickStep(*this);
    std::vector<double> ticks;
    for (double i = std::ceil(low / step); i * step <= high && ticks.size() < 12; i += 1.0)
        ticks.push_back(i * step + 0.0);  // never -0
    return ticks;
}

int HeightRange::decimals() const {
    const double step = tickStep(*this), largest = std::max(std::abs(low), std::abs(high));
    if (largest >= 1e6 || step < 1e-4) return -1;
    return std::max(0, static_cast<int>(-std::floor(std::log10(step) + 1e-9)));
}

cv::Vec3b heightColor(double fraction) {
    static const cv::Vec3d kAnchors[] = {{122, 52, 58},  {178, 98, 44},  {192, 160, 56},
                                         {150, 196, 92}, {96, 214, 186}, {84, 202, 246},
                                         {62, 136, 242}, {62, 66, 206}};
    const double at = fraction * (std::size(kAnchors) - 1.0);
    const auto i = std::min(static_cast<std::size_t>(at), std::size(kAnchors) - 2);
    const double part = at - static_cast<double>(i);
    const cv::Vec3d color = kAnchors[i] * (1.0 - part) + kAnchors[i + 1] * part;
    return {cv::saturate_cast<uchar>(color[0]), cv::saturate_cast<uchar>(color[1]),
            cv::saturate_cast<uchar>(color[2])};
}

}  // namespace zyr
