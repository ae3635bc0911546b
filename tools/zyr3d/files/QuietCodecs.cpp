#include "files/QuietCodecs.h"

#include <fcntl.h>
#include <unistd.h>

#include <mutex>

namespace zyr {
namespace {

// Standard error is one for the whole process, and so is what stands in for it.
std::mutex mutex;
int users = 0;
int saved = -1;  ///< the true standard error while it is replaced, else -1

void replace() {
    const int null = open("/dev/null", O_WRONLY);
    if (null < 0) return;
    saved = dup(STDERR_FILENO);
    if (saved >= 0) dup2(null, STDERR_FILENO);
    close(null);
}

void restore() {
    if (saved < 0) return;
    dup2(saved, STDERR_FILENO);
    close(saved);
    saved = -1;
}

}  // namespace

QuietCodecs::QuietCodecs() {
    const std::lock_guard<std::mutex> lock(mutex);
    if (users++ == 0) replace();
}

QuietCodecs::~QuietCodecs() {
    const std::lock_guard<std::mutex> lock(mutex);
    if (--users == 0) restore();
}

void QuietCodecs::writePast(const std::string& text) {
    const std::lock_guard<std::mutex> lock(mutex);
    const int out = saved < 0 ? STDERR_FILENO : saved;
    for (std::size_t at = 0; at < text.size();) {
        const ssize_t written = write(out, text.data() + at, text.size() - at);
        if (written <= 0) return;  // there is no place left to say so
        at += static_cast<std::size_t>(written);
    }
}

}  // namespace zyr
