#include "Commands.h"
#include "Examine.h"
#include "ProgressBar.h"

namespace OrlekTiles {

namespace {

/// What is wrong with a file that is or was meant to be a tile.
std::optional<Reason> faultOf(const TileFile& file) {
    if (file.notTaken) {
        return looksLikeTile(file.path) ? file.notTaken : std::nullopt;
    }
    return examine(file);
}

}  // namespace

Outcome check(const Arguments& arguments, Console& console) {
    const Inventory inventory = takeInventory(directoryOf(arguments));
    std::size_t good = 0;
    std::size_t bad = 0;
    {
        OrlekSupport::ProgressBar progress(inventory.files.size());
        for (std::size_t i = 0; i < inventory.files.size(); ++i) {
            const TileFile& file = inventory.files[i];
            const std::optional<Reason> fault = faultOf(file);
            if (fault) {
                const bool unused = fault->word == "replaced";
                progress.hide();
                console.printFields(
                    {unused ? "unused" : "bad", file.path, fault->word, fault->text});
                console.finish();
                bad += unused ? 0 : 1;
            } else {
                good += file.notTaken ? 0 : 1;
            }
            progress.show(i + 1);
        }
    }
    Console::note(std::to_string(good) + " good tiles, " + std::to_string(bad) + " bad");
    const bool incomplete = noteUnreadable(inventory);
    return bad > 0 || good == 0 || incomplete ? notDone : allWell;
}

}  // namespace OrlekTiles
