#pragma once

/// @file
/// Splitting a text at separator characters.

#include <string>

#include <Orlek/Export.h>

namespace Orlek::Misc {

/// Counts the separator occurrences in a text.
///
/// The scan starts at position 0; an occurrence is the next character of @p text that is any one of
/// the characters of @p separators, and the scan goes on as many characters after it as
/// @p separators has. With a single separator that is the next character; with several, the
/// characters right after each occurrence are skipped.
///
/// @param text the text to scan.
/// @param separators the separator characters; an empty string has no occurrences.
/// @return the number of occurrences: 2 for "a.b.c" and ".".
/// May be called from any thread.
ORLEK_EXPORT unsigned int StringCount(const std::string& text, const std::string& separators);

/// Gives some of the sections into which separators split a text.
///
/// The occurrences are those of StringCount; n occurrences give n + 1 sections, of which any may be
/// empty. A text that ends within the characters skipped after an occurrence ends with an empty
/// section.
///
/// @param text the text to split.
/// @param separators the separator characters; an empty string leaves the text whole.
/// @param first index of the first section wanted; a negative one counts from the end, -1 being the
///        last section. Raised to 0 when still negative.
/// @param last index of the last section wanted, counted in the same way; raised to @p first when
///        smaller.
/// @return the sections that exist among those, joined by a single "." whatever the separators
///         were. Of "a.b.c": 0 to 1 gives "a.b", -1 to -1 gives "c", 5 to 5 gives "".
/// May be called from any thread.
ORLEK_EXPORT std::string StringSection(const std::string& text, const std::string& separators,
                                       int first, int last);

}  // namespace Orlek::Misc
