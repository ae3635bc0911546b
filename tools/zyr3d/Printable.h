#pragma once

#include <string>
#include <string_view>

namespace zyr {

/// One line of whole characters: control characters, which a terminal might take for commands, and
/// bytes that are no UTF-8 become '?'.
std::string printable(std::string_view text);

}  // namespace zyr
