#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <opencv2/imgcodecs.hpp>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "ZyrPointCloud.h"
#include "support/Bytes.h"
#include "support/TempFolder.h"

namespace test {

inline std::string readText(const std::string& path) {
    const Bytes bytes = readFile(path);
    return std::string(bytes.begin(), bytes.end());
}

inline void writeText(const std::string& path, const std::string& text) {
    writeFile(path, toBytes(text));
}

inline std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

/// Those that are being written have such names.
inline bool hasHiddenFiles(const std::string& folder) {
    for (const auto& file : std::filesystem::directory_iterator(folder))
        if (file.path().filename().string()[0] == '.') return true;
    return false;
}

struct Result {
    int exitCode;  ///< 128 and more after a signal
    std::string out, err;
};

/// Runs the program in a fresh folder that goes away afterwards.
class Tool : public testing::Test {
protected:
    std::string path(const std::string& name) const { return folder_.path(name); }

    /// The arguments are words for the shell; before them the shell may be prepared.
    Result run(const std::string& arguments, const std::string& preparation = "true") const {
        const std::string command = "cd " + path(".") + " && " + preparation + "; " ZYR_TOOL " " +
                                    arguments + " >out.txt 2>err.txt";
        const int status = std::system(command.c_str());
        const int exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
        return {exitCode, readText(path("out.txt")), readText(path("err.txt"))};
    }

    /// What stands behind a label in a table.
    static std::string row(const Result& result, const std::string& label) {
        const std::size_t at = result.out.find("\n  " + label + "  ");
        if (at == std::string::npos) return "no such row in: " + result.out;
        const std::size_t start = result.out.find_first_not_of(' ', at + 3 + label.size());
        return result.out.substr(start, result.out.find('\n', start) - start);
    }

    /// Fails unless the run ended with this code and one line that holds the text.
    static void expectTrouble(const Result& result, int exitCode, const std::string& text) {
        EXPECT_EQ(result.exitCode, exitCode);
        EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
        EXPECT_EQ(result.err.rfind("zyr3d: ", 0), 0u) << result.err;
        EXPECT_NE(result.err.find(text), std::string::npos) << result.err;
    }

    /// Runs info on 300 files that chance made out of a good one, by their number, and other
    /// subcommands, of which none may end by a signal.
    Result runInfoOnMutations(const std::string& good, const std::string& suffix) const {
        const std::string spice("\n\r #\0 x9-F", 10);
        std::mt19937 random(7);
        std::string names;
        for (int i = 0; i < 300; ++i) {
            std::string bytes = good;
            for (int change = 0; change < 1 + i % 5; ++change) {
                const std::size_t at = random() % bytes.size();
                if (random() % 3 == 0) bytes.erase(at, random() % 20);
                if (random() % 3 == 0) bytes.insert(at, random() % 40, spice[random() % 10]);
                if (at < bytes.size()) bytes[at] = spice[random() % 10];
            }
            const std::string name = std::to_string(i) + "." + suffix;
            writeText(path(name), bytes);
            names += " " + name;
        }
        EXPECT_LE(run("check" + names).exitCode, 3);
        EXPECT_LE(run("convert --to csv --out converted" + names).exitCode, 3);
        return run("info" + names);
    }

    ZyrPointCloud load(const std::string& name) const {
        ZyrPointCloud cloud;
        EXPECT_TRUE(cloud.Load(path(name).c_str(), true, true));
        return cloud;
    }

private:
    const TempFolder folder_;
};

}  // namespace test
