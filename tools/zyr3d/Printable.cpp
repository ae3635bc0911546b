#include "Printable.h"

namespace zyr {
namespace {

unsigned byteAt(std::string_view text, std::size_t i) {
    return i < text.size() ? static_cast<unsigned char>(text[i]) : 0;
}

/// Of a character by its first byte; 0 of a byte that starts none.
std::size_t sizeFor(unsigned first) {
    if (first < 0x80) return 1;
    if (first < 0xC2) return 0;
    if (first < 0xE0) return 2;
    if (first < 0xF0) return 3;
    return first < 0xF5 ? 4 : 0;
}

/// Of the character in front; 0 where the bytes are no UTF-8.
std::size_t sizeOfFirst(std::string_view text) {
    const unsigned first = byteAt(text, 0), second = byteAt(text, 1);
    const std::size_t size = sizeFor(first);
    for (std::size_t i = 1; i < size; ++i)
        if ((byteAt(text, i) & 0xC0U) != 0x80) return 0;
    const bool isTooLong = (first == 0xE0 && second < 0xA0) || (first == 0xF0 && second < 0x90);
    const bool isSurrogate = first == 0xED && second >= 0xA0;
    const bool isBeyondLast = first == 0xF4 && second >= 0x90;
    return isTooLong || isSurrogate || isBeyondLast ? 0 : size;
}

/// Of a good character, which may be a control character of two bytes as well.
bool isControl(std::string_view character) {
    const unsigned first = byteAt(character, 0);
    return first < ' ' || first == 0x7F || (first == 0xC2 && byteAt(character, 1) < 0xA0);
}

}  // namespace

std::string printable(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const std::size_t size = sizeOfFirst(text);
        const std::string_view character = text.substr(0, size == 0 ? 1 : size);
        if (size == 0 || isControl(character))
            result += '?';
        else
            result += character;
        text.remove_prefix(character.size());
    }
    return result;
}

}  // namespace zyr
