#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "formats/Scene.h"

namespace zyr {

/// What a column of a table of points is for.
enum class Role { X, Y, Z, NormalX, NormalY, NormalZ, Red, Green, Blue, Alpha, Packed, None };

/// By the names that PLY, PCD and CSV files use, in any letter case.
Role roleOf(std::string_view name);

/// The values of one point, by role.
using PointRow = std::array<double, static_cast<std::size_t>(Role::None) + 1>;

inline double& at(PointRow& row, Role role) {
    return row[static_cast<std::size_t>(role)];
}

/// Collects points row by row. Coordinates that are not finite make a hole, a normal that is not
/// finite an invalid vector. Colours are numbers from 0 to 255; who reads a packed word unpacks it
/// into these columns.
class PointColumns {
public:
    /// For so many points with these columns.
    PointColumns(int count, const std::vector<Role>& roles);

    /// Whether the roles gave all of it.
    bool hasPoints() const { return hasPoints_; }
    bool hasNormals() const { return hasNormals_; }
    int colorChannels() const { return channels_; }

    void set(int i, const PointRow& row);
    ZyrPointCloud cloud() const;

private:
    void setColor(int i, const PointRow& row);

    bool hasPoints_ = false, hasNormals_ = false;
    int channels_ = 0;
    ZyrVector3dArray points_, normals_;
    ZyrColorArray colors_;
};

/// The names of the columns that are for nothing, or whose companions are missing, as a text for
/// people; "" when there are none.
std::string unusedColumns(const std::vector<std::string>& names, const std::vector<Role>& roles);

/// A colour channel from a number: rounded, and 0 to 255.
unsigned char channelOf(double value);

/// The vector, or the invalid one unless all of it is finite and below the invalid value.
ZyrVector3d validOrHole(double x, double y, double z);

}  // namespace zyr
