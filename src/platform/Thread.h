// Threads of the library.
#pragma once

#include <functional>
#include <thread>

namespace Orlek::Detail {

/// Starts a thread that leaves signals to those of the application, but for those that tell of its
/// own faults, and a profiler's. Throws std::system_error when the system gives none.
std::thread startThread(std::function<void()> run);

}  // namespace Orlek::Detail
