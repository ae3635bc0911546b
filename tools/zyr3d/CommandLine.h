#pragma once

namespace zyr {

/// All that the program does; gives its exit code.
int runCommandLine(int argc, char** argv);

}  // namespace zyr
