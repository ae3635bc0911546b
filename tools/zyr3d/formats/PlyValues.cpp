#include "formats/PlyValues.h"

#include "formats/Fault.h"
#include "formats/Text.h"

namespace zyr {

PlyValues::PlyValues(std::string_view bytes, const PlyHeader& header)
    : bytes_(bytes), body_(header.body), at_(header.bodyStart), line_{at_, header.end.line + 1} {}

void PlyValues::fail(const std::string& why) const {
    failAt(body_ == PlyHeader::Ascii ? line_ : Place{at_, 0}, why);
}

Place PlyValues::place() {
    if (body_ != PlyHeader::Ascii) return {at_, 0};
    skipBlanks();
    return line_;
}

double PlyValues::next(const Scalar& scalar) {
    rawBytes_ += scalar.size;
    return body_ == PlyHeader::Ascii ? nextWord() : nextBinary(scalar);
}

double PlyValues::nextBinary(const Scalar& scalar) {
    if (bytesLeft() < scalar.size) throw CutShort("the bytes end inside a value");
    const double value = loadScalar(scalar, bytes_.data() + at_, body_ == PlyHeader::BigEndian);
    at_ += scalar.size;
    return value;
}

void PlyValues::skipBlanks() {
    for (; at_ < bytes_.size() && isBlank(bytes_[at_]); ++at_)
        if (bytes_[at_] == '\n') line_ = {at_ + 1, line_.line + 1};
}

double PlyValues::nextWord() {
    skipBlanks();
    const std::size_t start = at_;
    while (at_ < bytes_.size() && !isBlank(bytes_[at_])) ++at_;
    const std::string_view word = bytes_.substr(start, at_ - start);
    if (word.empty()) throw CutShort("the text ends before its values do");
    double value = 0.0;
    if (!parseNumber(word, value)) fail("not a number: " + quoted(word));
    return value;
}

std::size_t PlyValues::nextCount(const PlyProperty& list) {
    const Place start = place();
    const double count = next(list.count);
    const bool isAscii = body_ == PlyHeader::Ascii;
    const std::size_t most = bytesLeft() / (isAscii ? 2 : list.value.size);
    if (!(count >= 0.0)) failAt(start, "a list of a negative length");
    if (count > static_cast<double>(most)) throw CutShort("a list is longer than what is left");
    return static_cast<std::size_t>(count);
}

bool PlyValues::isAtEnd() {
    if (body_ == PlyHeader::Ascii) skipBlanks();
    return bytesLeft() == 0;
}

}  // namespace zyr
