// The property store, the command line, and the timer, mutex and string helpers.
#include "interface.h"

#include <string>

namespace interface {
namespace {
using namespace Orlek::Misc;
using Text = const std::string&;

void property() {
    singleton<Property>();
    member<void(Text)>(&Property::setConfigFile);
    member<bool(Text)>(&Property::readXmlFile);
    member<bool()>(&Property::readXmlFile);
    member<bool(Text)>(&Property::writeXmlFile);
    member<bool()>(&Property::writeXmlFile);
    member<std::string(Text, Text) const>(&Property::getString);
    member<int(Text, int) const>(&Property::getInt);
    member<double(Text, double) const>(&Property::getDouble);
    member<bool(Text, bool) const>(&Property::getSwitch);
    member<void(Text, Text)>(&Property::setString);
    member<void(Text, int)>(&Property::setInt);
    member<void(Text, double)>(&Property::setDouble);
    member<void(Text, bool)>(&Property::setSwitch);
}

void commandLine() {
    singleton<CmdLine>();
    member<void(Text, Text)>(&CmdLine::addSwitch);
    member<void(Text, Text, Text)>(&CmdLine::addParameter);
    member<bool(int, char** const)>(&CmdLine::parse);
    member<bool(Text) const>(&CmdLine::getSwitch);
    member<bool(Text, std::string&) const>(&CmdLine::getParameter);
    member<void() const>(&CmdLine::printUsage);
}

void helpers() {
    static_assert(std::has_virtual_destructor_v<Mutex>);
    made<Mutex>();
    copied<Mutex>();
    member<void()>(&Mutex::init);
    member<void()>(&Mutex::lock);
    member<void()>(&Mutex::unlock);
    member<CRITICAL_SECTION&()>(&Mutex::rawMutex);

    made<Timer, Text>();
    copied<Timer>();
    function<double()>(&Timer::getTime);

    function<void(unsigned int)>(&sleepMs);
    function<unsigned int(Text, Text)>(&StringCount);
    function<std::string(Text, Text, int, int)>(&StringSection);
}

}  // namespace

void misc() {
    property();
    commandLine();
    helpers();
}

}  // namespace interface
