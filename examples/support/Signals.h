// What asks a program to end.
#pragma once

#include <csignal>

namespace OrlekSupport {

/// Sets what a signal calls, unless it is ignored, as under nohup or behind a script's `&`.
/// @return what it called before
inline auto handleUnlessIgnored(int signal, void (*handler)(int)) {
    const auto before = std::signal(signal, handler);
    if (before == SIG_IGN) {
        std::signal(signal, SIG_IGN);
    }
    return before;
}

}  // namespace OrlekSupport
