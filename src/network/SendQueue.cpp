#include "network/SendQueue.h"

#include <cerrno>
#include <new>
#include <utility>

#include "platform/Socket.h"

namespace Orlek::Detail {

bool SendQueue::push(std::span<const std::byte> header, std::span<const std::byte> payload,
                     std::size_t sent) {
    try {
        Piece piece;
        piece.bytes.reserve(header.size() + payload.size());
        piece.bytes.insert(piece.bytes.end(), header.begin(), header.end());
        piece.bytes.insert(piece.bytes.end(), payload.begin(), payload.end());
        piece.sent = sent;
        mPieces.push_back(std::move(piece));
    } catch (const std::bad_alloc&) {
        errno = ENOMEM;
        return false;
    }
    dropOldest();
    return true;
}

void SendQueue::dropOldest() {
    const std::size_t begun = mPieces.front().sent > 0 ? 1 : 0;
    while (mPieces.size() - begun > limit) {
        mPieces.erase(mPieces.begin() + static_cast<std::ptrdiff_t>(begun));
    }
}

void SendQueue::flush(int socket) {
    while (!mPieces.empty()) {
        Piece& piece = mPieces.front();
        const auto rest = std::span(piece.bytes).subspan(piece.sent);
        const Transfer transfer = sendBytes(socket, rest, {}, Patience::none);
        piece.sent += transfer.bytes;
        if (transfer.bytes < rest.size()) {
            return;
        }
        mPieces.pop_front();
    }
}

void SendQueue::rewind() {
    if (!mPieces.empty()) {
        mPieces.front().sent = 0;
    }
}

}  // namespace Orlek::Detail
