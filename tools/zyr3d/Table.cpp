#include "Table.h"

#include <algorithm>
#include <iomanip>
#include <ostream>
#include <sstream>

namespace zyr {

void Table::add(std::vector<std::string> cells) {
    rows_.push_back(std::move(cells));
}

std::vector<std::size_t> Table::widths() const {
    std::vector<std::size_t> widths;
    for (const auto& row : rows_) {
        widths.resize(std::max(widths.size(), row.size()), 0);
        for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], row[i].size());
    }
    return widths;
}

void Table::print(std::ostream& out) const {
    const std::vector<std::size_t> width = widths();
    for (const auto& row : rows_) {
        std::ostringstream line;
        for (std::size_t i = 0; i < row.size(); ++i)
            line << "  " << (i == 0 || alignment_ == Left ? std::left : std::right)
                 << std::setw(static_cast<int>(width[i])) << row[i];
        const std::string text = line.str();
        out << text.substr(0, text.find_last_not_of(' ') + 1) << "\n";
    }
}

std::string grouped(std::uint64_t value) {
    std::string text = std::to_string(value);
    for (std::size_t end = text.size(); end > 3; end -= 3) text.insert(end - 3, ",");
    return text;
}

std::string counted(std::uint64_t count, const std::string& one, const std::string& many) {
    return grouped(count) + " " + (count == 1 ? one : many);
}

std::string decimal(double value, int decimals) {
    std::ostringstream text;
    text << std::fixed << std::setprecision(decimals) << value;
    return text.str();
}

std::string compact(double value) {
    std::ostringstream text;
    text << value;
    return text.str();
}

}  // namespace zyr
