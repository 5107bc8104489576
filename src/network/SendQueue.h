// Packages that wait until a connection takes them.
//
// At most 200 wait; one more drops the oldest. A package that has been sent in part is not waiting
// any more: dropping its rest would make the receiver take the bytes of the next packages for its
// payload, so it stays, beside the 200, until it is out.
#pragma once

#include <cstddef>
#include <deque>
#include <span>
#include <vector>

namespace Orlek::Detail {

class SendQueue {
public:
    static constexpr std::size_t limit = 200;

    bool empty() const { return mPieces.empty(); }

    /// Appends the package of which `sent` bytes are out; more than 0 only when the queue is empty.
    /// @return false, with errno set, when there is no memory: the package is lost then.
    bool push(std::span<const std::byte> header, std::span<const std::byte> payload,
              std::size_t sent);

    /// Sends in order until the queue is empty or the socket takes no more.
    void flush(int socket);

    /// For a new connection, on which the package begun on the old one starts over.
    void rewind();

private:
    struct Piece {
        std::vector<std::byte> bytes;
        std::size_t sent = 0;
    };

    void dropOldest();

    std::deque<Piece> mPieces;
};

}  // namespace Orlek::Detail
