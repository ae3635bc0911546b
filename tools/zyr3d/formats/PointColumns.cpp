#include "formats/PointColumns.h"

#include <algorithm>
#include <cmath>

#include "formats/Text.h"

namespace zyr {
namespace {

struct Name {
    const char* name;
    Role role;
};

constexpr std::array<Name, 28> kNames = {{{"x", Role::X},
                                          {"y", Role::Y},
                                          {"z", Role::Z},
                                          {"nx", Role::NormalX},
                                          {"ny", Role::NormalY},
                                          {"nz", Role::NormalZ},
                                          {"normal_x", Role::NormalX},
                                          {"normal_y", Role::NormalY},
                                          {"normal_z", Role::NormalZ},
                                          {"red", Role::Red},
                                          {"green", Role::Green},
                                          {"blue", Role::Blue},
                                          {"alpha", Role::Alpha},
                                          {"r", Role::Red},
                                          {"g", Role::Green},
                                          {"b", Role::Blue},
                                          {"a", Role::Alpha},
                                          {"diffuse_red", Role::Red},
                                          {"diffuse_green", Role::Green},
                                          {"diffuse_blue", Role::Blue},
                                          {"diffuse_alpha", Role::Alpha},
                                          {"rgb", Role::Packed},
                                          {"rgba", Role::Packed},
                                          {"//x", Role::X},
                                          {"#x", Role::X},
                                          {"normalx", Role::NormalX},
                                          {"normaly", Role::NormalY},
                                          {"normalz", Role::NormalZ}}};

bool has(const std::vector<Role>& roles, Role role) {
    return std::find(roles.begin(), roles.end(), role) != roles.end();
}

bool hasThree(const std::vector<Role>& roles, Role first) {
    for (int i = 0; i < 3; ++i)
        if (!has(roles, static_cast<Role>(static_cast<int>(first) + i))) return false;
    return true;
}

bool isUsed(const std::vector<Role>& roles, Role role) {
    if (role <= Role::Z) return hasThree(roles, Role::X);
    if (role <= Role::NormalZ) return hasThree(roles, Role::NormalX);
    if (role <= Role::Alpha) return hasThree(roles, Role::Red);
    return role == Role::Packed && !hasThree(roles, Role::Red);
}

}  // namespace

Role roleOf(std::string_view name) {
    const std::string lower = lowered(name);
    for (const Name& known : kNames)
        if (lower == known.name) return known.role;
    return Role::None;
}

std::string unusedColumns(const std::vector<std::string>& names, const std::vector<Role>& roles) {
    std::string text;
    for (std::size_t i = 0; i < roles.size(); ++i)
        if (!isUsed(roles, roles[i])) text += (text.empty() ? "" : ", ") + names[i];
    return text;
}

unsigned char channelOf(double value) {
    return static_cast<unsigned char>(
        std::clamp(value >= 0.0 ? std::round(value) : 0.0, 0.0, 255.0));
}

ZyrVector3d validOrHole(double x, double y, double z) {
    ZyrVector3d vector(x, y, z);
    const bool isFinite = std::isfinite(x) && std::isfinite(y) && std::isfinite(z);
    return isFinite && vector.IsValid() ? vector : ZyrVector3d();
}

PointColumns::PointColumns(int count, const std::vector<Role>& roles)
    : hasPoints_(hasThree(roles, Role::X)), hasNormals_(hasThree(roles, Role::NormalX)) {
    if (hasPoints_) points_.SetSize(count);
    if (hasNormals_) normals_.SetSize(count);
    if (hasThree(roles, Role::Red)) channels_ = has(roles, Role::Alpha) ? 4 : 3;
    if (channels_ > 0) colors_.Create(count, channels_);
}

void PointColumns::set(int i, const PointRow& row) {
    const auto three = [&](Role first) {
        const double* values = row.data() + static_cast<std::size_t>(first);
        return validOrHole(values[0], values[1], values[2]);
    };
    if (hasPoints_) points_[i] = three(Role::X);
    if (hasNormals_) normals_[i] = three(Role::NormalX);
    if (channels_ > 0) setColor(i, row);
}

void PointColumns::setColor(int i, const PointRow& row) {
    unsigned char* pixel = colors_.Data() + static_cast<std::ptrdiff_t>(i) * channels_;
    const double* red = row.data() + static_cast<std::size_t>(Role::Red);
    for (int channel = 0; channel < 3; ++channel) pixel[channel] = channelOf(red[2 - channel]);
    if (channels_ == 4) pixel[3] = channelOf(red[3]);
}

ZyrPointCloud PointColumns::cloud() const {
    return ZyrPointCloud(points_, colors_, normals_);
}

}  // namespace zyr
