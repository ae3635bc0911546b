#include <algorithm>
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
    explicit Reader(std::string_view bytes)
        : mark_(bytes.size() - withoutMark(bytes).size()), lines_(withoutMark(bytes)) {}

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

    Place place() const { return {mark_ + lines_.place().offset, lines_.place().line}; }
    [[noreturn]] void fail(const std::string& why) const { failAt(place(), why); }

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
        namesAt_ = place();
    }

    void takeRow() {
        if (width_ == 0) width_ = cells_.size();
        if (width_ < 3) fail("fewer than 3 columns");
        if (cells_.size() < width_) fail("fewer columns than before");
        for (std::size_t i = 0; i < width_; ++i) {
            double value = std::numeric_limits<double>::quiet_NaN();
            if (!cells_[i].empty() && !parseNumber(cells_[i], value))
                fail("not a number: " + quoted(cells_[i]));
            values_.push_back(value);
        }
    }

    bool areColors(std::size_t first) const {
        ColorGuess guess;
        for (std::size_t row = 0; row < values_.size(); row += width_)
            for (std::size_t i = first; i < first + 3; ++i) guess.take(values_[row + i]);
        return guess.areColors();
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

    std::string guessedName(std::size_t column) const {
        constexpr std::array<const char*, 10> kNames = {"x",  "y",   "z",     "nx",   "ny",
                                                        "nz", "red", "green", "blue", "alpha"};
        const auto role = static_cast<std::size_t>(roles_[column]);
        return role < kNames.size() ? kNames[role] : names_[column];
    }

    Scene finish() {
        const bool isGuess = roles_.empty();
        if (isGuess) guessRoles();
        const std::size_t count = width_ > 0 ? values_.size() / width_ : 0;
        PointColumns columns(boundedCount(count, 0, 0, "points", place()), roles_);
        if (!columns.hasPoints()) failAt(namesAt_, "no columns x, y and z");
        PointRow row{};
        for (std::size_t i = 0; i < count; ++i) {
            for (std::size_t c = 0; c < width_; ++c) at(row, roles_[c]) = values_[i * width_ + c];
            columns.set(static_cast<int>(i), row);
        }
        Scene scene;
        scene.cloud = columns.cloud();
        scene.body = "ascii";
        scene.rawBytes = 8 * values_.size();
        for (std::size_t i = 0; i < width_; ++i)
            scene.fields.push_back({isGuess ? guessedName(i) : names_[i], "float64"});
        const std::string unused = unusedColumns(names_, roles_);
        if (!unused.empty()) scene.leftOut.push_back("columns " + unused);
        return scene;
    }

    std::size_t mark_;  ///< bytes before the text
    Lines lines_;
    std::vector<std::string_view> cells_;
    std::vector<std::string> names_;
    Place namesAt_{0, 1};
    std::vector<Role> roles_;
    std::vector<double> values_;
    std::size_t width_ = 0;
};

}  // namespace

Scene readXyz(std::string_view bytes) {
    return Reader(bytes).read();
}

}  // namespace zyr
