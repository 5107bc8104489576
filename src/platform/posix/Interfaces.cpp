// Hosts and interfaces on POSIX.
#include "platform/Interfaces.h"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <netdb.h>
#include <netinet/in.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <memory>

#include "platform/ZeroByte.h"

namespace Orlek::Detail {

namespace {

struct FreeAddressInfo {
    void operator()(addrinfo* list) const { ::freeaddrinfo(list); }
};

struct FreeInterfaces {
    void operator()(ifaddrs* list) const { ::freeifaddrs(list); }
};

// Null or another family: 0. Copied, because the bytes need not be aligned for a sockaddr_in.
std::uint32_t hostOrder(const sockaddr* address) {
    if (address == nullptr || address->sa_family != AF_INET) {
        return 0;
    }
    sockaddr_in ipv4{};
    std::memcpy(&ipv4, address, sizeof(ipv4));
    return ntohl(ipv4.sin_addr.s_addr);
}

// Further addresses of one interface carry a label after a colon: eth0:1.
std::string interfaceOf(const char* label) {
    return {label, std::strcspn(label, ":")};
}

}  // namespace

ResolvedName resolveName(const std::string& name) {
    if (hasZeroByte(name)) {
        return {{}, ::gai_strerror(EAI_NONAME)};
    }
    // Hints of zero are what POSIX means by none. Null would add AI_ADDRCONFIG here, and hosts
    // without a network would no longer know their own name.
    const addrinfo hints{};
    addrinfo* first = nullptr;
    if (const int error = ::getaddrinfo(name.c_str(), nullptr, &hints, &first); error != 0) {
        return {{}, error == EAI_SYSTEM ? std::strerror(errno) : ::gai_strerror(error)};
    }
    const std::unique_ptr<addrinfo, FreeAddressInfo> list(first);
    ResolvedName result;
    for (const addrinfo* entry = list.get(); entry != nullptr; entry = entry->ai_next) {
        if (entry->ai_family == AF_INET) {
            result.addresses.push_back(hostOrder(entry->ai_addr));
        }
    }
    return result;
}

std::string hostName() {
    std::array<char, 80> name{};
    if (::gethostname(name.data(), name.size()) != 0) {
        return {};
    }
    name.back() = '\0';  // a longer name may come without its end
    return name.data();
}

bool listInterfaces(std::vector<InterfaceAddress>& interfaces) {
    interfaces.clear();
    ifaddrs* first = nullptr;
    if (::getifaddrs(&first) != 0) {
        return false;
    }
    const std::unique_ptr<ifaddrs, FreeInterfaces> list(first);
    for (const ifaddrs* entry = list.get(); entry != nullptr; entry = entry->ifa_next) {
        if (entry->ifa_addr == nullptr || entry->ifa_addr->sa_family != AF_INET) {
            continue;
        }
        InterfaceAddress found{interfaceOf(entry->ifa_name), hostOrder(entry->ifa_addr),
                               hostOrder(entry->ifa_netmask),
                               (entry->ifa_flags & IFF_LOOPBACK) != 0};
        const bool known = std::ranges::any_of(
            interfaces, [&](const InterfaceAddress& other) { return other.name == found.name; });
        if (!known) {
            interfaces.push_back(std::move(found));
        }
    }
    return true;
}

}  // namespace Orlek::Detail
