#pragma once

#include <cstddef>
#include <cstring>

#include "fileIO/LzfCodec.h"

namespace zyr {

/// Takes values off a run of bytes and refuses to pass its end.
class ByteCursor {
public:
    ByteCursor(const Byte* first, std::size_t size) : next_(first), left_(size) {}

    /// False, with the value left alone, when fewer bytes are left than it has.
    template <class T>
    bool take(T& value) {
        if (left_ < sizeof(T)) return false;
        std::memcpy(&value, next_, sizeof(T));
        next_ += sizeof(T);
        left_ -= sizeof(T);
        return true;
    }

private:
    const Byte* next_;
    std::size_t left_;
};

}  // namespace zyr
