#pragma once

#include <algorithm>
#include <cstring>

#include "fileIO/LzfFormat.h"

namespace zyr {

/// Writes a block's chunks with few branches: what lies up to 16 bytes behind them is undefined.
/// Encoders keep it in a local variable, so that it lives in registers.
class LzfChunks {
public:
    LzfChunks(const Byte* in, std::size_t size, Byte* out)
        : in_(in), size_(size), first_(out), out_(out) {}

    /// How far references cover the block; what lies behind is pending.
    std::size_t place() const { return place_; }

    /// The pending bytes up to start as literals, and a reference for the bytes from there to end,
    /// 3 to 264.
    void reference(std::size_t start, std::size_t end, std::size_t distance) {
        referenceIf(true, start, end, distance);
    }

    /// The same, or nothing, without a branch on it.
    void referenceIf(bool isTaken, std::size_t start, std::size_t end, std::size_t distance) {
        const std::size_t run = start - place_;
        Byte* to = out_;
        if (run <= 16 && place_ + 16 <= size_) {
            *to = static_cast<Byte>(run - 1);
            std::memcpy(to + 1, in_ + place_, 16);
            to += run + std::size_t(run != 0);
        } else {
            if (!isTaken) return;
            to = literals(in_ + place_, run, to);
        }
        const std::size_t code = end - start - 2;
        const std::size_t offset = distance - 1;
        const std::size_t isLong = code >= 7;
        to[0] = static_cast<Byte>(std::min<std::size_t>(code, 7) << 5 | offset >> 8);
        to[1] = static_cast<Byte>(code - 7);
        to[1 + isLong] = static_cast<Byte>(offset);
        to += 2 + isLong;
        out_ = isTaken ? to : out_;
        place_ = isTaken ? end : place_;
    }

    /// The rest as literals. Gives the bytes written.
    std::size_t finish() {
        out_ = literals(in_ + place_, size_ - place_, out_);
        place_ = size_;
        return static_cast<std::size_t>(out_ - first_);
    }

private:
    static Byte* literals(const Byte* from, std::size_t count, Byte* out) {
        while (count > 0) {
            const std::size_t run = std::min<std::size_t>(count, 32);
            *out = static_cast<Byte>(run - 1);
            std::memcpy(out + 1, from, run);
            out += 1 + run;
            from += run;
            count -= run;
        }
        return out;
    }

    const Byte* in_;
    std::size_t size_;
    std::size_t place_ = 0;
    Byte* first_;
    Byte* out_;
};

}  // namespace zyr
