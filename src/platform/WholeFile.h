// Reads a regular file whole: the one way for fonts, shader sources and other small files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace Orlek::Detail {

/// The largest file that readWholeFile takes without another limit, in bytes: far above any font or
/// source, and small enough that a sparse file of terabytes is refused before memory is asked for.
inline constexpr std::uint64_t wholeFileLimit = std::uint64_t{1} << 30U;

/// Replaces `bytes` by the content of the regular file `path`, which may be empty, and `padding`
/// zero bytes behind it. On failure `bytes` is empty, errno tells why (EFBIG above the limit,
/// ENOMEM without memory, EIO when the file shrank while it was read) and the result is false. Safe
/// from any thread.
bool readWholeFile(const std::string& path, std::vector<char>& bytes,
                   std::uint64_t limit = wholeFileLimit, std::size_t padding = 0);

}  // namespace Orlek::Detail
