// GL calls on their way to the driver: counted, and made to raise an error on demand. The functions
// take the place of the driver's in the one program that includes this.
#pragma once

#include <GL/glew.h>
#include <Orlek/OpenGL/GlHandler.h>
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

/// Steps of a draw leave errors behind while the scope lasts.
class FailingSteps {
public:
    explicit FailingSteps(std::string_view function) {
        glDisable(GL_DEBUG_OUTPUT);  // which would print each of them
        glCalls().failing = function;
    }
    ~FailingSteps() {
        glCalls().failing = {};
        Orlek::OpenGL::GlHandler::clearError();
        glEnable(GL_DEBUG_OUTPUT);
    }

private:
    Fronted<__glewGenVertexArrays, GLsizei, GLuint*> mGenArrays{"glGenVertexArrays"};
    Fronted<__glewBindVertexArray, GLuint> mBindArray{"glBindVertexArray"};
    Fronted<__glewGenBuffers, GLsizei, GLuint*> mGenBuffers{"glGenBuffers"};
    Fronted<__glewBindBuffer, GLenum, GLuint> mBindBuffer{"glBindBuffer"};
    Fronted<__glewBufferData, GLenum, GLsizeiptr, const void*, GLenum> mBufferData{"glBufferData"};
    Fronted<__glewVertexAttribPointer, GLuint, GLint, GLenum, GLboolean, GLsizei, const void*>
        mPointer{"glVertexAttribPointer"};
    Fronted<__glewEnableVertexAttribArray, GLuint> mEnableArray{"glEnableVertexAttribArray"};
};

}  // namespace OrlekTest

extern "C" {

inline __attribute__((used)) void glDrawArrays(GLenum mode, GLint first, GLsizei count) {
    OrlekTest::glCalls().draws.push_back({mode, first, count});
    OrlekTest::driversOwn<decltype(glDrawArrays)>("glDrawArrays")(mode, first, count);
    OrlekTest::failOnDemand("glDrawArrays");
}

inline __attribute__((used)) void glEnable(GLenum state) {
    OrlekTest::driversOwn<decltype(glEnable)>("glEnable")(state);
    OrlekTest::failOnDemand("glEnable");
}

inline __attribute__((used)) void glBlendFunc(GLenum source, GLenum destination) {
    OrlekTest::driversOwn<decltype(glBlendFunc)>("glBlendFunc")(source, destination);
    OrlekTest::failOnDemand("glBlendFunc");
}

inline __attribute__((used)) void glDisable(GLenum state) {
    OrlekTest::driversOwn<decltype(glDisable)>("glDisable")(state);
    OrlekTest::failOnDemand("glDisable");
}

}  // extern "C"
