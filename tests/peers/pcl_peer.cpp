// Reads and writes files with PCL, for scripts/cross-check. The values pass as raw arrays: the
// points as NAME.xyz (doubles), and where there are any NAME.normals (doubles), NAME.rgb (bytes)
// and NAME.faces (32-bit integers).
//   pcl_peer read FILE NAME
//   pcl_peer write NAME FILE [ascii|binary|compressed]
#include <pcl/PolygonMesh.h>
#include <pcl/conversions.h>
#include <pcl/io/obj_io.h>
#include <pcl/io/pcd_io.h>
#include <pcl/io/ply_io.h>
#include <pcl/io/vtk_lib_io.h>
#include <pcl/point_types.h>

#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

namespace {

using Cloud = pcl::PointCloud<pcl::PointXYZRGBNormal>;

std::string suffixOf(const std::string& path) {
    return path.substr(path.rfind('.') + 1);
}

template <class T>
void save(const std::string& path, const std::vector<T>& values) {
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(values.data()),
               static_cast<std::streamsize>(values.size() * sizeof(T)));
}

template <class T>
std::vector<T> load(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(file), {});
    std::vector<T> values(bytes.size() / sizeof(T));
    std::memcpy(values.data(), bytes.data(), values.size() * sizeof(T));
    return values;
}

bool has(const pcl::PCLPointCloud2& blob, const std::string& name) {
    for (const pcl::PCLPointField& field : blob.fields)
        if (field.name == name) return true;
    return false;
}

/// Doubles have no point type in PCL, so that the fields are taken as they lie.
std::vector<double> doublesOf(const pcl::PCLPointCloud2& blob,
                              const std::vector<std::string>& names) {
    std::vector<double> values;
    const std::size_t count = std::size_t{blob.width} * blob.height;
    for (std::size_t i = 0; i < count; ++i)
        for (const std::string& name : names)
            for (const pcl::PCLPointField& field : blob.fields) {
                if (field.name != name) continue;
                double value = 0.0;
                std::memcpy(&value, blob.data.data() + i * blob.point_step + field.offset, 8);
                values.push_back(value);
            }
    return values;
}

bool isDouble(const pcl::PCLPointCloud2& blob) {
    for (const pcl::PCLPointField& field : blob.fields)
        if (field.name == "x") return field.datatype == pcl::PCLPointField::FLOAT64;
    return false;
}

void saveCloud(const pcl::PCLPointCloud2& blob, const std::string& name) {
    Cloud cloud;
    std::vector<double> points, normals;
    std::vector<unsigned char> colors;
    pcl::fromPCLPointCloud2(blob, cloud);
    for (const auto& point : cloud) {
        points.insert(points.end(), {point.x, point.y, point.z});
        normals.insert(normals.end(), {point.normal_x, point.normal_y, point.normal_z});
        colors.insert(colors.end(), {point.r, point.g, point.b});
    }
    if (isDouble(blob)) points = doublesOf(blob, {"x", "y", "z"});
    if (isDouble(blob)) normals = doublesOf(blob, {"normal_x", "normal_y", "normal_z"});
    save(name + ".xyz", points);
    if (has(blob, "normal_x")) save(name + ".normals", normals);
    if (has(blob, "rgb") || has(blob, "rgba")) save(name + ".rgb", colors);
}

int read(const std::string& path, const std::string& name) {
    const std::string suffix = suffixOf(path);
    pcl::PCLPointCloud2 blob;
    if (suffix == "pcd") {
        if (pcl::io::loadPCDFile(path, blob) < 0) return 1;
        saveCloud(blob, name);
        return 0;
    }
    pcl::PolygonMesh mesh;
    int result = 0;
    if (suffix == "ply") result = pcl::io::loadPLYFile(path, mesh);
    if (suffix == "obj") result = pcl::io::loadOBJFile(path, mesh);
    if (suffix == "stl") result = pcl::io::loadPolygonFileSTL(path, mesh) > 0 ? 0 : -1;
    if (result < 0) return 1;
    saveCloud(mesh.cloud, name);
    std::vector<std::int32_t> faces;
    for (const pcl::Vertices& polygon : mesh.polygons)
        for (const auto corner : polygon.vertices)
            faces.push_back(static_cast<std::int32_t>(corner));
    if (!faces.empty()) save(name + ".faces", faces);
    return 0;
}

Cloud loadCloud(const std::string& name) {
    const auto points = load<double>(name + ".xyz"), normals = load<double>(name + ".normals");
    const auto colors = load<unsigned char>(name + ".rgb");
    Cloud cloud;
    for (std::size_t i = 0; i < points.size(); i += 3) {
        pcl::PointXYZRGBNormal point;
        point.x = static_cast<float>(points[i]);
        point.y = static_cast<float>(points[i + 1]);
        point.z = static_cast<float>(points[i + 2]);
        if (!normals.empty()) {
            point.normal_x = static_cast<float>(normals[i]);
            point.normal_y = static_cast<float>(normals[i + 1]);
            point.normal_z = static_cast<float>(normals[i + 2]);
        }
        if (!colors.empty()) {
            point.r = colors[i];
            point.g = colors[i + 1];
            point.b = colors[i + 2];
        }
        cloud.push_back(point);
    }
    return cloud;
}

int write(const std::string& name, const std::string& path, const std::string& mode) {
    const Cloud cloud = loadCloud(name);
    pcl::PolygonMesh mesh;
    pcl::toPCLPointCloud2(cloud, mesh.cloud);
    const auto faces = load<std::int32_t>(name + ".faces");
    for (std::size_t t = 0; t + 2 < faces.size(); t += 3) {
        pcl::Vertices polygon;
        for (std::size_t corner = 0; corner < 3; ++corner)
            polygon.vertices.push_back(static_cast<pcl::index_t>(faces[t + corner]));
        mesh.polygons.push_back(polygon);
    }
    const std::string suffix = suffixOf(path);
    pcl::PCDWriter pcd;
    if (suffix == "pcd" && mode == "ascii") return pcd.writeASCII(path, cloud, 9);
    if (suffix == "pcd" && mode == "compressed") return pcd.writeBinaryCompressed(path, cloud);
    if (suffix == "pcd") return pcd.writeBinary(path, cloud);
    if (suffix == "ply" && mode == "ascii") return pcl::io::savePLYFile(path, mesh, 9);
    if (suffix == "ply") return pcl::io::savePLYFileBinary(path, mesh);
    if (suffix == "obj") return pcl::io::saveOBJFile(path, mesh, 9);
    if (suffix == "stl") return pcl::io::savePolygonFileSTL(path, mesh, mode != "ascii") ? 0 : 1;
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> words(argv + 1, argv + argc);
    if (words.size() == 3 && words[0] == "read") return read(words[1], words[2]);
    if (words.size() >= 3 && words[0] == "write")
        return write(words[1], words[2], words.size() > 3 ? words[3] : "binary");
    std::cerr << "usage: pcl_peer read FILE NAME | write NAME FILE [ascii|binary|compressed]\n";
    return 2;
}
