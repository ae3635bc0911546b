#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

/// LZF as its format is worded, byte by byte: what the kernels are measured against.
namespace bench {

using Byte = unsigned char;

inline std::size_t plainDecode(const Byte* in, std::size_t inLen, Byte* out, std::size_t outLen) {
    std::size_t i = 0;
    std::size_t o = 0;
    while (i < inLen) {
        const std::size_t c = in[i++];
        if (c < 32) {
            if (o + c + 1 > outLen) return 0;
            for (std::size_t k = 0; k <= c; ++k) out[o++] = in[i++];
            continue;
        }
        std::size_t length = c >> 5;
        if (length == 7) length += in[i++];
        const std::size_t distance = ((c & 31) << 8) + in[i++] + 1;
        if (o + length + 2 > outLen || distance > o) return 0;
        for (std::size_t k = 0; k < length + 2; ++k, ++o) out[o] = out[o - distance];
    }
    return o;
}

class PlainEncoder {
public:
    PlainEncoder(const Byte* in, std::size_t inLen, Byte* out)
        : in_(in), inLen_(inLen), out_(out) {}

    std::size_t encode() {
        std::size_t i = 0;
        while (i + 4 <= inLen_) {
            const std::size_t before = exchange(i);
            std::size_t length = 0;
            if (before < i && i - before <= 8192)
                while (length < 264 && i + length < inLen_ &&
                       in_[before + length] == in_[i + length])
                    ++length;
            if (length < 3) {
                ++i;
                continue;
            }
            literals(i);
            reference(length, i - before - 1);
            i += length;
            place_ = i;
            for (std::size_t p = i - 2; p < i && p + 3 <= inLen_; ++p) exchange(p);
        }
        literals(inLen_);
        return size_;
    }

private:
    std::size_t exchange(std::size_t i) {
        const auto h = static_cast<std::uint32_t>(in_[i] << 16 | in_[i + 1] << 8 | in_[i + 2]);
        std::uint32_t& last = last_[(((h ^ (h << 5)) >> 10) - h * 5) & 16383];
        const std::size_t before = last;
        last = static_cast<std::uint32_t>(i);
        return before;
    }

    void literals(std::size_t end) {
        while (place_ < end) {
            const std::size_t run = std::min<std::size_t>(end - place_, 32);
            out_[size_++] = static_cast<Byte>(run - 1);
            for (std::size_t k = 0; k < run; ++k) out_[size_++] = in_[place_++];
        }
    }

    void reference(std::size_t length, std::size_t offset) {
        const std::size_t code = std::min<std::size_t>(length - 2, 7);
        out_[size_++] = static_cast<Byte>(code << 5 | offset >> 8);
        if (code == 7) out_[size_++] = static_cast<Byte>(length - 9);
        out_[size_++] = static_cast<Byte>(offset & 255);
    }

    const Byte* in_;
    std::size_t inLen_;
    Byte* out_;
    std::size_t size_ = 0;
    std::size_t place_ = 0;
    std::vector<std::uint32_t> last_ = std::vector<std::uint32_t>(16384, 0);
};

}  // namespace bench
