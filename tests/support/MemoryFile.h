#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <stdexcept>
#include <string>

#include "support/Bytes.h"

namespace test {

/// A file in memory with a path to open it by: no folder to clean, and fast enough for thousands.
class MemoryFile {
public:
    explicit MemoryFile(const Bytes& bytes) : file_(memfd_create("zyr-test", MFD_CLOEXEC)) {
        if (file_ < 0 || ::write(file_, bytes.data(), bytes.size()) < 0)
            throw std::runtime_error("no memory file");
    }
    ~MemoryFile() { close(file_); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    std::string path() const { return "/proc/self/fd/" + std::to_string(file_); }

private:
    int file_;
};

}  // namespace test
