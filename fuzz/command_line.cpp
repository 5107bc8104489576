// Any options and any arguments: what is printed, returned and kept is what a model of the rules
// says. Input: a byte of flags, which of the first eight names are parameters; then words, each
// ended by a zero byte. \x01 as a word ends an argument list, so that the next begins; \x02 stands
// for a null pointer among the arguments, which ends the list early.
#include <Orlek/Misc/CmdLine.h>

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "FuzzTarget.h"
#include "Printed.h"

namespace {

using Orlek::Misc::CmdLine;
using Arguments = std::vector<std::optional<std::string>>;

// Options stay registered for the life of the process, so the names are the same for all inputs.
const std::array<std::string, 8> names = {"",         "-v",   "-o",     "-vo",
                                          "--output", "%s%n", "a b\tc", std::string(40, 'x')};

struct Option {
    bool isParameter = false;
    bool given = false;
    std::string description;
    std::string value;
};

struct Model {
    std::map<std::string, Option> options;
    std::string program;

    bool parse(const Arguments& arguments, std::string& printed) {
        bool known = true;
        Option* waiting = nullptr;  // a parameter whose value comes next
        for (std::size_t i = 0; i < arguments.size() && arguments[i]; ++i) {
            const std::string& word = *arguments[i];
            if (i == 0) {
                program = word;
            } else if (waiting != nullptr) {
                waiting->value = word;
                waiting = nullptr;
            } else if (!options.contains(word)) {
                printed += "unknown option " + word + "\n";
                known = false;
            } else {
                take(options[word], waiting);
            }
        }
        return known;
    }

    static void take(Option& option, Option*& waiting) {
        option.given = true;
        if (option.isParameter) {
            waiting = &option;
        } else {
            option.value = option.value == "true" ? "false" : "true";
        }
    }

    std::string usage() const {
        std::string text = "Usage of " + program + " :\n";
        for (const auto& [name, option] : options) {
            text += name + std::string(name.size() < 8 ? 8 - name.size() : 0, ' ') + ' ';
            text += option.isParameter
                        ? "[" + option.description + "] default [" + option.value + "]\n"
                        : option.description + "\n";
        }
        return text + "\n";
    }
};

Model model;

void registerOptions(unsigned parameters) {
    for (std::size_t i = 0; i < names.size(); ++i) {
        const std::string& name = names[i];
        Option option{(parameters >> i & 1U) != 0, false, "text of " + name, "false"};
        if (option.isParameter) {
            option.value = std::to_string(i);
            CmdLine::instance().addParameter(name, option.description, option.value);
        } else {
            CmdLine::instance().addSwitch(name, option.description);
        }
        model.options[name] = option;
    }
}

void checkKept(const std::string& name) {
    std::string value = "as it was";
    const auto found = model.options.find(name);
    const bool isThere = found != model.options.end();
    const bool given = isThere && found->second.given;
    require(CmdLine::instance().getSwitch(name) == given);
    require(CmdLine::instance().getParameter(name, value) == given);
    require(value == (isThere ? found->second.value : "as it was"));
}

void checkList(Arguments& arguments) {
    std::vector<char*> argv;
    for (auto& word : arguments) {
        argv.push_back(word ? word->data() : nullptr);
    }
    std::string expected;
    const bool known = model.parse(arguments, expected);
    bool result = false;
    const std::string_view printed = printedBy([&] {
        result = CmdLine::instance().parse(static_cast<int>(argv.size()), argv.data());
        CmdLine::instance().printUsage();
    });
    require(result == known && printed == expected + model.usage());
    for (const auto& word : arguments) {
        checkKept(word.value_or("never registered"));
    }
    for (const std::string& name : names) {
        checkKept(name);
    }
    arguments.clear();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    registerOptions(data[0]);
    std::string_view rest(reinterpret_cast<const char*>(data) + 1, size - 1);
    Arguments arguments;
    while (!rest.empty()) {
        const std::string_view word = rest.substr(0, rest.find('\0'));
        rest.remove_prefix(std::min(rest.size(), word.size() + 1));
        if (word == "\x01") {
            checkList(arguments);
        } else if (word == "\x02") {
            arguments.emplace_back();
        } else {
            arguments.emplace_back(word);
        }
    }
    checkList(arguments);
    return 0;
}
