#include <opencv2/core.hpp>

#include "Zyr3DInner.h"
#include "ZyrMatrix3.h"
#include "ZyrMatrix4.h"

bool IsValidTransformMatrix(ZyrMatrix3 m) {
    const ZyrMatrix3 identity(1, 0, 0, 0, 1, 0, 0, 0, 1);
    const ZyrMatrix3 deviation = m * m.Transposed() - identity;
    return 1e-5 > deviation.Norm();
}

bool IsValidTransformMatrix(ZyrMatrix4 m) {
    const double* e = m.Data();
    return IsValidTransformMatrix(
        ZyrMatrix3(e[0], e[1], e[2], e[4], e[5], e[6], e[8], e[9], e[10]));
}

// The product is of the columns, where the tests above take the rows.
bool Zyr3DInner::isRotationMatrix(cv::Mat& r) {
    const cv::Mat transposed = r.t();
    const cv::Mat product = transposed * r;
    return cv::norm(cv::Mat::eye(3, 3, r.type()), product, cv::NORM_L2) < zyr::kInvalidValue;
}
