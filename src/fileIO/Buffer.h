#pragma once

#include <cstddef>
#include <memory>

#include "fileIO/LzfCodec.h"

namespace zyr {

/// Bytes of a fixed number, not initialised.
class Buffer {
public:
    explicit Buffer(std::size_t size) : bytes_(new Byte[size]), size_(size) {}

    Byte* data() { return bytes_.get(); }
    const Byte* data() const { return bytes_.get(); }
    std::size_t size() const { return size_; }

private:
    std::unique_ptr<Byte[]> bytes_;
    std::size_t size_;
};

}  // namespace zyr
