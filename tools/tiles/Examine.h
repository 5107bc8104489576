// Loads one tile and looks at what the library does not: checksums.
#pragma once

#include <optional>

#include "Inventory.h"

namespace OrlekTiles {

/// Loads a registered tile with the library. @return why it cannot be loaded; nothing when it was
std::optional<Reason> load(const TileFile& file);

/// Loads a registered tile with the library, compares its checksums and unloads it. Nothing when it
/// is good.
std::optional<Reason> examine(const TileFile& file);

}  // namespace OrlekTiles
