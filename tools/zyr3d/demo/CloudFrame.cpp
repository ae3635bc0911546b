#include "demo/CloudFrame.h"

#include <limits>

#include "Outcome.h"
#include "files/CloudFile.h"

namespace zyr {

Frame readCloudFrame(const std::string& path) {
    CloudFile file = loadCloudFile(path);
    if (file.disk.isCut()) throw FileTrouble(path + ": its body is cut short");
    if (file.cloud.Length() == 0) throw FileTrouble(path + ": holds no points");
    // A cloud is built from a count of values, three a point, that is an int.
    if (file.cloud.Length() > std::numeric_limits<int>::max() / 3)
        throw FileTrouble(path + ": too many points");
    const bool isGrid = file.disk.header.height > 1;
    const int rows = isGrid ? static_cast<int>(file.disk.header.height) : 1;
    const int columns = file.cloud.Length() / rows;
    Frame frame;
    frame.name = path;
    frame.holeMark = kInvalidValue;
    frame.coordinates = cv::Mat(rows, columns, CV_64FC3, file.cloud.PointData().Data()).clone();
    if (file.cloud.IsValidNormal()) frame.normals = file.cloud.NormalData();
    if (!file.cloud.IsValidColor()) return frame;
    ZyrColorArray& colors = file.cloud.ColorData();
    frame.colors = cv::Mat(rows, columns, CV_8UC(colors.Channel()), colors.Data()).clone();
    return frame;
}

}  // namespace zyr
