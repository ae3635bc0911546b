#include "Facts.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <nlohmann/json.hpp>
#include <ostream>
#include <sstream>

#include "Printable.h"
#include "Table.h"

namespace zyr {
namespace {

/// Eight digits, as coordinates of a map need.
std::string number(double value) {
    std::ostringstream text;
    text << std::setprecision(8) << value;
    return text.str();
}

}  // namespace

void Facts::add(const std::string& label, const std::string& text, const Value& value) {
    std::string key = label;
    std::replace(key.begin(), key.end(), ' ', '_');
    add(label, key, text, value);
}

void Facts::add(const std::string& label, const std::string& key, const std::string& text,
                const Value& value) {
    facts_.push_back({label, key, text, value});
}

void Facts::word(const std::string& label, const std::string& text) {
    add(label, text, text);
}

void Facts::count(const std::string& label, std::uint64_t value) {
    add(label, grouped(value), value);
}

void Facts::share(const std::string& label, std::uint64_t part, std::uint64_t whole) {
    const std::string text = grouped(part);
    add(label, part == whole ? text : text + " (" + percent(part, whole) + ")", part);
}

void Facts::interval(const std::string& label, double low, double high) {
    add(label, number(low) + " to " + number(high), std::vector<double>{low, high});
}

void Facts::size(const std::string& label, std::uint64_t columns, std::uint64_t rows) {
    add(label, std::to_string(columns) + " x " + std::to_string(rows),
        std::vector<std::uint64_t>{columns, rows});
}

void Facts::append(const Facts& others) {
    facts_.insert(facts_.end(), others.facts_.begin(), others.facts_.end());
}

void Facts::printTable(std::ostream& out) const {
    Table table(Table::Left);
    for (const Fact& fact : facts_)
        if (!fact.text.empty()) table.add({fact.label, printable(fact.text)});
    table.print(out);
}

struct FactsJson {
    using Json = nlohmann::ordered_json;

    template <class T>
    Json operator()(const T& value) const {
        return value;
    }
    Json operator()(const std::shared_ptr<const Facts>& nested) const {
        Json json = Json::object();
        for (const Facts::Fact& fact : nested->facts_)
            json[fact.key] = std::visit(*this, fact.value);
        return json;
    }
};

void Facts::printJson(std::ostream& out, const std::string& file) const {
    nlohmann::ordered_json json = {{"file", file}};
    json.update(FactsJson()(std::make_shared<const Facts>(*this)));
    // A name may hold any bytes.
    out << json.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << "\n";
}

std::string percent(std::uint64_t part, std::uint64_t whole) {
    if (whole == 0) return "0.0 %";
    const double share = static_cast<double>(part) / static_cast<double>(whole);
    return decimal(std::floor(share * 1000) / 10, 1) + " %";
}

}  // namespace zyr
