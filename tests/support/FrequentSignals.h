// Sends the thread that makes it a signal every 3 ms, which cuts each wait of the system short.
#pragma once

#include <signal.h>
#include <time.h>
#include <unistd.h>

#include <atomic>
#include <stdexcept>

namespace OrlekTest {

class FrequentSignals {
public:
    FrequentSignals() {
        struct sigaction action {};
        action.sa_handler = [](int) { ++received; };  // without SA_RESTART
        sigaction(SIGUSR1, &action, &mBefore);
        sigevent event{};
        event.sigev_notify = SIGEV_THREAD_ID;
        event.sigev_signo = SIGUSR1;
        event._sigev_un._tid = gettid();
        const itimerspec often = {{0, 3'000'000}, {0, 3'000'000}};
        if (timer_create(CLOCK_MONOTONIC, &event, &mTimer) != 0 ||
            timer_settime(mTimer, 0, &often, nullptr) != 0) {
            throw std::runtime_error("no timer");
        }
    }
    FrequentSignals(const FrequentSignals&) = delete;
    FrequentSignals& operator=(const FrequentSignals&) = delete;
    ~FrequentSignals() {
        timer_delete(mTimer);
        sigaction(SIGUSR1, &mBefore, nullptr);
    }

    /// How many came, of all objects so far.
    static inline std::atomic<int> received = 0;

private:
    struct sigaction mBefore {};
    timer_t mTimer{};
};

}  // namespace OrlekTest
