// How OpenGL reads pixels from memory, for one upload.
#pragma once

#include <array>

namespace Orlek::Detail {

/// Makes OpenGL read tightly packed rows from client memory, however the application has it read
/// pixels (glPixelStore, an unpack buffer; not glPixelTransfer), and restores that at the end of
/// the scope.
class UnpackState {
public:
    UnpackState();
    ~UnpackState();
    UnpackState(const UnpackState&) = delete;
    UnpackState& operator=(const UnpackState&) = delete;

private:
    std::array<int, 6> mSaved{};
    int mSavedBuffer = 0;
};

}  // namespace Orlek::Detail
