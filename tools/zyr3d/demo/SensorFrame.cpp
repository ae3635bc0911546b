#include "demo/SensorFrame.h"

#include <algorithm>
#include <cmath>
#include <random>

#include "demo/MachinedPart.h"

namespace zyr {
namespace {

using cv::Point3d;

constexpr int kWidth = 640;
constexpr int kHeight = 480;
constexpr double kFocalLength = 1100.0;
const Point3d kSensor(0.0, -140.0, 480.0);
const Point3d kProjector(-185.0, -120.0, 480.0);
const Point3d kTarget(0.0, 0.0, 12.0);
constexpr double kNone = -1.0;

/// The distributions of <random> differ between standard libraries, its engine does not.
class Noise {
public:
    /// In [0, 1).
    double uniform() { return static_cast<double>(engine_()) / 4294967296.0; }
    bool happens(double probability) { return uniform() < probability; }
    /// Close to normal, with deviation 1: the sum of 12 uniform values.
    double normal() {
        double sum = -6.0;
        for (int i = 0; i < 12; ++i) sum += uniform();
        return sum;
    }

private:
    std::mt19937 engine_{20240229};
};

Point3d unit(const Point3d& v) {
    return v * (1.0 / std::sqrt(v.dot(v)));
}

Point3d rayThrough(int column, int row) {
    const Point3d forward = unit(kTarget - kSensor), right(1, 0, 0), down = forward.cross(right);
    return unit(forward * kFocalLength + right * (column - (kWidth - 1) / 2.0) +
                down * (row - (kHeight - 1) / 2.0));
}

/// How far along a ray from the sensor the first surface is; kNone when it misses.
double trace(const Point3d& ray) {
    double t = (scene::kTop - kSensor.z) / ray.z;
    for (int step = 0; step < 200; ++step) {
        const double d = scene::distance(kSensor + ray * t);
        if (d < 0.005) return t;
        t += d;
    }
    return kNone;
}

/// Whether the light of the projector reaches a point, from 0 (dark) to 1 over a soft edge.
double illumination(const Point3d& surface, const Point3d& normal) {
    const Point3d start = surface + normal * 0.1, ray = unit(kProjector - start);
    const double end = (scene::kTop - start.z) / ray.z;
    double light = 1.0;
    for (double t = 0.1; t < end;) {
        const double d = scene::distance(start + ray * t);
        if (d < 0.01) return 0.0;
        light = std::min(light, 60.0 * d / t);
        t += std::max(d, 0.05);
    }
    return light;
}

/// What one pixel sees, before any fault of the sensor.
struct Sight {
    double range = kNone;  ///< along the ray; kNone: nothing
    double facing = 0.0;   ///< cosine between the normal and the way to the sensor
    double light = 0.0;    ///< of the projector
    double glare = 0.0;    ///< cosine between the normal and the mirror direction
    cv::Vec3b color;       ///< b, g, r
};

cv::Vec3b shade(const Sight& sight, const Point3d& p, const Point3d& n, double lambert) {
    const cv::Vec3d albedos[] = {{84, 66, 52}, {176, 172, 168}, {208, 226, 236}};
    const auto material = scene::material(p);
    const double gloss = material == scene::Material::Plate ? 25.0 : 90.0;
    double highlight = sight.glare * sight.glare;
    for (int i = 0; i < 5; ++i) highlight *= highlight;
    const double ambient = (0.34 + 0.14 * n.z) * scene::openness(p, n);
    const double direct = 0.85 * lambert * sight.light;
    const cv::Vec3d color =
        albedos[static_cast<int>(material)] * scene::toolMarks(p, n) * (ambient + direct) +
        cv::Vec3d::all(gloss * highlight * sight.light);
    return {cv::saturate_cast<uchar>(color[0]), cv::saturate_cast<uchar>(color[1]),
            cv::saturate_cast<uchar>(color[2])};
}

Sight look(const Point3d& ray) {
    Sight sight;
    sight.range = trace(ray);
    if (sight.range == kNone) return sight;
    const Point3d p = kSensor + ray * sight.range, n = scene::normal(p);
    const Point3d toProjector = unit(kProjector - p);
    const double lambert = std::max(0.0, n.dot(toProjector));
    sight.facing = -n.dot(ray);
    sight.light = lambert > 0.0 ? illumination(p, n) : 0.0;
    sight.glare = std::max(0.0, n.dot(unit(toProjector - ray)));
    sight.color = shade(sight, p, n, lambert);
    return sight;
}

/// The sensor's measuring of what its pixels see.
class Measurement {
public:
    explicit Measurement(const std::vector<Sight>& sights) : sights_(sights) {}

    cv::Vec3f measure(int column, int row) {
        const Sight& sight = at(column, row);
        if (!isMeasured(sight)) return {kHole, kHole, kHole};
        const double steep = 1.0 / std::max(sight.facing, 0.2);
        double range = sight.range + 0.025 * steep * noise_.normal();
        const double behind = jump(column, row);
        if (std::abs(behind) > 3.0) {
            if (noise_.happens(0.35)) return {kHole, kHole, kHole};
            if (noise_.happens(0.12)) range += behind * (0.2 + 0.6 * noise_.uniform());
        }
        if (noise_.happens(0.0002)) range -= 5.0 + 60.0 * noise_.uniform();
        const Point3d p = kSensor + rayThrough(column, row) * range;
        return {static_cast<float>(p.x), static_cast<float>(p.y), static_cast<float>(p.z)};
    }

private:
    const Sight& at(int column, int row) const {
        return sights_[static_cast<std::size_t>(row * kWidth + column)];
    }

    bool isMeasured(const Sight& sight) {
        if (sight.range == kNone || sight.light < 0.35 || sight.facing < 0.12) return false;
        if (sight.glare > 0.9992) return false;
        const bool isDark = sight.color[0] + sight.color[1] + sight.color[2] < 130;
        return !noise_.happens(isDark ? 0.05 : 0.002);
    }

    /// The largest difference in range to a neighbour.
    double jump(int column, int row) const {
        double largest = 0.0;
        for (const auto& [dx, dy] : {std::pair(-1, 0), {1, 0}, {0, -1}, {0, 1}}) {
            const int x = std::clamp(column + dx, 0, kWidth - 1);
            const int y = std::clamp(row + dy, 0, kHeight - 1);
            if (at(x, y).range == kNone) continue;
            const double difference = at(x, y).range - at(column, row).range;
            if (std::abs(difference) > std::abs(largest)) largest = difference;
        }
        return largest;
    }

    const std::vector<Sight>& sights_;
    Noise noise_;
};

}  // namespace

Frame synthesiseSensorFrame() {
    std::vector<Sight> sights;
    sights.reserve(kWidth * kHeight);
    for (int row = 0; row < kHeight; ++row)
        for (int column = 0; column < kWidth; ++column)
            sights.push_back(look(rayThrough(column, row)));
    Frame frame;
    frame.name = "synthesised sensor frame";
    frame.unit = "mm";
    frame.coordinates.create(kHeight, kWidth, CV_32FC3);
    frame.colors.create(kHeight, kWidth, CV_8UC3);
    Measurement sensor(sights);
    for (int row = 0; row < kHeight; ++row)
        for (int column = 0; column < kWidth; ++column) {
            const auto i = static_cast<std::size_t>(row * kWidth + column);
            frame.coordinates.at<cv::Vec3f>(row, column) = sensor.measure(column, row);
            frame.colors.at<cv::Vec3b>(row, column) = sights[i].color;
        }
    return frame;
}

}  // namespace zyr
