// OpenGL's error flags: discarding and reporting them.
#pragma once

namespace Orlek::Detail {

/// Discards every pending error.
void clearErrors();

/// Prints one line for each pending error: "Error <where> <detail> code".
/// @return whether there was any.
bool reportErrors(const char* where, const char* detail = "Nix");

/// Reports the errors of one step under its label; without a label they stay pending.
inline void reportStep(const char* label) {
    if (label != nullptr) {
        reportErrors(label);
    }
}

/// Prints the line of the error GL_INVALID_VALUE for a call that is not even made.
void reportInvalidValue(const char* where);

/// Reports the errors that are pending at the end of a scope, and before it when asked to.
class ErrorCheck {
public:
    explicit ErrorCheck(const char* where) : mWhere(where) {}
    ~ErrorCheck() { reportNow(); }
    void reportNow() const { reportErrors(mWhere); }
    ErrorCheck(const ErrorCheck&) = delete;
    ErrorCheck& operator=(const ErrorCheck&) = delete;

private:
    const char* mWhere;
};

}  // namespace Orlek::Detail
