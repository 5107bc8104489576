// The one way in which the library speaks: lines on the standard output, and messages about failed
// system calls on the standard error stream.
#pragma once

namespace Orlek::Detail {

/// Prints to the standard output with printf rules. errno stays as it was, so that
/// reportSystemError may follow.
[[gnu::format(printf, 1, 2)]] void report(const char* format, ...);

/// Prints to the standard error stream with printf rules.
[[gnu::format(printf, 1, 2)]] void reportError(const char* format, ...);

/// Prints `word`, a colon and the text of the current errno on the standard error stream.
void reportSystemError(const char* word);

}  // namespace Orlek::Detail
