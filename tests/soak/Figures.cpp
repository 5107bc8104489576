#include "Figures.h"

#include <algorithm>

namespace OrlekTest {

namespace {

constexpr double memoryBoundKib = 2048.0;
constexpr double frameBound = 2.0;

const char* word(bool holds) {
    return holds ? "" : "   <-- out of its bound";
}

struct Spread {
    double median = 0.0;
    double p999 = 0.0;  ///< The 99.9th percentile.
    double longest = 0.0;
};

Spread spreadOf(std::vector<float> values) {
    std::sort(values.begin(), values.end());
    const std::size_t count = values.size();
    return count == 0 ? Spread{}
                      : Spread{values[count / 2], values[(count - 1) * 999 / 1000], values.back()};
}

void print(std::FILE* out, const char* name, const Spread& ms, const char* verdict) {
    std::fprintf(out, "%s: median %.2f ms, 99.9 %% within %.2f ms (%.2f x), longest %.1f ms%s\n",
                 name, ms.median, ms.p999, ms.p999 / ms.median, ms.longest, verdict);
}

bool printConstant(std::FILE* out, const char* name, const std::vector<int>& values) {
    const auto [low, high] = std::minmax_element(values.begin(), values.end());
    const bool holds = values.size() > 1 && *low == *high;
    std::fprintf(out, "%s: %d to %d%s\n", name, values.empty() ? 0 : *low,
                 values.empty() ? 0 : *high, word(holds));
    return holds;
}

}  // namespace

bool report(std::FILE* out, const Figures& figures, bool whole) {
    // In the middle of a period's values, which tell what stays, not what a load takes for a
    // moment.
    const std::size_t last =
        (figures.memoryKib.size() - 2) / 2 * 2 + 1;  // with the tiles of the second
    const double memory = spreadOf(figures.memoryKib[1]).median;
    const double memoryLater = spreadOf(figures.memoryKib[last]).median;
    const bool memoryHolds = !whole || memoryLater - memory <= memoryBoundKib;
    const Spread interval = spreadOf(figures.intervalMs);
    const bool framesHold = !whole || interval.p999 <= frameBound * interval.median;
    const bool datagramsHold = figures.datagramFaults == 0 || (!whole && figures.dropped > 0);
    const bool feedsHold = figures.faults == 0 && datagramsHold && figures.complete;
    std::fprintf(out, "%zu frames, %lu tile changes, settings written %lu times\n",
                 figures.intervalMs.size(), figures.tileChanges, figures.settingsWritten);
    print(out, "frame to frame", interval, word(framesHold));
    print(out, "work of a frame", spreadOf(figures.workMs), "");
    std::fprintf(out, "memory: %.0f KiB in period 2, %.0f KiB in period %zu: %+.0f KiB%s\n", memory,
                 memoryLater, last + 1, memoryLater - memory, word(memoryHolds));
    const bool descriptorsHold = printConstant(out, "descriptors", figures.descriptors);
    const bool namesHold = printConstant(out, "GL names", figures.names);
    std::fprintf(out,
                 "feeds: %lu packages and datagrams over %lu connections, lost or out of order "
                 "%lu, dropped by the system %lu, %s%s\n",
                 figures.rounds * 13, figures.connections, figures.faults + figures.datagramFaults,
                 figures.dropped, figures.complete ? "the last has come" : "the last has not come",
                 word(feedsHold));
    return memoryHolds && framesHold && feedsHold && descriptorsHold && namesHold;
}

}  // namespace OrlekTest
