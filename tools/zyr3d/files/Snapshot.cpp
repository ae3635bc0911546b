#include "files/Snapshot.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "Outcome.h"
#include "files/HeaderScan.h"
#include "files/RegularFile.h"

namespace zyr {

Snapshot::Snapshot() : file_(memfd_create("zyr3d", MFD_CLOEXEC)) {}

// Whatever is thrown here, the destructor closes the descriptor.
Snapshot::Snapshot(const std::string& path) : Snapshot() {
    path_ = path;
    if (file_ < 0) fail();
    readPieces(path, [this](std::string_view piece) {
        append(piece);
        if (size_ == kMostHeader) scanHeader(path_, bytes(0, kMostHeader));
    });
}

Snapshot::~Snapshot() {
    if (file_ >= 0) close(file_);
}

std::string Snapshot::name() const {
    return descriptorPath(file_, path_);
}

std::vector<unsigned char> Snapshot::bytes(std::uint64_t from, std::uint64_t most) const {
    std::vector<unsigned char> bytes(std::min(most, size_ - std::min(from, size_)));
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t got =
            pread(file_, bytes.data() + done, bytes.size() - done, static_cast<off_t>(from + done));
        if (got <= 0) fail();
        done += static_cast<std::size_t>(got);
    }
    return bytes;
}

void Snapshot::append(std::string_view piece) {
    while (!piece.empty()) {
        const ssize_t written = write(file_, piece.data(), piece.size());
        if (written < 0) fail();
        piece.remove_prefix(static_cast<std::size_t>(written));
        size_ += static_cast<std::uint64_t>(written);
    }
}

void Snapshot::fail() const {
    throw FileTrouble(path_ + ": cannot be kept in memory: " + std::strerror(errno));
}

}  // namespace zyr
