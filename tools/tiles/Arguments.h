// The words of a command line, taken apart.
#pragma once

#include <map>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace OrlekTiles {

/// A command line that cannot be followed.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

struct Option {
    const char* name;  ///< with its dashes
    bool takesValue;
};

/// Options may stand anywhere up to "--" and have their value as the next word or behind "=".
class Arguments {
public:
    /// Throws UsageError for an option that is not in `known`, for one without its value and for a
    /// switch with one.
    Arguments(std::span<const char* const> words, std::span<const Option> known);

    bool has(const std::string& option) const { return mOptions.contains(option); }
    std::optional<std::string> value(const std::string& option) const;
    /// What is no option.
    const std::vector<std::string>& operands() const { return mOperands; }

private:
    std::map<std::string, std::string> mOptions;
    std::vector<std::string> mOperands;
};

}  // namespace OrlekTiles
