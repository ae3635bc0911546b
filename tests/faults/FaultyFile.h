#pragma once

#include <cstddef>
#include <limits>

/// Files as broken disks give them, for what the library opens while one of these is set.
namespace test {

constexpr std::size_t kNever = std::numeric_limits<std::size_t>::max();

struct Faults {
    /// Bytes that a read takes at the most, as pipes and signals make it; a write takes as many at
    /// a time.
    std::size_t step = kNever;
    /// The read or write, from 0, from which on all fail.
    std::size_t failAt = kNever;
    /// The write, from 0, at which the process is killed.
    std::size_t killAt = kNever;
    bool failsClose = false;
    /// The read or write, from 0, that fails alone.
    std::size_t failOnly = kNever;
    /// All reads fail, and writes as said above.
    bool failsReads = false;
};

/// While it lives, files are opened with the faults.
class FaultyFiles {
public:
    explicit FaultyFiles(const Faults& faults);
    ~FaultyFiles();
    FaultyFiles(const FaultyFiles&) = delete;
    FaultyFiles& operator=(const FaultyFiles&) = delete;

    /// Reads and writes so far.
    static std::size_t calls();
    /// How far into a file the reads have come.
    static std::size_t bytesRead();
    /// Files that are open.
    static int open();
};

}  // namespace test
