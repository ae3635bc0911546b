#pragma once

#include "Program.h"

namespace test {

/// The bytes of a file, and what is said of it behind its name.
struct Case {
    Bytes bytes;
    std::string answer;
};

class CheckCommand : public Tool {
protected:
    /// All in one run, in order.
    void expectAnswers(const std::string& suffix, const std::vector<Case>& cases) const {
        std::string names;
        for (std::size_t i = 0; i < cases.size(); ++i) {
            names += " " + std::to_string(i) + "." + suffix;
            writeFile(path(std::to_string(i) + "." + suffix), cases[i].bytes);
        }
        const Result result = run("check" + names);
        const std::vector<std::string> lines = linesOf(result.out);
        EXPECT_EQ(result.err, "");
        ASSERT_EQ(lines.size(), cases.size()) << result.out;
        for (std::size_t i = 0; i < cases.size(); ++i)
            EXPECT_EQ(lines[i], std::to_string(i) + "." + suffix + ": " + cases[i].answer);
    }

    static std::string at(const Bytes& header, std::size_t more, const std::string& why) {
        return "invalid at byte " + std::to_string(header.size() + more) + ": " + why;
    }
};

}  // namespace test
