// Directory listing and the ZIP archive reader.
#include "interface.h"

#include <cstdint>
#include <string>
#include <vector>

namespace interface {
using namespace Orlek::FileSystem;

void files() {
    using Path = const std::string&;
    using Names = std::vector<std::string>;
    made<Directory, Path>();
    copied<Directory>();
    member<Names(bool)>(&Directory::entryList);
    member<bool() const>(&Directory::exists);
    function<bool(Path)>(&Directory::exists);
    function<bool(Path)>(&Directory::createDirectoryRecursive);
    function<std::string(Path)>(&Directory::extractPathFomFile);

    made<ZipFile, Path>();
    copied<ZipFile>();
    constant<unsigned int>(&ZipFile::ZIP_SIGNATURE, 0x04034B50);
    constant<unsigned int>(&ZipFile::ZIP_BIT_DATA_DESC, 8);
    member<bool() const>(&ZipFile::exists);
    member<Names()>(&ZipFile::getFiles);
    member<unsigned int() const>(&ZipFile::nrFiles);
    member<unsigned char*(const std::string&, unsigned int&)>(&ZipFile::readFile);
    member<unsigned char*(unsigned int&)>(&ZipFile::readFirstFile);

    value<ZipFile::FileData>();
    member<std::uint32_t>(&ZipFile::FileData::headerOffset);
    member<std::uint32_t>(&ZipFile::FileData::dataOffset);
    member<std::uint32_t>(&ZipFile::FileData::uncompressedSize);
    member<std::uint32_t>(&ZipFile::FileData::compressedSize);
    member<std::string>(&ZipFile::FileData::fileName);
}

}  // namespace interface
