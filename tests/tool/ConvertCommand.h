#pragma once

#include <opencv2/imgcodecs.hpp>

#include "Program.h"
#include "Scenes.h"

namespace test {

inline bool isThere(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

/// The subcommand in a folder with what it is given.
class ConvertCommand : public Tool {
protected:
    zyr::Scene scene(const std::string& name) const { return zyr::readScene(path(name)); }

    /// Runs the subcommand in this process, which saves the start of another.
    static int runHere(const std::string& arguments);

    void SetUp() override { std::filesystem::current_path(path(".")); }
    void TearDown() override { std::filesystem::current_path("/"); }

    /// A good run; gives what it says.
    static std::string say(const std::string& arguments) {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        EXPECT_EQ(runHere(arguments), 0) << arguments;
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << arguments;
        return testing::internal::GetCapturedStdout();
    }

    /// The arguments are a usage error whose text has this part.
    static void expectRefusal(const std::string& arguments, const std::string& text);

    /// Two points and a hole between them, with colours.
    void writeCloud(const std::string& name = "in.csv") const {
        writeText(path(name), "x,y,z,red,green,blue\n1,2,0.1,1,2,3\n,,,4,5,6\n7,8,9,7,8,9\n");
    }

    /// A grid of 2 x 2 with a step between its columns, and a value 0.
    void writeDepth() const {
        const cv::Mat depth = (cv::Mat_<std::uint16_t>(2, 2) << 10, 20, 30, 0);
        cv::imwrite(path("depth.png"), depth);
    }
};

}  // namespace test
