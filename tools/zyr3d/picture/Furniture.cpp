#include "picture/Furniture.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <opencv2/imgproc.hpp>

#include "Table.h"
#include "picture/ColorMap.h"
#include "picture/Text.h"

namespace zyr {
namespace {

bool isDark(const cv::Vec3b& color) {
    return 0.114 * color[0] + 0.587 * color[1] + 0.299 * color[2] < 128.0;
}

cv::Vec3b mixed(const cv::Vec3b& a, const cv::Vec3b& b, double share) {
    return cv::Vec3b(cv::Vec3d(a) * (1.0 - share) + cv::Vec3d(b) * share);
}

}  // namespace

Furniture::Furniture(cv::Mat& picture, const cv::Vec3b& background)
    : picture_(picture),
      zoom_(std::clamp(std::min(picture.cols / 1200.0, picture.rows / 900.0), 0.4, 6.0)) {
    ink_ = isDark(background) ? cv::Vec3b(222, 217, 214) : cv::Vec3b(52, 46, 42);
    faint_ = mixed(background, ink_, 0.6);
}

void Furniture::line(const cv::Point2d& from, const cv::Point2d& to, const cv::Vec3b& ink,
                     double width) {
    constexpr int kFractionBits = 4;
    const auto fixed = [](const cv::Point2d& p) {
        return cv::Point(cvRound(p.x * (1 << kFractionBits)), cvRound(p.y * (1 << kFractionBits)));
    };
    cv::line(picture_, fixed(from), fixed(to), ink, std::max(1, zoomed(width)), cv::LINE_AA,
             kFractionBits);
}

void Furniture::title(const std::string& text, const std::string& facts) {
    const int margin = zoomed(24), base = zoomed(38);
    const double large = 0.62 * zoom_, small = 0.46 * zoom_;
    const int width = picture_.cols - 2 * margin;
    const int factsWidth = textWidth(facts, small);
    const bool hasFacts = factsWidth < width / 2;
    if (hasFacts)
        write(picture_, facts, {picture_.cols - margin, base}, small, faint_, Anchor::Right);
    const int left = hasFacts ? width - factsWidth - zoomed(24) : width;
    write(picture_, fitted(text, large, left), {margin, base}, large, ink_, Anchor::Left);
}

void Furniture::legend(const cv::Rect& box, Scale scale) {
    scale.mostSteps = std::clamp(cvRound(box.height / (26 * zoom_)), 1, 8);
    for (int row = 0; row < box.height; ++row)
        picture_(box).row(row).setTo(heightColor(1.0 - (row + 0.5) / box.height));
    write(picture_, "z", {box.x, box.y - zoomed(12)}, 0.5 * zoom_, ink_, Anchor::Left);
    for (double tick : scale.ticks()) {
        const double y = box.y + (1.0 - scale.fraction(tick)) * box.height;
        const double x = box.br().x;
        line({x + 2 * zoom_, y - 0.5}, {x + 6 * zoom_, y - 0.5}, faint_, 1.2);
        write(picture_, scale.text(tick), {cvRound(x + 11 * zoom_), cvRound(y + 5 * zoom_)},
              0.44 * zoom_, ink_, Anchor::Left);
    }
}

void Furniture::triad(cv::Point middle, const std::array<cv::Vec3d, 3>& axes) {
    // Red, green and blue that the colour-blind tell apart too.
    const std::array<cv::Vec3b, 3> inks = {{{60, 62, 214}, {96, 158, 0}, {214, 118, 34}}};
    std::array<int, 3> order = {0, 1, 2};
    std::stable_sort(order.begin(), order.end(),
                     [&](int a, int b) { return axes[a][2] < axes[b][2]; });
    const double length = 34 * zoom_;
    const cv::Point2d from(middle);
    for (int k : order) {
        const cv::Vec3d& axis = axes[k];
        const cv::Point2d step(axis[0], -axis[1]);
        line(from, from + step * length, inks[k], 3);
        const double reach = cv::norm(step) < 0.3 ? 0.0 : 1.0;
        const cv::Point2d label = from + step * length +
                                  step * (13 * zoom_ * reach / std::max(cv::norm(step), 0.3)) +
                                  (reach == 0.0 ? cv::Point2d(-10, 12) * zoom_ : cv::Point2d());
        if (reach == 0.0)
            cv::circle(picture_, middle, std::max(2, zoomed(4)), inks[k], cv::FILLED, cv::LINE_AA);
        write(picture_, std::string(1, "xyz"[k]), {cvRound(label.x), cvRound(label.y + 5 * zoom_)},
              0.5 * zoom_, inks[k], Anchor::Middle);
    }
}

void Furniture::scaleBar(cv::Point end, double pixelsPerUnit) {
    const double length = roundStep(picture_.cols / 10.0 / pixelsPerUnit);
    const double pixels = length * pixelsPerUnit, half = 5 * zoom_;
    const cv::Point2d right(end), left(end.x - pixels, end.y);
    line(left, right, ink_, 2);
    for (const cv::Point2d& tip : {left, right})
        line(tip - cv::Point2d(0, half), tip + cv::Point2d(0, half), ink_, 2);
    write(picture_, compact(length), {cvRound((left.x + right.x) / 2), end.y - zoomed(10)},
          0.46 * zoom_, ink_, Anchor::Middle);
}

}  // namespace zyr
