// The recursive lock over the standard library's.
#include <Orlek/Misc/Mutex.h>

namespace Orlek::Misc {

Mutex::Mutex() {
    init();
}

Mutex::Mutex(const Mutex& /*other*/) : Mutex() {}

Mutex& Mutex::operator=(const Mutex& /*other*/) {
    return *this;
}

Mutex::~Mutex() = default;

// The platform lock is ready as soon as it is constructed, so there is only the flag to set.
void Mutex::init() {
    mInitialized = true;
}

void Mutex::lock() {
    mCriticalSection.lock();
}

void Mutex::unlock() {
    mCriticalSection.unlock();
}

CRITICAL_SECTION& Mutex::rawMutex() {
    return mCriticalSection;
}

}  // namespace Orlek::Misc
