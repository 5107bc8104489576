// Reads the deflated entries of a ZIP archive.
#pragma once

#include <Orlek/Export.h>

#include <cstdint>
#include <string>
#include <vector>

namespace Orlek::FileSystem {

/// Reads entries of a ZIP archive on disk.
///
/// The archive is walked by its local file headers (PKWARE's APPNOTE 6.3, section 4.3.7) from the
/// start of the file; the central directory is never read. Entries are inflated as raw deflate data
/// (RFC 1951) whatever their method says, so an entry that was stored without compression cannot be
/// read. Check sums are not verified. An archive whose local headers do not tell the sizes (written
/// to a pipe, with data descriptors) shows its first entry only, and that one cannot be read.
///
/// No file stays open between calls. A copy has its own table. One thread at a time may use an
/// object; different objects are independent, also on the same archive. Nothing throws but
/// std::bad_alloc, when there is no memory for names and table; a later call then walks anew.
///
/// @code
/// Orlek::FileSystem::ZipFile archive("tiles/N43E007.SRTMGL3.hgt.zip");
/// unsigned int size = 0;
/// if (unsigned char* bytes = archive.readFirstFile(size)) {
///     use(bytes, size);
///     std::free(bytes);
/// }
/// @endcode
class ORLEK_EXPORT ZipFile {
public:
    /// Signature of a local file header, read as a little-endian number.
    static constexpr unsigned int ZIP_SIGNATURE = 0x04034B50;
    /// The general-purpose flag that says that the sizes follow the data in a data descriptor.
    static constexpr unsigned int ZIP_BIT_DATA_DESC = 8;

    /// One entry, as its local header describes it; nothing is checked.
    struct FileData {
        std::uint32_t headerOffset = 0;      ///< Of the local header, from the start of the file.
        std::uint32_t dataOffset = 0;        ///< Of the compressed data.
        std::uint32_t uncompressedSize = 0;  ///< In bytes.
        std::uint32_t compressedSize = 0;    ///< In bytes.
        std::string fileName;                ///< The bytes of the name up to the first zero byte.
    };

    /// Keeps the path; the disk is not touched.
    /// @param path the archive.
    explicit ZipFile(const std::string& path);

    /// @return whether the path names a regular file (or a link to one).
    bool exists() const;

    /// Lists the entries, after walking the archive if that has not been done yet.
    ///
    /// The walk ends at the first place where no whole local header stands: the central directory,
    /// the end of the file, damage, or an entry beyond 4 GiB. When the archive cannot be opened
    /// (missing, no permission, a directory or another thing that is no regular file) it prints
    /// "could not open <path>" on the standard output and the system's reason on the standard error
    /// stream, and the list is empty, also in later calls.
    /// @return the names in the order of the file. Names may repeat.
    std::vector<std::string> getFiles();

    /// @return the number of entries found so far: 0 until one of the other calls has walked the
    ///         archive.
    unsigned int nrFiles() const;

    /// Reads the first entry with a name.
    /// @param name compared byte by byte.
    /// @param[out] size the number of bytes; 0 when null is returned (and for an empty entry).
    /// @return `size` bytes and a spare one, which the caller releases with `std::free`; null when
    ///         there is no such entry, its sizes cannot be true, its data are damaged, cut off, no
    ///         deflate data or more than its header says, or there is no memory for it. Fewer data
    ///         than the header says are filled up with zero bytes. Nothing is printed but what
    ///         getFiles() prints.
    unsigned char* readFile(const std::string& name, unsigned int& size);

    /// Reads the first entry of the archive.
    /// @param[out] size as for readFile().
    /// @return as for readFile(); null when the archive has no entries.
    unsigned char* readFirstFile(unsigned int& size);

private:
    bool readAllHeaders();
    unsigned char* readFileContent(const FileData& entry, unsigned int& size) const;

    std::string mFileName;
    std::vector<FileData> mFiles;
    bool mHeadersRead = false;
};

}  // namespace Orlek::FileSystem
