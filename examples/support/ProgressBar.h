// How far a long job is.
#pragma once

#include <string>

namespace MovingMap {

/// A line on the standard error stream that is drawn again as the job goes on. Nothing is printed
/// when that stream is no terminal.
class ProgressBar {
public:
    explicit ProgressBar(int total);
    ~ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    void show(int done);

private:
    int mTotal;
    bool mTerminal;
};

/// The text of the bar: "[#####     ]  50 %  60 of 120".
std::string progressText(int done, int total);

}  // namespace MovingMap
