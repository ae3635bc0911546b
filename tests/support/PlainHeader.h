#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

#include "support/Bytes.h"

/// The text header of cloud and mesh files, read as its rules are worded: slow and plain, to
/// compare with and to know beforehand which headers stop the process.
namespace test {

/// The three assertions that a header can fail, by their texts.
constexpr char kStopWord[] = "wordLength <= line.maxWordSize";
constexpr char kStopLine[] = "line.numWords <= line.maxNumWords";
constexpr char kStopSize[] = "line.numWords == header.numFields + 1";

class PlainHeader {
public:
    explicit PlainHeader(const Bytes& file) {
        while (stop_.empty() && kind_.empty() && readLine(file)) runLine();
        hasBody_ = stop_.empty() && !kind_.empty();
    }

    /// The assertion that fails; empty when none does.
    const std::string& stop() const { return stop_; }
    /// Word of the DATA line; empty without one.
    const std::string& kind() const { return kind_; }
    bool hasBody() const { return hasBody_; }
    /// Bytes up to and with the DATA line.
    std::size_t size() const { return next_; }
    bool has(const std::string& keyword) const { return seen_.count(keyword) > 0; }
    /// Of the last line with that keyword; 0 without one.
    std::int64_t number(const std::string& keyword) const {
        const auto found = seen_.find(keyword);
        return found == seen_.end() ? 0 : found->second;
    }
    int index(const std::string& field) const {
        const auto found = indices_.find(field);
        return found == indices_.end() ? -1 : found->second;
    }
    /// A body follows, no number is out of its range, and no group of columns lacks one.
    bool isUsable() const {
        bool areWhole = numFields_ <= 14;
        for (const auto& [name, columns] : groups())
            areWhole = areWhole && index(name) + (index(name) < 0 ? 0 : columns) <= numFields_;
        return hasBody_ && !hasBadNumber_ && areWhole;
    }
    /// What point-cloud files need besides.
    bool isCloud() const {
        bool isWhole = isUsable() && index("x") >= 0;
        for (const char* keyword :
             {"SIZE", "TYPE", "COUNT", "WIDTH", "HEIGHT", "VIEWPOINT", "POINTS"})
            isWhole = isWhole && has(keyword);
        return isWhole && number("WIDTH") * number("HEIGHT") == number("POINTS");
    }
    /// No field is a column of two groups.
    bool areGroupsApart() const {
        std::vector<int> uses(64);
        for (const auto& [name, columns] : groups())
            for (int i = 0; index(name) >= 0 && i < columns; ++i)
                ++uses[static_cast<std::size_t>(index(name) + i)];
        return *std::max_element(uses.begin(), uses.end()) < 2;
    }

private:
    using Group = std::pair<const char*, int>;
    static std::array<Group, 6> groups() {
        return {{{"x", 3}, {"nx", 3}, {"rgb", 1}, {"fa", 3}, {"fnx", 3}, {"frgb", 1}}};
    }

    /// Splits the next line into words_; false when the file ends in it.
    bool readLine(const Bytes& file) {
        words_ = {""};
        bool isComment = false;
        for (; next_ < file.size(); ++next_) {
            const char c = static_cast<char>(file[next_]);
            if (c == '\n' || c == '\0') {
                ++next_;
                return true;
            }
            const bool isFirst = words_.size() == 1 && words_[0].empty();
            isComment = isComment || (c == '#' && isFirst);
            if (isComment || c == '\r') continue;
            if (c == ' ')
                words_.emplace_back();
            else
                words_.back() += c;
            if (words_.back().size() > 32) stop_ = kStopWord;
            if (words_.size() > 61 && stop_.empty()) stop_ = kStopLine;
            if (!stop_.empty()) return false;
        }
        return false;
    }

    std::string word(std::size_t i) const { return i < words_.size() ? words_[i] : ""; }

    std::int64_t take(std::size_t i) {
        const std::int64_t value = std::strtol(word(i).c_str(), nullptr, 10);
        if (value < 0 || value > 2147483647) hasBadNumber_ = true;
        return value;
    }

    void runLine() {
        const std::string keyword = word(0);
        const int numWords = static_cast<int>(words_.size());
        if (keyword == "FIELDS") {
            numFields_ = numWords - 1;
            for (const auto& [name, columns] : groups())
                for (int i = 0; i < numFields_; ++i)
                    if (word(static_cast<std::size_t>(i) + 1) == name) indices_[name] = i;
        }
        if (keyword == "SIZE" && numWords != numFields_ + 1) {
            stop_ = kStopSize;
            return;
        }
        if (keyword == "SIZE" || keyword == "COUNT")
            for (int i = 0; i < std::min(numFields_, 14); ++i)
                take(static_cast<std::size_t>(i) + 1);
        const bool isNumber =
            keyword == "WIDTH" || keyword == "HEIGHT" || keyword == "POINTS" || keyword == "FACES";
        seen_[keyword] = isNumber ? take(1) : 0;
        const std::string kind = word(1);
        if (keyword == "DATA" &&
            (kind == "ascii" || kind == "binary" || kind == "binary_compressed"))
            kind_ = kind;
    }

    std::size_t next_ = 0;
    std::vector<std::string> words_;
    std::string stop_, kind_;
    std::map<std::string, std::int64_t> seen_;
    std::map<std::string, int> indices_;
    int numFields_ = 0;
    bool hasBadNumber_ = false;
    bool hasBody_ = false;
};

}  // namespace test
