#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "picture/ColorMap.h"
#include "picture/Scale.h"
#include "render/View.h"

namespace {

TEST(RenderView, NamesAreDirectionsOfTheData) {
    const struct {
        const char* name;
        cv::Vec3d right, up;
    } views[] = {{"top", {1, 0, 0}, {0, 1, 0}},
                 {"bottom", {1, 0, 0}, {0, -1, 0}},
                 {"front", {1, 0, 0}, {0, 0, 1}},
                 {"side", {0, 1, 0}, {0, 0, 1}},
                 {"180,0", {-1, 0, 0}, {0, 0, 1}}};
    for (const auto& expected : views) {
        zyr::View view;
        ASSERT_TRUE(zyr::parseView(expected.name, view));
        EXPECT_EQ(view.right, expected.right) << expected.name;
        EXPECT_EQ(view.up, expected.up) << expected.name;
    }
}

TEST(RenderView, NonsenseIsRefused) {
    zyr::View view;
    for (const char* text : {"", "left", "1", "1,", "1;2", "1,2,3", "nan,0", "0,91", "400,0"})
        EXPECT_FALSE(zyr::parseView(text, view)) << text;
}

TEST(RenderView, CamerasFramesAreSeenFromTheCamera) {
    const zyr::Bounds away{{-1, -1, 1}, {1, 1, 2}}, towards{{-1, -1, -2}, {1, 1, -1}};
    EXPECT_EQ(zyr::naturalView({}, away).up, cv::Vec3d(0, -1, 0));
    EXPECT_EQ(zyr::naturalView({}, towards).up, cv::Vec3d(0, 1, 0));
    const zyr::Bounds wide{{-5, -5, 1}, {5, 5, 2}}, aside{{0, 0, 1}, {1, 1, 2}};
    for (const zyr::Bounds& other : {wide, aside})
        EXPECT_NEAR(zyr::naturalView({}, other).eye[2], std::sqrt(0.5), 1e-9);
}

TEST(RenderScale, TicksAreRoundAndBetweenTheEnds) {
    const zyr::Scale scale{-0.37, 2.45, 8};
    const std::vector<double> expected = {0, 0.5, 1, 1.5, 2};
    ASSERT_EQ(scale.ticks().size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_DOUBLE_EQ(scale.ticks()[i], expected[i]);
    EXPECT_EQ(scale.text(0.5), "0.5");
}

TEST(RenderScale, OneValueIsOneTickInTheMiddle) {
    const zyr::Scale scale{7, 7, 8};
    EXPECT_EQ(scale.ticks(), std::vector<double>{7});
    EXPECT_EQ(scale.fraction(7), 0.5);
}

TEST(RenderScale, TicksOfAnySizeAreToldApart) {
    for (double size : {1e-30, 1e-6, 1.0, 1e6, 1e30}) {
        const zyr::Scale scale{3 * size, 4 * size, 8};
        const std::vector<double> ticks = scale.ticks();
        ASSERT_GE(ticks.size(), 4u) << size;
        ASSERT_LE(ticks.size(), 11u) << size;
        for (std::size_t i = 1; i < ticks.size(); ++i)
            EXPECT_NE(scale.text(ticks[i]), scale.text(ticks[i - 1])) << size;
    }
}

cv::Vec3d linear(const cv::Vec3b& color) {
    cv::Vec3d result;
    for (int k = 0; k < 3; ++k) {
        const double value = color[k] / 255.0;
        result[k] = value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    }
    return result;
}

/// CIELAB under D65.
cv::Vec3d lab(const cv::Vec3d& bgr) {
    const double b = bgr[0], g = bgr[1], r = bgr[2];
    const auto f = [](double t) { return t > 0.008856 ? std::cbrt(t) : 7.787 * t + 16.0 / 116; };
    const double x = f((0.4124564 * r + 0.3575761 * g + 0.1804375 * b) / 0.95047);
    const double y = f(0.2126729 * r + 0.7151522 * g + 0.0721750 * b);
    const double z = f((0.0193339 * r + 0.1191920 * g + 0.9503041 * b) / 1.08883);
    return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

TEST(RenderColorMap, EqualStepsLookEquallyLarge) {
    for (int i = 0; i < 16; ++i) {
        const double step = cv::norm(lab(linear(zyr::heightColor((i + 1) / 16.0))) -
                                     lab(linear(zyr::heightColor(i / 16.0))));
        EXPECT_NEAR(step, 11.4, 0.7) << i;
    }
}

TEST(RenderColorMap, LightnessGrowsAllTheWay) {
    for (int i = 0; i < 16; ++i)
        EXPECT_GT(lab(linear(zyr::heightColor((i + 1) / 16.0)))[0],
                  lab(linear(zyr::heightColor(i / 16.0)))[0] + 2.0)
            << i;
}

}  // namespace
