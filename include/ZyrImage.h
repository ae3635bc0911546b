#pragma once

#include <opencv2/core.hpp>

/// A stand-in for the host application's image class, with what ZyrRangeImage::DeepCopyValues needs
/// of it: it is default-constructible and holds one matrix. It is no part of the library; a host
/// that has its own puts that header in this one's place.
class ZyrImage {
public:
    /// Shares its pixels on copy.
    cv::Mat mat;
};
