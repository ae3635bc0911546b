#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <string>
#include <thread>

namespace zyr {

/// A bar on standard error, only where that is a terminal and once the work has taken a second.
class Progress {
public:
    explicit Progress(std::size_t total);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// One more of the total is done.
    void advance();
    /// Takes the bar away for as long as the lock lives, so that others can print.
    std::unique_lock<std::mutex> hide();

private:
    void tick();
    std::string bar() const;
    void erase();

    const std::size_t total_;
    const std::chrono::steady_clock::time_point start_;
    std::mutex mutex_;  ///< for what follows
    std::condition_variable wake_;
    std::size_t done_ = 0;
    bool isShown_ = false, isOver_ = false;
    std::thread timer_;
};

}  // namespace zyr
