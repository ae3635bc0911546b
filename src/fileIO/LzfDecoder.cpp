#include "fileIO/LzfDecoder.h"

#include <algorithm>
#include <cstring>

namespace zyr {

LzfStep lzfDecodeStep(const Byte* in, std::size_t inLen, Byte* out, std::size_t from,
                      std::size_t outLen) {
    std::size_t ip = 0;
    std::size_t op = from;
    while (ip < inLen) {
        const std::size_t control = in[ip];
        if (control < 32) {
            const std::size_t run = control + 1;
            if (run > outLen - op) return {LzfEnd::Overrun, ip, op - from, 0};
            const std::size_t there = std::min(run, inLen - ip - 1);
            std::memcpy(out + op, in + ip + 1, there);
            if (there < run) return {LzfEnd::Cut, ip, op - from, there};
            ip += 1 + run;
            op += run;
            continue;
        }
        std::size_t length = (control >> 5) + 2;
        const std::size_t bytes = length == 9 ? 3 : 2;
        if (inLen - ip < bytes) return {LzfEnd::Cut, ip, op - from, 0};
        if (length == 9) length += in[ip + 1];
        const std::size_t distance = ((control & 31) << 8) + in[ip + bytes - 1] + 1;
        if (length > outLen - op) return {LzfEnd::Overrun, ip, op - from, 0};
        if (distance > op) return {LzfEnd::BadReference, ip, op - from, 0};
        for (; length > 0; --length, ++op) out[op] = out[op - distance];
        ip += bytes;
    }
    return {LzfEnd::Whole, ip, op - from, 0};
}

}  // namespace zyr
