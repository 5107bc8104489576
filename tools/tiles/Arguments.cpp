#include "Arguments.h"

#include <algorithm>

namespace OrlekTiles {

namespace {

const Option& find(const std::string& name, std::span<const Option> known) {
    const auto option = std::find_if(known.begin(), known.end(),
                                     [&](const Option& each) { return name == each.name; });
    if (option == known.end()) {
        throw UsageError("unknown option " + name);
    }
    return *option;
}

}  // namespace

Arguments::Arguments(std::span<const char* const> words, std::span<const Option> known) {
    bool optionsEnded = false;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string word = words[i];
        if (optionsEnded || word.size() < 2 || word[0] != '-') {
            mOperands.push_back(word);
            continue;
        }
        if (word == "--") {
            optionsEnded = true;
            continue;
        }
        const std::size_t equals = word.find('=');
        const std::string name = word.substr(0, equals);
        const bool hasValue = equals != std::string::npos;
        if (!find(name, known).takesValue) {
            if (hasValue) {
                throw UsageError("option " + name + " takes no value");
            }
            mOptions[name];
        } else if (hasValue) {
            mOptions[name] = word.substr(equals + 1);
        } else if (++i < words.size()) {
            mOptions[name] = words[i];
        } else {
            throw UsageError("option " + name + " needs a value");
        }
    }
}

std::optional<std::string> Arguments::value(const std::string& option) const {
    const auto found = mOptions.find(option);
    return found == mOptions.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace OrlekTiles
