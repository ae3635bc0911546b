#pragma once

#include <string>

namespace zyr {

enum class FileKind { Cloud, Mesh, Range, Picture, Foreign };

/// What a file is by its path's suffix, in any letter case where the library takes any. Throws
/// FileTrouble where we read no such files.
FileKind fileKind(const std::string& path);

}  // namespace zyr
