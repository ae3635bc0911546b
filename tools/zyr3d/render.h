#pragma once

namespace CLI {
class App;
}

namespace zyr {

/// Adds the subcommand that draws pictures of files. Running it sets outcome to the worst that was
/// found.
void addRender(CLI::App& app, int& outcome);

}  // namespace zyr
