#pragma once

#include "ZyrMatrix3.h"
#include "ZyrMatrix4.h"

namespace zyr {

/// The rotation's part of a homogeneous matrix.
inline ZyrMatrix3 upperLeft(const ZyrMatrix4& m) {
    const double* e = m.Data();
    return ZyrMatrix3(e[0], e[1], e[2], e[4], e[5], e[6], e[8], e[9], e[10]);
}

}  // namespace zyr
