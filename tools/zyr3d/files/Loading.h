#pragma once

#include <string>

#include "check/Check.h"
#include "files/RegularFile.h"

namespace zyr {

/// Loads a cloud or mesh from a file that was scanned. A disk that fails in between is noticed
/// afterwards: what could not be read is in no cache. Throws FileTrouble.
template <class Container>
Container loadScanned(const std::string& path) {
    Container container;
    if (!container.Load(path.c_str(), true, true)) explainRefusal(path);
    requireReadable(path);
    return container;
}

}  // namespace zyr
