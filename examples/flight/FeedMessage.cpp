// Whatever a peer sends is copied first and then held against the ranges of the format.
#include "FeedMessage.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace MovingMap {

namespace {

using Orlek::Network::MsgHeader;

template <typename Value>
std::optional<Value> copyOf(std::span<const std::byte> bytes) {
    if (bytes.size() != sizeof(Value)) {
        return std::nullopt;
    }
    Value value;
    std::memcpy(&value, bytes.data(), sizeof value);
    return value;
}

// Not a number is in no range.
bool within(double value, double low, double high) {
    return value >= low && value <= high;
}

template <typename Message>
bool isPlace(const Message& message) {
    return within(message.lat, -farthestLat, farthestLat) && within(message.lon, -180.0, 180.0) &&
           within(message.altitudeFt, -2000.0, 100000.0) && within(message.speedKt, 0.0, 5000.0);
}

bool isCallsignLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-';
}

bool isCallsign(std::span<const char> text) {
    const auto end = std::find_if_not(text.begin(), text.end(), isCallsignLetter);
    return end != text.begin() && std::all_of(end, text.end(), [](char c) { return c == '\0'; });
}

bool isValid(const OwnShipMessage& message) {
    return isPlace(message) && within(message.headingDeg, 0.0, 360.0);
}

bool isValid(const TargetMessage& message) {
    return isPlace(message) && within(message.trackDeg, 0.0, 360.0) &&
           within(message.verticalFpm, -30000.0, 30000.0) && isCallsign(message.callsign);
}

template <typename Message>
std::optional<FeedMessage> readAs(std::span<const std::byte> payload) {
    const std::optional<Message> message = copyOf<Message>(payload);
    if (!message || !isValid(*message)) {
        return std::nullopt;
    }
    return *message;
}

}  // namespace

std::string TargetMessage::name() const {
    return {std::begin(callsign), std::find(std::begin(callsign), std::end(callsign), '\0')};
}

void TargetMessage::setName(const std::string& name) {
    std::fill(std::begin(callsign), std::end(callsign), '\0');
    std::copy_n(name.begin(), std::min(name.size(), sizeof callsign), callsign);
}

MsgHeader headerOf(const FeedMessage& message) {
    MsgHeader header;
    header.id = std::visit([](const auto& one) { return one.id; }, message);
    header.length = static_cast<std::uint32_t>(payloadOf(message).size());
    return header;
}

std::span<const std::byte> payloadOf(const FeedMessage& message) {
    return std::visit([](const auto& one) { return std::as_bytes(std::span(&one, 1)); }, message);
}

std::optional<FeedMessage> readMessage(std::uint32_t id, std::span<const std::byte> payload) {
    switch (id) {
        case OwnShipMessage::id:
            return readAs<OwnShipMessage>(payload);
        case TargetMessage::id:
            return readAs<TargetMessage>(payload);
        default:
            return std::nullopt;
    }
}

std::optional<FeedMessage> readDatagram(std::span<const std::byte> bytes) {
    if (bytes.size() < sizeof(MsgHeader)) {
        return std::nullopt;
    }
    const auto header = *copyOf<MsgHeader>(bytes.first(sizeof(MsgHeader)));
    const std::span<const std::byte> payload = bytes.subspan(sizeof header);
    if (header.version != MsgHeader{}.version || header.length != payload.size()) {
        return std::nullopt;
    }
    return readMessage(header.id, payload);
}

}  // namespace MovingMap
