#include "rangeimage/ImageCodec.h"

#include <gtest/gtest.h>

#include "support/Bytes.h"
#include "support/TempFolder.h"

// An OpenCV with calls for wide paths is told by its path type here, which brings calls of its own.

namespace wideopencv {

struct Path {
    const wchar_t* text;
};

cv::Mat imreadWString(const Path& path, int flags) {
    return cv::Mat(1, 1, CV_32S, cv::Scalar(static_cast<double>(path.text[0]) + flags));
}

bool imwriteWString(const Path& path, const cv::Mat& image, const std::vector<int>& parameters) {
    return path.text[0] == L'w' && image.rows == 1 && parameters.empty();
}

}  // namespace wideopencv

TEST(ImageCodec, TakesTheWideCallsWhereTheyExist) {
    const wideopencv::Path path{L"w"};
    const cv::Mat image = zyr::codec::readImage(path, 2, zyr::codec::Wide());
    EXPECT_EQ(image.at<int>(0, 0), L'w' + 2);
    EXPECT_TRUE(zyr::codec::writeImage(path, image, zyr::codec::Wide()));
    EXPECT_FALSE(zyr::codec::writeImage(path, cv::Mat(), zyr::codec::Wide()));
}

TEST(ImageCodec, ConvertsThePathForTheOrdinaryCalls) {
    const test::TempFolder folder;
    const std::string narrow = folder.path("a.png");
    const std::wstring wide(narrow.begin(), narrow.end());
    const cv::Mat image(1, 2, CV_16U, cv::Scalar(300));
    ASSERT_TRUE(zyr::codec::writeImage(wide.c_str(), image, zyr::codec::Narrow()));
    const cv::Mat read = zyr::codec::readImage(wide.c_str(), 2, zyr::codec::Narrow());
    EXPECT_EQ(read.at<unsigned short>(0, 1), 300);
}
