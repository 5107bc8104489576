// What a user would take instead, each where it is installed: Asio with the same packages, ZeroMQ
// and nng with their own framing and the package as the message, between two of their pair sockets.
#pragma once

#include "TcpLinks.h"
#ifdef ORLEK_HAVE_ASIO
#include <asio.hpp>
#endif
#ifdef ORLEK_HAVE_NNG
#include <nng/nng.h>
#include <nng/protocol/pair0/pair.h>
#endif
#ifdef ORLEK_HAVE_ZMQ
#include <zmq.h>
#endif

namespace OrlekBench {

#ifdef ORLEK_HAVE_ASIO
class AsioLink {
public:
    AsioLink() {
        for (asio::ip::tcp::socket* socket : {&mSender, &mReceiver}) {
            socket->assign(asio::ip::tcp::v4(),
                           dup(socket == &mSender ? mConnection.sender.descriptor()
                                                  : mConnection.receiver.descriptor()));
            socket->non_blocking(true);
        }
    }

    void send(const Package& package) {
        const std::array parts = {asio::buffer(&package.header, sizeof(package.header)),
                                  asio::buffer(package.payload().data(), package.payload().size())};
        require(mSender.send(parts) == package.bytes.size(), "Asio");
    }

    void receive(Received& received) {
        while (!mBuffer.take(received)) {
            asio::error_code error;
            const auto room = mBuffer.room();
            mBuffer.added(mReceiver.receive(asio::buffer(room.data(), room.size()), 0, error));
        }
    }

private:
    Connection mConnection;
    asio::io_context mContext;
    asio::ip::tcp::socket mSender{mContext};
    asio::ip::tcp::socket mReceiver{mContext};
    MovingOffset mBuffer;
};
#endif

/// Takes a message apart.
inline void unpack(std::span<const std::byte> message, Received& received) {
    require(message.size() >= sizeof(MsgHeader), "message");
    std::memcpy(&received.header, message.data(), sizeof(MsgHeader));
    std::memcpy(received.payload.data(), message.data() + sizeof(MsgHeader),
                message.size() - sizeof(MsgHeader));
}

#ifdef ORLEK_HAVE_ZMQ
class ZeroMqLink {
public:
    ZeroMqLink() {
        require(zmq_bind(mReceiver, "tcp://127.0.0.1:*") == 0, "ZeroMQ");
        std::array<char, 64> endpoint{};
        std::size_t size = endpoint.size();
        zmq_getsockopt(mReceiver, ZMQ_LAST_ENDPOINT, endpoint.data(), &size);
        require(zmq_connect(mSender, endpoint.data()) == 0, "ZeroMQ");
    }
    ~ZeroMqLink() {
        zmq_close(mSender);
        zmq_close(mReceiver);
        zmq_ctx_term(mContext);
    }
    ZeroMqLink(const ZeroMqLink&) = delete;
    ZeroMqLink& operator=(const ZeroMqLink&) = delete;

    void send(const Package& package) {
        require(zmq_send(mSender, package.bytes.data(), package.bytes.size(), 0) >= 0, "ZeroMQ");
    }

    void receive(Received& received) {
        zmq_msg_t message;
        zmq_msg_init(&message);
        require(zmq_msg_recv(&message, mReceiver, 0) >= 0, "ZeroMQ");
        unpack({static_cast<const std::byte*>(zmq_msg_data(&message)), zmq_msg_size(&message)},
               received);
        zmq_msg_close(&message);
    }

private:
    void* mContext = zmq_ctx_new();
    void* mSender = zmq_socket(mContext, ZMQ_PAIR);
    void* mReceiver = zmq_socket(mContext, ZMQ_PAIR);
};
#endif

#ifdef ORLEK_HAVE_NNG
class NngLink {
public:
    NngLink() {
        const std::string url = "tcp://127.0.0.1:" + std::to_string(PlainPeer::listening().port());
        require(nng_pair0_open(&mSender) == 0 && nng_pair0_open(&mReceiver) == 0, "nng");
        require(nng_listen(mReceiver, url.c_str(), nullptr, 0) == 0, "nng");
        require(nng_dial(mSender, url.c_str(), nullptr, 0) == 0, "nng");
    }
    ~NngLink() {
        nng_close(mSender);
        nng_close(mReceiver);
    }
    NngLink(const NngLink&) = delete;
    NngLink& operator=(const NngLink&) = delete;

    void send(const Package& package) {
        // The call takes no const, and copies.
        require(nng_send(mSender, const_cast<std::byte*>(package.bytes.data()),
                         package.bytes.size(), 0) == 0,
                "nng");
    }

    void receive(Received& received) {
        nng_msg* message = nullptr;
        require(nng_recvmsg(mReceiver, &message, 0) == 0, "nng");
        unpack({static_cast<const std::byte*>(nng_msg_body(message)), nng_msg_len(message)},
               received);
        nng_msg_free(message);
    }

private:
    nng_socket mSender{};
    nng_socket mReceiver{};
};
#endif

}  // namespace OrlekBench
