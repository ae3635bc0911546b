#pragma once

namespace CLI {
class App;
}

namespace zyr {

/// Adds the subcommand that takes a frame all the way: build, drop outliers, save, load, compare,
/// draw. Running it sets outcome.
void addDemo(CLI::App& app, int& outcome);

}  // namespace zyr
