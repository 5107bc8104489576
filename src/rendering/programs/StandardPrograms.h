// The standard programs: which stages and attribute locations each is made of.
#pragma once

#include <array>
#include <span>
#include <string_view>

namespace Orlek::Detail {

/// A vertex attribute with its fixed location.
struct AttributeBinding {
    int location;
    const char* name;
};

struct StandardProgram {
    unsigned number;
    const std::string_view* vertex;
    const std::string_view* fragment;
    const std::string_view* geometry;  // null: none
    std::span<const AttributeBinding> attributes;
};

/// All programs, in the order in which they are built.
std::span<const StandardProgram> standardPrograms();

}  // namespace Orlek::Detail
