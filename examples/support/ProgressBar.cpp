// Drawn over itself with a carriage return, and not more often than eyes follow.
#include "ProgressBar.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>

namespace OrlekSupport {

ProgressBar::ProgressBar(std::size_t total)
    : mTotal(std::max<std::size_t>(total, 1)), mTerminal(isatty(STDERR_FILENO) == 1) {
    show(0);
}

ProgressBar::~ProgressBar() {
    if (mShown) {
        std::fputc('\n', stderr);
    }
}

void ProgressBar::show(std::size_t done) {
    const Clock::time_point now = Clock::now();
    if (mTerminal && (now >= mNext || done >= mTotal)) {
        std::fprintf(stderr, "\r%s", progressText(done, mTotal).c_str());
        mShown = true;
        mNext = now + std::chrono::milliseconds(50);
    }
}

void ProgressBar::hide() {
    if (mShown) {
        std::fputs("\r\033[K", stderr);
        mShown = false;
        mNext = {};
    }
}

std::string progressText(std::size_t done, std::size_t total) {
    constexpr std::size_t width = 40;
    const std::size_t filled = width * done / total;
    char text[128];
    std::snprintf(text, sizeof text, "[%s%s] %3zu %%  %zu of %zu", std::string(filled, '#').c_str(),
                  std::string(width - filled, ' ').c_str(), 100 * done / total, done, total);
    return text;
}

}  // namespace OrlekSupport
