#pragma once

#include <memory>

#include "render/Camera.h"
#include "render/Creases.h"
#include "render/Look.h"
#include "render/Raster.h"

namespace zyr {

/// What is seen in a pixel.
struct Surface {
    cv::Vec3f normal;  ///< right, up and towards the eye; the last is never negative
    cv::Vec3b color;   ///< b, g, r; white where the subject has no colours
    double height;     ///< the data's z
};

/// A subject drawn, pixel by pixel.
class Surfaces {
public:
    Surfaces(const Subject& subject, const Camera& camera, const Look& look, int finer,
             const cv::Rect& window);

    const Raster& raster() const { return raster_; }
    /// What is in front in a pixel that has something.
    Surface at(int row, int column) const;

private:
    void drawSplats(const Look& look, int finer);
    Surface splat(int point) const;
    Surface triangle(int t, const cv::Vec3d& shares) const;
    cv::Vec3f triangleNormal(int t, const cv::Vec3d& shares) const;

    const Subject& subject_;
    std::vector<cv::Vec3f> placed_, normals_;
    std::vector<cv::Vec3f> faces_;  ///< the triangles' own normals
    Raster raster_;
    std::unique_ptr<Creases> creases_;
    int firstSplat_;
    bool isFlat_;
};

}  // namespace zyr
