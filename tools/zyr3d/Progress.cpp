#include "Progress.h"

#include <unistd.h>

#include <system_error>

#include "Console.h"

namespace zyr {
namespace {

constexpr std::chrono::milliseconds kSilence(1000), kInterval(200);

}  // namespace

Progress::Progress(std::size_t total) : total_(total), start_(std::chrono::steady_clock::now()) {
    if (isatty(STDERR_FILENO) == 0) return;
    try {
        timer_ = std::thread([this] { tick(); });
    } catch (const std::system_error&) {
        // No thread, no bar.
    }
}

Progress::~Progress() {
    {
        const auto lock = hide();
        isOver_ = true;
    }
    wake_.notify_all();
    if (timer_.joinable()) timer_.join();
}

void Progress::advance() {
    const std::lock_guard<std::mutex> lock(mutex_);
    ++done_;
}

std::unique_lock<std::mutex> Progress::hide() {
    std::unique_lock<std::mutex> lock(mutex_);
    erase();
    return lock;
}

void Progress::tick() {
    std::unique_lock<std::mutex> lock(mutex_);
    for (auto pause = kSilence; !wake_.wait_for(lock, pause, [this] { return isOver_; });
         pause = kInterval) {
        printError("\r" + bar());
        isShown_ = true;
    }
}

std::string Progress::bar() const {
    constexpr std::size_t kWidth = 30;
    const std::size_t filled = done_ * kWidth / total_;
    const auto seconds =
        std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() - start_);
    return "[" + std::string(filled, '=') + std::string(kWidth - filled, ' ') + "] " +
           std::to_string(done_) + " of " + std::to_string(total_) + ", " +
           std::to_string(seconds.count()) + " s";
}

void Progress::erase() {
    if (isShown_) printError("\r\x1B[K");
    isShown_ = false;
}

}  // namespace zyr
