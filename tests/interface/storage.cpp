// Files and archives, documents of XML, settings, the command line and small helpers.
#include "interface.h"

#include <cstdint>
#include <string>
#include <vector>

namespace interface {
namespace {
using namespace Orlek::FileSystem;
using namespace Orlek::Misc;
using namespace Orlek::XML;
using Text = const std::string&;

void files() {
    using Data = ZipFile::FileData;
    using Names = std::vector<std::string>;
    value<Data>();
    made<Directory, Text>();
    copied<Directory>();
    made<ZipFile, Text>();
    copied<ZipFile>();
    member<Names(bool)>(&Directory::entryList);
    member<bool() const>(&Directory::exists, &ZipFile::exists);
    function<bool(Text)>(&Directory::exists, &Directory::createDirectoryRecursive);
    function<std::string(Text)>(&Directory::extractPathFomFile);
    constant<unsigned int>(&ZipFile::ZIP_SIGNATURE, 0x04034B50);
    constant<unsigned int>(&ZipFile::ZIP_BIT_DATA_DESC, 8);
    member<Names()>(&ZipFile::getFiles);
    member<unsigned int() const>(&ZipFile::nrFiles);
    member<unsigned char*(Text, unsigned int&)>(&ZipFile::readFile);
    member<unsigned char*(unsigned int&)>(&ZipFile::readFirstFile);
    member<std::uint32_t>(&Data::headerOffset, &Data::dataOffset, &Data::uncompressedSize,
                          &Data::compressedSize);
    member<std::string>(&Data::fileName);
}

void documents() {
    value<XmlDocument, XmlElement>();
    made<XmlElement, Text>();
    member<bool(Text)>(&XmlDocument::read, &XmlDocument::write);
    member<XmlElement() const>(&XmlDocument::root, &XmlElement::firstElement,
                               &XmlElement::nextElement);
    member<void(XmlElement&)>(&XmlDocument::appendElement, &XmlElement::appendElement);
    member<void(XmlElement&, std::string&) const>(&XmlDocument::print);
    member<TiXmlElement*() const>(&XmlElement::data);
    member<bool() const>(&XmlElement::valid);
    member<std::string() const>(&XmlElement::name, &XmlElement::value);
    member<std::string(Text, unsigned int) const>(&XmlElement::getAttributeString);
    member<int(Text, int) const>(&XmlElement::getAttributeInt);
    member<double(Text, double) const>(&XmlElement::getAttributeDouble);
    member<bool(Text, bool) const>(&XmlElement::getAttributeBool);
    member<void(Text, Text)>(&XmlElement::setAttributeString);
    member<void(Text, int)>(&XmlElement::setAttributeInt, &XmlElement::setAttributeHex);
    member<void(Text, double)>(&XmlElement::setAttributeDouble);
    member<void(Text, bool)>(&XmlElement::setAttributeBool);
}
}  // namespace

void storage() {
    files();
    documents();
    static_assert(std::has_virtual_destructor_v<Mutex>);
    made<Mutex>();
    copied<Mutex>();
    made<Timer, Text>();
    copied<Timer>();
    singleton<Property>();
    member<void(Text)>(&Property::setConfigFile);
    member<bool(Text)>(&Property::readXmlFile, &Property::writeXmlFile);
    member<bool()>(&Property::readXmlFile, &Property::writeXmlFile);
    member<std::string(Text, Text) const>(&Property::getString);
    member<int(Text, int) const>(&Property::getInt);
    member<double(Text, double) const>(&Property::getDouble);
    member<bool(Text, bool) const>(&Property::getSwitch);
    member<void(Text, Text)>(&Property::setString, &CmdLine::addSwitch);
    member<void(Text, int)>(&Property::setInt);
    member<void(Text, double)>(&Property::setDouble);
    member<void(Text, bool)>(&Property::setSwitch);
    singleton<CmdLine>();
    member<void(Text, Text, Text)>(&CmdLine::addParameter);
    member<bool(int, char** const)>(&CmdLine::parse);
    member<bool(Text) const>(&CmdLine::getSwitch);
    member<bool(Text, std::string&) const>(&CmdLine::getParameter);
    member<void() const>(&CmdLine::printUsage);
    member<void()>(&Mutex::init, &Mutex::lock, &Mutex::unlock);
    member<CRITICAL_SECTION&()>(&Mutex::rawMutex);
    function<double()>(&Timer::getTime);
    function<void(unsigned int)>(&sleepMs);
    function<unsigned int(Text, Text)>(&StringCount);
    function<std::string(Text, Text, int, int)>(&StringSection);
}

}  // namespace interface
