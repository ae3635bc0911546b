#pragma once

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace zyr {

/// What a subcommand tells about a file, in order: for people as a table, for programs as JSON.
class Facts {
public:
    /// A nested object is shared, as facts don't change once they are added.
    using Value = std::variant<bool, std::uint64_t, double, std::string, std::vector<double>,
                               std::vector<std::uint64_t>, std::vector<std::string>,
                               std::shared_ptr<const Facts>>;

    /// The key in JSON; where none is given it is the label with '_' for blanks. What has no text
    /// is for programs alone.
    void add(const std::string& label, const std::string& text, const Value& value);
    void add(const std::string& label, const std::string& key, const std::string& text,
             const Value& value);

    void word(const std::string& label, const std::string& text);
    void count(const std::string& label, std::uint64_t value);
    /// A count, for people with its share of the whole unless it is all.
    void share(const std::string& label, std::uint64_t part, std::uint64_t whole);
    void interval(const std::string& label, double low, double high);
    void size(const std::string& label, std::uint64_t columns, std::uint64_t rows);

    void append(const Facts& others);

    void printTable(std::ostream& out) const;
    /// One line: an object that starts with the file's name.
    void printJson(std::ostream& out, const std::string& file) const;

private:
    friend struct FactsJson;

    struct Fact {
        std::string label, key, text;
        Value value;
    };
    std::vector<Fact> facts_;
};

/// 12.3 % of a whole; rounded down, so that 100.0 % is all.
std::string percent(std::uint64_t part, std::uint64_t whole);

}  // namespace zyr
