#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "Table.h"
#include "demo/RoundTrip.h"

namespace zyr {

/// What a run of the demo tells: what was counted, how long each step took, what was written.
class Report {
public:
    explicit Report(int points);

    void count(const std::string& label, int value);
    /// With its share of the points.
    void countShare(const std::string& label, int value);
    void time(const std::string& step, double milliseconds);
    /// A file by its kind, which goes before the labels; "" for the cloud's.
    void file(const std::string& kind, const RoundTrip& trip, std::uint64_t rawBytes);
    void print() const;

    /// The first file that came back differently, with what differs in it; "" for none.
    const std::string& difference() const { return difference_; }
    /// The files, with commas between.
    const std::string& written() const { return written_; }

private:
    int points_;
    Table counts_{Table::Right}, times_{Table::Right};
    std::string difference_, written_;
};

}  // namespace zyr
