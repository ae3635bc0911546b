#include "demo/Report.h"

#include <iostream>

#include "Facts.h"

namespace zyr {
Report::Report(int points) : points_(points) {
    times_.add({"step", "ms", "ns a point"});
}

void Report::count(const std::string& label, int value) {
    counts_.add({label, grouped(static_cast<std::uint64_t>(value))});
}

void Report::countShare(const std::string& label, int value) {
    counts_.add({label, grouped(static_cast<std::uint64_t>(value)),
                 percent(static_cast<std::uint64_t>(value), static_cast<std::uint64_t>(points_))});
}

void Report::time(const std::string& step, double milliseconds) {
    times_.add({step, decimal(milliseconds, 2), decimal(milliseconds * 1e6 / points_, 1)});
}

void Report::file(const std::string& kind, const RoundTrip& trip, std::uint64_t rawBytes) {
    const std::string prefix = kind.empty() ? "" : kind + " ";
    counts_.add({prefix + "bytes raw", grouped(rawBytes)});
    counts_.add({prefix + "bytes on disk", grouped(trip.bytes), percent(trip.bytes, rawBytes)});
    time(prefix + "save", trip.save);
    time(prefix + "load", trip.load);
    written_ += (written_.empty() ? "" : ", ") + trip.path;
    if (difference_.empty() && !trip.differing.empty())
        difference_ = trip.path + ": the " + trip.differing + " came back differently";
}

void Report::print() const {
    counts_.print(std::cout);
    std::cout << "\n";
    times_.print(std::cout);
    std::cout << "\n";
}

}  // namespace zyr
