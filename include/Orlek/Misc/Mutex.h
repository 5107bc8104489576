#pragma once

/// @file
/// A recursive lock object.

#include <mutex>

#include <Orlek/Export.h>

namespace Orlek::Misc {

/// The platform's lock: recursive, so the thread that owns it may lock it again.
using CRITICAL_SECTION = std::recursive_mutex;

/// A recursive lock: the owning thread may lock it again and must unlock it as often.
///
/// All operations may be called from any thread; unlock() only from the thread that holds the lock.
/// The lock must not be held when the object is destroyed.
class ORLEK_EXPORT Mutex {
public:
    /// Makes an initialised, unlocked lock.
    Mutex();
    /// Makes a lock of its own, unlocked: a copy never shares the lock of its source.
    Mutex(const Mutex& other);
    /// Keeps the lock of this object with its state; nothing of @p other is taken over.
    Mutex& operator=(const Mutex& other);
    virtual ~Mutex();

    /// Initialises the lock if that has not been done; does nothing on a constructed lock.
    void init();
    /// Waits until no other thread holds the lock, then takes it.
    void lock();
    /// Gives the lock back once.
    void unlock();
    /// @return the platform lock itself; it belongs to this object and lives as long.
    CRITICAL_SECTION& rawMutex();

private:
    CRITICAL_SECTION mCriticalSection;
    bool mInitialized = false;
};

}  // namespace Orlek::Misc
