// The version, compiled into the library.
#include <Orlek/Version.h>

namespace Orlek {

const char* version() noexcept {
    return ORLEK_VERSION;
}

}  // namespace Orlek
