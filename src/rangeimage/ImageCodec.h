#pragma once

#include <memory>
#include <opencv2/imgcodecs.hpp>
#include <vector>

#include "Zyr3DInner.h"

/// Image files by wide path: through cv::imreadWString and cv::imwriteWString where the OpenCV at
/// hand has them, else through its ordinary calls on the converted path.
namespace zyr::codec {

using namespace cv;

// Called with Wide(), the first of two overloads is taken where its body compiles.
struct Narrow {};
struct Wide : Narrow {};

template <class Path>
auto readImage(const Path& path, int flags, Wide /*rank*/) -> decltype(imreadWString(path, flags)) {
    return imreadWString(path, flags);
}

template <class Path>
cv::Mat readImage(const Path& path, int flags, Narrow /*rank*/) {
    return cv::imread(std::unique_ptr<char[]>(Zyr3DInner::wchar2char(path)).get(), flags);
}

template <class Path>
auto writeImage(const Path& path, const cv::Mat& image, Wide /*rank*/)
    -> decltype(imwriteWString(path, image, std::vector<int>())) {
    return imwriteWString(path, image, std::vector<int>());
}

template <class Path>
bool writeImage(const Path& path, const cv::Mat& image, Narrow /*rank*/) {
    return cv::imwrite(std::unique_ptr<char[]>(Zyr3DInner::wchar2char(path)).get(), image);
}

}  // namespace zyr::codec
