#include <Orlek/OpenGL/StippleMask.h>

namespace Orlek::Detail {

void StippleMask::set(const unsigned char* pattern) {
    use = pattern != nullptr;
    if (!use) {
        return;
    }
    for (int& row : rows) {
        const unsigned bits = pattern[0] | (unsigned{pattern[1]} << 8U) |
                              (unsigned{pattern[2]} << 16U) | (unsigned{pattern[3]} << 24U);
        row = static_cast<int>(bits);
        pattern += 4;
    }
}

}  // namespace Orlek::Detail
