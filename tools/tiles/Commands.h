// What the program can do.
#pragma once

#include "Arguments.h"
#include "Console.h"

namespace OrlekTiles {

/// Exit codes of the program.
enum Outcome : int {
    allWell = 0,
    notDone = 1,  ///< bad tiles found, or something could not be done
    wrongUsage = 2
};

/// A line for each file: cell, kind, posts, bytes, path, rule.
Outcome list(const Arguments& arguments, Console& console);

/// Loads every tile; a line for each that is bad.
Outcome check(const Arguments& arguments, Console& console);

/// Zips raw .hgt files; a line for each archive.
Outcome pack(const Arguments& arguments, Console& console);

/// Draws the relief of an area into a PNG file; a line with its path and size.
Outcome render(const Arguments& arguments, Console& console);

/// The one directory that a command works on. Throws UsageError.
std::string directoryOf(const Arguments& arguments);

}  // namespace OrlekTiles
