#pragma once

#include <opencv2/core.hpp>

namespace zyr {

/// What is in front in each pixel of a picture. Of things equally near the first drawn stays.
class Raster {
public:
    static constexpr int kNothing = -1;

    Raster(cv::Size size, const cv::Rect& window);

    /// A disk that faces the eye. It covers one pixel at least, and bulges, so that where disks
    /// overlap the nearest middle wins.
    void drawDisk(int id, const cv::Vec3f& at, float radius);
    /// A triangle that is seen from its edge is a line.
    void drawTriangle(int id, const cv::Vec3f& a, const cv::Vec3f& b, const cv::Vec3f& c);

    int id(int row, int column) const { return ids_.at<int>(row, column); }
    /// Towards the eye, in pixels; minus infinity where there is nothing.
    float height(int row, int column) const { return heights_.at<float>(row, column); }
    bool has(int row, int column) const {
        return row >= 0 && column >= 0 && row < ids_.rows && column < ids_.cols &&
               id(row, column) != kNothing;
    }
    cv::Size size() const { return ids_.size(); }

private:
    void put(int id, int row, int column, float height);
    void putAt(int id, const cv::Vec3d& at);
    void drawLine(int id, const cv::Vec3f& a, const cv::Vec3f& b);
    /// The pixels whose middles lie between two points, within the window.
    cv::Rect pixelsBetween(const cv::Vec2f& low, const cv::Vec2f& high) const;

    cv::Mat ids_, heights_;
    cv::Rect window_;
};

/// The shares of a triangle's corners at a place of the picture; they add up to 1. NaN where it is
/// seen from its edge.
cv::Vec3d cornerShares(const cv::Vec3f& a, const cv::Vec3f& b, const cv::Vec3f& c, double x,
                       double y);

}  // namespace zyr
