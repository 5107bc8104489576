#include "Figures.h"

#include <algorithm>
#include <cstddef>

namespace OrlekTest {

namespace {

constexpr long memoryBoundKib = 2048;
constexpr double frameBound = 2.0;

const char* word(bool holds) {
    return holds ? "" : "   <-- out of its bound";
}

void print(std::FILE* out, const char* name, const FrameTimes::Spread& spread,
           const char* verdict) {
    std::fprintf(out, "%s: median %.2f ms, 99.9 %% within %.2f ms (%.2f x), longest %.1f ms%s\n",
                 name, spread.median, spread.p999, spread.p999 / spread.median, spread.longest,
                 verdict);
}

bool print(std::FILE* out, const char* name, const Constant& constant) {
    std::fprintf(out, "%s: %d to %d%s\n", name, constant.low(), constant.high(),
                 word(constant.holds()));
    return constant.holds();
}

// In the middle of a period's values, which tell what stays, not what a load takes for a moment.
long middle(std::vector<long> values) {
    std::sort(values.begin(), values.end());
    return values.empty() ? 0 : values[values.size() / 2];
}

}  // namespace

FrameTimes::Spread FrameTimes::spread() const {
    std::vector<float> sorted(mMs.begin(), mMs.begin() + static_cast<std::ptrdiff_t>(mCount));
    if (sorted.empty()) {
        return {};
    }
    std::sort(sorted.begin(), sorted.end());
    return {sorted[mCount / 2], sorted[(mCount - 1) * 999 / 1000], sorted.back()};
}

void Constant::add(int value) {
    mLow = mAny ? std::min(mLow, value) : value;
    mHigh = mAny ? std::max(mHigh, value) : value;
    mAny = true;
}

bool report(std::FILE* out, const Figures& figures, bool whole) {
    const long memory = middle(figures.memoryKib[1]);
    const long memoryLater = middle(figures.memoryKib[9]);
    const long growth = memoryLater - memory;
    const bool memoryHolds = !whole || growth <= memoryBoundKib;
    const FrameTimes::Spread interval = figures.interval.spread();
    const bool framesHold = !whole || interval.p999 <= frameBound * interval.median;
    const bool datagramsHold = figures.datagramFaults == 0 || (!whole && figures.dropped > 0);
    const bool feedsHold = figures.faults == 0 && datagramsHold && figures.complete;
    std::fprintf(out, "%zu frames, %lu tile changes, settings written %lu times\n",
                 figures.interval.count(), figures.tileChanges, figures.settingsWritten);
    print(out, "frame to frame", interval, word(framesHold));
    print(out, "work of a frame", figures.work.spread(), "");
    std::fprintf(out, "memory: %ld KiB in the second period, %ld KiB in the tenth: %+ld KiB%s\n",
                 memory, memoryLater, growth, word(memoryHolds));
    const bool constant = print(out, "descriptors", figures.descriptors);
    const bool namesHold = print(out, "GL names", figures.names);
    std::fprintf(out,
                 "feeds: %lu packages and datagrams over %lu connections, lost or out of order "
                 "%lu, dropped by the system %lu, %s%s\n",
                 figures.rounds * 13, figures.connections, figures.faults + figures.datagramFaults,
                 figures.dropped, figures.complete ? "the last has come" : "the last has not come",
                 word(feedsHold));
    return memoryHolds && framesHold && feedsHold && constant && namesHold;
}

}  // namespace OrlekTest
