#include "formats/Text.h"

#include <algorithm>
#include <array>
#include <limits>

#include "Printable.h"

namespace zyr {
namespace {

/// Of a number that doesn't fit: whether it is a tiny one.
bool isTiny(std::string_view digits) {
    const std::size_t exponent = digits.find_first_of("eE");
    if (exponent != std::string_view::npos && exponent + 1 < digits.size())
        return digits[exponent + 1] == '-';
    return digits.substr(0, 1) == "0" || digits.substr(0, 1) == ".";
}

template <class Real>
bool parse(std::string_view word, Real& value) {
    if (word.size() > 1 && word[0] == '+' && word[1] != '-') word.remove_prefix(1);
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (end != word.data() + word.size() || error == std::errc::invalid_argument) return false;
    if (error == std::errc()) return true;
    const bool isNegative = word[0] == '-';
    const bool isZero = isTiny(word.substr(isNegative ? 1 : 0));
    value = isZero ? Real(0) : std::numeric_limits<Real>::infinity();
    if (isNegative) value = -value;
    return true;
}

template <class Real>
void append(std::string& text, Real value) {
    std::array<char, 32> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    text.append(digits.data(), end);
}

}  // namespace

bool Lines::next(std::string_view& line) {
    if (at_ >= text_.size()) return false;
    const std::size_t end = std::min(text_.find('\n', at_), text_.size());
    start_ = at_;
    line = text_.substr(at_, end - at_);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    at_ = std::min(end + 1, text_.size());
    ++number_;
    return true;
}

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\v' || c == '\f';
}

bool hasContent(std::string_view bytes) {
    return !std::all_of(bytes.begin(), bytes.end(), [](char c) { return c == '\0' || isBlank(c); });
}

void splitWords(std::string_view line, std::vector<std::string_view>& words) {
    words.clear();
    std::size_t at = 0;
    while (at < line.size()) {
        if (isBlank(line[at])) {
            ++at;
            continue;
        }
        std::size_t end = at;
        while (end < line.size() && !isBlank(line[end])) ++end;
        words.push_back(line.substr(at, end - at));
        at = end;
    }
}

std::string lowered(std::string_view text) {
    std::string result(text);
    for (char& c : result)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return result;
}

std::string quoted(std::string_view word) {
    constexpr std::size_t kMost = 40;
    return "\"" + printable(word.substr(0, kMost)) + (word.size() > kMost ? "...\"" : "\"");
}

bool parseNumber(std::string_view word, double& value) {
    return parse(word, value);
}

bool parseNumber(std::string_view word, float& value) {
    return parse(word, value);
}

void appendNumber(std::string& text, double value) {
    append(text, value);
}

void appendNumber(std::string& text, float value) {
    append(text, value);
}

}  // namespace zyr
