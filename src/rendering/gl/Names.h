// Deleting OpenGL objects by name, at once or later. A destructor that may run without a current
// context parks its names; the next upload deletes them.
#pragma once

#include <memory>
#include <span>

namespace Orlek::Detail {

enum class NameKind { VertexArray, Buffer, Texture };

/// Deletes the objects of all names that are not 0, and sets the names to 0.
void deleteNames(NameKind kind, std::span<unsigned> names);

/// Keeps all names that are not 0 for deleteParkedNames; without memory for them their objects
/// stay. Makes no GL call.
void parkNames(NameKind kind, std::span<const unsigned> names);

/// Deletes what was parked, if a context is current.
void deleteParkedNames();

/// Forgets what was parked: in another context the names may be those of other objects.
void forgetParkedNames();

/// Gives up a share of GL objects; the last owner deletes them.
template <typename T>
void releaseShare(std::shared_ptr<T>& object) {
    if (object != nullptr && object.use_count() == 1) {
        object->release();
    }
    object.reset();
}

}  // namespace Orlek::Detail
