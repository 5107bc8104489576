// Values of the command line's options, as text and as numbers within limits. Programs that include
// it link the library.
#pragma once

#include <Orlek/Misc/CmdLine.h>

#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>

#include "Number.h"

namespace OrlekSupport {

/// The value of a registered option.
inline std::string textOf(const char* name) {
    std::string value;
    Orlek::Misc::CmdLine::instance().getParameter(name, value);
    return value;
}

/// The number that a text spells; @p name is that of the value in messages.
/// Throws std::runtime_error "name: 'text' is no number from low to high".
template <typename Number>
Number numberIn(const std::string& name, const std::string& text, Number low, Number high) {
    const auto value = parseNumber(text, low, high);
    if (!value) {
        std::ostringstream message;
        message << name << ": '" << text << "' is no number from " << low << " to " << high;
        throw std::runtime_error(message.str());
    }
    return *value;
}

/// The value of a registered option as a number; throws like numberIn.
template <typename Number>
Number numberOf(const char* name, Number low, Number high) {
    return numberIn(name, textOf(name), low, high);
}

/// The same; nothing when the value is empty.
inline std::optional<double> optionalNumberOf(const char* name, double low, double high) {
    if (textOf(name).empty()) {
        return std::nullopt;
    }
    return numberOf(name, low, high);
}

/// Reads the arguments into the registered options.
/// @return false when the usage was asked for; it is printed then.
/// Throws std::runtime_error when an argument is unknown.
inline bool parseArguments(int argc, char** argv) {
    Orlek::Misc::CmdLine& line = Orlek::Misc::CmdLine::instance();
    line.addSwitch("--help", "print this text");
    if (!line.parse(argc, argv)) {
        throw std::runtime_error("see --help for the options");
    }
    if (line.getSwitch("--help")) {
        line.printUsage();
        return false;
    }
    return true;
}

}  // namespace OrlekSupport
