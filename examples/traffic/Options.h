// The command line.
#pragma once

#include <optional>
#include <string>

namespace Traffic {

struct Options {
    int tcpPort = 0;  ///< 0: no TCP.
    int udpPort = 0;  ///< 0: no UDP.
    unsigned long udpTo = 0;
    std::string udpToText;
    double rateHz = 0.0;
    double seconds = 0.0;  ///< 0: until stopped.
    double pace = 0.0;
    double fromS = 0.0;
    std::string route;  ///< Empty: the default route.
    double speedKt = 0.0;
    double altitudeFt = 0.0;
};

/// Reads the program's arguments. Returns nothing when only the usage was asked for (it is then
/// printed). Throws std::runtime_error with one line that says what is wrong.
std::optional<Options> readOptions(int argc, char** argv);

}  // namespace Traffic
