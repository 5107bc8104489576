// The command-line parser: options registered by name, arguments matched against them one by one.
#include <Orlek/Misc/CmdLine.h>

#include <algorithm>
#include <iterator>
#include <span>

#include "platform/Report.h"

namespace Orlek::Misc {

CmdLine& CmdLine::instance() {
    static CmdLine theInstance;
    return theInstance;
}

void CmdLine::addSwitch(const std::string& name, const std::string& description) {
    mOptions[name] = {OptionType::SWITCH, false, description, "false"};
}

void CmdLine::addParameter(const std::string& name, const std::string& description,
                           const std::string& defaultValue) {
    mOptions[name] = {OptionType::PARAMETER, false, description, defaultValue};
}

bool CmdLine::parse(int argc, char** const argv) {
    if (argc <= 0 || argv == nullptr)
        return true;
    const std::span all(argv, static_cast<std::size_t>(argc));
    const std::span arguments(all.begin(), std::find(all.begin(), all.end(), nullptr));
    if (arguments.empty())
        return true;
    mProgramName = arguments.front();

    bool allKnown = true;
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        const auto found = mOptions.find(arguments[i]);
        if (found == mOptions.end()) {
            Detail::report("unknown option %s\n", arguments[i]);
            allKnown = false;
            continue;
        }
        CmdOption& option = found->second;
        option.given = true;
        if (option.type == OptionType::SWITCH)
            option.value = option.value == "true" ? "false" : "true";
        else if (i + 1 < arguments.size())
            option.value = arguments[++i];
    }
    return allKnown;
}

bool CmdLine::getSwitch(const std::string& name) const {
    const auto found = mOptions.find(name);
    return found != mOptions.end() && found->second.given;
}

bool CmdLine::getParameter(const std::string& name, std::string& value) const {
    const auto found = mOptions.find(name);
    if (found == mOptions.end())
        return false;
    value = found->second.value;
    return found->second.given;
}

void CmdLine::printUsage() const {
    Detail::report("Usage of %s :\n", mProgramName.c_str());
    for (const auto& [name, option] : mOptions) {
        if (option.type == OptionType::PARAMETER)
            Detail::report("%-8s [%s] default [%s]\n", name.c_str(), option.description.c_str(),
                           option.value.c_str());
        else
            Detail::report("%-8s %s\n", name.c_str(), option.description.c_str());
    }
    Detail::report("\n");
}

}  // namespace Orlek::Misc
