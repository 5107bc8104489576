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

std::string valueOf(const std::string& name, bool expectGiven) {
    std::string value = "untouched";
    EXPECT_EQ(CmdLine::instance().getParameter(name, value), expectGiven) << name;
    return value;
}

std::string usage() {
    return captureStdout([] { CmdLine::instance().printUsage(); });
}

// First, as it needs an instance without options.
TEST(CmdLine, UsageListsTheOptionsByNameWithTheirPresentValues) {
    auto& options = CmdLine::instance();
    EXPECT_EQ(usage(), "Usage of  :\n\n");
    options.addSwitch("-v", "more output");
    options.addParameter("-o", "output file", "out.txt");
    options.addSwitch("--long-name", "longer than its column");
    EXPECT_TRUE(parse({"prog"}));
    EXPECT_EQ(usage(),
              "Usage of prog :\n"
              "--long-name longer than its column\n"
              "-o       [output file] default [out.txt]\n"
              "-v       more output\n"
              "\n");
    EXPECT_TRUE(parse({"prog2", "-v", "-o", "result.txt"}));
    EXPECT_EQ(usage(),
              "Usage of prog2 :\n"
              "--long-name longer than its column\n"
              "-o       [output file] default [result.txt]\n"
              "-v       more output\n"
              "\n");
    EXPECT_TRUE(options.getSwitch("-v"));
    EXPECT_FALSE(options.getSwitch("--long-name"));
    EXPECT_EQ(valueOf("-o", true), "result.txt");
}

TEST(CmdLine, NoArgumentsChangeNothing) {
    EXPECT_TRUE(parse({"kept"}));
    EXPECT_TRUE(CmdLine::instance().parse(0, nullptr));
    char* none[] = {nullptr};
    EXPECT_TRUE(CmdLine::instance().parse(0, none));
    EXPECT_TRUE(CmdLine::instance().parse(1, none)) << "a count beyond the end of the list";
    EXPECT_EQ(usage().find("Usage of kept :\n"), 0U);
}

TEST(CmdLine, UnknownArgumentsArePrintedAndTheRestIsRead) {
    CmdLine::instance().addSwitch("-known", "");
    bool result = true;
    EXPECT_EQ(captureStdout([&] {
                  result = parse({"prog", "-x", "-known", "", "-Known%s"});
              }),
              "unknown option -x\nunknown option \nunknown option -Known%s\n");
    EXPECT_FALSE(result);
    EXPECT_TRUE(CmdLine::instance().getSwitch("-known"));
}

TEST(CmdLine, ParametersTakeWhateverFollows) {
    CmdLine::instance().addSwitch("-flag", "");
    CmdLine::instance().addParameter("-take", "", "default");
    EXPECT_EQ(valueOf("-take", false), "default");
    EXPECT_TRUE(parse({"prog", "-take"}));
    EXPECT_EQ(valueOf("-take", true), "default") << "the last argument has no value";
    EXPECT_TRUE(parse({"prog", "-take", "-flag"}));
    EXPECT_EQ(valueOf("-take", true), "-flag");
    EXPECT_FALSE(CmdLine::instance().getSwitch("-flag"));
    EXPECT_TRUE(parse({"prog", "-take", "-take"}));
    EXPECT_EQ(valueOf("-take", true), "-take");
}

TEST(CmdLine, CallsAddUpAndRegisteringStartsAnew) {
    CmdLine::instance().addSwitch("-twice", "");
    EXPECT_EQ(valueOf("-twice", false), "false");
    EXPECT_TRUE(parse({"prog", "-twice"}));
    EXPECT_EQ(valueOf("-twice", true), "true");
    EXPECT_TRUE(parse({"prog", "-twice"}));
    EXPECT_EQ(valueOf("-twice", true), "false");
    EXPECT_TRUE(CmdLine::instance().getSwitch("-twice"));
    CmdLine::instance().addParameter("-twice", "", "now a parameter");
    EXPECT_EQ(valueOf("-twice", false), "now a parameter");
    EXPECT_EQ(valueOf("-never registered", false), "untouched");
    EXPECT_FALSE(CmdLine::instance().getSwitch("-never registered"));
}

}  // namespace
