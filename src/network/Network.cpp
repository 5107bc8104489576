#include <Orlek/FileSystem/Directory.h>
#include <Orlek/Network/Network.h>
#include <Orlek/Network/SocketTcp.h>

#include <cerrno>
#include <span>
#include <string_view>
#include <vector>

#include "network/DottedAddress.h"
#include "network/Http.h"
#include "platform/Interfaces.h"
#include "platform/MallocArray.h"
#include "platform/OutputFile.h"
#include "platform/Report.h"
#include "platform/Socket.h"

namespace Orlek::Network {

namespace {

constexpr int httpPort = 80;
constexpr unsigned int longestAnswer = 1048576;
constexpr unsigned int firstWaitMs = 1000;
constexpr unsigned int pauseMs = 50;  // ends an answer

/// A connection that ends with the scope, whatever ends that.
struct Connection {
    SocketTcp socket;

    ~Connection() { socket.closeConnection(); }
};

/// Never waits: a request that the system cannot take at once is longer than servers accept.
void sendRequest(int socket, const std::string& request) {
    Detail::sendBytes(socket, std::as_bytes(std::span(request)), {}, Detail::Patience::none);
}

/// Receives until a pause, the end of the stream or `longestAnswer` bytes.
std::string_view receiveAnswer(SocketTcp& socket, char* buffer) {
    unsigned int held = 0;
    int count = 1;
    while (held < longestAnswer && count > 0) {
        count = socket.read(buffer + held, longestAnswer - held, pauseMs);
        held += count > 0 ? static_cast<unsigned int>(count) : 0;
    }
    return {buffer, held};
}

void saveFile(const std::string& fileName, std::string_view bytes) {
    if (const std::size_t slash = fileName.rfind('/'); slash != std::string::npos) {
        FileSystem::Directory::createDirectoryRecursive(fileName.substr(0, slash));
    }
    Detail::OutputFile file;
    if (!file.open(fileName)) {
        Detail::report("could not open <%s>\n", fileName.c_str());
        Detail::reportSystemError("fopen");
    } else if (!file.write(std::as_bytes(std::span(bytes))) || !file.close()) {
        Detail::report("could not write <%s>\n", fileName.c_str());
        Detail::reportSystemError("fwrite");
    }
}

}  // namespace

std::map<std::string, unsigned long> Network::mHosts;

unsigned long Network::getAddressFromName(const std::string& name) {
    const Detail::ResolvedName resolved = Detail::resolveName(name);
    if (!resolved.error.empty()) {
        Detail::reportError("getaddrinfo: %s\n", resolved.error.c_str());
        return 0;
    }
    unsigned long last = 0;
    for (const std::uint32_t address : resolved.addresses) {
        last = address != 0 ? address : last;
    }
    return last;
}

std::string Network::getAddressString(unsigned long address) {
    return Detail::dottedAddress(address);
}

std::list<Network::Adapter> Network::getNetworkAdapters() {
    std::vector<Detail::InterfaceAddress> interfaces;
    if (!Detail::listInterfaces(interfaces)) {
        Detail::report("GetAdaptersInfo failed with error: %d\n", errno);
        return {};
    }
    std::list<Adapter> adapters;
    for (const Detail::InterfaceAddress& interface : interfaces) {
        if (!interface.isLoopback && interface.address != 0) {
            adapters.push_back({interface.name, interface.address, interface.broadcast()});
        }
    }
    return adapters;
}

unsigned long Network::getHostAddress(const std::string& host) {
    if (const auto known = mHosts.find(host); known != mHosts.end()) {
        return known->second;
    }
    const unsigned long address = getAddressFromName(host);
    if (address != 0) {
        mHosts[host] = address;
    }
    return address;
}

bool Network::getFileHttp(const std::string& url, const std::string& fileName) {
    if (!Detail::isCleanUrl(url)) {
        return false;
    }
    const Detail::HttpTarget target = Detail::splitUrl(url);
    Connection connection;
    SocketTcp& socket = connection.socket;
    if (!socket.createTcpClientSocket(getHostAddress(target.host), httpPort)) {
        return false;
    }
    const int descriptor = static_cast<int>(socket.sd());
    sendRequest(descriptor, Detail::httpRequest(target));
    const auto buffer = Detail::mallocArray<char>(longestAnswer);
    const bool answered =
        buffer && Detail::waitReadable(descriptor, firstWaitMs) == Detail::Outcome::done;
    if (answered) {
        const std::string_view body = Detail::httpBody(receiveAnswer(socket, buffer.get()));
        if (!body.empty()) {
            saveFile(fileName, body);
        }
    }
    return answered;
}

}  // namespace Orlek::Network
