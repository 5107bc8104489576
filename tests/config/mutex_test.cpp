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

TEST(Mutex, IsRecursiveAndCopiesHaveLocksOfTheirOwn) {
    Mutex mutex;
    mutex.lock();
    mutex.lock();
    mutex.init();
    Mutex copy(mutex);
    EXPECT_TRUE(freeForOthers(copy));
    copy.lock();
    mutex = copy;  // leaves both locks as they are
    copy.unlock();
    EXPECT_TRUE(freeForOthers(copy));
    mutex.unlock();
    EXPECT_FALSE(freeForOthers(mutex)) << "taken twice, given back once";
    mutex.unlock();
    EXPECT_TRUE(freeForOthers(mutex));
}

}  // namespace
