#pragma once

namespace CLI {
class App;
}

namespace zyr {

/// Adds the subcommand that compares two files or the files of two folders. Running it sets
/// outcome to the worst that was found.
void addDiff(CLI::App& app, int& outcome);

}  // namespace zyr
