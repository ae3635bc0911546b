// Saving and loading range images in their own files, beside 16-bit PNG through OpenCV.

#include <Zyr3DData.h>
#include <sys/resource.h>

#include "Inputs.h"
#include "Measure.h"

namespace {

using bench::add;
using bench::FileCall;
using bench::Frame;

ZyrRangeImage imageOf(const Frame& frame) {
    std::vector<unsigned short> grid = frame.grid;
    return ZyrRangeImage(grid.data(), frame.width, frame.height, 0, 2, 0, 0, 1, 0, 1, 0, 1, 0);
}

void addFrame(const Frame& frame) {
    const ZyrRangeImage image = imageOf(frame);
    const std::size_t pixels = frame.grid.size();
    const auto saveOwn = [=](const char* path) { return ZyrRangeImage(image).Save(path, false); };
    const auto savePng = [=](const char* path) { return ZyrRangeImage(image).Save(path); };
    add("save range image", frame.name, "ours", pixels, [=] { return FileCall("zrt", saveOwn); });
    add("save range image", frame.name, "png", pixels, [=] { return FileCall("png", savePng); });
    add("load range image", frame.name, "ours", pixels, [=] {
        return bench::readingCall("zrt", saveOwn, [](const char* path) {
            ZyrRangeImage loaded;
            return loaded.Load(path, false);
        });
    });
    add("load range image", frame.name, "png", pixels, [=] {
        return bench::readingCall("png", savePng, [](const char* path) {
            ZyrRangeImage loaded;
            return loaded.Load(path, 1.0, 0.0);
        });
    });
}

const bool isRegistered = [] {
    // Every load of an own file leaves it open.
    rlimit files{};
    getrlimit(RLIMIT_NOFILE, &files);
    files.rlim_cur = files.rlim_max;
    setrlimit(RLIMIT_NOFILE, &files);
    for (const Frame& frame : bench::frames()) addFrame(frame);
    return true;
}();

}  // namespace
