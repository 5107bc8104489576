// Drawn over itself with a carriage return.
#include "ProgressBar.h"

#include <unistd.h>

#include <cstdio>

namespace MovingMap {

ProgressBar::ProgressBar(int total) : mTotal(total), mTerminal(isatty(STDERR_FILENO) == 1) {
    show(0);
}

ProgressBar::~ProgressBar() {
    if (mTerminal) {
        std::fputc('\n', stderr);
    }
}

void ProgressBar::show(int done) {
    if (mTerminal) {
        std::fprintf(stderr, "\r%s", progressText(done, mTotal).c_str());
    }
}

std::string progressText(int done, int total) {
    constexpr int width = 40;
    const int filled = width * done / total;
    char text[128];
    std::snprintf(text, sizeof text, "[%s%s] %3d %%  %d of %d",
                  std::string(static_cast<std::size_t>(filled), '#').c_str(),
                  std::string(static_cast<std::size_t>(width - filled), ' ').c_str(),
                  100 * done / total, done, total);
    return text;
}

}  // namespace MovingMap
