#pragma once

#include <functional>
#include <sstream>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace zyr {

/// What the work on one item has to say. It is kept until the item's turn comes.
struct Output {
    std::ostringstream out, err;

    /// A line on standard error; the program's name comes before it.
    void complain(const std::string& text);
};

/// What the exception that is being handled says of an item.
std::string troubleText(const std::string& name);

/// Work on many items, some at once. Each item's output is printed whole, in the order of the
/// items; an item that fails does not stop the others.
struct Batch {
    /// Gives an exit code; may throw, as FileTrouble or UsageTrouble. Runs in several threads at
    /// once.
    using Work = std::function<int(std::size_t item, Output& output)>;

    int jobs = 1;

    /// The option for the number of items at once.
    void addOption(CLI::App& command);
    /// Gives the worst exit code. The names tell people which item is meant, as files do. Throws
    /// FileTrouble when the output can't be printed.
    int run(const std::vector<std::string>& names, const Work& work) const;
};

}  // namespace zyr
