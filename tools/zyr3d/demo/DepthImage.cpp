#include "demo/DepthImage.h"

#include <cstdint>

#include "Outcome.h"
#include "files/ImageFile.h"

namespace zyr {
namespace {

class Unprojection {
public:
    Unprojection(const Pinhole& pinhole, cv::Size size)
        : fx_(pinhole.fx.value_or(525.0 / 640.0 * size.width)),
          fy_(pinhole.fy.value_or(fx_)),
          cx_(pinhole.cx.value_or((size.width - 1) / 2.0)),
          cy_(pinhole.cy.value_or((size.height - 1) / 2.0)),
          depthScale_(pinhole.depthScale) {}

    cv::Vec3f point(int column, int row, std::uint16_t depth) const {
        if (depth == 0) return {kHole, kHole, kHole};
        const double z = depth * depthScale_;
        return {static_cast<float>((column - cx_) / fx_ * z),
                static_cast<float>((row - cy_) / fy_ * z), static_cast<float>(z)};
    }

private:
    double fx_, fy_, cx_, cy_, depthScale_;
};

std::string sizeText(const cv::Mat& image) {
    return std::to_string(image.cols) + " x " + std::to_string(image.rows);
}

cv::Mat readColors(const std::string& path, const cv::Mat& depth) {
    cv::Mat colors = readImage(path);
    if (colors.size() != depth.size())
        throw FileTrouble(path + ": is " + sizeText(colors) + ", the depth picture " +
                          sizeText(depth));
    if (colors.depth() != CV_8U) throw FileTrouble(path + ": not a picture of 8-bit channels");
    return colors;
}

}  // namespace

Frame readDepthImage(const std::string& path, const std::string& colorPath,
                     const Pinhole& pinhole) {
    const cv::Mat depth = readImage(path);
    if (depth.type() != CV_16UC1)
        throw FileTrouble(path + ": not a depth picture of one 16-bit channel");
    const Unprojection unprojection(pinhole, depth.size());
    Frame frame;
    frame.name = path;
    frame.unit = "mm";
    frame.coordinates.create(depth.size(), CV_32FC3);
    for (int row = 0; row < depth.rows; ++row)
        for (int column = 0; column < depth.cols; ++column)
            frame.coordinates.at<cv::Vec3f>(row, column) =
                unprojection.point(column, row, depth.at<std::uint16_t>(row, column));
    if (!colorPath.empty()) frame.colors = readColors(colorPath, depth);
    return frame;
}

}  // namespace zyr
