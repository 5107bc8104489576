// The header of a package on a TCP stream.
#pragma once

#include <cstddef>
#include <cstdint>

namespace Orlek::Network {

/// The 24 bytes in front of the payload of each package. They go out as they stand in memory, in
/// the byte order of the sender; packages follow each other with nothing between them.
struct MsgHeader {
    std::uint32_t user0 = 0;        ///< Bytes 0 to 3: for the application.
    std::int16_t version = 0x1203;  ///< Bytes 4 and 5: anything else is refused by the receiver.
    std::int16_t reserved = 0;      ///< Bytes 6 and 7: sent as they stand, not read on receipt.
    std::uint32_t id = 0;      ///< Bytes 8 to 11: which package; SocketTcp::readPackage gives it.
    std::uint32_t length = 0;  ///< Bytes 12 to 15: number of payload bytes that follow.
    std::uint32_t user1 = 0;   ///< Bytes 16 to 19: for the application.
    std::uint32_t user2 = 0;   ///< Bytes 20 to 23: for the application.
};

static_assert(sizeof(MsgHeader) == 24);
static_assert(offsetof(MsgHeader, version) == 4 && offsetof(MsgHeader, id) == 8);
static_assert(offsetof(MsgHeader, length) == 12 && offsetof(MsgHeader, user2) == 20);

}  // namespace Orlek::Network
