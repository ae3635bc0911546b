#include "fileIO/LzfReader.h"

#include <algorithm>
#include <cstring>

#include "LZF.h"

namespace zyr {
namespace {

constexpr std::size_t kWindow = 64 << 10;
static_assert(kWindow >= MAX_OFF + LzfReader::kMostPeeked + MAX_REF, "a slide must make room");

}  // namespace

LzfReader::LzfReader(std::FILE* file, std::uint64_t streamSize, std::uint64_t bodySize)
    : stream_(file, streamSize),
      bodySize_(bodySize),
      bodyLeft_(bodySize),
      window_(static_cast<std::size_t>(std::min<std::uint64_t>(bodySize, kWindow))) {}

bool LzfReader::isBacked() {
    return stream_.has(bodySize_ / kLzfMaxExpansion + (bodySize_ % kLzfMaxExpansion != 0));
}

/// Keeps what waits and what references may reach.
void LzfReader::slide() {
    const std::size_t kept = std::max<std::size_t>(waiting(), std::min<std::size_t>(end_, MAX_OFF));
    std::memmove(window_.data(), window_.data() + end_ - kept, kept);
    begin_ -= end_ - kept;
    end_ = kept;
}

/// False at the end, whatever it is.
bool LzfReader::advance() {
    if (isEnded_) return false;
    const std::uint64_t room = std::min<std::uint64_t>(window_.size() - end_, bodyLeft_);
    const LzfStep step =
        lzfDecodeStep(stream_.data(), stream_.size(), window_.data(), end_, end_ + room);
    stream_.consume(step.consumed);
    const bool isFull = step.end == LzfEnd::Overrun && room < bodyLeft_;
    end_ += step.produced;
    bodyLeft_ -= step.produced;
    if (isFull) {
        slide();
        return true;
    }
    lastEnd_ = step.end;
    if ((step.end == LzfEnd::Whole || step.end == LzfEnd::Cut) && stream_.more()) return true;
    end_ += step.partial;
    bodyLeft_ -= step.partial;
    isEnded_ = true;
    return false;
}

std::size_t LzfReader::peek(std::size_t bytes) {
    while (waiting() < bytes && advance()) {
    }
    return waiting();
}

void LzfReader::skip(std::uint64_t bytes) {
    while (bytes > 0) {
        const auto step = static_cast<std::size_t>(std::min<std::uint64_t>(peek(1), bytes));
        if (step == 0) return;
        take(step);
        bytes -= step;
    }
}

bool LzfReader::finish() {
    do begin_ = end_;
    while (advance());
    if (stream_.isCut()) return lastEnd_ == LzfEnd::Whole || lastEnd_ == LzfEnd::Cut;
    return lastEnd_ == LzfEnd::Whole && bodyLeft_ == 0;
}

bool decodeExactly(StreamBytes& stream, Byte* out, std::size_t outLen) {
    std::size_t from = 0;
    for (;;) {
        const LzfStep step = lzfDecodeStep(stream.data(), stream.size(), out, from, outLen);
        stream.consume(step.consumed);
        from += step.produced;
        const bool goesOn = step.end == LzfEnd::Whole || step.end == LzfEnd::Cut;
        if (goesOn && stream.more()) continue;
        return step.end == LzfEnd::Whole && from == outLen && !stream.isCut();
    }
}

}  // namespace zyr
