#pragma once

namespace CLI {
class App;
}

namespace zyr {

/// Adds the subcommand that holds files against all that their formats say. Running it sets
/// outcome to the worst that was found.
void addCheck(CLI::App& app, int& outcome);

}  // namespace zyr
