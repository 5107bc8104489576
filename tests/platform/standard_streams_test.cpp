// With a standard stream closed, the system gives its number to what is opened next. Nothing that
// is written to may have it: what is printed would go there.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "network/PlainPeer.h"
#include "platform/AtomicFile.h"
#include "platform/OutputFile.h"
#include "platform/Socket.h"
#include "support/TempDir.h"
#include "support/WholeText.h"

namespace {

using namespace Orlek::Detail;

TEST(StandardStreams, KeepTheirNumbersWhileTheyAreClosed) {
    const OrlekTest::TempDir dir;
    const auto listener = OrlekTest::PlainPeer::listening();
    const auto client = OrlekTest::PlainPeer::connectedTo(listener.port());
    const int errors = dup(STDERR_FILENO);
    close(STDERR_FILENO);
    const NewSocket socket(openSocket(SocketKind::stream));
    Endpoint peer;
    const NewSocket accepted(acceptSocket(listener.descriptor(), peer, 5000));
    AtomicFile draft;
    OutputFile file;
    const bool opened = draft.open(dir.path("draft")) && file.open(dir.path("file")) &&
                        socket.isOpen() && accepted.isOpen();
    const int taken = fcntl(STDERR_FILENO, F_GETFD);
    dup2(errors, STDERR_FILENO);
    close(errors);
    EXPECT_TRUE(opened);
    EXPECT_EQ(taken, -1);
    EXPECT_TRUE(draft.write("text") && draft.commit());
    EXPECT_EQ(OrlekTest::wholeText(dir.path("draft")), "text");
}

}  // namespace
