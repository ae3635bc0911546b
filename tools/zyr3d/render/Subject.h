#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "ZyrPointCloud.h"
#include "ZyrRangeImage.h"
#include "ZyrTriangleMesh.h"

namespace zyr {

/// What a picture shows, in the data's own coordinates: triangles, and points as splats.
struct Subject {
    std::vector<cv::Vec3d> points;
    std::vector<cv::Vec3i> triangles;
    std::vector<int> splats;                ///< indices of the points that are drawn by themselves
    std::vector<cv::Vec3f> normals;         ///< of the points, or none; zero where it is not known
    std::vector<cv::Vec3b> colors;          ///< b, g, r of the points, or none
    std::vector<cv::Vec3b> triangleColors;  ///< b, g, r of the triangles, or none
    /// What the coordinates are multiplied by for the eye; negative where an axis is mirrored.
    cv::Vec3d stretch = {1, 1, 1};
    bool isGrid = false;       ///< the triangles were made between the pixels of a sensor
    bool isHeightMap = false;  ///< a grid of heights, which is looked at from above
    int strays = 0;            ///< points so far from all others that they were left out

    bool hasColors() const { return !colors.empty() || !triangleColors.empty(); }
    bool isEmpty() const { return triangles.empty() && splats.empty(); }
};

/// Whether a point has a place in a picture.
bool isDrawable(const cv::Vec3d& point);

/// A cloud whose points fill a grid of columns and rows, one after the other, becomes the surface
/// between them; give 0 columns for other clouds and for points alone.
Subject subjectOf(ZyrPointCloud& cloud, int columns);
/// Its triangles; the vertices alone where it has none that can be drawn.
Subject subjectOf(ZyrTriangleMesh& mesh);
/// The surface over its pixels by the calibration. Missing are what is no finite number and, of
/// unsigned 16-bit values, 0. Heights whose unit can't be the pixels' are stretched for the eye.
Subject subjectOf(const ZyrRangeImage& image);
/// With colours that are not its own, one a pixel; of any other number they are ignored.
Subject subjectOf(const ZyrRangeImage& image, const ZyrColorArray& colors);

/// The lowest and highest coordinates of what is drawn.
struct Bounds {
    cv::Vec3d low = cv::Vec3d::all(0), high = cv::Vec3d::all(0);
};

Bounds boundsOf(const Subject& subject);

/// Leaves out the points that are so far away that all others would shrink to a dot, with their
/// triangles.
void dropStrays(Subject& subject);

}  // namespace zyr
