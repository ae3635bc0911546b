// The memory that saving and loading a cloud take at their peak above the caller's own data. Each
// figure comes from a process of its own, which has used no memory before.

#include <Zyr3DData.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "Inputs.h"

namespace {

/// A field of the process's status, in KB.
long status(const std::string& field) {
    std::ifstream file("/proc/self/status");
    for (std::string line; std::getline(file, line);)
        if (line.rfind(field + ":", 0) == 0) return std::atol(line.c_str() + field.size() + 1);
    return 0;
}

/// Makes VmHWM, the peak, what is resident now.
void forgetPeak() {
    std::ofstream("/proc/self/clear_refs") << 5;
}

ZyrPointCloud cloudOf(std::size_t points) {
    std::vector<double> xyz = bench::floatBorn(points);
    return ZyrPointCloud(xyz.data(), static_cast<int>(xyz.size()), 6, zyr::kInvalidValue);
}

/// The first call brings in the library's code and the C library's own buffers.
void warmUp(const char* path) {
    ZyrPointCloud few = cloudOf(100);
    few.Save(path, true, true);
    few.Load(path, true, true);
}

bool printSaving(std::size_t points, const char* path) {
    ZyrPointCloud cloud = cloudOf(points);
    warmUp(path);
    forgetPeak();
    const long held = status("VmRSS");
    const bool isSaved = cloud.Save(path, true, true);
    std::printf("save  %9zu points: %6ld KB above the cloud\n", points, status("VmHWM") - held);
    return isSaved;
}

bool printLoading(std::size_t points, const char* path) {
    const bench::TempFile few("few.zpt");
    warmUp(few.path());
    ZyrPointCloud cloud;
    forgetPeak();
    const long held = status("VmRSS");
    const bool isLoaded = cloud.Load(path, true, true);
    const long result = static_cast<long>(points * sizeof(ZyrVector3d) / 1024);
    std::printf("load  %9zu points: %6ld KB above the result\n", points,
                status("VmHWM") - held - result);
    return isLoaded;
}

bool inProcessOfItsOwn(bool (*print)(std::size_t, const char*), std::size_t points,
                       const char* path) {
    std::fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
        const bool isDone = print(points, path);
        std::fflush(stdout);
        _exit(isDone ? 0 : 1);
    }
    int how = 1;
    return child > 0 && waitpid(child, &how, 0) == child && how == 0;
}

}  // namespace

int main() {
    const bench::TempFile file("zpt");
    bool isDone = true;
    for (const std::size_t points : bench::sizes()) {
        isDone = inProcessOfItsOwn(printSaving, points, file.path()) &&
                 inProcessOfItsOwn(printLoading, points, file.path()) && isDone;
    }
    return isDone ? 0 : 1;
}
