#pragma once

#include <string>
#include <string_view>

#include "formats/Scene.h"

/// A reader a format. Those of foreign formats take the file's bytes, whatever they are, and throw
/// FormatFault; they take memory for what the bytes can hold alone.
namespace zyr {

Scene readPly(std::string_view bytes);
Scene readStl(std::string_view bytes);
Scene readObj(std::string_view bytes);
Scene readPcd(std::string_view bytes);
/// Columns of numbers between blanks, commas or semicolons, with or without a line of names.
Scene readXyz(std::string_view bytes);
Scene readNpy(std::string_view bytes);

/// These go through the library or a codec and throw FileTrouble.
Scene readZpt(const std::string& path);
Scene readZtmt(const std::string& path);
Scene readZrt(const std::string& path);
Scene readPicture(const std::string& path);

}  // namespace zyr
