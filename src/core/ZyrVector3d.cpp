#include "ZyrVector3d.h"

#include "core/Truncation.h"

ZyrVector3d ZyrVector3d::Abs() {
    return ZyrVector3d(zyr::truncatedMagnitude(x), zyr::truncatedMagnitude(y),
                       zyr::truncatedMagnitude(z));
}

// Written as "tolerance < magnitude fails", so that a NaN tolerance accepts everything.
bool ZyrVector3d::Equals(const ZyrVector3d& other, double tolerance) {
    return !(tolerance < zyr::truncatedMagnitude(x - other.x)) &&
           !(tolerance < zyr::truncatedMagnitude(y - other.y)) &&
           !(tolerance < zyr::truncatedMagnitude(z - other.z));
}
