// What the map keeps from one session to the next.
#pragma once

#include <Orlek/Misc/Property.h>

#include <optional>
#include <stdexcept>
#include <string>

#include "Colours.h"
#include "OptionValues.h"

namespace MovingMap {

/// The settings of a property file beside the options of the command line: an option that was given
/// wins over the setting, the setting over the option's default. Both are looked up together, by
/// functions that also give the setting the option's value when the option was given or the file
/// has no such setting, so that the file is complete when it is written.
///
/// A setting that cannot be used is named in a line on the standard error, with its value; the
/// option's default is taken, and the file keeps what it has.
class Settings {
public:
    /// Reads the file. It need not exist; one that is there and cannot be read is named on the
    /// standard error and never written. An empty path: no settings.
    explicit Settings(std::string file);

    /// The file to write the settings to; empty: none.
    const std::string& file() const { return mFile; }

    /// What a text means.
    /// @param parse takes a name for messages and the text; throws std::runtime_error "name: 'text'
    ///        ..." when it cannot be used, which a given option passes on
    template <typename Parse>
    auto value(const char* option, const char* key, Parse parse) const;

    /// A number within limits.
    double number(const char* option, const char* key, double low, double high) const;

    /// The path of a file or folder. In the file an empty text is the option's default, and a
    /// relative path begins at the file's folder; it is written as an absolute one.
    /// @param keyword a value of the option that is no path; may be empty
    std::string path(const char* option, const char* key, const char* keyword = "") const;

    /// Whether one switch of the command line is on, which another one turns off.
    bool toggle(const char* on, const char* off, const char* key) const;

    /// A colour; there is no option for it.
    void colour(const char* key, Colour& value) const;

private:
    static std::optional<std::string> stored(const char* key);
    static bool given(const char* option);

    void complain(const std::string& reason) const;

    std::string mFile;
};

template <typename Parse>
auto Settings::value(const char* option, const char* key, Parse parse) const {
    const auto text = stored(key);
    if (text && !given(option)) {
        try {
            return parse(key, *text);
        } catch (const std::runtime_error& error) {
            complain(error.what());
            return parse(option, OrlekSupport::textOf(option));
        }
    }
    auto result = parse(option, OrlekSupport::textOf(option));
    Orlek::Misc::Property::instance().setString(key, OrlekSupport::textOf(option));
    return result;
}

}  // namespace MovingMap
