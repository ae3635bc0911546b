#include <Zyr3DData.h>

#include <cstdio>

int main() {
    float frame[] = {10, 10, 2, 11, 10, 3, -9999, -9999, -9999, 11, 11, 70};
    ZyrPointCloud cloud(frame, 12, 5, -9999.0);
    std::printf("%d points, %d valid\n", cloud.Length(), cloud.NumValidPoints());

    ZyrColorArray colors;
    colors.Create(cloud.Length(), 3);
    colors.SetColor(128);
    ZyrColor red(255, 0, 0, 255);
    colors.Replace(1, red);
    cloud.SetColors(colors);
    std::printf("colours: %s\n", cloud.IsValidColor() ? "one for each point" : "none");

    ZyrPointCloud filtered = cloud.DeepCopy();
    for (int i = 0; i < filtered.Length(); ++i)
        if (filtered[i].IsValid() && filtered[i].z > 50) filtered.InvalidatePoint(i);
    std::printf("%d before, %d after\n", cloud.NumValidPoints(), filtered.NumValidPoints());

    ZyrVector3d sum(0, 0, 0);
    for (int i = 0; i < filtered.Length(); ++i)
        if (filtered[i].IsValid()) sum = sum + filtered[i];
    const ZyrVector3d middle = sum / filtered.NumValidPoints();
    std::printf("middle: %g %g %g\n", middle.x, middle.y, middle.z);

    if (!filtered.Save("part.zpt", false, true)) return 1;
    ZyrPointCloud loaded;
    if (!loaded.Load("part.zpt", false, true)) return 1;
    const ZyrColor color = loaded.Color(1);
    std::printf("point 1 is (%d, %d, %d), point 2 is %s\n", color.r, color.g, color.b,
                loaded[2].IsValid() ? "there" : "a hole");
}
