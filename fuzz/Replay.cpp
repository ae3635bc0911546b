#include <cstdio>
#include <filesystem>

#include "Harness.h"

/// Runs a target once on each file of the folders. usage: replay_TARGET FOLDER...
int main(int argc, char** argv) {
    namespace fs = std::filesystem;
    int count = 0;
    for (int i = 1; i < argc; ++i) {
        if (!fs::is_directory(argv[i])) continue;
        for (const fs::directory_entry& entry : fs::directory_iterator(argv[i])) {
            std::fprintf(stderr, "%s\n", entry.path().c_str());
            const fuzz::Bytes bytes = test::readFile(entry.path());
            LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
            ++count;
        }
    }
    std::printf("%d inputs\n", count);
    return count > 0 ? 0 : 1;
}
