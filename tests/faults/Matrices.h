#pragma once

#include <cstring>

#include "Allocations.h"
#include "support/MatrixLimit.h"

/// What becomes of the memory that matrices ask for, while one of these lives.
namespace test {

/// Matrices' own allocations do not fail: OpenCV loses the pixels when it finds no memory for their
/// description. Tests of matrices without memory fail the pixels alone.
class SteadyMatrices : public MatrixLimit {
public:
    SteadyMatrices() : MatrixLimit(1 << 20) {}

    using MatrixLimit::allocate;
    cv::UMatData* allocate(int dims, const int* sizes, int type, void* data, size_t* step,
                           cv::AccessFlag flags, cv::UMatUsageFlags usage) const override {
        const FailingPaused paused;
        return MatrixLimit::allocate(dims, sizes, type, data, step, flags, usage);
    }
};

/// The n-th matrix, from 0, finds no memory.
class FailingMatrix : public MatrixLimit {
public:
    explicit FailingMatrix(int n) : MatrixLimit(1 << 20), left_(n) {}

    /// Whether it came to that.
    bool hasFailed() const { return left_ < 0; }

    using MatrixLimit::allocate;
    cv::UMatData* allocate(int dims, const int* sizes, int type, void* data, size_t* step,
                           cv::AccessFlag flags, cv::UMatUsageFlags usage) const override {
        if (left_-- == 0) CV_Error(cv::Error::StsNoMem, "the test's");
        return MatrixLimit::allocate(dims, sizes, type, data, step, flags, usage);
    }

private:
    mutable int left_;
};

}  // namespace test
