#include "files/Temporaries.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstring>

namespace zyr {
namespace {

/// As many as a batch works on at once.
constexpr std::size_t kMost = 256;
constexpr std::array<int, 5> kSignals = {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGXCPU};

using Name = std::array<char, PATH_MAX>;

// A handler may neither allocate nor wait for a mutex.
std::array<Name, kMost> names;  ///< "" where there is none
std::atomic_flag isLocked = ATOMIC_FLAG_INIT;

sigset_t endingSignals() {
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : kSignals) sigaddset(&set, signal);
    return set;
}

void lock() {
    while (isLocked.test_and_set(std::memory_order_acquire)) {
    }
}

/// The list is this thread's, and no handler interrupts it, which would wait for it for ever.
class ListLock {
public:
    ListLock() {
        const sigset_t set = endingSignals();
        pthread_sigmask(SIG_BLOCK, &set, &before_);
        lock();
    }
    ~ListLock() {
        isLocked.clear(std::memory_order_release);
        pthread_sigmask(SIG_SETMASK, &before_, nullptr);
    }
    ListLock(const ListLock&) = delete;
    ListLock& operator=(const ListLock&) = delete;

private:
    sigset_t before_{};
};

Name* find(const char* name) {
    for (Name& each : names)
        if (std::strcmp(each.data(), name) == 0) return &each;
    return nullptr;
}

/// Keeps the list locked, so that no thread makes another file, and ends the process.
void removeAll(int signal) {
    lock();
    for (const Name& name : names)
        if (name[0] != '\0') unlink(name.data());
    raise(signal);
}

}  // namespace

void removeTemporariesOnSignals() {
    struct sigaction action {};
    action.sa_handler = removeAll;
    action.sa_mask = endingSignals();
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    for (const int signal : kSignals) {
        struct sigaction old {};
        const bool isDefault = sigaction(signal, nullptr, &old) == 0 && old.sa_handler == SIG_DFL;
        if (isDefault) sigaction(signal, &action, nullptr);
    }
}

int makeTemporary(std::string& name, std::size_t suffixLength) {
    const ListLock held;
    Name* free = find("");
    errno = free == nullptr ? EMFILE : ENAMETOOLONG;
    if (free == nullptr || name.size() >= free->size()) return -1;
    const int file = mkostemps(name.data(), static_cast<int>(suffixLength), O_CLOEXEC);
    if (file >= 0) std::memcpy(free->data(), name.c_str(), name.size() + 1);
    return file;
}

void forgetTemporary(const std::string& name) {
    const ListLock held;
    if (Name* found = find(name.c_str())) (*found)[0] = '\0';
}

}  // namespace zyr
