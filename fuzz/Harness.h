#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <stdexcept>
#include <string>

#include "support/Bytes.h"
#include "support/Guards.h"

/// What the targets share. Each defines fuzzOne, which libFuzzer calls with inputs of its own and
/// Replay.cpp with those of the folders.
namespace fuzz {

using test::Bytes;

/// Throws, which ends a fuzzer, when something that must hold does not.
inline void require(bool holds, const char* what) {
    if (!holds) throw std::logic_error(std::string("does not hold: ") + what);
}

/// A file in memory with a path to open it by, filled anew for each input.
class InputFile {
public:
    InputFile() : file_(memfd_create("zyr-fuzz", MFD_CLOEXEC)) {
        require(file_ >= 0, "a memory file opens");
        path_ = "/proc/self/fd/" + std::to_string(file_);
    }
    ~InputFile() { close(file_); }
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    const char* fill(const Bytes& bytes) {
        const auto size = static_cast<off_t>(bytes.size());
        require(pwrite(file_, bytes.data(), bytes.size(), 0) == size, "the memory file is written");
        require(ftruncate(file_, size) == 0, "the memory file is cut");
        return path();
    }
    const char* path() const { return path_.c_str(); }

private:
    int file_;
    std::string path_;
};

struct Flags {
    bool withNormals, withColors;
};
constexpr Flags kAllFlags[] = {{false, false}, {false, true}, {true, false}, {true, true}};

/// Takes numbers off the front of an input; 0 behind its end.
template <class T>
T take(Bytes& bytes) {
    bytes.resize(std::max(bytes.size(), sizeof(T)));
    const T value = test::valueAt<T>(bytes, 0);
    bytes.erase(bytes.begin(), bytes.begin() + sizeof(T));
    return value;
}

void fuzzOne(Bytes input);

}  // namespace fuzz

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size);
