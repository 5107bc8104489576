#include <Orlek/Misc/StringHelpers.h>

#include <cmath>
#include <filesystem>

#include "Commands.h"
#include "Inventory.h"
#include "terrain/tiles/DtedHeader.h"

namespace OrlekTiles {

namespace {

/// The columns of a line.
struct Row {
    std::string cell = "-";
    std::string kind = "-";
    std::string posts = "-";
    std::string rule;
};

std::string textOf(const Reason& reason) {
    return reason.word + ": " + reason.text;
}

std::string postsOf(const TileGrid& grid) {
    return std::to_string(grid.numLon) + "x" + std::to_string(grid.numLat);
}

/// Arc seconds between the posts of an archive: 3600 to a degree.
std::string srtmKind(const TileGrid& grid) {
    return "SRTM " + std::to_string(std::lround(grid.latSpacing * 3600.0)) + "\"";
}

/// The part of the name that gave the origin.
std::string nameRule(const std::string& path) {
    const std::string file = Orlek::Misc::StringSection(path, "/", -1, -1);
    const std::string product = Orlek::Misc::StringSection(file, ".", 1, 1);
    const bool isProduct = product == "SRTMGL1" || product == "SRTMGL3" || product == "SRTMGL30";
    return "name (" + (isProduct ? product : "corner") + "), size table";
}

Row srtmRow(const TileFile& file) {
    const ArchiveHead head = readHead(file.path);
    Row row{.kind = "SRTM", .rule = nameRule(file.path)};
    if (head.grid) {
        row.kind = srtmKind(*head.grid);
        row.posts = postsOf(*head.grid);
    }
    if (head.reason) {
        row.rule = "cannot be loaded: " + textOf(*head.reason);
    }
    return row;
}

Row dtedRow(const TileFile& file, std::uint64_t bytes) {
    const TileGrid& grid = file.tile->grid();
    Row row{.kind = "DTED 1", .posts = postsOf(grid), .rule = "header"};
    if (bytes < Orlek::Detail::dtedFileSize(grid)) {
        row.rule = "cannot be loaded: " + textOf(dtedReason(file.path, ReadFault::dataCut));
    }
    return row;
}

void printFile(const TileFile& file, Console& console) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(file.path, error);
    const std::uintmax_t bytes = error ? 0 : size;
    Row row;
    if (file.notTaken) {
        row.rule = "not taken: " + textOf(*file.notTaken);
    } else {
        row = file.format == TileFormat::dted ? dtedRow(file, bytes) : srtmRow(file);
    }
    if (file.tile) {
        row.cell = cellName(*file.tile);
    }
    console.printFields(
        {row.cell, row.kind, row.posts, std::to_string(bytes), file.path, row.rule});
}

}  // namespace

Outcome list(const Arguments& arguments, Console& console) {
    const Inventory inventory = takeInventory(directoryOf(arguments));
    std::size_t tiles = 0;
    for (const TileFile& file : inventory.files) {
        printFile(file, console);
        tiles += file.notTaken ? 0 : 1;
    }
    Console::note(std::to_string(tiles) + " tiles in " + std::to_string(inventory.files.size()) +
                  " files");
    return noteUnreadable(inventory) ? notDone : allWell;
}

}  // namespace OrlekTiles
