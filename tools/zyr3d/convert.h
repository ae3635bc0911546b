#pragma once

namespace CLI {
class App;
}

namespace zyr {

/// Adds the subcommand that turns files into other formats. Running it sets outcome to the worst
/// that was found.
void addConvert(CLI::App& app, int& outcome);

}  // namespace zyr
