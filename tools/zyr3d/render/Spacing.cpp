#include "render/Spacing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>

namespace zyr {
namespace {

/// A point's place on a curve through space on which neighbours in space are mostly near.
struct Station {
    std::uint64_t along;
    int point;

    bool operator<(const Station& other) const {
        return along != other.along ? along < other.along : point < other.point;
    }
};

constexpr int kBits = 21;  // of each coordinate

/// The lowest bits with two zeros between each and the next.
std::uint64_t spread(std::uint64_t bits) {
    bits = (bits | bits << 32) & 0x1F00000000FFFF;
    bits = (bits | bits << 16) & 0x1F0000FF0000FF;
    bits = (bits | bits << 8) & 0x100F00F00F00F00F;
    bits = (bits | bits << 4) & 0x10C30C30C30C30C3;
    return (bits | bits << 2) & 0x1249249249249249;
}

class Curve {
public:
    Curve(const std::vector<cv::Vec3f>& points, const std::vector<int>& chosen) {
        for (int i : chosen)
            for (int k = 0; k < 3; ++k) {
                low_[k] = std::min(low_[k], points[static_cast<std::size_t>(i)][k]);
                high_[k] = std::max(high_[k], points[static_cast<std::size_t>(i)][k]);
            }
        float extent = 0.0F;
        for (int k = 0; k < 3; ++k) extent = std::max(extent, high_[k] - low_[k]);
        steps_ = extent > 0.0F ? ((1 << kBits) - 1) / double{extent} : 0.0;
    }

    Station station(const cv::Vec3f& at, int point) const {
        std::uint64_t along = 0;
        for (int k = 0; k < 3; ++k)
            along |= spread(static_cast<std::uint64_t>((double{at[k]} - low_[k]) * steps_)) << k;
        return {along, point};
    }

private:
    cv::Vec3f low_ = cv::Vec3f::all(std::numeric_limits<float>::max());
    cv::Vec3f high_ = cv::Vec3f::all(-std::numeric_limits<float>::max());
    double steps_ = 0.0;
};

std::vector<Station> sortedStations(const std::vector<cv::Vec3f>& points,
                                    const std::vector<int>& chosen) {
    const Curve curve(points, chosen);
    std::vector<Station> stations;
    stations.reserve(chosen.size());
    for (int i : chosen) stations.push_back(curve.station(points[static_cast<std::size_t>(i)], i));
    std::sort(stations.begin(), stations.end());
    return stations;
}

/// The third least distance to the points nearby on the curve.
float distanceToThird(const std::vector<cv::Vec3f>& points, const std::vector<Station>& stations,
                      std::size_t at) {
    constexpr std::size_t kNear = 8;
    const auto place = [&](std::size_t i) {
        return points[static_cast<std::size_t>(stations[i].point)];
    };
    std::array<float, 3> least;
    least.fill(std::numeric_limits<float>::max());
    const std::size_t end = std::min(at + kNear + 1, stations.size());
    for (std::size_t i = at - std::min(at, kNear); i < end; ++i) {
        const cv::Vec3f step = place(i) - place(at);
        const float square = step.dot(step);
        if (i == at || square >= least[2]) continue;
        least[2] = square;
        if (least[2] < least[1]) std::swap(least[1], least[2]);
        if (least[1] < least[0]) std::swap(least[0], least[1]);
    }
    for (std::size_t k = 3; k-- > 0;)
        if (least[k] < std::numeric_limits<float>::max()) return std::sqrt(least[k]);
    return 0.0F;
}

}  // namespace

std::vector<float> spacings(const std::vector<cv::Vec3f>& points, const std::vector<int>& chosen) {
    constexpr std::size_t kBlock = 24;
    const std::vector<Station> stations = sortedStations(points, chosen);
    std::vector<float> result(points.size(), 0.0F), block;
    for (std::size_t start = 0; start < stations.size(); start += kBlock) {
        const std::size_t end = std::min(start + kBlock, stations.size());
        block.clear();
        for (std::size_t i = start; i < end; ++i)
            block.push_back(distanceToThird(points, stations, i));
        const auto middle = block.begin() + static_cast<std::ptrdiff_t>(block.size() / 2);
        std::nth_element(block.begin(), middle, block.end());
        for (std::size_t i = start; i < end; ++i)
            result[static_cast<std::size_t>(stations[i].point)] = *middle;
    }
    return result;
}

}  // namespace zyr
