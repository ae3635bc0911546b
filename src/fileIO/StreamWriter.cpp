#include "fileIO/StreamWriter.h"

#include <algorithm>
#include <utility>

#include "fileIO/File.h"
#include "fileIO/LzfEncoder.h"

namespace zyr {
namespace {

/// What blocks that are no multiple of a literal run add to the worst case at the most.
constexpr std::size_t kBlockEnds = 64;

std::size_t blockSize(std::uint64_t bodySize) {
    return static_cast<std::size_t>(std::min<std::uint64_t>(bodySize, kLzfBlock));
}

}  // namespace

BlockEncoder::BlockEncoder(BlockSource source, std::uint64_t bodySize)
    : source_(std::move(source)),
      left_(bodySize),
      values_(blockSize(bodySize)),
      chunks_(lzfBlockRoom(blockSize(bodySize))) {}

std::size_t BlockEncoder::next() {
    const BlockValues block = source_(values_.data(), values_.size());
    left_ -= block.size;
    return block.size == 0
               ? 0
               : lzfEncodeBlock(values_.data(), block.size, block.width, chunks_.data());
}

StreamWriter::StreamWriter(BlockSource source, std::uint64_t bodySize, std::uint64_t most)
    : source_(std::move(source)),
      bodySize_(bodySize),
      most_(most),
      encoder_(source_, bodySize),
      block_(encoder_.next()) {
    if (encoder_.isAtEnd()) {
        size_ = block_;
        isCounted_ = true;
    }
    if (lzfWorstCase(bodySize) + kBlockEnds > most) count();
}

void StreamWriter::count() {
    if (isCounted_) return;
    BlockEncoder encoder(source_, bodySize_);
    for (std::size_t bytes = encoder.next(); bytes > 0; bytes = encoder.next()) size_ += bytes;
    isCounted_ = true;
}

void StreamWriter::prepareFor(std::FILE* file) {
    if (!isCounted_ && ftello(file) < 0) count();
}

bool StreamWriter::write(std::FILE* file, off_t sizeWordAt) {
    std::uint64_t written = 0;
    for (; block_ > 0; block_ = encoder_.next()) {
        if (!writeAll(file, encoder_.data(), block_)) return false;
        written += block_;
    }
    if (isCounted_) return true;
    size_ = written;
    const auto word = static_cast<std::uint32_t>(written);
    return fseeko(file, sizeWordAt, SEEK_SET) == 0 && writeAll(file, &word, sizeof word) &&
           fseeko(file, 0, SEEK_END) == 0;
}

}  // namespace zyr
