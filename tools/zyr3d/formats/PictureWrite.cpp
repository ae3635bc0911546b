#include <opencv2/imgcodecs.hpp>

#include "formats/Fault.h"
#include "formats/Writers.h"

namespace zyr {
namespace {

void write(const Scene& scene, const char* suffix, SafeFile& file) {
    const ZyrRangeImage& image = scene.range;
    const cv::Mat values(image.Height(), image.Width(), image.DataType(), image.Data());
    std::vector<unsigned char> bytes;
    bool isWritten = false;
    try {
        isWritten = cv::imencode(suffix, values, bytes);
    } catch (const cv::Exception&) {
        isWritten = false;
    }
    if (!isWritten) throw FormatFault("the codec refuses the picture");
    file.put({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

}  // namespace

void writePng(const Scene& scene, const WriteOptions&, SafeFile& file) {
    write(scene, ".png", file);
}

void writeTiff(const Scene& scene, const WriteOptions&, SafeFile& file) {
    write(scene, ".tiff", file);
}

}  // namespace zyr
