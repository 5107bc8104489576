// POSIX's locale objects: nothing of the process's own locale is touched.
#include "platform/ClassicNumber.h"

#include <locale.h>  // NOLINT(modernize-deprecated-headers): newlocale is POSIX's
#include <stdlib.h>  // NOLINT(modernize-deprecated-headers): and so is strtod_l

namespace Orlek::Detail {

double classicDouble(const char* text) {
    static const locale_t classic = newlocale(LC_ALL_MASK, "C", nullptr);
    return strtod_l(text, nullptr, classic);
}

}  // namespace Orlek::Detail
