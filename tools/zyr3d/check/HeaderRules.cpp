#include "check/HeaderRules.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "Outcome.h"

namespace zyr {
namespace {

/// Fields that belong together, in this order, and what they hold.
struct FieldGroup {
    std::array<const char*, 3> names;  ///< null where there are fewer
    const char* types;                 ///< letters that TYPE may have
    const char* sizes;                 ///< digits that SIZE may have
};

constexpr std::array<FieldGroup, 6> kGroups = {{{{"x", "y", "z"}, "F", "48"},
                                                {{"nx", "ny", "nz"}, "F", "48"},
                                                {{"rgb", nullptr, nullptr}, "U", "4"},
                                                {{"fa", "fb", "fc"}, "UI", "4"},
                                                {{"fnx", "fny", "fnz"}, "F", "48"},
                                                {{"frgb", nullptr, nullptr}, "U", "4"}}};
constexpr FieldGroup kUnknown = {{nullptr, nullptr, nullptr}, "FUI", "1248"};

class HeaderRules {
public:
    HeaderRules(const std::string& path, const CloudHeader& header)
        : path_(path), header_(header), data_(header.lines.back()) {}

    void checkShared() {
        for (const HeaderLine& line : header_.lines) checkWords(line);
        checkFields(line("FIELDS"));
        checkColumns();
        number("POINTS");
        if (header_.body == "ascii")
            fail(data_, "an ascii body, which readers do not decode: all points are at the origin");
    }

    void checkCloud() {
        number("WIDTH");
        number("HEIGHT");
        line("VIEWPOINT", 7);
        if (header_.width * header_.height != header_.points)
            fail(line("POINTS"), "WIDTH times HEIGHT is not POINTS");
    }

    void checkMesh() {
        if (!header_.hasField("fa")) fail(line("FIELDS"), "no field fa");
        number("FACES");
        if (header_.points == 0) fail(line("POINTS"), "a mesh without vertices");
        if (header_.faces > 0x7FFFFFFF / 3) fail(line("FACES"), "more triangles than can be held");
    }

private:
    [[noreturn]] void fail(const HeaderLine& line, const std::string& why) const {
        throw Fault(path_, line.offset, line.number, why);
    }

    void checkWords(const HeaderLine& line) const {
        static const std::array<const char*, 10> known = {"FIELDS", "SIZE",   "TYPE",      "COUNT",
                                                          "WIDTH",  "HEIGHT", "VIEWPOINT", "POINTS",
                                                          "FACES",  "DATA"};
        const std::string& keyword = line.words[0];
        if (std::find(known.begin(), known.end(), keyword) == known.end()) return;
        for (const std::string& word : line.words)
            if (word.empty()) fail(line, "an empty word in " + keyword);
        if (&line != &this->line(keyword)) fail(line, "a second " + keyword + " line");
    }

    /// The first line of the keyword.
    const HeaderLine& line(const std::string& keyword) const {
        for (const HeaderLine& line : header_.lines)
            if (line.words[0] == keyword) return line;
        fail(data_, "no " + keyword + " line before it");
    }

    /// The same, with so many words behind the keyword.
    const HeaderLine& line(const std::string& keyword, std::size_t words) const {
        const HeaderLine& found = line(keyword);
        if (found.words.size() != words + 1)
            fail(found, keyword + " has " + std::to_string(found.words.size() - 1) + " words for " +
                            std::to_string(words));
        return found;
    }

    static bool isCount(const std::string& word) {
        return !word.empty() && word.find_first_not_of("0123456789") == std::string::npos;
    }

    void number(const char* keyword) const {
        const HeaderLine& found = line(keyword, 1);
        if (!isCount(found.words[1])) fail(found, std::string(keyword) + " is not a number");
    }

    void checkFields(const HeaderLine& found) const {
        const auto& names = header_.fields;
        if (names.size() > 14) fail(found, "more than 14 fields");
        if (!header_.hasField("x")) fail(found, "no field x");
        for (std::size_t i = 0; i < names.size(); ++i) {
            if (std::count(names.begin(), names.end(), names[i]) > 1)
                fail(found, "two fields " + names[i]);
            for (const FieldGroup& group : kGroups) checkPlace(found, group, i);
        }
    }

    /// The first of a group has the others behind it, and they have it before them.
    void checkPlace(const HeaderLine& found, const FieldGroup& group, std::size_t at) const {
        const auto& names = header_.fields;
        for (std::size_t k = 1; k < 3 && group.names[k] != nullptr; ++k) {
            const bool hasOther = at + k < names.size() && names[at + k] == group.names[k];
            if (names[at] == group.names[0] && !hasOther)
                fail(found, std::string("no field ") + group.names[k] + " in its place behind " +
                                group.names[0]);
            const bool hasFirst = at >= k && names[at - k] == group.names[0];
            if (names[at] == group.names[k] && !hasFirst)
                fail(found, std::string("no field ") + group.names[0] + " in its place before " +
                                group.names[k]);
        }
    }

    static const FieldGroup& groupOf(const std::string& name) {
        for (const FieldGroup& group : kGroups)
            for (const char* member : group.names)
                if (member != nullptr && name == member) return group;
        return kUnknown;
    }

    void checkColumns() const {
        const std::size_t fields = header_.fields.size();
        const HeaderLine& sizes = line("SIZE", fields);
        const HeaderLine& types = line("TYPE", fields);
        const HeaderLine& counts = line("COUNT", fields);
        for (const HeaderLine* each : {&sizes, &types, &counts})
            if (each->offset < line("FIELDS").offset)
                fail(*each, each->words[0] + " before FIELDS");
        for (std::size_t i = 0; i < fields; ++i) {
            const std::string& name = header_.fields[i];
            const FieldGroup& group = groupOf(name);
            if (!isOneOf(sizes.words[i + 1], group.sizes))
                fail(sizes, "a size of " + name + " that it cannot have");
            if (!isOneOf(types.words[i + 1], group.types))
                fail(types, "a type of " + name + " that it cannot have");
            if (!isCount(counts.words[i + 1]) || header_.counts[i] == 0)
                fail(counts, "a count of " + name + " that is no number above 0");
        }
    }

    static bool isOneOf(const std::string& word, const std::string& characters) {
        return word.size() == 1 && characters.find(word) != std::string::npos;
    }

    const std::string& path_;
    const CloudHeader& header_;
    const HeaderLine& data_;
};

}  // namespace

void checkCloudHeader(const std::string& path, const CloudHeader& header) {
    HeaderRules rules(path, header);
    rules.checkShared();
    rules.checkCloud();
}

void checkMeshHeader(const std::string& path, const CloudHeader& header) {
    HeaderRules rules(path, header);
    rules.checkShared();
    rules.checkMesh();
}

}  // namespace zyr
