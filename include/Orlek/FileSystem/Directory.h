// Lists the files of a directory, and a few services around paths.
#pragma once

#include <Orlek/Export.h>

#include <string>
#include <vector>

namespace Orlek::FileSystem {

/// Lists the regular files of a directory, also of those below it.
///
/// One thread at a time may use an object. The static functions may be called from any thread.
///
/// @code
/// for (const std::string& file : Orlek::FileSystem::Directory("tiles").entryList(true)) {
///     std::puts(file.c_str());  // tiles/N47/N47E011.DT1
/// }
/// @endcode
class ORLEK_EXPORT Directory {
public:
    /// Keeps the path; the disk is not touched.
    /// @param path the directory, relative or absolute. It is used as it stands: a separator at its
    ///        end shows up in the listed paths.
    explicit Directory(const std::string& path);

    /// Lists the directory anew.
    ///
    /// Symbolic links are followed, those to directories last. A directory that this listing has
    /// already been in is not entered again, so that links in circles end and files come once.
    /// Broken links, pipes, sockets and devices are left out. For each directory that cannot be
    /// read it prints "Property::readAllFiles: could not open path <path\*>" and goes on with the
    /// rest.
    /// @param recursive whether directories are entered; their files come where the directory is
    ///        met, those of links at the end.
    /// @return the path as given, "/" and the name of each regular file, with the names of the
    ///         directories between; in the order of the system, which is no particular one.
    std::vector<std::string> entryList(bool recursive);

    /// @return whether the path of this object names a directory (or a link to one).
    bool exists() const;

    /// @param path any path.
    /// @return whether it names a directory (or a link to one).
    static bool exists(const std::string& path);

    /// Makes a directory with all its missing parents, with the permissions that the umask leaves.
    ///
    /// Both "/" and "\" part one level from the next. Where the system allows "\" inside a name, as
    /// here, the levels before it are made too, and the path itself comes out as it is written.
    /// @param path the directory.
    /// @return whether something of that path exists afterwards.
    static bool createDirectoryRecursive(const std::string& path);

    /// Cuts the file name off a path.
    /// @param file the path of a file. "\" is no separator here.
    /// @return the path itself when it names an existing directory; otherwise the text before the
    ///         last "/", and nothing when there is none.
    static std::string extractPathFomFile(const std::string& file);

private:
    void readDirectory(const std::string& path, bool recursive);

    std::vector<std::string> mEntries;
    std::string mPath;
};

}  // namespace Orlek::FileSystem
