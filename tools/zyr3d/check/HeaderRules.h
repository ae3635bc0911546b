#pragma once

#include <string>

#include "files/HeaderScan.h"

namespace zyr {

/// Holds the header of a point-cloud or mesh file against all that its format says, beyond what
/// readers need. Throws Fault.
void checkCloudHeader(const std::string& path, const CloudHeader& header);
void checkMeshHeader(const std::string& path, const CloudHeader& header);

}  // namespace zyr
