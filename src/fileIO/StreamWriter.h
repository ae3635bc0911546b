#pragma once

#include <sys/types.h>

#include <cstdint>
#include <cstdio>
#include <functional>

#include "fileIO/Buffer.h"

namespace zyr {

/// A block's bytes: values of one width.
struct BlockValues {
    std::size_t size;  ///< 0 behind the last block
    std::size_t width;
};

/// Puts a body's next values into a block with so much room.
using BlockSource = std::function<BlockValues(Byte* target, std::size_t room)>;

/// Encodes a body block by block.
class BlockEncoder {
public:
    BlockEncoder(BlockSource source, std::uint64_t bodySize);

    /// Encodes the next block into data(). Gives the bytes that it takes, 0 behind the last.
    std::size_t next();
    const Byte* data() const { return chunks_.data(); }
    bool isAtEnd() const { return left_ == 0; }

private:
    BlockSource source_;
    std::uint64_t left_;  ///< bytes of the body that are not encoded
    Buffer values_;
    Buffer chunks_;
};

/// A body on its way into a file, as one stream behind a word that states the stream's size. The
/// word is mended when the stream is written, save where its value is known before.
class StreamWriter {
public:
    /// A stream of at most so many bytes. Encodes the first block, or all to count where the stream
    /// might have more.
    StreamWriter(BlockSource source, std::uint64_t bodySize, std::uint64_t most);

    bool fits() const { return size_ <= most_; }
    /// Whether the size is known before the stream is written.
    bool isCounted() const { return isCounted_; }
    /// Counts the stream where the file can't be gone back in, as in a pipe.
    void prepareFor(std::FILE* file);
    /// What to write in front; after write() the stream's size.
    std::uint32_t sizeWord() const { return static_cast<std::uint32_t>(size_); }
    /// Writes the stream; its size word lies at this position.
    bool write(std::FILE* file, off_t sizeWordAt);

private:
    void count();

    BlockSource source_;
    std::uint64_t bodySize_;
    std::uint64_t most_;
    std::uint64_t size_ = 0;
    bool isCounted_ = false;
    BlockEncoder encoder_;
    std::size_t block_;  ///< bytes of the block that is encoded and not written
};

}  // namespace zyr
