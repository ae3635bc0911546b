#include "diff/Deviation.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zyr {
namespace {

double distance(double a, double b) {
    if (a == b || (std::isnan(a) && std::isnan(b))) return 0.0;
    const double difference = std::abs(a - b);
    return std::isnan(difference) ? std::numeric_limits<double>::infinity() : difference;
}

template <class T>
const T* named(const std::vector<T>& all, const std::string& name, std::string T::*member) {
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const T& each) { return each.*member == name; });
    return found == all.end() ? nullptr : &*found;
}

class Comparer {
public:
    Comparer(const Side& first, const Side& second, double tolerance)
        : first_(first), second_(second), tolerance_(tolerance) {}

    Deviations compare() {
        found_.isGrid = first_.isGrid;
        compareTraits();
        for (const Column& column : first_.columns) compareColumn(column);
        for (const Column& column : second_.columns)
            if (named(first_.columns, column.name, &Column::name) == nullptr)
                note(column.name + ": in the second only");
        compareValidity();
        return found_;
    }

private:
    void note(const std::string& text) { found_.notes.push_back(text); }

    void compareTraits() {
        for (const Side::Trait& trait : first_.traits) {
            const Side::Trait* other = named(second_.traits, trait.name, &Side::Trait::name);
            if (other != nullptr && other->text != trait.text)
                note(trait.name + ": " + trait.text + " and " + other->text);
        }
    }

    void compareColumn(const Column& column) {
        const Column* other = named(second_.columns, column.name, &Column::name);
        if (other == nullptr) return note(column.name + ": in the first only");
        if (other->width != column.width)
            return note(column.name + ": " + std::to_string(column.width) + " and " +
                        std::to_string(other->width) + " channels");
        // Another number of elements is a trait.
        if (other->values.size() == column.values.size()) measure(column, *other);
    }

    void measure(const Column& a, const Column& b) {
        Deviation deviation{a.name};
        for (std::size_t i = 0; i < a.values.size() / a.width; ++i) {
            if (a.isPosition && (first_.isValid[i] == 0 || second_.isValid[i] == 0)) continue;
            double largest = 0;
            for (std::size_t k = i * a.width; k < (i + 1) * a.width; ++k)
                largest = std::max(largest, distance(a.values[k], b.values[k]));
            ++deviation.elements;
            if (largest > tolerance_) ++deviation.differing;
            if (largest > deviation.largest) {
                deviation.largest = largest;
                deviation.at = i;
            }
        }
        found_.deviations.push_back(deviation);
    }

    void compareValidity() {
        if (first_.isValid.size() != second_.isValid.size()) return;
        for (std::size_t i = 0; i < first_.isValid.size(); ++i) {
            if (first_.isValid[i] > second_.isValid[i]) ++found_.becameInvalid;
            if (first_.isValid[i] < second_.isValid[i]) ++found_.becameValid;
        }
    }

    const Side& first_;
    const Side& second_;
    double tolerance_;
    Deviations found_;
};

}  // namespace

bool Deviations::isEqual() const {
    return notes.empty() && becameInvalid == 0 && becameValid == 0 &&
           std::all_of(deviations.begin(), deviations.end(),
                       [](const Deviation& each) { return each.differing == 0; });
}

Deviations compare(const Side& first, const Side& second, double tolerance) {
    return Comparer(first, second, tolerance).compare();
}

}  // namespace zyr
