// POSIX's locale objects: nothing of the process's own locale is touched.
#include "platform/ClassicNumber.h"

#include <locale.h>
#include <stdlib.h>

namespace Orlek::Detail {

double classicDouble(const char* text) {
    static const locale_t classic = newlocale(LC_ALL_MASK, "C", nullptr);
    return strtod_l(text, nullptr, classic);
}

}  // namespace Orlek::Detail
