// The command line: one instance for the process, so each test registers names of its own.
#include <Orlek/Misc/CmdLine.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/Capture.h"

namespace {

using Orlek::Misc::CmdLine;
using OrlekTest::captureStdout;

bool parse(std::vector<std::string> arguments) {
    std::vector<char*> argv;
    for (std::string& argument : arguments)
        argv.push_back(argument.data());
    return CmdLine::instance().parse(static_cast<int>(argv.size()), argv.data());
}

std::string usage() {
    return captureStdout([] { CmdLine::instance().printUsage(); });
}

// First, as it needs an instance without options.
TEST(CmdLine, UsageListsTheOptionsByNameWithTheirPresentValues) {
    EXPECT_EQ(usage(), "Usage of  :\n\n");
    CmdLine::instance().addSwitch("-v", "more output");
    CmdLine::instance().addParameter("-o", "output file", "out.txt");
    CmdLine::instance().addSwitch("--long-name", "longer than its column");
    EXPECT_TRUE(parse({"prog", "-v", "-o", "result.txt"}));
    const std::string expected =
        "Usage of prog :\n"
        "--long-name longer than its column\n"
        "-o       [output file] default [result.txt]\n"
        "-v       more output\n"
        "\n";
    EXPECT_EQ(usage(), expected);
    EXPECT_FALSE(CmdLine::instance().getSwitch("--long-name"));

    // No arguments change nothing; a count may go beyond the end of the list.
    char* none[] = {nullptr};
    EXPECT_TRUE(CmdLine::instance().parse(0, nullptr));
    EXPECT_TRUE(CmdLine::instance().parse(1, none));
    EXPECT_EQ(usage(), expected);
}

}  // namespace
