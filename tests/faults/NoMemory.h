#pragma once

#include <sys/resource.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>

namespace test {

/// All memory of a process that may not take more, but for the pieces that are given back.
class NoMemory {
public:
    NoMemory() {
        rlim_t pages = 0;
        std::ifstream("/proc/self/statm") >> pages;
        getrlimit(RLIMIT_AS, &before_);
        // A little more than what is in use: it depends on chance how much of that is free.
        constexpr rlim_t kMore = 4 << 20;
        const rlimit limit{pages * static_cast<rlim_t>(getpagesize()) + kMore, before_.rlim_max};
        setrlimit(RLIMIT_AS, &limit);
        // Pieces that the C library joins, and then what it keeps of any smaller size.
        takeAll(1 << 20);
        takeAll(1 << 11);
        pieces_ = last_;
        for (std::size_t bytes = 1 << 11; bytes > 0; bytes -= 8) takeAll(bytes);
    }
    ~NoMemory() { setrlimit(RLIMIT_AS, &before_); }
    NoMemory(const NoMemory&) = delete;
    NoMemory& operator=(const NoMemory&) = delete;

    /// Whether there was a piece left.
    bool giveBack() {
        Piece* piece = pieces_;
        if (piece == nullptr) return false;
        pieces_ = piece->before;
        std::free(piece);
        return true;
    }

private:
    struct Piece {
        Piece* before;
    };

    void takeAll(std::size_t bytes) {
        for (void* taken = std::malloc(bytes); taken != nullptr; taken = std::malloc(bytes))
            last_ = new (taken) Piece{last_};
    }

    rlimit before_{};
    Piece* last_ = nullptr;
    Piece* pieces_ = nullptr;
};

}  // namespace test
