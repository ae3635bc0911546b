#include "render/Shading.h"

#include <algorithm>
#include <cmath>

#include "picture/ColorMap.h"
#include "render/DepthCue.h"
#include "render/Surfaces.h"

namespace zyr {
namespace {

/// A lamp at the upper left and a little light from the eye.
double brightness(const cv::Vec3f& normal) {
    const cv::Vec3f lamp(-0.44F, 0.54F, 0.717F), halfway(-0.2375F, 0.2914F, 0.9266F);
    const double diffuse = std::max(0.0F, normal.dot(lamp));
    double gloss = std::max(0.0F, normal.dot(halfway));
    for (int i = 0; i < 5; ++i) gloss *= gloss;
    return 0.26 + 0.62 * diffuse + 0.22 * normal[2] + 0.10 * gloss;
}

cv::Vec3b scaled(const cv::Vec3b& color, double factor) {
    cv::Vec3b result;
    for (int k = 0; k < 3; ++k) result[k] = cv::saturate_cast<uchar>(color[k] * factor);
    return result;
}

class Painter {
public:
    Painter(const Subject& subject, const Camera& camera, ColorBy colors)
        : camera_(camera), colors_(colors), scale_(heightScale(subject)) {}

    cv::Vec3b color(const Surface& surface, double cue) const {
        switch (colors_) {
            case ColorBy::Height:
                return scaled(heightColor(scale_.fraction(surface.height)),
                              brightness(surface.normal) * cue);
            case ColorBy::Rgb:
                // A camera's colours have their own light in them.
                return scaled(surface.color, (0.6 + 0.5 * brightness(surface.normal)) * cue);
            default:
                return scaled(directionColor(surface.normal), 0.4 + 0.6 * cue);
        }
    }

private:
    /// The data's x, y and z as red, green and blue.
    cv::Vec3b directionColor(const cv::Vec3f& normal) const {
        const cv::Vec3f n = camera_.turnedBack(normal);
        return cv::Vec3b(cv::Vec3f(n[2] + 1.0F, n[1] + 1.0F, n[0] + 1.0F) * 127.5F);
    }

    const Camera& camera_;
    ColorBy colors_;
    Scale scale_;
};

}  // namespace

Scale heightScale(const Subject& subject) {
    const Bounds bounds = boundsOf(subject);
    Scale scale;
    scale.low = bounds.low[2];
    scale.high = bounds.high[2];
    return scale;
}

ColorBy colorOf(const Subject& subject, const Look& look) {
    return look.color.value_or(subject.hasColors() ? ColorBy::Rgb : ColorBy::Height);
}

cv::Mat shade(const Subject& subject, const Camera& camera, const Look& look, int finer,
              const cv::Rect& window) {
    const Surfaces surfaces(subject, camera, look, finer, window);
    const Painter painter(subject, camera, colorOf(subject, look));
    const double finest = finer * std::max(1.0, look.size.height / 700.0);
    cv::Mat image(surfaces.raster().size(), CV_8UC3, look.background);
    for (int row = 0; row < image.rows; ++row)
        for (int column = 0; column < image.cols; ++column)
            if (surfaces.raster().has(row, column))
                image.at<cv::Vec3b>(row, column) = painter.color(
                    surfaces.at(row, column), depthCue(surfaces.raster(), row, column, finest));
    return image;
}

}  // namespace zyr
