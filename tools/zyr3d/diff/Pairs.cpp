#include "diff/Pairs.h"

#include <filesystem>
#include <set>

#include "Outcome.h"
#include "Table.h"
#include "files/FileKind.h"

namespace zyr {
namespace {

namespace fs = std::filesystem;

bool isFolder(const std::string& path) {
    std::error_code error;
    return fs::is_directory(path, error);
}

bool isRead(const std::string& path) try {
    fileKind(path);
    return true;
} catch (const FileTrouble&) {
    return false;
}

std::set<std::string> namesIn(const std::string& folder) {
    std::set<std::string> names;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error))
        if (isRead(entry->path().string())) names.insert(entry->path().filename().string());
    if (error) throw FileTrouble(folder + ": " + error.message());
    return names;
}

std::size_t subfoldersOf(const std::string& folder) {
    std::size_t count = 0;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error))
        if (isFolder(entry->path().string())) ++count;
    return count;
}

}  // namespace

std::vector<std::string> passedOver(const std::string& first, const std::string& second) {
    std::vector<std::string> lines;
    if (!isFolder(first) || !isFolder(second)) return lines;
    for (const std::string& folder : {first, second})
        if (const std::size_t count = subfoldersOf(folder))
            lines.push_back(folder + ": " + counted(count, "subfolder", "subfolders") +
                            " passed over");
    return lines;
}

std::vector<Pair> pairsOf(const std::string& first, const std::string& second) {
    const fs::path a(first), b(second);
    if (!isFolder(first) && !isFolder(second)) return {{first, second, ""}};
    if (!isFolder(first)) return {{first, (b / a.filename()).string(), ""}};
    if (!isFolder(second)) return {{(a / b.filename()).string(), second, ""}};
    const std::set<std::string> inFirst = namesIn(first), inSecond = namesIn(second);
    std::set<std::string> names = inFirst;
    names.insert(inSecond.begin(), inSecond.end());
    if (names.empty()) throw FileTrouble(first + " and " + second + ": no files that are read");
    std::vector<Pair> pairs;
    for (const std::string& name : names) {
        Pair pair{(a / name).string(), (b / name).string(), ""};
        if (inSecond.count(name) == 0) pair.alone = pair.first;
        if (inFirst.count(name) == 0) pair.alone = pair.second;
        pairs.push_back(pair);
    }
    return pairs;
}

}  // namespace zyr
