// Settings on disks that fail, and writers that die: the file has the old settings or the new ones.
#include <Orlek/Misc/Property.h>
#include <Orlek/XML/XmlDocument.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <random>
#include <string>
#include <thread>

#include "support/Capture.h"
#include "support/OwnNetwork.h"
#include "support/TempDir.h"
#include "support/Unprivileged.h"
#include "support/WholeText.h"

namespace {

using Orlek::Misc::Property;
using namespace OrlekTest;

std::size_t entriesOf(const std::string& directory) {
    return static_cast<std::size_t>(
        std::distance(std::filesystem::directory_iterator(directory), {}));
}

void expectRefused(const std::string& path) {
    EXPECT_EQ(captureStdout([&] { EXPECT_FALSE(Property::instance().writeXmlFile(path)); }),
              "Error writing property file <" + path + ">!\n");
}

TEST(PropertyDisk, AFullDiskLeavesTheOldFile) {
    const TempDir dir;
    const auto fillTheDisk = [&] {
        if (unshare(CLONE_NEWNS) != 0 || mount("", "/", "", MS_REC | MS_PRIVATE, nullptr) != 0 ||
            mount("none", dir.path().c_str(), "tmpfs", 0, "size=64k") != 0) {
            throw Refused();
        }
        const std::string path = dir.path("settings.xml");
        Property::instance().setString("disk.small", "1");
        EXPECT_TRUE(Property::instance().writeXmlFile(path));
        const std::string old = wholeText(path);
        for (const std::size_t size : {40'000U, 70'000U, 1U << 20U}) {
            Property::instance().setString("disk.large", std::string(size, 'x'));
            if (size == 40'000U) {  // fits by itself, but not beside the old one
                EXPECT_TRUE(Property::instance().writeXmlFile(dir.path("first.xml")));
            }
            expectRefused(path);
            EXPECT_EQ(wholeText(path), old);
        }
        EXPECT_EQ(entriesOf(dir.path()), 2U) << "a temporary file is left";
    };
    inOwnNetworkOrSkip(fillTheDisk, "a full disk is left out");
}

TEST(PropertyDisk, WhatIsNoFileOfOursIsNotReplaced) {
    const TempDir dir;
    ASSERT_EQ(mkfifo(dir.path("pipe").c_str(), 0600), 0);
    std::filesystem::create_symlink("circle", dir.path("circle"));
    const std::size_t entries = entriesOf(dir.path());
    for (const std::string& path :
         {std::string(), dir.path(), dir.path("pipe"), dir.path("circle"), dir.path("missing/a"),
          dir.path("slash/"), std::string("/dev/full"), std::string("/dev/null"),
          dir.path(std::string(300, 'n'))}) {
        expectRefused(path);
    }
    EXPECT_FALSE(Orlek::XML::XmlDocument().write(dir.path("zero") + '\0' + "byte"));
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
    EXPECT_TRUE(std::filesystem::is_fifo(dir.path("pipe")));
    EXPECT_EQ(entriesOf(dir.path()), entries);
}

TEST(PropertyDisk, MissingPermissionsAreRespected) {
    const TempDir dir("/tmp");  // which others may enter
    std::filesystem::permissions(dir.path(), std::filesystem::perms{0777});
    const std::string locked = dir.write("locked/old.xml", "old");
    const std::string readOnly = dir.write("readonly.xml", "old");
    for (const std::string& path : {locked, readOnly}) {
        ASSERT_EQ(chown(path.c_str(), 65534, 65534), geteuid() == 0 ? 0 : -1);
    }
    ASSERT_EQ(chmod(readOnly.c_str(), 0444), 0);
    ASSERT_EQ(chmod(dir.path("locked").c_str(), 0555), 0);
    {
        const Unprivileged scope;
        if (!scope.ok()) {
            GTEST_SKIP() << "cannot give up root's rights";
        }
        expectRefused(locked);
        expectRefused(readOnly);
    }
    EXPECT_EQ(wholeText(locked) + wholeText(readOnly), "oldold");
    EXPECT_EQ(entriesOf(dir.path("locked")), 1U);
    std::filesystem::permissions(dir.path("locked"), std::filesystem::perms{0755});
}

TEST(PropertyDisk, LinksAndModesStay) {
    const TempDir dir;
    const std::string target = dir.write("real/settings.xml", "old");
    ASSERT_EQ(chmod(target.c_str(), 0640), 0);
    std::filesystem::create_symlink("real/settings.xml", dir.path("link.xml"));
    std::filesystem::create_symlink(dir.path("link.xml"), dir.path("far.xml"));
    std::filesystem::create_symlink("real/new.xml", dir.path("dangling.xml"));
    const mode_t mask = umask(027);
    for (const std::string name : {"far.xml", "dangling.xml"}) {
        EXPECT_TRUE(Property::instance().writeXmlFile(dir.path(name)));
        EXPECT_TRUE(std::filesystem::is_symlink(dir.path(name)));
    }
    umask(mask);
    EXPECT_NE(wholeText(target), "old");
    EXPECT_EQ(wholeText(dir.path("real/new.xml")), wholeText(target));
    for (const std::string name : {"real/settings.xml", "real/new.xml"}) {
        EXPECT_EQ(std::filesystem::status(dir.path(name)).permissions(),
                  std::filesystem::perms{0640});
    }
    EXPECT_EQ(entriesOf(dir.path("real")), 2U);
}

// Beside an access list the mode's bits for the group are the most that the list gives.
TEST(PropertyDisk, AccessListsStay) {
    const TempDir dir("/tmp");
    const std::string path = dir.write("settings.xml", "old");
    const std::uint32_t nobody = 0xFFFFFFFF;
    const struct {
        std::uint32_t version = 2;
        struct {
            std::uint16_t tag, rights;
            std::uint32_t id;
        } entries[5] = {{0x01, 6, nobody},
                        {0x02, 6, 1234},
                        {0x04, 0, nobody},
                        {0x10, 6, nobody},
                        {0x20, 0, nobody}};  // owner, user, group, mask, others
    } list;
    const char* const name = "system.posix_acl_access";
    if (setxattr(path.c_str(), name, &list, sizeof(list), 0) != 0) {
        GTEST_SKIP() << "no access lists here";
    }
    EXPECT_TRUE(Property::instance().writeXmlFile(path));
    EXPECT_NE(wholeText(path), "old");
    std::array<char, sizeof(list)> kept{};
    EXPECT_EQ(getxattr(path.c_str(), name, kept.data(), kept.size()), std::ssize(kept));
    EXPECT_EQ(std::memcmp(kept.data(), &list, sizeof(list)), 0);
}

TEST(PropertyDisk, AFileThatBecomesTheWritersLendsNoRights) {
    const TempDir dir("/tmp");  // which others may enter
    std::filesystem::permissions(dir.path(), std::filesystem::perms{0777});
    const std::string path = dir.write("settings.xml", "old");
    ASSERT_EQ(chmod(path.c_str(), 06666), 0);
    EXPECT_TRUE(Property::instance().writeXmlFile(path));
    EXPECT_EQ(std::filesystem::status(path).permissions(), std::filesystem::perms{06666})
        << "its own writer's file keeps all of its mode";
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root can let another write its files";
    }
    {
        const Unprivileged scope;
        ASSERT_TRUE(scope.ok());
        EXPECT_TRUE(Property::instance().writeXmlFile(path));
    }
    struct stat replaced {};
    ASSERT_EQ(stat(path.c_str(), &replaced), 0);
    EXPECT_NE(replaced.st_uid, geteuid());
    EXPECT_EQ(replaced.st_mode & 07777U, 0666U);
}

void writeLetter(const std::string& path, char letter) {
    Property::instance().setString("kill.text", std::string(10'000, letter));
    ASSERT_TRUE(Property::instance().writeXmlFile(path));
}

// Kills a process that writes two sets of settings by turns, `delay` after it has begun.
void killWriter(const std::string& path, std::chrono::microseconds delay) {
    int begun[2] = {};
    ASSERT_EQ(pipe(begun), 0);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        for (char letter = 'a'; write(begun[1], "", 1) == 1; letter = letter == 'a' ? 'b' : 'a') {
            writeLetter(path, letter);
        }
        _exit(1);
    }
    char byte = 0;
    EXPECT_EQ(read(begun[0], &byte, 1), 1);
    std::this_thread::sleep_for(delay);
    EXPECT_EQ(kill(child, SIGKILL), 0);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status)) << "the writer ended by itself";
    close(begun[0]);
    close(begun[1]);
}

TEST(PropertyDisk, AKilledWriterLeavesAWholeFile) {
    // In memory where the system has it: forcing a thousand files to a disk takes a minute.
    const std::filesystem::path memory = "/dev/shm";
    const TempDir dir(is_directory(memory) ? memory : std::filesystem::temp_directory_path());
    const std::string path = dir.path("settings.xml");
    std::string contents[2];
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 2; ++i) {
        writeLetter(path, static_cast<char>('a' + i));
        contents[i] = wholeText(path);
    }
    const auto pair = (std::chrono::steady_clock::now() - start) / std::chrono::microseconds(1);
    std::mt19937 random(std::random_device{}());
    std::uniform_int_distribution<std::int64_t> delay(0, pair);
    int seen[2] = {};
    for (int i = 0; i < 500 && !HasFailure(); ++i) {
        killWriter(path, std::chrono::microseconds(delay(random)));
        const std::string content = wholeText(path);
        ASSERT_TRUE(content == contents[0] || content == contents[1]) << "round " << i;
        ++seen[content == contents[1] ? 1 : 0];
    }
    // Otherwise the writers were never killed where it matters.
    EXPECT_GT(seen[0], 0);
    EXPECT_GT(seen[1], 0);
}

}  // namespace
