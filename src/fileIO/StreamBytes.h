#pragma once

#include <cstdint>
#include <cstdio>

#include "fileIO/Buffer.h"

namespace zyr {

/// The bytes of a stream that lies at a file's position, read piece by piece.
class StreamBytes {
public:
    /// Reads the first piece of a stream that is stated to have so many bytes.
    StreamBytes(std::FILE* file, std::uint64_t size);

    /// What is read and not consumed.
    const Byte* data() const { return bytes_.data() + begin_; }
    std::size_t size() const { return end_ - begin_; }
    void consume(std::size_t bytes) { begin_ += bytes; }
    /// Reads on, behind what is not consumed. False when there is no more.
    bool more();
    /// Whether the file ended before the stream's stated size.
    bool isCut() const { return left_ > 0 && isEnded_; }
    /// Whether the file has at least so many bytes of the stream, before any is consumed. Measures
    /// the file; what can't be measured, such as a pipe, is read to find out.
    bool has(std::uint64_t bytes);

private:
    std::FILE* file_;
    std::uint64_t left_;  ///< bytes of the stream that are not read
    bool isEnded_ = false;
    Buffer bytes_;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
};

}  // namespace zyr
