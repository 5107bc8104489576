#pragma once

/// @file
/// The settings of the process.

#include <map>
#include <string>

#include <Orlek/Export.h>

namespace Orlek::XML {
class XmlElement;
}

namespace Orlek::Misc {

/// The settings of the process: texts under dotted keys, kept in an XML file.
///
/// Everything is stored as text and converted when it is asked for. In the file, the sections of a
/// key but the last are nested elements, and a `Property` element has the last one and the value:
///
/// @code{.xml}
/// <?xml version="1.0" encoding="UTF-8" ?>
/// <Properties>
///     <Display>
///         <Property key="width" value="800" />
///     </Display>
///     <Property key="debug" value="true" />
/// </Properties>
/// @endcode
///
/// holds the keys Display.width and debug. Whatever key and value is set comes back from a file:
///
/// - A key that cannot be nested stands in one `Property` under the root with its whole name. Such
///   a key has, before its last dot, an empty section, one that is no XML name (without colons),
///   one called Property, more than 253 other dots, or more than 1,024 bytes.
/// - Control characters other than tab, line feed and carriage return become references that XML
///   does not allow and this class reads; other programs refuse such a file.
/// - Bytes that are not UTF-8, and U+FFFE and U+FFFF, have no place in the file. Key and value of
///   such a `Property` are written with `%` and two hexadecimal digits for each of those bytes,
///   `%25` for a per cent sign, and the attribute `escape="percent"` beside them.
///
/// Creating the instance is thread-safe; all else is not synchronised: one thread at a time.
///
/// @code
/// auto& settings = Orlek::Misc::Property::instance();
/// settings.setConfigFile("map.xml");
/// const double rangeNm = settings.getDouble("View.range", 20.0);
/// settings.setDouble("View.range", 2 * rangeNm);
/// settings.writeXmlFile();
/// @endcode
class ORLEK_EXPORT Property {
public:
    /// @return the instance of the process, created empty on first use.
    static Property& instance();

    ~Property();
    Property(const Property&) = delete;
    Property& operator=(const Property&) = delete;

    /// Names the file of the calls without a path and reads it. Whether that went well is not told;
    /// a missing file prints what readXmlFile() prints.
    void setConfigFile(const std::string& path);

    /// Adds the settings of a file: its keys replace those with the same name, the others stay.
    ///
    /// Prints "Property <key> <value>" on the standard output for each.
    /// @param path the file; the bounds and refusals of XML::XmlDocument::read() hold. A file is
    ///        refused too when long group names above many settings would make the keys take some
    ///        hundred times its size.
    /// @return true when it has been read. Otherwise nothing has changed, and a line with the path
    ///         has been printed on the standard output, behind those of XML::XmlDocument::read()
    ///         when it was that which failed. std::bad_alloc may leave a part of the settings set.
    bool readXmlFile(const std::string& path);

    /// Reads the file that setConfigFile() has named.
    bool readXmlFile();

    /// Writes all settings in the order of their keys, so that the file holds the old ones or the
    /// new ones whatever happens, and waits for the disk: see XML::XmlDocument::write().
    /// @param path the file.
    /// @return true when they have reached the disk. Otherwise a line has been printed on the
    ///         standard output, and the file is as it was (or, where only its directory did not
    ///         reach the disk, new already).
    bool writeXmlFile(const std::string& path);

    /// Writes the file that setConfigFile() has named.
    bool writeXmlFile();

    /// @return the text of a setting, @p defaultValue when there is none.
    std::string getString(const std::string& key, const std::string& defaultValue) const;

    /// @return the number with which the text begins by the rules of `atoi` (decimal only), 0 when
    ///         it begins with none; @p defaultValue when there is no such setting.
    int getInt(const std::string& key, int defaultValue) const;

    /// @return the number with which the text begins by the rules of `atof`, with a point in every
    ///         locale, 0 when it begins with none; @p defaultValue when there is no such setting.
    double getDouble(const std::string& key, double defaultValue) const;

    /// @return whether the text is "true", "TRUE" or "True"; @p defaultValue when there is no such
    ///         setting.
    bool getSwitch(const std::string& key, bool defaultValue) const;

    /// Sets a text.
    /// @param key sections joined by dots; any bytes.
    /// @param value any bytes.
    void setString(const std::string& key, const std::string& value);

    /// Sets a decimal number.
    void setInt(const std::string& key, int value);

    /// Sets a number with 6 significant digits (3.14159, 1.23457e+06).
    void setDouble(const std::string& key, double value);

    /// Sets "true" or "false".
    void setSwitch(const std::string& key, bool value);

private:
    Property();

    bool readElement(XML::XmlElement& element, std::string prefix);
    void strip(std::string& text, const std::string& characters);
    const std::string* find(const std::string& key) const;

    std::map<std::string, std::string> mProperties;
    std::string mConfigFile;
};

}  // namespace Orlek::Misc
