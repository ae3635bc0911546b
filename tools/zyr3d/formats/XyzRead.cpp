#include <algorithm>
#include <cmath>
#include <limits>

#include "formats/Fault.h"
#include "formats/PointColumns.h"
#include "formats/Readers.h"
#include "formats/Text.h"

namespace zyr {
namespace {

/// Cells between commas or semicolons may be empty; blanks come in any number.
void splitCells(std::string_view line, std::vector<std::string_view>& cells) {
    const char mark = line.find(';') != line.npos ? ';' : ',';
    if (line.find(mark) == line.npos) return splitWords(line, cells);
    cells.clear();
    while (true) {
        const std::size_t end = line.find(mark);
        std::string_view cell = line.substr(0, end);
        while (!cell.empty() && isBlank(cell.front())) cell.remove_prefix(1);
        while (!cell.empty() && isBlank(cell.back())) cell.remove_suffix(1);
        if (cell.size() > 1 && cell.front() == '"' && cell.back() == '"')
            cell = cell.substr(1, cell.size() - 2);
        cells.push_back(cell);
        if (end == line.npos) break;
        line.remove_prefix(end + 1);
    }
    if (cells.back().empty()) cells.pop_back();
}

bool isComment(std::string_view line) {
    const std::size_t start = line.find_first_not_of(" \t");
    return start != line.npos && (line[start] == '#' || line.substr(start, 2) == "//");
}

class Reader {
public:
    explicit Reader(std::string_view bytes) : lines_(withoutMark(bytes)) {}

    Scene read() {
        std::string_view line;
        while (lines_.next(line)) {
            const bool isRemark = isComment(line);
            splitCells(isRemark ? withoutHashes(line) : line, cells_);
            if (cells_.empty()) continue;
            const bool isFirst = width_ == 0 && names_.empty();
            if (isFirst && isHeader(isRemark))
                takeNames();
            else if (!isRemark)
                takeRow();
        }
        return finish();
    }

private:
    /// Some programs put a byte-order mark in front.
    static std::string_view withoutMark(std::string_view bytes) {
        return bytes.substr(0, 3) == "\xEF\xBB\xBF" ? bytes.substr(3) : bytes;
    }

    static std::string_view withoutHashes(std::string_view line) {
        return line.substr(std::min(line.find_first_not_of("#/ \t"), line.size()));
    }

    /// Names stand in the first line, or in a comment before it that names x, y and z.
    bool isHeader(bool isRemark) const {
        double value = 0.0;
        if (!isRemark) return !parseNumber(cells_[0], value) && roleOf(cells_[0]) != Role::None;
        std::size_t found = 0;
        for (const std::string_view cell : cells_) found += roleOf(cell) <= Role::Z ? 1 : 0;
        return found == 3;
    }

    void takeNames() {
        for (const std::string_view cell : cells_) {
            names_.emplace_back(cell);
            const Role role = roleOf(cell);
            roles_.push_back(role == Role::Packed ? Role::None : role);
        }
        width_ = names_.size();
    }

    void takeRow() {
        if (width_ == 0) width_ = cells_.size();
        if (width_ < 3) failAtLine(lines_.number(), "fewer than 3 columns");
        if (cells_.size() < width_) failAtLine(lines_.number(), "fewer columns than before");
        for (std::size_t i = 0; i < width_; ++i) {
            double value = std::numeric_limits<double>::quiet_NaN();
            if (!cells_[i].empty() && !parseNumber(cells_[i], value))
                failAtLine(lines_.number(), "not a number: " + quoted(cells_[i]));
            values_.push_back(value);
        }
    }

    /// Whether columns hold whole numbers of 0 to 255 and more than a normal's.
    bool areColors(std::size_t first) const {
        double most = 0.0;
        for (std::size_t row = 0; row < values_.size(); row += width_)
            for (std::size_t i = first; i < first + 3; ++i) {
                const double value = values_[row + i];
                if (!(value >= 0.0 && value <= 255.0 && value == std::floor(value))) return false;
                most = std::max(most, value);
            }
        return most > 1.0;
    }

    /// Without names three columns are coordinates, three more colours or normals, and three or
    /// four behind normals colours.
    void guessRoles() {
        using List = std::vector<Role>;
        const List normals = {Role::NormalX, Role::NormalY, Role::NormalZ};
        const List colors = {Role::Red, Role::Green, Role::Blue};
        const auto add = [&](const List& more) {
            roles_.insert(roles_.end(), more.begin(), more.end());
        };
        add({Role::X, Role::Y, Role::Z});
        if (width_ == 6 || width_ == 7) add(areColors(3) ? colors : normals);
        if (width_ == 9 || width_ == 10) add(normals);
        if (width_ == 9 || width_ == 10) add(colors);
        const bool hasColors = roles_.size() > 3 && roles_.back() == Role::Blue;
        if (hasColors && roles_.size() < width_) roles_.push_back(Role::Alpha);
        roles_.resize(width_, Role::None);
        for (std::size_t i = 0; i < width_; ++i) names_.push_back(std::to_string(i + 1));
    }

    Scene finish() {
        if (roles_.empty()) guessRoles();
        const std::size_t count = width_ > 0 ? values_.size() / width_ : 0;
        PointColumns columns(boundedCount(count, 0, 0, "points"), roles_);
        if (!columns.hasPoints()) throw FormatFault("no columns x, y and z");
        PointRow row{};
        for (std::size_t i = 0; i < count; ++i) {
            for (std::size_t c = 0; c < width_; ++c) at(row, roles_[c]) = values_[i * width_ + c];
            columns.set(static_cast<int>(i), row);
        }
        Scene scene;
        scene.cloud = columns.cloud();
        const std::string unused = unusedColumns(names_, roles_);
        if (!unused.empty()) scene.leftOut.push_back("columns " + unused);
        return scene;
    }

    Lines lines_;
    std::vector<std::string_view> cells_;
    std::vector<std::string> names_;
    std::vector<Role> roles_;
    std::vector<double> values_;
    std::size_t width_ = 0;
};

}  // namespace

Scene readXyz(std::string_view bytes) {
    return Reader(bytes).read();
}

}  // namespace zyr
