// The recursive lock, seen from a second thread.
#include <Orlek/Misc/Mutex.h>
#include <gtest/gtest.h>

#include <thread>

namespace {

using Orlek::Misc::Mutex;

// Whether another thread can take the lock at once; it is given back.
bool freeForOthers(Mutex& mutex) {
    bool taken = false;
    std::thread([&] {
        taken = mutex.rawMutex().try_lock();
        if (taken)
            mutex.unlock();
    }).join();
    return taken;
}

TEST(Mutex, IsRecursiveAndGivenBackAsOftenAsTaken) {
    Mutex mutex;
    mutex.init();
    EXPECT_TRUE(freeForOthers(mutex));
    mutex.lock();
    mutex.lock();
    mutex.init();
    EXPECT_FALSE(freeForOthers(mutex));
    mutex.unlock();
    EXPECT_FALSE(freeForOthers(mutex));
    mutex.unlock();
    EXPECT_TRUE(freeForOthers(mutex));
}

TEST(Mutex, CopiesHaveLocksOfTheirOwn) {
    Mutex mutex;
    Mutex assigned;
    mutex.lock();
    Mutex copy(mutex);
    EXPECT_TRUE(freeForOthers(copy));
    copy.lock();
    assigned = mutex;
    EXPECT_TRUE(freeForOthers(assigned));
    mutex = assigned;
    EXPECT_FALSE(freeForOthers(mutex)) << "assignment leaves the lock as it is";
    mutex.unlock();
    EXPECT_TRUE(freeForOthers(mutex));
    EXPECT_FALSE(freeForOthers(copy));
    copy.unlock();
}

TEST(Mutex, KeepsThreadsApart) {
    constexpr int rounds = 20000;
    Mutex mutex;
    int counter = 0;
    const auto count = [&] {
        for (int i = 0; i < rounds; ++i) {
            mutex.lock();
            ++counter;
            mutex.unlock();
        }
    };
    std::thread other(count);
    count();
    other.join();
    EXPECT_EQ(counter, 2 * rounds);
}

}  // namespace
