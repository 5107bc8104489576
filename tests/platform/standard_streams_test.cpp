// With a standard stream closed, the system gives its number to what is opened next. Nothing that
// is written to may have it: what is printed would go there.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "platform/AtomicFile.h"
#include "platform/OutputFile.h"
#include "platform/Socket.h"
#include "support/TempDir.h"
#include "support/WholeText.h"

namespace {

using namespace Orlek::Detail;

TEST(StandardStreams, KeepTheirNumbersWhileTheyAreClosed) {
    const OrlekTest::TempDir dir;
    const int errors = dup(STDERR_FILENO);
    close(STDERR_FILENO);
    const NewSocket listener(openSocket(SocketKind::stream));
    AtomicFile draft;
    OutputFile file;
    const bool opened = draft.open(dir.path("draft")) && file.open(dir.path("file")) &&
                        bindSocket(listener.get(), {0x7F000001, 0}) &&
                        listenSocket(listener.get(), 1);
    const int taken = fcntl(STDERR_FILENO, F_GETFD);
    dup2(errors, STDERR_FILENO);
    close(errors);
    EXPECT_TRUE(opened);
    EXPECT_EQ(taken, -1);
    EXPECT_TRUE(draft.write("text") && draft.commit());
    EXPECT_EQ(OrlekTest::wholeText(dir.path("draft")), "text");
}

}  // namespace
