#include "fileIO/StreamBytes.h"

#include <algorithm>
#include <cstring>

#include "fileIO/File.h"

namespace zyr {
namespace {

constexpr std::size_t kPiece = 64 << 10;

}  // namespace

StreamBytes::StreamBytes(std::FILE* file, std::uint64_t size)
    : file_(file),
      left_(size),
      bytes_(static_cast<std::size_t>(std::min<std::uint64_t>(size, kPiece))) {
    more();
}

bool StreamBytes::more() {
    if (begin_ > 0) std::memmove(bytes_.data(), data(), size());
    end_ = size();
    begin_ = 0;
    const auto wanted =
        static_cast<std::size_t>(std::min<std::uint64_t>(left_, bytes_.size() - end_));
    const std::size_t got =
        wanted == 0 || isEnded_ ? 0 : std::fread(bytes_.data() + end_, 1, wanted, file_);
    isEnded_ = isEnded_ || got < wanted;
    end_ += got;
    left_ -= got;
    return got > 0;
}

bool StreamBytes::has(std::uint64_t bytes) {
    if (size() + left_ < bytes) return false;
    while (size() < bytes && remainingBytes(file_) < bytes - size()) {
        if (isEnded_) return false;
        Buffer longer(2 * bytes_.size());
        std::memcpy(longer.data(), data(), size());
        bytes_ = std::move(longer);
        more();
    }
    return true;
}

}  // namespace zyr
