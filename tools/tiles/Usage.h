// The text of --help.
#pragma once

namespace OrlekTiles {

inline constexpr const char* usage = R"(Usage: orlek-tiles COMMAND [OPTION]... ARGUMENT...

Looks after the elevation tiles that libOrlek reads from a directory: DTED level 1 (.DT1) and zipped
SRTM tiles (.zip).

  list DIR    one line for each file: cell, kind, posts, bytes, file, and the rule by which it is
              loaded or why it is not
  check DIR   loads every tile in use and says for each bad one why
              (bad|unused, file, reason in a few words, reason in full)

  pack FILE.hgt...
              zips raw SRTM tiles so that the library reads them; prints the archives' names
      --out DIR   put them there instead of beside the files
      --force     replace archives that are there already

  render DIR  draws the shaded relief of an area; prints the picture's path and its size
      --south DEG, --west DEG, --north DEG, --east DEG
                  the area; a bound that is missing is that of all tiles
      --width PIXELS   from west to east, 16 to 8192 (1600); the height follows
      --out FILE  the PNG file to write (relief.png)

  --verbose   show the library's own lines on the standard error stream
  --help      print this text
  --version   print the version

Results go to the standard output, fields parted by tabs, and all else to the standard error stream.

Exit codes: 0 all well; 1 bad tiles found, or something could not be done; 2 wrong usage.
)";

}  // namespace OrlekTiles
