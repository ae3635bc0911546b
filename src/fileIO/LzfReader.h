#pragma once

#include "fileIO/LzfDecoder.h"
#include "fileIO/StreamBytes.h"

namespace zyr {

/// Decodes the stream at a file's position piece by piece, through a window.
class LzfReader {
public:
    /// Bytes that peek may be asked for.
    static constexpr std::size_t kMostPeeked = 8192;

    /// A stream stated to have so many bytes, for a body of so many.
    LzfReader(std::FILE* file, std::uint64_t streamSize, std::uint64_t bodySize);

    /// Whether the file has as many bytes as the whole body needs at least.
    bool isBacked();
    /// Decodes until this many bytes wait, or the body ends; gives how many wait at data().
    std::size_t peek(std::size_t bytes);
    const Byte* data() const { return window_.data() + begin_; }
    /// Passes bytes that wait.
    void take(std::size_t bytes) { begin_ += bytes; }
    /// Passes bytes, waiting or not, as far as there are any.
    void skip(std::uint64_t bytes);
    /// Passes the rest. Whether the stream gave the body exactly, or, of a file that ends early, no
    /// more than it.
    bool finish();

private:
    bool advance();
    void slide();
    std::size_t waiting() const { return end_ - begin_; }

    StreamBytes stream_;
    std::uint64_t bodySize_;
    std::uint64_t bodyLeft_;  ///< bytes of the body that are not decoded
    Buffer window_;
    std::size_t begin_ = 0;  ///< of what waits
    std::size_t end_ = 0;    ///< of what is decoded
    bool isEnded_ = false;
    LzfEnd lastEnd_ = LzfEnd::Whole;
};

/// Decodes the stream into a buffer that it must fill exactly.
bool decodeExactly(StreamBytes& stream, Byte* out, std::size_t outLen);

}  // namespace zyr
