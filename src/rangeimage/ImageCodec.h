#pragma once

#include <clocale>
#include <memory>
#include <opencv2/imgcodecs.hpp>
#include <vector>

#include "Zyr3DInner.h"

/// Image files by wide path: through cv::imreadWString and cv::imwriteWString where the OpenCV at
/// hand has them, else through its ordinary calls on the converted path.
namespace zyr::codec {

// Needed for the look-up: a plain wide path does not lead to cv's calls by wide path, and cv:: in
// front of them would not compile where they are missing.
using namespace cv;

/// Puts the calling thread under the C locale, since OpenCV compares suffixes under the thread's.
class ClassicLocale {
public:
    ClassicLocale()
        : classic_(newlocale(LC_ALL_MASK, "C", nullptr)), previous_(uselocale(classic_)) {}
    ~ClassicLocale() {
        uselocale(previous_);
        if (classic_ != nullptr) freelocale(classic_);
    }
    ClassicLocale(const ClassicLocale&) = delete;
    ClassicLocale& operator=(const ClassicLocale&) = delete;

private:
    locale_t classic_;
    locale_t previous_;
};

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
    const std::unique_ptr<char[]> narrow(Zyr3DInner::wchar2char(path));
    const ClassicLocale locale;  // behind the conversion, which goes by the user's
    return cv::imwrite(narrow.get(), image);
}

}  // namespace zyr::codec
