// The options of the command line that choose between a window and a picture. Programs that include
// it link the library.
#pragma once

#include <string>

#include "OptionValues.h"
#include "Screen.h"

namespace OrlekSupport {

/// Registers --window and --out. @param keys what the window's keys do
inline void addScreenOptions(const std::string& file, const std::string& keys) {
    Orlek::Misc::CmdLine& line = Orlek::Misc::CmdLine::instance();
    line.addSwitch("--window", "open a window (so it is where there is a screen); " + keys);
    line.addParameter("--out", "draw a picture into this file (so it is without a screen)", file);
}

/// What the user chose of them.
inline ScreenOptions screenOptions() {
    Orlek::Misc::CmdLine& line = Orlek::Misc::CmdLine::instance();
    return {line.getSwitch("--window"), line.getSwitch("--out"), textOf("--out")};
}

}  // namespace OrlekSupport
