#pragma once

#include <string>

namespace zyr {

/// From here on a signal that would end the process (INT, TERM, HUP, QUIT, XCPU) first removes the
/// temporary files that are there. One that is ignored stays so.
void removeTemporariesOnSignals();

/// Makes a file of a name that ends in six X and the suffix, which it replaces by the name it got,
/// and gives its descriptor, or -1. No signal finds the file there but not listed.
int makeTemporary(std::string& name, std::size_t suffixLength);
/// It has gone, or has a name now that is to stay.
void forgetTemporary(const std::string& name);

}  // namespace zyr
