#include "files/HeaderScan.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

#include "Outcome.h"

namespace zyr {
namespace {

using Words = std::vector<std::string>;

constexpr std::size_t kMaxWord = 32;
constexpr std::size_t kMaxWords = 61;

/// Takes a header apart line by line, with the limits that the library's reader has.
class Scanner {
public:
    Scanner(const std::string& path, const std::vector<unsigned char>& bytes)
        : path_(path), bytes_(bytes), end_(std::min(bytes.size(), kMostHeader)) {}

    CloudHeader scan() {
        Words words;
        while (header_.body.empty()) {
            if (!nextLine(words)) failAtEnd();
            if (words.size() > 1 || !words[0].empty())
                header_.lines.push_back({words, start_, line_});
            take(words);
        }
        header_.bodyStart = at_;
        header_.counts.resize(header_.fields.size(), 0);
        return header_;
    }

private:
    [[noreturn]] void fail(const std::string& why) const { throw Fault(path_, start_, line_, why); }

    [[noreturn]] void failAtEnd() {
        start_ = at_;
        fail("no usable DATA line");
    }

    /// False when the bytes end before the line does. Lines end with a line feed or a zero byte;
    /// carriage returns don't count, and a '#' at the start makes a comment.
    bool nextLine(Words& words) {
        ++line_;
        start_ = at_;
        words.assign(1, "");
        bool isComment = false;
        for (; at_ < end_; ++at_) {
            const char c = static_cast<char>(bytes_[at_]);
            if (c == '\n' || c == '\0') {
                ++at_;
                return true;
            }
            if (c == '\r' || isComment) continue;
            if (c == '#' && words.size() == 1 && words[0].empty())
                isComment = true;
            else
                takeCharacter(c, words);
        }
        return false;
    }

    void takeCharacter(char c, Words& words) const {
        if (c == ' ')
            words.emplace_back();
        else
            words.back() += c;
        if (words.back().size() > kMaxWord) fail("a word of more than 32 characters");
        if (words.size() > kMaxWords) fail("more than 61 words");
    }

    void take(const Words& words) {
        const std::string& keyword = words[0];
        if (keyword == "FIELDS") header_.fields.assign(words.begin() + 1, words.end());
        if (keyword == "SIZE") takeSizes(words);
        if (keyword == "COUNT") header_.counts = numbers(words);
        if (keyword == "WIDTH") header_.width = number(words, 1);
        if (keyword == "HEIGHT") header_.height = number(words, 1);
        if (keyword == "POINTS") header_.points = number(words, 1);
        if (keyword == "FACES") header_.faces = number(words, 1);
        if (keyword == "DATA" && words.size() > 1 && isBodyKind(words[1])) header_.body = words[1];
    }

    void takeSizes(const Words& words) {
        if (words.size() != header_.fields.size() + 1)
            fail("SIZE has " + std::to_string(words.size() - 1) + " words for " +
                 std::to_string(header_.fields.size()) + " fields");
        header_.sizes = numbers(words);
    }

    static bool isBodyKind(const std::string& word) {
        return word == "ascii" || word == "binary" || word == "binary_compressed";
    }

    std::int64_t number(const Words& words, std::size_t i) const {
        const long value = i < words.size() ? std::strtol(words[i].c_str(), nullptr, 10) : 0;
        if (value < 0 || value > std::numeric_limits<std::int32_t>::max())
            fail(words[0] + " has a number that is negative or too large");
        return value;
    }

    /// As many numbers as there are fields at most.
    std::vector<std::int64_t> numbers(const Words& words) const {
        std::vector<std::int64_t> values;
        for (std::size_t i = 1; i < words.size() && i <= header_.fields.size(); ++i)
            values.push_back(number(words, i));
        return values;
    }

    const std::string& path_;
    const std::vector<unsigned char>& bytes_;
    std::size_t end_, at_ = 0, start_ = 0;  ///< start_ is the line's
    int line_ = 0;
    CloudHeader header_;
};

}  // namespace

bool CloudHeader::hasField(const char* name) const {
    return std::find(fields.begin(), fields.end(), name) != fields.end();
}

std::uint64_t CloudHeader::recordSize() const {
    std::uint64_t bytes = 0;
    for (std::size_t i = 0; i < std::min(sizes.size(), counts.size()); ++i)
        bytes += static_cast<std::uint64_t>(sizes[i]) * static_cast<std::uint64_t>(counts[i]);
    return bytes;
}

CloudHeader scanHeader(const std::string& path, const std::vector<unsigned char>& bytes) {
    return Scanner(path, bytes).scan();
}

}  // namespace zyr
