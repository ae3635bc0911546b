// Saving and loading the same clouds with PCL, as its binary_compressed files of floats.

#include <pcl/PCLPointCloud2.h>
#include <pcl/io/pcd_io.h>
#include <pcl/point_types.h>

#include <cmath>

#include "Inputs.h"
#include "Measure.h"

namespace {

using bench::add;
using bench::FileCall;

template <class Point>
void addCloud(const std::string& set, const pcl::PointCloud<Point>& cloud) {
    const auto save = [=](const char* path) {
        return pcl::io::savePCDFileBinaryCompressed(path, cloud) == 0;
    };
    add("save cloud", set, "pcl", cloud.size(), [=] { return FileCall("pcd", save); });
    add("load cloud", set, "pcl", cloud.size(), [=] {
        return bench::readingCall("pcd", save, [](const char* path) {
            pcl::PointCloud<Point> loaded;
            return pcl::io::loadPCDFile(path, loaded) == 0;
        });
    });
}

template <class Point>
pcl::PointCloud<Point> points(const std::vector<double>& xyz) {
    pcl::PointCloud<Point> cloud;
    cloud.resize(xyz.size() / 3);
    for (std::size_t i = 0; i < cloud.size(); ++i) {
        cloud[i].x = static_cast<float>(xyz[3 * i]);
        cloud[i].y = static_cast<float>(xyz[3 * i + 1]);
        cloud[i].z = static_cast<float>(xyz[3 * i + 2]);
    }
    return cloud;
}

pcl::PointCloud<pcl::PointXYZRGB> colored(const bench::Cloud& input) {
    auto cloud = points<pcl::PointXYZRGB>(input.xyz);
    for (std::size_t i = 0; i < cloud.size(); ++i) {
        cloud[i].b = input.bgr[3 * i];
        cloud[i].g = input.bgr[3 * i + 1];
        cloud[i].r = input.bgr[3 * i + 2];
    }
    return cloud;
}

pcl::PointCloud<pcl::PointNormal> withNormals(const bench::Cloud& input) {
    auto cloud = points<pcl::PointNormal>(input.xyz);
    for (auto& p : cloud) {
        const float length = std::sqrt(p.x * p.x + p.y * p.y + p.z * p.z);
        p.normal_x = p.x / length;
        p.normal_y = p.y / length;
        p.normal_z = p.z / length;
    }
    return cloud;
}

const bool isRegistered = [] {
    for (const bench::Cloud& input : bench::clouds()) {
        addCloud(input.name, points<pcl::PointXYZ>(input.xyz));
        if (!input.bgr.empty()) addCloud(input.name + " and colours", colored(input));
        if (input.name == "rs1") addCloud("rs1 and normals", withNormals(input));
    }
    for (const std::size_t n : bench::sizes())
        addCloud(std::to_string(n) + " points", points<pcl::PointXYZ>(bench::floatBorn(n)));
    return true;
}();

}  // namespace
