#include "picture/Picture.h"

#include <algorithm>
#include <cmath>
#include <opencv2/imgproc.hpp>

#include "Table.h"
#include "picture/HeightColors.h"

namespace zyr {
namespace {

const cv::Scalar kBackground(33, 28, 25);
const cv::Scalar kText(214, 208, 204);
const cv::Scalar kFaint(150, 142, 136);
const cv::Rect kHeightPanel(28, 72, 640, 480);
const cv::Rect kColorPanel(796, 72, 640, 480);
const cv::Rect kLegend(686, 106, 16, 446);

bool isHole(const View& view, int row, int column) {
    return std::isnan(view.height.at<double>(row, column));
}

/// Brightness under a lamp at the upper left.
double brightness(const cv::Vec3f& normal) {
    const cv::Vec3f lamp(-0.44F, 0.48F, 0.76F), halfway(-0.235F, 0.256F, 0.938F);
    const double diffuse = std::max(0.0F, normal.dot(lamp));
    const double gloss = std::pow(std::max(0.0F, normal.dot(halfway)), 40.0);
    return 0.36 + 0.78 * diffuse + 0.10 * gloss;
}

cv::Vec3b scaled(const cv::Vec3b& color, double factor) {
    return {cv::saturate_cast<uchar>(color[0] * factor),
            cv::saturate_cast<uchar>(color[1] * factor),
            cv::saturate_cast<uchar>(color[2] * factor)};
}

cv::Vec3b legendColor(const View& view, double fraction) {
    return heightColor(view.isDepth ? 1.0 - fraction : fraction);
}

cv::Mat heightImage(const View& view, const HeightRange& range) {
    cv::Mat image(view.height.size(), CV_8UC3, kHoleColor);
    for (int row = 0; row < image.rows; ++row)
        for (int column = 0; column < image.cols; ++column) {
            if (isHole(view, row, column)) continue;
            const double fraction = range.fraction(view.height.at<double>(row, column));
            image.at<cv::Vec3b>(row, column) = scaled(
                legendColor(view, fraction), brightness(view.normals.at<cv::Vec3f>(row, column)));
        }
    return image;
}

cv::Mat normalImage(const View& view) {
    cv::Mat image(view.height.size(), CV_8UC3, kHoleColor);
    for (int row = 0; row < image.rows; ++row)
        for (int column = 0; column < image.cols; ++column) {
            if (isHole(view, row, column)) continue;
            const cv::Vec3f n = view.normals.at<cv::Vec3f>(row, column);
            const cv::Vec3f color = (cv::Vec3f(n[2], n[1], n[0]) + cv::Vec3f::all(1.0F)) * 127.5F;
            image.at<cv::Vec3b>(row, column) = cv::Vec3b(color);
        }
    return image;
}

/// Puts an image of any size into a panel, whole and centred.
void place(cv::Mat& picture, const cv::Mat& image, const cv::Rect& panel) {
    picture(panel).setTo(kHoleColor);
    const double scale =
        std::min(double(panel.width) / image.cols, double(panel.height) / image.rows);
    const cv::Size size(std::max(1, cvRound(image.cols * scale)),
                        std::max(1, cvRound(image.rows * scale)));
    cv::Mat fitted = image;
    if (size != image.size())
        cv::resize(image, fitted, size, 0, 0, scale < 1.0 ? cv::INTER_AREA : cv::INTER_NEAREST);
    const cv::Point corner(panel.x + (panel.width - size.width) / 2,
                           panel.y + (panel.height - size.height) / 2);
    fitted.copyTo(picture(cv::Rect(corner, size)));
}

enum class Anchor { Left, Right };

/// Text drawn twice as large and scaled down, which makes thin letters even.
void write(cv::Mat& picture, const std::string& text, cv::Point at, double size,
           const cv::Scalar& color, Anchor anchor = Anchor::Left) {
    const double fontScale = size * 2.0;
    const cv::Size extent = cv::getTextSize(text, cv::FONT_HERSHEY_SIMPLEX, fontScale, 2, nullptr);
    if (anchor == Anchor::Right) at.x -= extent.width / 2;
    cv::Mat large = cv::Mat::zeros(picture.rows * 2, picture.cols * 2, CV_8U), mask;
    cv::putText(large, text, at * 2, cv::FONT_HERSHEY_SIMPLEX, fontScale, 255, 2, cv::LINE_AA);
    cv::resize(large, mask, picture.size(), 0, 0, cv::INTER_AREA);
    for (int row = 0; row < mask.rows; ++row)
        for (int column = 0; column < mask.cols; ++column) {
            const double cover = mask.at<uchar>(row, column) / 255.0;
            cv::Vec3b& pixel = picture.at<cv::Vec3b>(row, column);
            for (int k = 0; k < 3; ++k)
                pixel[k] = cv::saturate_cast<uchar>(pixel[k] * (1.0 - cover) + color[k] * cover);
        }
}

void drawLegend(cv::Mat& picture, const View& view, const HeightRange& range,
                const std::string& unit) {
    // The warm end, which is nearest to the eye, is on top.
    for (int row = 0; row < kLegend.height; ++row) {
        const double fraction = 1.0 - (row + 0.5) / kLegend.height;
        picture(kLegend).row(row).setTo(heightColor(fraction));
    }
    const std::string axis(1, view.axis);
    write(picture, unit.empty() ? axis : axis + " [" + unit + "]", {kLegend.x, kLegend.y - 14},
          0.46, kText);
    for (double tick : range.ticks()) {
        const double fraction = range.fraction(tick);
        const double down = view.isDepth ? fraction : 1.0 - fraction;
        const int y = kLegend.y + cvRound(down * (kLegend.height - 1));
        cv::line(picture, {kLegend.br().x + 3, y}, {kLegend.br().x + 8, y}, kFaint);
        const int decimals = range.decimals();
        write(picture, decimals < 0 ? compact(tick) : decimal(tick, decimals),
              {kLegend.br().x + 13, y + 5}, 0.42, kText);
    }
}

}  // namespace

cv::Mat drawPicture(const View& view, const std::string& title, const std::string& facts,
                    const std::string& unit) {
    cv::Mat picture(kPictureHeight, kPictureWidth, CV_8UC3, kBackground);
    const HeightRange range = HeightRange::of(view.height);
    place(picture, heightImage(view, range), kHeightPanel);
    place(picture, view.colors.empty() ? normalImage(view) : view.colors, kColorPanel);
    drawLegend(picture, view, range, unit);
    write(picture, title, {28, 36}, 0.66, kText);
    write(picture, facts, {1436, 36}, 0.48, kFaint, Anchor::Right);
    write(picture, std::string("shaded ") + (view.isDepth ? "depth" : "height"), {28, 62}, 0.44,
          kFaint);
    write(picture, view.colors.empty() ? "normals" : "colours", {796, 62}, 0.44, kFaint);
    write(picture, view.kind, {28, 578}, 0.44, kFaint);
    return picture;
}

}  // namespace zyr
