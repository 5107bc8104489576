// What orlek-tiles says about tiles: archives as four real writers make them, files that are cut or
// lie, real tiles, and command lines that cannot be followed.
#include <sys/stat.h>

#include <map>

#include "support/Capture.h"
#include "support/DataDir.h"
#include "terrain/ScannedMap.h"
#include "terrain/TileFiles.h"
#include "tools/ToolRun.h"

namespace {

using namespace OrlekTest;

/// The reason of each file that `check` has something against, by its name.
std::map<std::string, std::string> reasons(const std::string& checked) {
    std::map<std::string, std::string> byName;
    for (const auto& fields : table(checked)) {
        EXPECT_EQ(fields.size(), 4U);
        byName[std::filesystem::path(fields[1]).filename()] = fields[2];
    }
    return byName;
}

// In each command H is the raw tile and Z the archive to make.
TEST(TilesCheck, ExplainsWhatFourWritersMake) {
    constexpr struct {
        const char* command;
        const char* reason;  ///< empty for an archive that loads
    } rows[] = {
        {"zip -q $Z $H", ""},
        {"zip -q -0 $Z $H", "stored entry"},
        {"zip -q - $H | cat >$Z", "sizes in a descriptor"},
        {"cat $H | zip -q $Z -", "zip64 sizes"},
        {"zip -q -P secret $Z $H", "encrypted entry"},
        {"zip -q -Z bzip2 $Z $H", "other compression"},
        {"zip -q -r $Z folder", "tile not first"},
        {"7z a -tzip $Z $H", ""},
        {"7z a -tzip -mx=0 $Z $H", "stored entry"},
        {"7z a -tzip -mm=LZMA $Z $H", "other compression"},
        {"7z a -t7z $Z $H", "no archive"},
        {"bsdtar -a -cf $Z $H", "sizes in a descriptor"},
        {"bsdtar --format zip --options zip:compression=store -cf $Z $H", "stored entry"},
        {"bsdtar --format zip -cf $Z folder", "tile not first"},
        {"python3 -m zipfile -c $Z $H", ""},
        {"python3 -c 'import sys,zipfile as z; z.ZipFile(sys.argv[1],\"w\").write(sys.argv[2])' "
         "$Z $H",
         "stored entry"},
        {"python3 -m zipfile -c /dev/stdout $H | cat >$Z", "sizes in a descriptor"},
    };
    if (shell("command -v zip 7z bsdtar python3").code != 0) {
        GTEST_SKIP() << "zip, 7z, bsdtar or python3 is missing: their archives are left out";
    }
    const TempDir dir;
    dir.write("folder/N45E006.hgt", srtmSamples(1201, 1201, [](int row, int) { return row % 97; }));
    std::map<std::string, std::string> expected;
    std::vector<int> good;
    std::string commands = "set -e; mkdir tiles; cp folder/N45E006.hgt .; H=N45E006.hgt; ";
    for (const auto& row : rows) {
        const int lat = 10 + static_cast<int>(&row - rows);
        const std::string name = "N" + std::to_string(lat) + "E006.hgt.zip";
        commands += "Z=tiles/" + name + "; " + row.command + "; ";
        if (row.reason[0] == '\0') {
            good.push_back(lat);
        } else {
            expected[name] = row.reason;
        }
    }
    const ToolRun made = shell("cd " + dir.path() + "; " + commands);
    ASSERT_EQ(made.code, 0) << made.err;

    const ToolRun checked = runTiles("check " + dir.path("tiles"));
    EXPECT_EQ(checked.code, 1);
    EXPECT_EQ(reasons(checked.out), expected);
    for (const auto& fields : table(runTiles("list " + dir.path("tiles")).out)) {
        const auto bad = expected.find(std::filesystem::path(fields.at(4)).filename());
        EXPECT_EQ(fields.at(5).find("cannot be loaded: " +
                                    (bad == expected.end() ? "" : bad->second)) == 0,
                  bad != expected.end())
            << fields.at(4) << ": " << fields.at(5);
    }
    Orlek::Geodetic::HeightMap map;
    captureStdout([&] { scan(map, dir.path("tiles")); });
    for (const int lat : good) {
        EXPECT_TRUE(normalAt(map, lat + 0.5, 6.5, true) != notLoaded) << lat;
    }
}

TEST(TilesCheck, ExplainsFilesThatAreCutOrLie) {
    const std::string samples = srtmSamples(1201, 1201, [](int, int) { return 12; });
    const std::string stream = storedDeflate(samples);
    const std::string whole = archiveOf(samples);
    const std::string dted = dtedFile(dtedLabelAt(50, 6), [](int i, int) { return i; });
    DtedLabel lie = dtedLabelAt(51, 6);
    lie.numLat = "0001";
    const struct {
        const char *name, *reason;
        std::string bytes;
    } rows[] = {
        {"N10E006.hgt.zip", "wrong checksum", whole},  // its header has none
        {"N11E006.hgt.zip", "header cut", whole.substr(0, 25)},
        {"N12E006.hgt.zip", "header cut", whole.substr(0, 33)},
        {"N13E006.hgt.zip", "no archive", ""},
        {"N14E006.hgt.zip", "no archive", "X" + whole.substr(1)},
        {"N15E006.hgt.zip", "size not in the table", archiveOf(stream, samples.size() - 2)},
        {"N16E006.hgt.zip", "impossible sizes", archiveOf("\3", samples.size())},
        {"N17E006.hgt.zip", "truncated data", whole.substr(0, whole.size() / 2)},
        {"N18E006.hgt.zip", "damaged data",
         archiveOf(storedDeflate(samples.substr(1)), samples.size())},
        {"N95E006.hgt.zip", "no such cell", whole},
        {"S91W181.hgt.zip", "no such cell", whole},
        {"W021N90.SRTMGL30.dem.zip", "no such cell", whole},
        {"W020N90.SRTMGL30.dem.zip", "wrong name", whole},  // that of another kind
        {"fonts.zip", "wrong name", whole},
        {"N19E006.hgt.ZIP", "wrong extension", whole},
        {"N20E006.hgt", "not zipped", samples},
        {"a.dt1", "wrong extension", dted},
        {"a.dt2", "other level", dted},
        {"b.DT1", "header cut", dted.substr(0, 100)},
        {"c.DT1", "bad header", dtedFile(lie, [](int, int) { return 0; })},
        {"d.DT1", "truncated data", dted.substr(0, dted.size() - 1)},
    };
    const TempDir dir;
    std::map<std::string, std::string> expected;
    for (const auto& row : rows) {
        dir.write(row.name, row.bytes);
        expected[row.name] = row.reason;
    }
    dir.write("e/N60E006.DT1", dtedFile(dtedLabelAt(60, 6), [](int i, int) { return i; }));
    dir.write("README.txt", "no tile, and nothing against that");
    std::filesystem::create_directory_symlink(dir.path(), dir.path("e/loop"));
    dir.write("line\nbreak.DT1", "");
    expected["line\\x0Abreak.DT1"] = "header cut";
    std::filesystem::resize_file(dir.write("sparse.zip", ""), std::uintmax_t{1} << 40U);
    expected["sparse.zip"] = "wrong name";

    std::filesystem::create_symlink("nowhere", dir.path("f.DT1"));
    expected["f.DT1"] = "no file";
    ASSERT_EQ(mkfifo(dir.path("N21E006.hgt.zip").c_str(), 0600), 0);
    expected["N21E006.hgt.zip"] = "no file";

    const ToolRun checked = runTiles("check " + dir.path());
    EXPECT_EQ(checked.code, 1);
    EXPECT_EQ(reasons(checked.out), expected);
    EXPECT_EQ(checked.err, "orlek-tiles: 1 good tiles, 25 bad\n") << "no progress bar into a file";
    EXPECT_NE(runTiles("check --verbose " + dir.path()).err.find("could not open data file <"),
              std::string::npos);
    EXPECT_NE(shell("script -qec \"$T check " + dir.path("e") + "\" /dev/null").out.find("100 %"),
              std::string::npos)
        << "a progress bar on a terminal";
}

TEST(TilesCheck, KnowsRealTiles) {
    if (terrainDir().empty()) {
        GTEST_SKIP() << "no real elevation tiles: what is said of them is left out";
    }
    const ToolRun checked = runTiles("check " + terrainDir());
    EXPECT_EQ(checked.code, 0) << checked.out << checked.err;
    EXPECT_NE(checked.out.find("unused\t" + terrainDir() + "/N42E001."), std::string::npos)
        << "two files of one cell";
    std::map<std::string, std::vector<std::string>> lines;
    for (const auto& fields : table(runTiles("list " + terrainDir()).out)) {
        lines[std::filesystem::path(fields.at(4)).filename()] = fields;
    }
    const std::vector<std::string> expected{"N48W125",
                                            "SRTM 1\"",
                                            "3601x3601",
                                            "3013882",
                                            terrainDir() + "/N48W125.SRTMGL1.hgt.zip",
                                            "name (SRTMGL1), size table"};
    EXPECT_EQ(lines["N48W125.SRTMGL1.hgt.zip"], expected);
    EXPECT_EQ(lines["README.md"].at(5).find("not taken: no tile: "), 0U);
    const bool dtedUsed = lines["N42E001.DT1"].at(5) == "header";
    const TempDir damaged;
    std::string dted = wholeText(terrainDir() + "/N42E001.DT1");
    damaged.write("whole/N42E001.DT1", dted);
    EXPECT_EQ(runTiles("check " + damaged.path()).code, 0);
    dted[1000000] ^= 1;
    damaged.write("whole/N42E001.DT1", dted);
    EXPECT_NE(runTiles("check " + damaged.path()).out.find("1 of its 1201 records"),
              std::string::npos);
    EXPECT_EQ(dtedUsed, lines["N42E001.SRTMGL3.hgt.zip"].at(5).find("not taken: replaced") == 0);
}

TEST(Tiles, RefusesWhatItCannotDo) {
    const TempDir dir;
    const std::string file = dir.write("file", "");
    const std::pair<std::string, int> rows[] = {
        {"--help", 0},
        {"list --version", 0},
        {"list " + dir.path(), 0},
        {"check " + dir.path(), 1},  // no tile
        {"list " + file, 1},
        {"list " + dir.path("missing"), 1},
        {"list " + dir.path() + " >/dev/full --help", 1},
        {"list " + dir.path() + " >&-", 1},
        {"", 2},
        {"lits " + dir.path(), 2},
        {"list", 2},
        {"list a b", 2},
        {"list --depth " + dir.path(), 2},
        {"list --verbose=1 " + dir.path(), 2},
        {"list -- --help", 1},  // a directory of that name
        {"pack", 2},
        {"pack --out", 2},
    };
    for (const auto& [arguments, code] : rows) {
        const ToolRun run = runTiles(arguments);
        EXPECT_EQ(run.code, code) << arguments << run.err;
        EXPECT_EQ(code == 0 || run.err.starts_with("orlek-tiles: "), true) << run.err;
        EXPECT_EQ(code == 0 || run.out.empty(), true) << run.out;
    }
}

}  // namespace
