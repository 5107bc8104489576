// A file that takes the place of another whole or not at all: a crash, a full disk or a missing
// permission at any moment leaves the old one as it was.
#pragma once

#include <string>
#include <string_view>

namespace Orlek::Detail {

/// Makes `content` the content of the file `path`. It is written beside the old file, forced to the
/// disk and then given the name. Whoever reads the path meanwhile gets the old file; of several
/// writers the last one stays. Safe from any thread.
///
/// Links are followed, and what they lead to is replaced. The mode of the old file stays, its owner
/// where the system lets it; other names of it keep the old content. A new file has what the umask
/// leaves of 0666.
///
/// False, with errno set, when not all of that was done: the path names something that is no
/// regular file (EISDIR for a directory, ENOTSUP for anything else) or that may not be written, no
/// file can be made in its directory, or the disk is full. The path has its old content then,
/// unless it was the very last step that failed, forcing the name to the disk.
bool replaceFile(const std::string& path, std::string_view content);

}  // namespace Orlek::Detail
