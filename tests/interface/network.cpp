// Host helpers, TCP and UDP sockets.
#include "interface.h"

#include <cstddef>
#include <cstdint>
#include <list>
#include <string>

namespace interface {
namespace {
using namespace Orlek::Network;

/// A socket: made without arguments and copied, with a virtual destructor.
template <typename Socket>
void endpoint() {
    static_assert(std::has_virtual_destructor_v<Socket>);
    made<Socket>();
    copied<Socket>();
}
}  // namespace

void network() {
    using Adapter = Network::Adapter;
    static_assert(sizeof(MsgHeader) == 24 && std::is_trivially_copyable_v<MsgHeader>);
    static_assert(offsetof(MsgHeader, user0) == 0 && offsetof(MsgHeader, version) == 4);
    static_assert(offsetof(MsgHeader, id) == 8 && offsetof(MsgHeader, length) == 12);
    static_assert(offsetof(MsgHeader, user1) == 16 && offsetof(MsgHeader, user2) == 20);
    value<Network, Adapter, MsgHeader>();
    member<std::string>(&Adapter::name);
    member<std::uint32_t>(&Adapter::address, &Adapter::broadcastAddress, &Adapter::reserved,
                          &MsgHeader::user0, &MsgHeader::id, &MsgHeader::length, &MsgHeader::user1,
                          &MsgHeader::user2);
    function<unsigned long(const std::string&)>(&Network::getAddressFromName);
    function<std::string(unsigned long)>(&Network::getAddressString);
    function<std::list<Adapter>()>(&Network::getNetworkAdapters);
    function<bool(const std::string&, const std::string&)>(&Network::getFileHttp);
    member<std::int16_t>(&MsgHeader::version, &MsgHeader::reserved);
    endpoint<SocketTcp>();
    member<bool(unsigned long, int)>(&SocketTcp::createTcpClientSocket);
    member<bool(unsigned long, int, unsigned int)>(&SocketTcp::createTcpClientSocketNonBlock);
    member<int(void*, unsigned int, unsigned int)>(&SocketTcp::read);
    member<int(void*, MsgHeader&)>(&SocketTcp::readPackage);
    member<int(const void*, const MsgHeader&, unsigned int)>(&SocketTcp::writePackage);
    member<void()>(&SocketTcp::closeConnection, &SocketUdp::closeConnection);
    member<bool() const>(&SocketTcp::connected, &SocketUdp::connected);
    member<unsigned long() const>(&SocketTcp::address);
    member<const std::string&() const>(&SocketTcp::connectionName);
    member<std::uint64_t() const>(&SocketTcp::sd);
    member<void(std::uint64_t)>(&SocketTcp::setDescriptor);
    member<void(const std::string&)>(&SocketTcp::setName, &SocketTcp::setClientName);
    member<void(unsigned long)>(&SocketTcp::setAddress);
    endpoint<SocketTcpServer>();
    constant<int>(&SocketTcpServer::SKT_BUF_SIZE, 1048576);
    member<bool(int)>(&SocketTcpServer::init);
    member<bool(SocketTcp&)>(&SocketTcpServer::acceptConnection,
                             &SocketTcpServer::acceptConnectionNonBlock);
    member<bool()>(&SocketTcpServer::closeConnection);
    endpoint<SocketUdp>();
    member<bool(unsigned long, int, int)>(&SocketUdp::openSendSocket,
                                          &SocketUdp::openReceiveSocket);
    member<int(const void*, unsigned int)>(&SocketUdp::write);
    member<int(int, const void*, unsigned int)>(&SocketUdp::write);
    member<int(void*, unsigned int)>(&SocketUdp::read);
    function<unsigned long()>(&SocketUdp::getHostAddress, &SocketUdp::getBroadcastAddress);
}

}  // namespace interface
