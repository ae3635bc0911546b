#include "render/Drawing.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <sstream>

#include "Table.h"
#include "picture/Furniture.h"
#include "render/Shading.h"

namespace zyr {
namespace {

/// Where things are in a picture.
struct Layout {
    cv::Rect panel, legend;
    cv::Point triad, barEnd;
};

Layout layoutOf(const Look& look, const Furniture& furniture, bool hasLegend) {
    const auto z = [&](double pixels) { return furniture.zoomed(pixels); };
    const cv::Size size = look.size;
    if (look.isBare) return {{0, 0, size.width, size.height}, {}, {}, {}};
    const int right = hasLegend ? z(128) : z(24);
    Layout layout;
    layout.panel = {z(24), z(58), size.width - z(24) - right, size.height - z(58) - z(92)};
    layout.legend = {size.width - z(98), z(96), z(18), size.height - z(96) - z(84)};
    layout.triad = {z(64), size.height - z(60)};
    layout.barEnd = {size.width - right - z(12), size.height - z(28)};
    return layout;
}

/// Each pixel the mean of the finer ones, which evens edges out.
cv::Mat coarsened(const cv::Mat& fine, int finer) {
    cv::Mat coarse(fine.rows / finer, fine.cols / finer, CV_8UC3);
    for (int row = 0; row < coarse.rows; ++row)
        for (int column = 0; column < coarse.cols; ++column) {
            cv::Vec3i sum;
            for (int v = 0; v < finer; ++v)
                for (int u = 0; u < finer; ++u)
                    sum += cv::Vec3i(fine.at<cv::Vec3b>(row * finer + v, column * finer + u));
            for (int k = 0; k < 3; ++k)
                coarse.at<cv::Vec3b>(row, column)[k] =
                    static_cast<uchar>((sum[k] + finer * finer / 2) / (finer * finer));
        }
    return coarse;
}

/// Large pictures are drawn in their own pixels, so that memory stays bounded.
int finerFor(const cv::Size& size) {
    constexpr double kMostPixels = 4e6;
    return size.width * 1.0 * size.height > kMostPixels ? 1 : 2;
}

cv::Rect times(const cv::Rect& rect, int finer) {
    return {rect.x * finer, rect.y * finer, rect.width * finer, rect.height * finer};
}

/// Two significant digits, which do for a magnification.
std::string rounded(double factor) {
    std::ostringstream text;
    text << std::setprecision(2) << std::abs(factor);
    return text.str();
}

std::string factsOf(const Subject& subject) {
    const auto points = static_cast<std::uint64_t>(
        std::count_if(subject.points.begin(), subject.points.end(), isDrawable));
    std::string facts = grouped(points) + " points";
    if (!subject.isGrid && !subject.triangles.empty())
        facts += ", " + grouped(subject.triangles.size()) + " triangles";
    if (subject.strays > 0)
        facts += ", " + grouped(static_cast<std::uint64_t>(subject.strays)) + " far away left out";
    if (std::abs(subject.stretch[2]) != 1.0) facts += ", z x " + rounded(subject.stretch[2]);
    return facts;
}

std::array<cv::Vec3d, 3> axesOf(const Subject& subject, const View& view) {
    std::array<cv::Vec3d, 3> axes;
    for (int k = 0; k < 3; ++k) {
        const double sign = subject.stretch[k] < 0.0 ? -1.0 : 1.0;
        axes[static_cast<std::size_t>(k)] =
            cv::Vec3d(view.right[k], view.up[k], view.eye[k]) * sign;
    }
    return axes;
}

}  // namespace

cv::Mat drawPicture(const Subject& subject, const Look& look) {
    const View view = look.view ? *look.view : naturalView(subject, boundsOf(subject));
    const bool hasLegend = colorOf(subject, look) == ColorBy::Height;
    cv::Mat picture(look.size, CV_8UC3, look.background);
    Furniture furniture(picture, look.background);
    const Layout layout = layoutOf(look, furniture, hasLegend);
    const int finer = finerFor(look.size);
    const cv::Rect window = times(layout.panel, finer);
    const double margin = 0.02 * std::min(window.width, window.height);
    const Camera camera(subject, view,
                        cv::Rect2d(window.x + margin, window.y + margin, window.width - 2 * margin,
                                   window.height - 2 * margin));
    coarsened(shade(subject, camera, look, finer, window), finer).copyTo(picture);
    if (look.isBare) return picture;
    furniture.title(look.title, factsOf(subject));
    if (hasLegend) furniture.legend(layout.legend, heightScale(subject));
    furniture.triad(layout.triad, axesOf(subject, view));
    furniture.scaleBar(layout.barEnd, camera.pixelsPerUnit() / finer);
    return picture;
}

}  // namespace zyr
