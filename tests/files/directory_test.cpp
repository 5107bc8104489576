#include <Orlek/FileSystem/Directory.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "support/Capture.h"
#include "support/OpenFiles.h"
#include "support/TempDir.h"
#include "support/Unprivileged.h"

namespace {

using namespace OrlekTest;
using Orlek::FileSystem::Directory;
using Paths = std::vector<std::string>;
namespace fs = std::filesystem;

// The system's order is no particular one, so listings are compared sorted.
Paths list(const std::string& path, bool recursive) {
    Paths files = Directory(path).entryList(recursive);
    std::sort(files.begin(), files.end());
    return files;
}

std::string couldNotOpen(const std::string& path) {
    return "Property::readAllFiles: could not open path <" + path + "\\*>\n";
}

TEST(Directory, ListsFilesAndOnRequestThoseBelow) {
    const TempDir dir;
    dir.write("a.DT1", "");
    dir.write(".hidden", "");
    dir.write("N47/N47E011.DT1", "");
    dir.write("N47/deep/er/b", "");
    ASSERT_EQ(mkfifo(dir.path("pipe").c_str(), 0600), 0);
    const std::string root = dir.path();
    EXPECT_EQ(list(root, false), (Paths{root + "/.hidden", root + "/a.DT1"}));
    EXPECT_EQ(list(root, true), (Paths{root + "/.hidden", root + "/N47/N47E011.DT1",
                                       root + "/N47/deep/er/b", root + "/a.DT1"}));
    EXPECT_EQ(list(root + "/", false), (Paths{root + "//.hidden", root + "//a.DT1"}));
    Directory twice(root);
    EXPECT_EQ(twice.entryList(true), twice.entryList(true));
}

TEST(Directory, TakesNoPathForItsBeginning) {
    const TempDir dir;
    dir.write("file", "");
    const std::string path = dir.path() + std::string("\0x", 2);
    captureStdout([&] { EXPECT_TRUE(list(path, true).empty()); });
    EXPECT_FALSE(Directory::createDirectoryRecursive(path));
}

TEST(Directory, SaysWhatItCannotOpenAndGoesOn) {
    const TempDir dir("/tmp");  // which others may enter
    const std::string file = dir.write("readable/file", "");
    const std::string locked = dir.path("locked");
    fs::create_directory(locked);
    for (const std::string& path : {dir.path("missing"), file, std::string()}) {
        Paths files{"not empty"};
        EXPECT_EQ(captureStdout([&] { files = list(path, true); }), couldNotOpen(path));
        EXPECT_TRUE(files.empty());
    }
    fs::permissions(dir.path(), fs::perms{0755});
    fs::permissions(locked, fs::perms::none);
    const Unprivileged scope;
    if (!scope.ok()) {
        GTEST_SKIP() << "cannot give up root's rights: the unreadable directory is left out";
    }
    Paths files;
    EXPECT_EQ(captureStdout([&] { files = list(dir.path(), true); }), couldNotOpen(locked));
    EXPECT_EQ(files, Paths{file});
}

TEST(Directory, FollowsLinksButNotInCircles) {
    const TempDir dir;
    const TempDir other;
    const std::string root = dir.path();
    const std::string elsewhere = other.write("tile", "");
    dir.write("a/file", "");
    fs::create_symlink(elsewhere, dir.path("linkedFile"));
    fs::create_symlink("nowhere", dir.path("broken"));
    fs::create_symlink(other.path(), dir.path("disk"));
    fs::create_symlink("..", dir.path("a/up"));
    fs::create_symlink(".", dir.path("a/self"));
    fs::create_symlink(root, other.path("back"));
    for (const char c : std::string("0123456789")) {
        fs::create_symlink("a", dir.path(std::string("toA") + c));
    }
    EXPECT_EQ(list(root, true),
              (Paths{root + "/a/file", root + "/disk/tile", root + "/linkedFile"}));
    EXPECT_EQ(list(root, false), Paths{root + "/linkedFile"});
}

// Entered anew from everywhere, these would be 2^40 paths. Whatever the order, each file comes
// once.
TEST(Directory, EndsWhereManyLinksLeadToTheSamePlaces) {
    const TempDir dir;
    constexpr int levels = 40;
    Paths written;
    for (int i = 0; i < levels; ++i) {
        const std::string here = std::to_string(i);
        written.push_back(dir.write(here + "/file", ""));
        for (const char* link : {"/left", "/right"}) {
            fs::create_directory_symlink(dir.path(std::to_string((i + 1) % levels)),
                                         dir.path(here + link));
        }
    }
    std::sort(written.begin(), written.end());
    EXPECT_EQ(list(dir.path(), true), written);
}

TEST(Directory, WalksDeepTreesWithFewDescriptors) {
    const TempDir dir;
    std::string deep = dir.path();
    for (int i = 0; i < 600; ++i) {
        deep += "/d";
    }
    ASSERT_TRUE(Directory::createDirectoryRecursive(deep));
    const std::string file = deep + "/file";
    close(open(file.c_str(), O_CREAT | O_WRONLY, 0600));
    const auto before = openFiles();
    Paths files;
    const auto few = static_cast<rlim_t>(before + 8);
    ASSERT_TRUE(OrlekTest::withDescriptors(few, [&] { files = list(dir.path(), true); }));
    EXPECT_EQ(files, Paths{file});
    EXPECT_EQ(openFiles(), before);
}

TEST(Directory, StopsWherePathsBecomeTooLongForTheSystem) {
    const TempDir dir;
    const std::string name(250, 'n');
    std::string path = dir.path();
    int parent = open(path.c_str(), O_RDONLY | O_DIRECTORY);
    for (int i = 0; i < 20; ++i) {  // 5000 bytes
        ASSERT_EQ(mkdirat(parent, name.c_str(), 0700), 0);
        const int child = openat(parent, name.c_str(), O_RDONLY | O_DIRECTORY);
        close(openat(parent, "file", O_CREAT | O_WRONLY, 0600));
        close(parent);
        parent = child;
    }
    close(parent);
    while (path.size() < 4096) {
        path += "/" + name;
    }
    Paths files;
    EXPECT_EQ(captureStdout([&] { files = list(dir.path(), true); }), couldNotOpen(path));
    EXPECT_EQ(files.size(), 1 + 4095 / 251U);
}

TEST(Directory, CreatesMissingParents) {
    const TempDir dir;
    // A backslash is a separator and also stays part of a name.
    for (const char* path : {"a/b/c", "a/b/c", "d//e/", "f\\g"}) {
        EXPECT_TRUE(Directory::createDirectoryRecursive(dir.path(path))) << path;
        EXPECT_TRUE(Directory::exists(dir.path(path))) << path;
    }
    EXPECT_TRUE(fs::is_directory(dir.path("f")));
    const std::string file = dir.write("file", "");
    EXPECT_TRUE(Directory::createDirectoryRecursive(file)) << "something of that path exists";
    EXPECT_FALSE(Directory(file).exists());
    for (const std::string& path :
         {file + "/below", std::string(), dir.path(std::string(300, 'x'))}) {
        EXPECT_FALSE(Directory::createDirectoryRecursive(path)) << path;
    }
}

TEST(Directory, ExtractsThePathOfAFile) {
    const TempDir dir;
    const std::pair<std::string, std::string> cases[] = {
        {"dir/sub/file.txt", "dir/sub"}, {"file.txt", ""},
        {"dir\\file.txt", ""},           {"/no-such-file", ""},
        {dir.path(), dir.path()},        {dir.path("missing"), dir.path()},
    };
    for (const auto& [file, path] : cases) {
        EXPECT_EQ(Directory::extractPathFomFile(file), path);
    }
}

}  // namespace
