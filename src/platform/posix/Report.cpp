#include "platform/Report.h"

#include <cerrno>
#include <cstdarg>
#include <cstdio>

namespace Orlek::Detail {

void report(const char* format, ...) {
    const int error = errno;  // the first write to a stream may change it
    std::va_list arguments;
    va_start(arguments, format);
    std::vprintf(format, arguments);
    va_end(arguments);
    errno = error;
}

void reportError(const char* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    std::vfprintf(stderr, format, arguments);
    va_end(arguments);
}

void reportSystemError(const char* word) {
    std::perror(word);
}

}  // namespace Orlek::Detail
