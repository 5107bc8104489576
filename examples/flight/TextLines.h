// Small text files of lines with fields between commas: routes, airspace.
#pragma once

#include <functional>
#include <iosfwd>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "Position.h"

namespace MovingMap {

using Fields = std::vector<std::string_view>;

/// What stands between the commas of a line, without the blanks around it.
Fields fieldsOf(std::string_view line);

/// A text for a message: its beginning, and "?" for control characters (C0 and C1, ECMA-48).
std::string inALine(std::string text);

/// "source:line: reason".
std::runtime_error errorInLine(const std::string& source, int number, const std::string& reason);

/// Calls a function with the fields of each line, without the blanks around them, and its number.
/// Text from "#" on is a comment, lines without content are skipped. What the function throws as
/// std::runtime_error is thrown again as "source:line: reason".
/// @param source names the text in messages
void forEachLine(std::istream& text, const std::string& source,
                 const std::function<void(const Fields&, int)>& line);

/// Reads a regular file of at most a megabyte.
/// Throws std::runtime_error with a line that names it, e.g. "cannot read the route file r.txt".
/// @param kind "route", "airspace"
std::string readSmallFile(const std::string& path, const std::string& kind);

/// A number within limits. Throws std::runtime_error.
double numberField(std::string_view text, const char* what, double low, double high);

/// Latitude and longitude in decimal degrees, north and east positive; not near
/// the poles. Throws std::runtime_error.
Position positionFields(std::string_view latitude, std::string_view longitude);

/// A text in UTF-8 of 1 to @p longest characters of Latin-1, as those. Throws std::runtime_error.
std::string textField(std::string_view text, const char* what, std::size_t longest);

}  // namespace MovingMap
