#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

namespace zyr {

/// Rows of text for a terminal in aligned columns. The first column holds labels.
class Table {
public:
    /// Which way the columns behind the labels are aligned.
    enum Alignment { Left, Right };

    explicit Table(Alignment alignment) : alignment_(alignment) {}

    void add(std::vector<std::string> cells);
    void print(std::ostream& out) const;

private:
    std::vector<std::size_t> widths() const;

    Alignment alignment_;
    std::vector<std::vector<std::string>> rows_;
};

/// 1234567 as "1,234,567".
std::string grouped(std::uint64_t value);
/// "1 hole", "1,234 holes".
std::string counted(std::uint64_t count, const std::string& one, const std::string& many);
/// With so many decimals, whatever the locale.
std::string decimal(double value, int decimals);
/// Six significant digits.
std::string compact(double value);

}  // namespace zyr
