#pragma once

#include <string>

#include "render/Subject.h"

namespace zyr {

/// Reads a file that may hold anything. A cloud in a grid becomes a surface unless points alone are
/// asked for. Throws FileTrouble.
Subject readSubject(const std::string& path, bool isPoints);

}  // namespace zyr
