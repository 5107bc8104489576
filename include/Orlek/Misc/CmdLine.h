#pragma once

/// @file
/// The command-line parser of the process.

#include <map>
#include <string>

#include <Orlek/Export.h>

namespace Orlek::Misc {

/// The command-line parser, one for the process.
///
/// The application registers switches (flags without a value) and parameters (options followed by
/// one value), hands over the arguments and asks for the results. Names are matched whole and
/// case-sensitively, with whatever prefix they were registered with; there is no name=value form,
/// no bundling and no end-of-options marker.
///
/// Creating the instance is thread-safe; all else is not synchronised and belongs to the start-up
/// thread.
///
/// @code
/// auto& options = Orlek::Misc::CmdLine::instance();
/// options.addSwitch("-v", "more output");
/// options.addParameter("-o", "output file", "out.txt");
/// if (!options.parse(argc, argv)) options.printUsage();
/// @endcode
class ORLEK_EXPORT CmdLine {
public:
    /// @return the instance of the process, created on first use.
    static CmdLine& instance();

    ~CmdLine() = default;
    CmdLine(const CmdLine&) = delete;
    CmdLine& operator=(const CmdLine&) = delete;

    /// Registers a switch, not given; replaces an option of the same name.
    /// @param name the name as it stands on the command line, prefix included.
    /// @param description the text for the usage listing.
    void addSwitch(const std::string& name, const std::string& description);

    /// Registers a parameter, not given; replaces an option of the same name.
    /// @param name the name as it stands on the command line, prefix included.
    /// @param description the text for the usage listing.
    /// @param defaultValue the value as long as none is given.
    void addParameter(const std::string& name, const std::string& description,
                      const std::string& defaultValue);

    /// Reads the arguments of the process. Calls add up: nothing given before is forgotten.
    ///
    /// A parameter takes the argument that follows it, whatever that looks like; as the last
    /// argument it keeps its value and counts as given. Each argument that is no registered name
    /// prints "unknown option " and the argument on the standard output and is otherwise passed
    /// over.
    /// @param argc the number of arguments, the program's name included; 0 changes nothing.
    /// @param argv the arguments, @p argc of them; a null pointer among them ends the list. Not
    ///        kept.
    /// @return true when every argument was known.
    bool parse(int argc, char** const argv);

    /// Asks whether an option has been given.
    /// @param name the registered name.
    /// @return true when it has been given, even if twice; false for a name that is not registered.
    bool getSwitch(const std::string& name) const;

    /// Asks for the value of an option.
    /// @param name the registered name.
    /// @param[out] value gets the value given or the default; of a switch "true" or "false", which
    ///             turns each time that it is given. Unchanged when @p name is not registered.
    /// @return whether the option has been given; false for a name that is not registered.
    bool getParameter(const std::string& name, std::string& value) const;

    /// Prints the program's name and, in the order of their names, the options with their present
    /// values on the standard output.
    void printUsage() const;

private:
    enum class OptionType : int { SWITCH = 0, PARAMETER = 1 };

    struct CmdOption {
        OptionType type;
        bool given;
        std::string description;
        std::string value;
    };

    CmdLine() = default;

    std::string mProgramName;
    std::map<std::string, CmdOption> mOptions;
};

}  // namespace Orlek::Misc
