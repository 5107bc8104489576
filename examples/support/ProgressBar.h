// How far a long job is.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace OrlekSupport {

/// A line on the standard error stream that is drawn again as the job goes on. Nothing is printed
/// when that stream is no terminal.
class ProgressBar {
public:
    explicit ProgressBar(std::size_t total);
    ~ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    void show(std::size_t done);

    /// Clears the line for others to write on; the next show() draws it again.
    void hide();

private:
    using Clock = std::chrono::steady_clock;

    std::size_t mTotal;
    bool mTerminal;
    bool mShown = false;
    Clock::time_point mNext;  ///< not drawn again before
};

/// The text of the bar: "[#####     ]  50 %  60 of 120".
std::string progressText(std::size_t done, std::size_t total);

}  // namespace OrlekSupport
