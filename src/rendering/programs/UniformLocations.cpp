#include "rendering/programs/UniformLocations.h"

#include <GL/glew.h>

#include <algorithm>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Orlek::Detail {

namespace {

struct Location {
    std::string name;
    int value;
};

using Locations = std::vector<Location>;

// The locations of the linked programs. A drawable asks for several names of one program in turn,
// so the program asked for last is at hand without a search.
class Table {
public:
    const Locations* find(unsigned program) {
        if (program != mLastProgram) {
            const auto entry = mPrograms.find(program);
            mLastProgram = program;
            mLast = entry == mPrograms.end() ? nullptr : &entry->second;
        }
        return mLast;
    }

    void add(unsigned program, Locations locations) {
        mPrograms[program] = std::move(locations);
        forgetLast();
    }

    void remove(unsigned program) {
        mPrograms.erase(program);
        forgetLast();
    }

private:
    void forgetLast() {
        mLastProgram = 0;
        mLast = nullptr;
    }

    std::unordered_map<unsigned, Locations> mPrograms;
    unsigned mLastProgram = 0;  // 0 is no program and has no locations
    const Locations* mLast = nullptr;
};

Table& programTable() {
    static Table table;
    return table;
}

int askDriver(unsigned program, const std::string& name) {
    return glGetUniformLocation(program, name.c_str());
}

int parameter(unsigned program, GLenum name) {
    GLint value = 0;
    glGetProgramiv(program, name, &value);
    return value;
}

// An array goes by its own name, as glGetUniformLocation() takes it, too.
std::string activeUniform(unsigned program, unsigned index, int longest) {
    std::string name(static_cast<std::size_t>(longest), '\0');
    GLsizei length = 0;
    GLint size = 0;
    GLenum type = 0;
    glGetActiveUniform(program, index, longest, &length, &size, &type, name.data());
    name.resize(static_cast<std::size_t>(length));
    constexpr std::string_view first = "[0]";
    if (name.ends_with(first)) {
        name.resize(name.size() - first.size());
    }
    return name;
}

}  // namespace

void rememberLocations(unsigned program) {
    Locations locations;
    const int longest = parameter(program, GL_ACTIVE_UNIFORM_MAX_LENGTH);
    const auto count = static_cast<unsigned>(parameter(program, GL_ACTIVE_UNIFORMS));
    for (unsigned i = 0; i < count; ++i) {
        std::string name = activeUniform(program, i, longest);
        const int location = askDriver(program, name);
        locations.push_back({std::move(name), location});
    }
    programTable().add(program, std::move(locations));
}

void forgetLocations(unsigned program) {
    programTable().remove(program);
}

int uniformLocation(unsigned program, std::string_view name) {
    const Locations* const known = programTable().find(program);
    if (known == nullptr || name.find('[') != std::string_view::npos) {
        return askDriver(program, std::string(name));
    }
    const auto found = std::ranges::find(*known, name, &Location::name);
    return found == known->end() ? -1 : found->value;
}

}  // namespace Orlek::Detail
