// 100,000 settings read and written, beside TinyXML's own load and save of the same file. Each run
// is a child process, so that the settings of a read are new and all memory is fresh, on both
// sides. "cpu" is what of the time the processor worked. The lines that reading prints go to
// /dev/null; "load/printing" is what they cost by themselves. "save/TinyXML+fsync" is a save that
// has reached the disk, as that of Property has when it returns.
#include <Orlek/Misc/Property.h>
#include <Orlek/XML/XmlDocument.h>
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/wait.h>
#include <tinyxml.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <string>

#include "platform/Report.h"
#include "support/TempDir.h"

namespace {

using namespace Orlek;

constexpr int keyCount = 100000;
constexpr int keysOfGroup = 20;

std::string keyOf(int i) {
    const std::string group = std::to_string(10000 + i / keysOfGroup);
    return "Display.Layer" + group + ".setting" + std::to_string(i % keysOfGroup);
}

bool setAll() {
    for (int i = 0; i < keyCount; ++i) {
        Misc::Property::instance().setString(keyOf(i), "value " + std::to_string(i));
    }
    return true;
}

struct Seconds {
    double wall = -1;
    double cpu = -1;
};

Seconds secondsOf(const std::function<bool()>& work) {
    const std::clock_t cpuStart = std::clock();
    const auto start = std::chrono::steady_clock::now();
    if (!work()) {
        std::abort();
    }
    const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - start;
    return {wall.count(), static_cast<double>(std::clock() - cpuStart) / CLOCKS_PER_SEC};
}

// Times the work in a child process, after `prepare`.
Seconds inChild(const std::function<bool()>& prepare, const std::function<bool()>& work) {
    int ends[2] = {};
    Seconds seconds;
    if (pipe(ends) != 0) {
        std::abort();
    }
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        if (!prepare()) {
            std::abort();
        }
        seconds = secondsOf(work);
        _exit(write(ends[1], &seconds, sizeof seconds) == sizeof seconds ? 0 : 1);
    }
    close(ends[1]);
    const bool done = read(ends[0], &seconds, sizeof seconds) == sizeof seconds;
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return done ? seconds : Seconds();
}

// Sends what is printed to /dev/null while it lives: the lines of reading, not the results.
class Silence {
public:
    Silence() : mSaved(dup(STDOUT_FILENO)) {
        std::fflush(stdout);
        const int nowhere = open("/dev/null", O_WRONLY);
        dup2(nowhere, STDOUT_FILENO);
        close(nowhere);
    }
    ~Silence() {
        std::fflush(stdout);
        dup2(mSaved, STDOUT_FILENO);
        close(mSaved);
    }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

private:
    int mSaved;
};

bool printLines() {
    for (int i = 0; i < keyCount; ++i) {
        Detail::report("Property <%s> <%s>\n", keyOf(i).c_str(), "value 12345");
    }
    return true;
}

bool saveAndSync(const TiXmlDocument& document, const std::string& path) {
    std::FILE* file = std::fopen(path.c_str(), "w");
    const bool saved =
        document.SaveFile(file) && std::fflush(file) == 0 && fsync(fileno(file)) == 0;
    return std::fclose(file) == 0 && saved;
}

void measure(benchmark::State& state, const std::function<bool()>& prepare,
             const std::function<bool()>& work) {
    const Silence silence;
    double cpu = 0;
    for (auto _ : state) {
        const Seconds seconds = inChild(prepare, work);
        if (seconds.wall < 0) {
            state.SkipWithError("the child failed");
            break;
        }
        state.SetIterationTime(seconds.wall);
        cpu += seconds.cpu * 1000;
    }
    state.counters["cpu"] = benchmark::Counter(cpu, benchmark::Counter::kAvgIterations);
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const OrlekTest::TempDir dir;
    const std::string file = dir.path("settings.xml");
    const std::string other = dir.path("other.xml");
    // Written by a child: the settings of this process stay empty for the reads.
    if (fork() == 0) {
        _exit(setAll() && Misc::Property::instance().writeXmlFile(file) ? 0 : 1);
    }
    int status = -1;
    if (wait(&status) < 0 || status != 0) {
        std::fprintf(stderr, "the settings cannot be written\n");
        return 1;
    }
    const auto add = [](const char* name, const std::function<bool()>& prepare,
                        const std::function<bool()>& work) {
        benchmark::RegisterBenchmark(name, measure, prepare, work)
            ->Unit(benchmark::kMillisecond)
            ->UseManualTime();
    };
    const auto nothing = [] { return true; };
    TiXmlDocument document;
    const auto load = [&] { return document.LoadFile(file); };
    add("load/TinyXML", nothing, [&] { return TiXmlDocument().LoadFile(file); });
    add("load/XmlDocument", nothing, [&] { return XML::XmlDocument().read(file); });
    add("load/Property", nothing, [&] { return Misc::Property::instance().readXmlFile(file); });
    add("load/printing", nothing, printLines);
    add("save/TinyXML", load, [&] { return document.SaveFile(other); });
    add("save/TinyXML+fsync", load, [&] { return saveAndSync(document, other); });
    add("save/Property", setAll, [&] { return Misc::Property::instance().writeXmlFile(other); });
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
