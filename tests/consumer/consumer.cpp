#include <Zyr3DData.h>

#include <cstdio>
#include <opencv2/core.hpp>

// Calls the library, its inline parts and OpenCV's core.
int main(int count, char** words) {
    if (count != 2) return 2;
    ZyrVector3dArray points;
    points.Append(ZyrVector3d(1, 2, 3));
    ZyrPointCloud cloud;
    cloud.SetPoints(points);
    if (!cloud.Save(words[1], false, false)) return 1;

    ZyrPointCloud loaded;
    if (!loaded.Load(words[1], false, false)) return 1;
    const cv::Mat flat(loaded.Length(), 3, CV_64F, loaded.PointData().Data());
    std::printf("%g %g\n", loaded.Point(0).z, cv::sum(flat)[0]);
}
