#include "files/SafeFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "Outcome.h"
#include "files/RegularFile.h"
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

/// Where the links lead, be there a file or not.
fs::path followed(const std::string& path) {
    std::error_code error;
    fs::path target = path;
    for (int links = 0; links < 40 && fs::is_symlink(fs::symlink_status(target, error)); ++links)
        target = target.parent_path() / fs::read_symlink(target, error);
    return target;
}

fs::path resolved(const std::string& path) {
    std::error_code error;
    const fs::path target = followed(path);
    const fs::path found = fs::canonical(target, error);
    if (error == std::errc::no_such_file_or_directory) return target;
    if (error) throw FileTrouble(path + ": " + error.message());
    if (!fs::is_regular_file(found)) throw FileTrouble(path + ": not a regular file");
    return found;
}

/// What follows the name's last '.', with it: readers and writers go by that.
std::string suffixOf(const std::string& path) {
    const std::string name = fs::path(path).filename();
    const std::size_t dot = name.rfind('.');
    return dot == name.npos ? "" : name.substr(dot);
}

/// The rights of the file that is replaced, but not to run as its owner, or those of a new one.
mode_t modeFor(const std::string& path) {
    struct stat old {};
    if (stat(path.c_str(), &old) == 0) return old.st_mode & 0777;
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

std::string targetOf(const std::string& path) {
    std::error_code error;
    const fs::path target = fs::weakly_canonical(followed(path), error);
    return error ? path : target.string();
}

SafeFile::SafeFile(const std::string& path) : path_(path), target_(resolved(path)) {
    // Who may replace a file and not write it is not meant to.
    if (faccessat(AT_FDCWD, target_.c_str(), W_OK, AT_EACCESS) != 0 && errno != ENOENT)
        fail("cannot be written");
    const fs::path target(target_);
    const std::string suffix = suffixOf(path);
    const fs::path name = "." + target.stem().string().substr(0, 200) + ".XXXXXX" + suffix;
    temporary_ = target.parent_path() / name;
    file_ = makeTemporary(temporary_, suffix.size());
    if (file_ < 0) {
        temporary_.clear();
        fail("cannot be written");
    }
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

std::string SafeFile::opened() const {
    return descriptorPath(file_, path_);
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
    const off_t size = lseek(file_, 0, SEEK_END);
    put(std::string(4096, ' '));
    flush();
    written_ = 0;
    if (ftruncate(file_, size) != 0) fail("cannot be written");
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
    fchmod(file_, modeFor(target_));  // not everywhere are there rights to be given
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
