#include <opencv2/core.hpp>

#include "Zyr3DInner.h"
#include "transform/UpperLeft.h"

bool IsValidTransformMatrix(ZyrMatrix3 m) {
    const ZyrMatrix3 identity(1, 0, 0, 0, 1, 0, 0, 0, 1);
    const ZyrMatrix3 deviation = m * m.Transposed() - identity;
    return 1e-5 > deviation.Norm();
}

bool IsValidTransformMatrix(ZyrMatrix4 m) {
    return IsValidTransformMatrix(zyr::upperLeft(m));
}

// The product is of the columns, where the tests above take the rows.
bool Zyr3DInner::isRotationMatrix(cv::Mat& r) {
    const cv::Mat transposed = r.t();
    const cv::Mat product = transposed * r;
    return cv::norm(cv::Mat::eye(3, 3, r.type()), product, cv::NORM_L2) < zyr::kInvalidValue;
}
