#pragma once

#include "render/Look.h"

namespace CLI {
class App;
}

namespace zyr {

/// Adds the options that say how a picture is to look.
void addLookOptions(CLI::App& command, Look& look);

}  // namespace zyr
