#include "rendering/programs/UniformLocations.h"

#include <GL/glew.h>

#include <algorithm>
#include <string>
#include <unordered_map>
#include <vector>

namespace Orlek::Detail {

namespace {

// More names than any program of ours has; beyond it the driver is asked.
constexpr std::size_t mostNames = 64;

struct Location {
    std::string name;
    int value;
};

using Locations = std::vector<Location>;

std::unordered_map<unsigned, Locations>& programs() {
    static std::unordered_map<unsigned, Locations> table;
    return table;
}

int askDriver(unsigned program, const std::string& name) {
    return glGetUniformLocation(program, name.c_str());
}

}  // namespace

void rememberLocations(unsigned program) {
    programs()[program].clear();
}

void forgetLocations(unsigned program) {
    programs().erase(program);
}

int uniformLocation(unsigned program, std::string_view name) {
    const auto entry = programs().find(program);
    if (entry == programs().end()) {
        return askDriver(program, std::string(name));
    }
    Locations& known = entry->second;
    const auto found = std::ranges::find(known, name, &Location::name);
    if (found != known.end()) {
        return found->value;
    }
    std::string text(name);
    const int value = askDriver(program, text);
    if (known.size() < mostNames) {
        known.push_back({std::move(text), value});
    }
    return value;
}

}  // namespace Orlek::Detail
