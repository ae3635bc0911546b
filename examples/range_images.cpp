#include <Zyr3DData.h>

#include <cstdint>
#include <cstdio>

int main() {
    std::uint16_t values[] = {0, 1000, 2000, 3000, 4000, 5000};
    ZyrRangeImage image(values, 3, 2, 0, 2, 0, 65535,  // columns, rows, row step, type, value range
                        0.01, -10,                     // resolution and offset of Z
                        0.5, 100, 0.5, 200);           // of X, of Y
    std::printf("%d columns, %d rows, value at row 1, column 2: %g\n", image.Width(),
                image.Height(), image.GetValue(1, 2));

    ZyrVector3dArray points;
    for (int row = 0; row < image.Height(); ++row)
        for (int column = 0; column < image.Width(); ++column) {
            const double value = image.GetValue(row, column);
            ZyrVector3d point;
            if (value != 0)
                point = ZyrVector3d(image.ResolutionX() * column + image.OffsetX(),
                                    image.ResolutionY() * row + image.OffsetY(),
                                    image.ResolutionZ() * value + image.OffsetZ());
            points.Append(point);
        }
    ZyrPointCloud cloud(points, ZyrColorArray(), ZyrVector3dArray());
    const ZyrVector3d last = cloud.Point(5);
    std::printf("%d points, %d valid; the last one is %g %g %g\n", cloud.Length(),
                cloud.NumValidPoints(), last.x, last.y, last.z);

    std::uint16_t row[] = {7000, 8000, 9000};
    if (!image.SetValue(row, 2, 0, 0, 1, 1)) return 1;
    std::printf("row 1, column 2 now: %g\n", image.GetValue(1, 2));

    if (!image.Save("part.zrt", false) || !image.Save("part.png")) return 1;
    ZyrRangeImage loaded;
    if (!loaded.Load("part.zrt", false)) return 1;
    std::printf("from part.zrt: Z = %g * value %+g\n", loaded.ResolutionZ(), loaded.OffsetZ());
    if (!loaded.Load("part.png", 0.01, -10)) return 1;
    std::printf("from part.png: type %d, row 0, column 1: %g\n", loaded.DataType(),
                loaded.GetValue(0, 1));
}
