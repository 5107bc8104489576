// Lets one allocation or one system call of the program fail, whoever makes it. The functions of
// the C library that enter the system are replaced in Faults.cpp, those that allocate in
// support/Heap.cpp.
#pragma once

namespace OrlekTest {

enum class FaultKind {
    allocation,  ///< malloc and its relatives, and with them operator new
    system,      ///< files, directories, sockets, host names
};

/// From now on the call of that number (from 1) fails, once, in whatever thread.
void armFault(FaultKind kind, long number);

/// @return whether as many calls came.
bool disarmFault();

/// The name of the system call that failed last.
const char* failedCall();

}  // namespace OrlekTest
