#pragma once

#include <cstring>
#include <utility>

#include "Allocations.h"
#include "Formats.h"
#include "support/MatrixLimit.h"

namespace test {

/// While it lives, new memory and new matrices hold this byte.
class FilledMemory : public MatrixLimit {
public:
    explicit FilledMemory(int byte) : MatrixLimit(std::size_t(1) << 30), byte_(byte) {
        fillMemory(byte);
    }
    ~FilledMemory() override { fillMemory(-1); }

    using MatrixLimit::allocate;
    cv::UMatData* allocate(int dims, const int* sizes, int type, void* data, size_t* step,
                           cv::AccessFlag flags, cv::UMatUsageFlags usage) const override {
        cv::UMatData* mat = MatrixLimit::allocate(dims, sizes, type, data, step, flags, usage);
        if (data == nullptr) std::memset(mat->data, byte_, mat->size);
        return mat;
    }

private:
    int byte_;
};

/// The result and all values of loading into memory that held this byte.
inline std::pair<bool, Bytes> loadedOver(int byte, const Format& format, const char* path) {
    const FilledMemory filled(byte);
    Content content;
    const bool isLoaded = format.load(content, path, true, true);
    takeStop();
    return {isLoaded, bytesOf(content)};
}

inline bool isReadTheSameWhateverMemoryHeld(const Format& format, const char* path) {
    return loadedOver(0x55, format, path) == loadedOver(0xAA, format, path);
}

}  // namespace test
