#pragma once

#include <charconv>
#include <string>
#include <string_view>
#include <vector>

#include "formats/Fault.h"

/// Text of foreign files, the same whatever the locale.
namespace zyr {

/// The lines of a text, without their ends: a line feed, also after a carriage return, or the end
/// of the text.
class Lines {
public:
    explicit Lines(std::string_view text) : text_(text) {}

    /// False behind the last line.
    bool next(std::string_view& line);
    /// Of the line that next gave, from 1.
    std::size_t number() const { return number_; }
    /// Where it is, and where the line after it starts.
    Place place() const { return {start_, number_}; }
    std::size_t offset() const { return at_; }

private:
    std::string_view text_;
    std::size_t at_ = 0, start_ = 0, number_ = 0;
};

bool isBlank(char c);
/// Whether there is more than blanks and zero bytes, which some writers pad files with.
bool hasContent(std::string_view bytes);
/// What stands between blanks.
void splitWords(std::string_view line, std::vector<std::string_view>& words);
std::string lowered(std::string_view text);
/// For messages: bytes that a terminal might take for commands and very long words don't get there.
std::string quoted(std::string_view word);

/// Takes a whole word: a decimal number, "nan" or "inf" in any letter case. What is too large is
/// infinite, what is too small 0.
bool parseNumber(std::string_view word, double& value);
bool parseNumber(std::string_view word, float& value);

/// A whole word of digits that the type can hold.
template <class Integer>
bool parseInteger(std::string_view word, Integer& value) {
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    return error == std::errc() && end == word.data() + word.size();
}

/// The shortest text that reads back as the same number.
void appendNumber(std::string& text, double value);
void appendNumber(std::string& text, float value);

}  // namespace zyr
