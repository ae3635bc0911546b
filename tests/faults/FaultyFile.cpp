#include "FaultyFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstring>

#include "support/Guards.h"

namespace {

test::Faults faults;
std::size_t numCalls = 0;
std::size_t farthest = 0;
int numOpen = 0;

int descriptorOf(void* cookie) {
    return static_cast<int>(reinterpret_cast<std::intptr_t>(cookie));
}

bool fails(int error, bool isAnyway) {
    const bool isFailure = isAnyway || numCalls >= faults.failAt || numCalls == faults.failOnly;
    ++numCalls;
    if (isFailure) errno = error;
    return isFailure;
}

ssize_t readSome(void* cookie, char* bytes, std::size_t size) {
    if (fails(EIO, faults.failsReads)) return -1;
    const ssize_t got = read(descriptorOf(cookie), bytes, std::min(size, faults.step));
    const off64_t here = lseek64(descriptorOf(cookie), 0, SEEK_CUR);
    farthest = std::max(farthest, static_cast<std::size_t>(here));
    return got;
}

/// Step by step, each of which may be the last: a stream takes a short write for a failed one.
ssize_t writeSome(void* cookie, const char* bytes, std::size_t size) {
    for (std::size_t done = 0; done < size;) {
        if (numCalls == faults.killAt) raise(SIGKILL);
        if (fails(ENOSPC, false)) return 0;
        const std::size_t step = std::min(size - done, faults.step);
        if (write(descriptorOf(cookie), bytes + done, step) != static_cast<ssize_t>(step)) return 0;
        done += step;
    }
    return static_cast<ssize_t>(size);
}

int seekTo(void* cookie, off64_t* position, int origin) {
    const off64_t reached = lseek64(descriptorOf(cookie), *position, origin);
    if (reached < 0) return -1;
    *position = reached;
    return 0;
}

int closeIt(void* cookie) {
    --numOpen;
    const int result = close(descriptorOf(cookie));
    return faults.failsClose ? EOF : result;
}

/// What is read by way of a descriptor is on no disk.
bool isInMemory(const char* path, const char* mode) {
    return mode[0] == 'r' && std::strncmp(path, "/proc/self/fd/", 14) == 0;
}

std::FILE* openFaulty(const char* path, const char* mode) {
    const int flags = mode[0] == 'r' ? O_RDONLY : O_WRONLY | O_CREAT | O_TRUNC;
    const int descriptor = open(path, flags | O_CLOEXEC, 0666);
    if (descriptor < 0) return nullptr;
    if (isInMemory(path, mode)) return fdopen(descriptor, mode);
    ++numOpen;
    void* cookie = reinterpret_cast<void*>(static_cast<std::intptr_t>(descriptor));
    return fopencookie(cookie, mode, {readSome, writeSome, seekTo, closeIt});
}

}  // namespace

test::FaultyFiles::FaultyFiles(const Faults& wanted) {
    faults = wanted;
    numCalls = 0;
    farthest = 0;
    openThrough(openFaulty);
}

test::FaultyFiles::~FaultyFiles() {
    openThrough(nullptr);
}

std::size_t test::FaultyFiles::calls() {
    return numCalls;
}

std::size_t test::FaultyFiles::bytesRead() {
    return farthest;
}

int test::FaultyFiles::open() {
    return numOpen;
}
