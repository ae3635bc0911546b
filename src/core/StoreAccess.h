#pragma once

#include "Zyr3DIntArray.h"
#include "ZyrVector3dArray.h"

namespace zyr {

/// The element vectors themselves, for those that fill them without sizing them first.
struct StoreAccess {
    static std::vector<ZyrVector3d>& elements(const ZyrVector3dArray& array) {
        return *array.store_->elements;
    }
    static std::vector<int>& elements(const Zyr3DIntArray& array) {
        return *array.store_->elements;
    }
};

}  // namespace zyr
