// Lets a scope run without root's right to read everything. ok() is false where that cannot be had.
#pragma once

#include <unistd.h>

namespace OrlekTest {

class Unprivileged {
public:
    Unprivileged() : mUser(geteuid()), mOk(mUser != 0 || seteuid(nobody) == 0) {}
    ~Unprivileged() {
        if (mUser == 0 && mOk && seteuid(mUser) != 0) {
            _exit(1);
        }
    }
    Unprivileged(const Unprivileged&) = delete;
    Unprivileged& operator=(const Unprivileged&) = delete;

    bool ok() const { return mOk; }

private:
    static constexpr uid_t nobody = 65534;
    uid_t mUser;
    bool mOk;
};

}  // namespace OrlekTest
