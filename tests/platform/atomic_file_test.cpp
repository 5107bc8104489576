// What of replaced files the tests of settings and torture do not see.
#include "platform/AtomicFile.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "support/TempDir.h"
#include "support/WholeText.h"

namespace {

// Else what the library prints would go into the file.
TEST(AtomicFile, LeavesTheNumberOfAClosedStandardStreamFree) {
    const OrlekTest::TempDir dir;
    const int errors = dup(STDERR_FILENO);
    close(STDERR_FILENO);
    Orlek::Detail::AtomicFile file;
    const bool opened = file.open(dir.path("new"));
    const int taken = fcntl(STDERR_FILENO, F_GETFD);
    dup2(errors, STDERR_FILENO);
    close(errors);
    EXPECT_TRUE(opened);
    EXPECT_EQ(taken, -1);
    EXPECT_TRUE(file.write("text") && file.commit());
    EXPECT_EQ(OrlekTest::wholeText(dir.path("new")), "text");
}

}  // namespace
