#pragma once

#include <string>
#include <string_view>

#include "formats/PlyHeader.h"

namespace zyr {

/// The values of a PLY body one after the other. Throws FormatFault where there is none.
class PlyValues {
public:
    PlyValues(std::string_view bytes, const PlyHeader& header);

    double next(const Scalar& scalar);
    /// The number of values of a list, no more than what is left can hold.
    std::size_t nextCount(const PlyProperty& list);
    std::size_t bytesLeft() const { return bytes_.size() - at_; }
    /// Whether nothing but blanks follows.
    bool isAtEnd();
    /// Of what comes next.
    Place place();
    /// Bytes of the values so far, by their types.
    std::uint64_t rawBytes() const { return rawBytes_; }

private:
    [[noreturn]] void fail(const std::string& why) const;
    double nextBinary(const Scalar& scalar);
    double nextWord();
    void skipBlanks();

    std::string_view bytes_;
    PlyHeader::Body body_;
    std::size_t at_;
    Place line_;  ///< of a text
    std::uint64_t rawBytes_ = 0;
};

}  // namespace zyr
