#include "rendering/gl/Names.h"

#include <GL/glew.h>

#include <algorithm>
#include <array>
#include <memory>
#include <new>
#include <vector>

#include "rendering/gl/EntryPoints.h"

namespace Orlek::Detail {

namespace {

using Parked = std::array<std::vector<unsigned>, 3>;

// Never destroyed: drawing objects in static storage may outlive every other static.
Parked& parked() {
    static Parked* const names = std::make_unique<Parked>().release();
    return *names;
}

}  // namespace

void deleteNames(NameKind kind, std::span<unsigned> names) {
    const auto count = static_cast<GLsizei>(names.size());
    if (std::ranges::all_of(names, [](unsigned name) { return name == 0; })) {
        return;
    }
    switch (kind) {
        case NameKind::VertexArray:
            glDeleteVertexArrays(count, names.data());
            break;
        case NameKind::Buffer:
            glDeleteBuffers(count, names.data());
            break;
        case NameKind::Texture:
            glDeleteTextures(count, names.data());
            break;
    }
    std::ranges::fill(names, 0U);
}

void parkNames(NameKind kind, std::span<const unsigned> names) {
    try {
        std::vector<unsigned>& list = parked()[static_cast<std::size_t>(kind)];
        std::ranges::copy_if(names, std::back_inserter(list),
                             [](unsigned name) { return name != 0; });
    } catch (const std::bad_alloc&) {
        // In a destructor: the objects stay, the program goes on.
    }
}

void deleteParkedNames() {
    const bool none =
        std::ranges::all_of(parked(), [](const auto& names) { return names.empty(); });
    if (none || !hasContext()) {  // they would be lost
        return;
    }
    for (const NameKind kind : {NameKind::VertexArray, NameKind::Buffer, NameKind::Texture}) {
        std::vector<unsigned>& names = parked()[static_cast<std::size_t>(kind)];
        if (!names.empty()) {
            deleteNames(kind, names);
            names.clear();
        }
    }
}

void forgetParkedNames() {
    parked() = {};
}

}  // namespace Orlek::Detail
