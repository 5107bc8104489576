// orlek-tiles: lists, checks, packs and draws the elevation tiles of a directory.
#include <Orlek/Version.h>

#include <cstdio>
#include <exception>
#include <new>
#include <vector>

#include "Commands.h"
#include "Usage.h"

namespace OrlekTiles {

namespace {

struct Command {
    const char* name;
    std::vector<Option> options;
    Outcome (*run)(const Arguments& arguments, Console& console);
};

const std::vector<Option> common{{"--help", false}, {"--version", false}, {"--verbose", false}};

const std::vector<Command> commands{
    {"list", {}, list},
    {"check", {}, check},
    {"pack", {{"--out", true}, {"--force", false}}, pack},
    {"render",
     {{"--south", true},
      {"--west", true},
      {"--north", true},
      {"--east", true},
      {"--width", true},
      {"--out", true}},
     render},
};

const Command& commandNamed(const std::string& name) {
    for (const Command& command : commands) {
        if (name == command.name) {
            return command;
        }
    }
    throw UsageError("unknown command " + name);
}

Outcome follow(std::span<const char* const> words, Console& console) {
    const bool hasCommand = !words.empty() && words[0][0] != '-';
    const Command* command = hasCommand ? &commandNamed(words[0]) : nullptr;
    std::vector<Option> options = common;
    if (command != nullptr) {
        options.insert(options.end(), command->options.begin(), command->options.end());
    }
    const Arguments arguments(words.subspan(hasCommand ? 1 : 0), options);
    if (arguments.has("--help")) {
        console.print(usage);
        return allWell;
    }
    if (arguments.has("--version")) {
        console.print("orlek-tiles " ORLEK_VERSION "\n");
        return allWell;
    }
    if (command == nullptr) {
        throw UsageError("a command is missing: list, check, pack or render");
    }
    if (arguments.has("--verbose")) {
        Console::showLibraryLines();
    }
    return command->run(arguments, console);
}

Outcome runProgram(std::span<const char* const> words) {
    try {
        Console console;
        const Outcome outcome = follow(words, console);
        console.finish();
        return outcome;
    } catch (const UsageError& error) {
        Console::note(std::string(error.what()) + " (see orlek-tiles --help)");
        return wrongUsage;
    } catch (const std::bad_alloc&) {
        std::fputs("orlek-tiles: not enough memory\n", stderr);
    } catch (const std::exception& error) {
        Console::note(error.what());
    }
    return notDone;
}

}  // namespace

std::string directoryOf(const Arguments& arguments) {
    if (arguments.operands().size() != 1) {
        throw UsageError("one directory is needed");
    }
    return arguments.operands().front();
}

}  // namespace OrlekTiles

int main(int argc, char** argv) {
    return OrlekTiles::runProgram({argv + (argc > 0 ? 1 : 0), argv + argc});
}
