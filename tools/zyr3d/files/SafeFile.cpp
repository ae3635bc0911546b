#include "files/SafeFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "Outcome.h"
#include "files/Temporaries.h"

namespace zyr {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kBuffer = 1 << 20;

mode_t readMask() {
    const mode_t mask = umask(0);
    umask(mask);
    return mask;
}

// It can be read by setting it alone, for all threads: done before there are any.
const mode_t kMask = readMask();

fs::path resolved(const std::string& path) {
    std::error_code error;
    const fs::path target = fs::canonical(path, error);
    if (error) return path;
    if (!fs::is_regular_file(target)) throw FileTrouble(path + ": not a regular file");
    return target;
}

/// The rights of the file that is replaced, or those that a new one gets.
mode_t modeFor(const std::string& path) {
    struct stat old {};
    if (stat(path.c_str(), &old) == 0) return old.st_mode & 07777;
    return 0666 & ~kMask;
}

/// 0 or the error. Some file systems bring no folders to the disk; some folders may be written but
/// not opened.
int syncError(const fs::path& folder) {
    const int handle = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0) return errno == EACCES ? 0 : errno;
    const int error = fsync(handle) == 0 ? 0 : errno;
    close(handle);
    return error == EINVAL || error == ENOTSUP ? 0 : error;
}

}  // namespace

SafeFile::SafeFile(const std::string& path) : path_(path), target_(resolved(path)) {
    const fs::path target(target_);
    const std::string suffix = target.extension();
    const fs::path name = "." + target.stem().string().substr(0, 200) + ".XXXXXX" + suffix;
    temporary_ = target.parent_path() / name;
    file_ = makeTemporary(temporary_, suffix.size());
    if (file_ < 0) {
        temporary_.clear();
        fail("cannot be written");
    }
    fchmod(file_, modeFor(target_));
}

SafeFile::~SafeFile() {
    if (file_ >= 0) close(file_);
    if (temporary_.empty()) return;
    unlink(temporary_.c_str());
    forgetTemporary(temporary_);
}

void SafeFile::fail(const char* what) const {
    throw FileTrouble(path_ + ": " + what + ": " + std::strerror(errno));
}

void SafeFile::put(std::string_view bytes) {
    buffer_ += bytes;
    if (buffer_.size() >= kBuffer) flush();
}

void SafeFile::failWritten(int error, const std::string& found) {
    requireWritten(error);
    const bool isNamed = found.rfind(temporary_, 0) == 0;
    throw FileTrouble(path_ + (isNamed ? found.substr(temporary_.size()) : ": " + found));
}

void SafeFile::requireWritten(int error) {
    errno = error;
    if (error != 0) fail("cannot be written");
    // A block of the disk's: where the last write failed for want of room, none is left.
    lseek(file_, 0, SEEK_END);
    put(std::string(4096, ' '));
    flush();
}

void SafeFile::flush() {
    std::size_t done = 0;
    while (done < buffer_.size()) {
        const ssize_t size = write(file_, buffer_.data() + done, buffer_.size() - done);
        if (size < 0 && errno == EINTR) continue;
        if (size < 0) fail("cannot be written");
        done += static_cast<std::size_t>(size);
    }
    written_ += done;
    buffer_.clear();
}

void SafeFile::finish() {
    flush();
    if (fsync(file_) != 0) fail("cannot be written");
    struct stat now {};
    if (fstat(file_, &now) != 0) fail("cannot be checked");
    if (written_ > 0 && static_cast<std::uint64_t>(now.st_size) != written_)
        throw FileTrouble(path_ + ": is not whole on the disk");
}

void SafeFile::commit() {
    if (rename(temporary_.c_str(), target_.c_str()) != 0) fail("cannot be replaced");
    forgetTemporary(temporary_);
    temporary_.clear();
    const fs::path folder = fs::path(target_).parent_path();
    errno = syncError(folder.empty() ? "." : folder);
    if (errno != 0) fail("has its name, but its folder cannot be brought to the disk");
}

}  // namespace zyr
