#pragma once

namespace CLI {
class App;
}

namespace zyr {

/// Adds the subcommand that tells what files hold. Running it sets outcome to the worst
/// that was found.
void addInfo(CLI::App& app, int& outcome);

}  // namespace zyr
