#include "ConvertCommand.h"

#include <CLI/CLI.hpp>

#include "convert.h"

namespace test {

int ConvertCommand::runHere(const std::string& arguments) {
    CLI::App app;
    int outcome = 0;
    zyr::addConvert(app, outcome);
    app.parse("convert " + arguments);
    return outcome;
}

void ConvertCommand::expectRefusal(const std::string& arguments, const std::string& text) {
    try {
        runHere(arguments);
        ADD_FAILURE() << arguments;
    } catch (const CLI::ParseError& error) {
        EXPECT_TRUE(isThere(error.what(), text)) << error.what();
    }
}

}  // namespace test
