// POSIX threads begin with the signals blocked that their maker has blocked.
#include "platform/Thread.h"

#include <csignal>
#include <utility>

namespace Orlek::Detail {

namespace {

class SignalsBlocked {
public:
    SignalsBlocked() {
        sigset_t others;
        sigfillset(&others);
        for (const int own : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGTRAP, SIGABRT, SIGSYS, SIGPROF}) {
            sigdelset(&others, own);
        }
        pthread_sigmask(SIG_BLOCK, &others, &mBefore);
    }
    ~SignalsBlocked() { pthread_sigmask(SIG_SETMASK, &mBefore, nullptr); }
    SignalsBlocked(const SignalsBlocked&) = delete;
    SignalsBlocked& operator=(const SignalsBlocked&) = delete;

private:
    sigset_t mBefore{};
};

}  // namespace

std::thread startThread(std::function<void()> run) {
    const SignalsBlocked blocked;
    return std::thread(std::move(run));
}

}  // namespace Orlek::Detail
