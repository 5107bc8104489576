// The messages of a feed: where the own ship and its traffic are.
//
// On TCP each is a package, on UDP each is a datagram with the same bytes: a header of 24 bytes
// (Orlek/Network/MsgHeader.h), whose id tells the kind, then one of the structures below as it
// stands in memory. There is no padding; numbers are little-endian, floating point is IEEE 754.
#pragma once

#include <Orlek/Network/MsgHeader.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <variant>

#include "Position.h"

namespace MovingMap {

static_assert(std::endian::native == std::endian::little, "the feed is little-endian");

/// The own ship. A value outside its range makes the message invalid.
struct OwnShipMessage {
    static constexpr std::uint32_t id = 1;

    double lat = 0.0;            ///< Bytes 0 to 7: degrees, north positive, -85 to 85.
    double lon = 0.0;            ///< Bytes 8 to 15: degrees, east positive, -180 to 180.
    float altitudeFt = 0.0F;     ///< Bytes 16 to 19: feet above mean sea level, -2000 to 100000.
    float headingDeg = 0.0F;     ///< Bytes 20 to 23: degrees clockwise from true north, 0 to 360.
    float speedKt = 0.0F;        ///< Bytes 24 to 27: knots over ground, 0 to 5000.
    std::uint32_t reserved = 0;  ///< Bytes 28 to 31: sent as 0, not read on receipt.

    Position position() const { return {lat, lon}; }
};

/// One target, which its number tells from the others.
struct TargetMessage {
    static constexpr std::uint32_t id = 2;

    double lat = 0.0;          ///< Bytes 0 to 7: degrees, north positive, -85 to 85.
    double lon = 0.0;          ///< Bytes 8 to 15: degrees, east positive, -180 to 180.
    float altitudeFt = 0.0F;   ///< Bytes 16 to 19: feet above mean sea level, -2000 to 100000.
    float trackDeg = 0.0F;     ///< Bytes 20 to 23: degrees clockwise from true north, 0 to 360.
    float speedKt = 0.0F;      ///< Bytes 24 to 27: knots over ground, 0 to 5000.
    float verticalFpm = 0.0F;  ///< Bytes 28 to 31: feet a minute, up positive, -30000 to 30000.
    std::uint32_t number = 0;  ///< Bytes 32 to 35: which target, any value.
    char callsign[12] = {};    ///< Bytes 36 to 47: capital letters, digits and "-", then zeros.

    Position position() const { return {lat, lon}; }
    std::string name() const;
    void setName(const std::string& name);  ///< Takes the first 12 characters.
};

static_assert(sizeof(OwnShipMessage) == 32 && offsetof(OwnShipMessage, reserved) == 28);
static_assert(sizeof(TargetMessage) == 48 && offsetof(TargetMessage, callsign) == 36);

using FeedMessage = std::variant<OwnShipMessage, TargetMessage>;

/// The header of a message.
Orlek::Network::MsgHeader headerOf(const FeedMessage& message);

/// The bytes after the header.
std::span<const std::byte> payloadOf(const FeedMessage& message);

/// Reads a payload. Nothing when the id is of neither message, the size is not exactly that of the
/// message, or a value is outside its range or no number.
std::optional<FeedMessage> readMessage(std::uint32_t id, std::span<const std::byte> payload);

/// Reads a datagram: header and payload. Nothing also when the header has another version or
/// another length than what follows it.
std::optional<FeedMessage> readDatagram(std::span<const std::byte> bytes);

}  // namespace MovingMap
