// 100,000 settings read and written, beside TinyXML's own load and save of the same file. Each run
// of a read is a process of its own, so that settings are really new and all memory is fresh; that
// holds for both sides. The lines that reading prints go to /dev/null; "load/printing" is what they
// cost by themselves. "save/TinyXML+fsync" is a save that has reached the disk, as that of Property
// has when it returns.
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

void setAll() {
    for (int i = 0; i < keyCount; ++i) {
        Misc::Property::instance().setString(keyOf(i), "value " + std::to_string(i));
    }
}

double secondsOf(const std::function<bool()>& work) {
    const auto start = std::chrono::steady_clock::now();
    if (!work()) {
        std::abort();
    }
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// The time of the work in a child process; stdout is what the parent's is.
void inChild(benchmark::State& state, const std::function<bool()>& work) {
    for (auto _ : state) {
        int ends[2] = {};
        double seconds = -1;
        if (pipe(ends) != 0) {
            std::abort();
        }
        std::fflush(nullptr);
        const pid_t child = fork();
        if (child == 0) {
            seconds = secondsOf(work);
            _exit(write(ends[1], &seconds, sizeof seconds) == sizeof seconds ? 0 : 1);
        }
        close(ends[1]);
        if (read(ends[0], &seconds, sizeof seconds) != sizeof seconds) {
            state.SkipWithError("the child failed");
        }
        close(ends[0]);
        waitpid(child, nullptr, 0);
        state.SetIterationTime(seconds);
    }
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

void loads(benchmark::State& state, const std::function<bool()>& work) {
    const Silence silence;
    inChild(state, work);
}

void saves(benchmark::State& state, const std::function<bool()>& work) {
    for (auto _ : state) {
        state.SetIterationTime(secondsOf(work));
    }
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const OrlekTest::TempDir dir;
    const std::string file = dir.path("settings.xml");
    const std::string other = dir.path("other.xml");
    // Written by a child: the settings of this process stay empty for the reads.
    if (fork() == 0) {
        setAll();
        _exit(Misc::Property::instance().writeXmlFile(file) ? 0 : 1);
    }
    int status = -1;
    if (wait(&status) < 0 || status != 0) {
        std::fprintf(stderr, "the settings cannot be written\n");
        return 1;
    }
    const auto add = [](const char* name, auto kind, const std::function<bool()>& work) {
        benchmark::RegisterBenchmark(name, kind, work)
            ->Unit(benchmark::kMillisecond)
            ->UseManualTime();
    };
    add("load/TinyXML", loads, [&] {
        TiXmlDocument document;
        return document.LoadFile(file);
    });
    add("load/XmlDocument", loads, [&] { return XML::XmlDocument().read(file); });
    add("load/Property", loads, [&] { return Misc::Property::instance().readXmlFile(file); });
    add("load/printing", loads, printLines);
    TiXmlDocument document;
    const bool loaded = document.LoadFile(file);
    add("save/TinyXML", saves, [&] { return loaded && document.SaveFile(other); });
    add("save/TinyXML+fsync", saves, [&] { return loaded && saveAndSync(document, other); });
    add("save/Property", saves, [&] {
        if (Misc::Property::instance().getString(keyOf(0), "").empty()) {
            setAll();
        }
        return Misc::Property::instance().writeXmlFile(other);
    });
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
