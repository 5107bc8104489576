// GL calls on their way to the driver: counted, and made to raise an error on demand. The functions
// take the place of the driver's in the one program that includes this.
#pragma once

#include <GL/glew.h>
#include <dlfcn.h>

#include <string_view>
#include <type_traits>
#include <vector>

namespace OrlekTest {

struct DrawCall {
    GLenum mode;
    GLint first;
    GLsizei count;
    bool operator==(const DrawCall&) const = default;
};

struct GlCalls {
    std::vector<DrawCall> draws;
    std::string_view failing;  ///< This function leaves GL_INVALID_ENUM behind; "all": each.
};

inline GlCalls& glCalls() {
    static GlCalls calls;
    return calls;
}

template <typename Function>
Function* driversOwn(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

inline void failOnDemand(std::string_view function) {
    if (glCalls().failing == "all" || glCalls().failing == function) {
        driversOwn<decltype(glEnable)>("glEnable")(0xFFFF);
    }
}

/// Puts a function in front of one that the loader has found, for as long as the scope lasts.
template <auto& Pointer, typename... Arguments>
class Fronted {
public:
    explicit Fronted(const char* name) {
        mName = name;
        mOriginal = Pointer;
        Pointer = [](Arguments... arguments) {
            mOriginal(arguments...);
            failOnDemand(mName);
        };
    }
    ~Fronted() { Pointer = mOriginal; }
    Fronted(const Fronted&) = delete;
    Fronted& operator=(const Fronted&) = delete;

private:
    static inline const char* mName = nullptr;
    static inline std::remove_reference_t<decltype(Pointer)> mOriginal = nullptr;
};

}  // namespace OrlekTest

extern "C" {

inline __attribute__((used)) void glDrawArrays(GLenum mode, GLint first, GLsizei count) {
    static auto* const own = OrlekTest::driversOwn<decltype(glDrawArrays)>("glDrawArrays");
    OrlekTest::glCalls().draws.push_back({mode, first, count});
    own(mode, first, count);
    OrlekTest::failOnDemand("glDrawArrays");
}

inline __attribute__((used)) void glEnable(GLenum state) {
    static auto* const own = OrlekTest::driversOwn<decltype(glEnable)>("glEnable");
    own(state);
    OrlekTest::failOnDemand("glEnable");
}

inline __attribute__((used)) void glBlendFunc(GLenum source, GLenum destination) {
    static auto* const own = OrlekTest::driversOwn<decltype(glBlendFunc)>("glBlendFunc");
    own(source, destination);
    OrlekTest::failOnDemand("glBlendFunc");
}

inline __attribute__((used)) void glDisable(GLenum state) {
    static auto* const own = OrlekTest::driversOwn<decltype(glDisable)>("glDisable");
    own(state);
    OrlekTest::failOnDemand("glDisable");
}

}  // extern "C"
