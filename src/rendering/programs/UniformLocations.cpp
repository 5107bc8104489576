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

// The locations of the linked programs. A drawable asks for several names of one program in turn,
// so the program asked for last is at hand without a search.
class Table {
public:
    Locations* find(unsigned program) {
        if (program != mLastProgram) {
            const auto entry = mPrograms.find(program);
            mLastProgram = program;
            mLast = entry == mPrograms.end() ? nullptr : &entry->second;
        }
        return mLast;
    }

    void add(unsigned program) {
        mPrograms[program].clear();
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
    Locations* mLast = nullptr;
};

Table& programTable() {
    static Table table;
    return table;
}

int askDriver(unsigned program, const std::string& name) {
    return glGetUniformLocation(program, name.c_str());
}

}  // namespace

void rememberLocations(unsigned program) {
    programTable().add(program);
}

void forgetLocations(unsigned program) {
    programTable().remove(program);
}

int uniformLocation(unsigned program, std::string_view name) {
    Locations* const known = programTable().find(program);
    if (known == nullptr) {
        return askDriver(program, std::string(name));
    }
    const auto found = std::ranges::find(*known, name, &Location::name);
    if (found != known->end()) {
        return found->value;
    }
    std::string text(name);
    const int value = askDriver(program, text);
    // Without a context, or in one that does not share the program, the answer is of no program.
    if (known->size() < mostNames && glIsProgram(program) == GL_TRUE) {
        known->push_back({std::move(text), value});
    }
    return value;
}

}  // namespace Orlek::Detail
