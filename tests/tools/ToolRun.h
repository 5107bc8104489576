// Runs orlek-tiles as a process.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "support/TempDir.h"
#include "support/WholeText.h"

namespace OrlekTest {

struct ToolRun {
    int code = -1;
    std::string out;
    std::string err;
};

/// Runs a line of the shell in which $T is the program. @return what came of it
inline ToolRun shell(const std::string& line) {
    const TempDir streams;
    const std::string command = "T='" PROGRAM "'; { " + line + "\n} </dev/null >'" +
                                streams.path("out") + "' 2>'" + streams.path("err") + "'";
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, wholeText(streams.path("out")),
            wholeText(streams.path("err"))};
}

inline ToolRun runTiles(const std::string& arguments) {
    return shell("$T " + arguments);
}

/// The fields of each line.
inline std::vector<std::vector<std::string>> table(const std::string& text) {
    std::vector<std::vector<std::string>> rows;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream fields(line);
        rows.emplace_back();
        for (std::string field; std::getline(fields, field, '\t');) {
            rows.back().push_back(field);
        }
    }
    return rows;
}

}  // namespace OrlekTest
