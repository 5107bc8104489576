#include <Orlek/Network/Network.h>

#include <cerrno>
#include <vector>

#include "network/DottedAddress.h"
#include "platform/Interfaces.h"
#include "platform/Report.h"

namespace Orlek::Network {

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

}  // namespace Orlek::Network
