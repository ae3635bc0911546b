#pragma once

#include <algorithm>
#include <opencv2/core.hpp>

namespace test {

/// While it lives, a matrix of more bytes than the limit fails for want of memory; the largest one
/// asked for is noted.
class MatrixLimit : public cv::MatAllocator {
public:
    explicit MatrixLimit(std::size_t bytes) : limit_(bytes) { cv::Mat::setDefaultAllocator(this); }
    ~MatrixLimit() override { cv::Mat::setDefaultAllocator(cv::Mat::getStdAllocator()); }
    MatrixLimit(const MatrixLimit&) = delete;
    MatrixLimit& operator=(const MatrixLimit&) = delete;

    std::size_t largest() const { return largest_; }

    cv::UMatData* allocate(int dims, const int* sizes, int type, void* data, size_t* step,
                           cv::AccessFlag flags, cv::UMatUsageFlags usage) const override {
        std::size_t bytes = CV_ELEM_SIZE(type);
        for (int i = 0; i < dims; ++i) bytes *= static_cast<std::size_t>(sizes[i]);
        largest_ = std::max(largest_, bytes);
        if (bytes > limit_) CV_Error(cv::Error::StsNoMem, "beyond the test's limit");
        return cv::Mat::getStdAllocator()->allocate(dims, sizes, type, data, step, flags, usage);
    }
    bool allocate(cv::UMatData* data, cv::AccessFlag flags,
                  cv::UMatUsageFlags usage) const override {
        return cv::Mat::getStdAllocator()->allocate(data, flags, usage);
    }
    void deallocate(cv::UMatData* data) const override {
        cv::Mat::getStdAllocator()->deallocate(data);
    }

private:
    std::size_t limit_;
    mutable std::size_t largest_ = 0;
};

}  // namespace test
