// From the start of the process to the first painted screen: the program as it is delivered beside a bare window of
// Qt's of the same size. The two take turns, each in a process of its own.
//   bench_start [TURNS]
#include "Mark.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{
constexpr int UsualTurns = 40;
constexpr double Million = 1e6;

using Words = std::vector<std::string>;

std::int64_t Now()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return std::int64_t{now.tv_sec} * 1'000'000'000 + now.tv_nsec;
}

struct Start
{
    double wall = 0;      // [ms] to the painted window
    double processor = 0; // [ms] of all threads
    Mark mark;
};

struct Pipe
{
    int ends[2] = {-1, -1};
    Pipe()
    {
        if (pipe(ends) != 0) throw std::runtime_error("no pipe");
    }
    ~Pipe()
    {
        CloseWriting();
        close(ends[0]);
    }
    Pipe(const Pipe &) = delete;
    Pipe &operator=(const Pipe &) = delete;
    void CloseWriting()
    {
        if (ends[1] >= 0) close(ends[1]);
        ends[1] = -1;
    }
};

std::vector<char *> Pointers(Words &words)
{
    std::vector<char *> pointers;
    for (std::string &word : words) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    return pointers;
}

Words Environment(const std::string &platform, int pipe)
{
    Words words{"LD_PRELOAD=" BENCH_MARKS, "QT_QPA_PLATFORM=" + platform, "ALSOFT_DRIVERS=null",
                std::string(MarkPipe) + '=' + std::to_string(pipe)};
    for (const char *name : {"DISPLAY", "HOME", "PATH", "LANG", "LC_ALL", "XDG_RUNTIME_DIR"})
        if (const char *value = std::getenv(name)) words.push_back(std::string(name) + '=' + value);
    return words;
}

// One process from its start to its mark.
Start Run(const std::string &platform, Words command)
{
    Pipe pipe;
    Words environment = Environment(platform, pipe.ends[1]);
    const std::int64_t begun = Now();
    pid_t process = 0;
    posix_spawn_file_actions_t quietly; // what a platform without masks says of them
    posix_spawn_file_actions_init(&quietly);
    posix_spawn_file_actions_addopen(&quietly, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    if (posix_spawn(&process, command[0].c_str(), &quietly, nullptr, Pointers(command).data(),
                    Pointers(environment).data()) != 0)
        throw std::runtime_error("can't start " + command[0]);
    posix_spawn_file_actions_destroy(&quietly);
    pipe.CloseWriting();
    Start start;
    const bool told = read(pipe.ends[0], &start.mark, sizeof start.mark) == sizeof start.mark;
    waitpid(process, nullptr, 0);
    if (!told) throw std::runtime_error(command[0] + " showed no window");
    start.wall = static_cast<double>(start.mark.at - begun) / Million;
    start.processor = static_cast<double>(start.mark.processor) / Million;
    return start;
}

// The program in a folder of its own: what is measured leaves settings and a store behind.
class Delivered
{
public:
    Delivered()
    {
        std::string folder = (std::filesystem::temp_directory_path() / "bench_start.XXXXXX").string();
        if (mkdtemp(folder.data()) == nullptr) throw std::runtime_error("no folder");
        m_Folder = folder;
        std::filesystem::copy(NOGGLE_DIST, m_Folder, std::filesystem::copy_options::recursive);
        std::filesystem::remove(m_Folder / "Settings.ini");
        std::filesystem::copy_file(NOGGLE_STORE, m_Folder / "Noggle.mdb",
                                   std::filesystem::copy_options::overwrite_existing);
    }
    ~Delivered()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_Folder, ignored);
    }
    Delivered(const Delivered &) = delete;
    Delivered &operator=(const Delivered &) = delete;
    std::string Program() const { return (m_Folder / "noggle").string(); }

private:
    std::filesystem::path m_Folder;
};

template <typename Member>
double Middle(const std::vector<Start> &starts, Member member)
{
    std::vector<double> values(starts.size());
    std::transform(starts.begin(), starts.end(), values.begin(), member);
    std::nth_element(values.begin(), values.begin() + values.size() / 2, values.end());
    return values[values.size() / 2];
}

template <typename Member>
double Best(const std::vector<Start> &starts, Member member)
{
    double best = member(starts.front());
    for (const Start &start : starts) best = std::min(best, member(start));
    return best;
}

template <typename Member>
void Tell(const char *what, const std::vector<Start> &ours, const std::vector<Start> &floor, Member member)
{
    const double middle = Middle(ours, member), middleFloor = Middle(floor, member);
    const double best = Best(ours, member), bestFloor = Best(floor, member);
    std::printf("  %-24s %7.1f %7.1f  %5.2f   %7.1f %7.1f  %5.2f\n", what, middle, middleFloor, middle / middleFloor,
                best, bestFloor, best / bestFloor);
}

// The one long sleep is the splash's hold; were there another, the figures would hide it.
void CheckHold(const Mark &mark)
{
    if (mark.sleeps != 1 || mark.skipped > 5'000'000'000) throw std::runtime_error("not the one hold of the splash");
}

void Measure(const std::string &platform, int turns)
{
    const Delivered delivered;
    const Words ours{delivered.Program()};
    const Start first = Run(platform, ours); // writes what a first start writes
    CheckHold(first.mark);
    const Words floor{BENCH_BARE_WINDOW, std::to_string(first.mark.width), std::to_string(first.mark.height)};
    Words written = floor;
    written.push_back("Noggle");
    Run(platform, floor);

    std::vector<Start> starts, floors, writtenFloors;
    for (int turn = 0; turn < turns; ++turn) {
        floors.push_back(Run(platform, floor));
        starts.push_back(Run(platform, ours));
        writtenFloors.push_back(Run(platform, written));
        CheckHold(starts.back().mark);
    }
    std::printf("%s, %d x %d, %d turns: middle ours, floor, ratio; best ours, floor, ratio\n", platform.c_str(),
                first.mark.width, first.mark.height, turns);
    const auto wall = [](const Start &start) { return start.wall; };
    const auto processor = [](const Start &start) { return start.processor; };
    const auto mainThread = [](const Start &start) { return static_cast<double>(start.mark.mainThread) / Million; };
    const auto own = [](const Start &start) { return static_cast<double>(start.mark.own) / (1024 * 1024); };
    const auto shared = [](const Start &start) { return static_cast<double>(start.mark.shared) / (1024 * 1024); };
    Tell("time [ms]", starts, floors, wall);
    Tell("processor time [ms]", starts, floors, processor);
    Tell("main thread's [ms]", starts, floors, mainThread);
    Tell("time, text on floor [ms]", starts, writtenFloors, wall);
    Tell("main thread's, text [ms]", starts, writtenFloors, mainThread);
    Tell("private memory [MiB]", starts, floors, own);
    Tell("proportional [MiB]", starts, floors, shared);
    std::fflush(stdout);
}
} // namespace

int main(int argc, char *argv[])
try {
    const int turns = argc > 1 ? std::max(1, std::atoi(argv[1])) : UsualTurns;
    Measure("offscreen", turns);
    if (std::getenv("DISPLAY") != nullptr) Measure("xcb", turns);
    return EXIT_SUCCESS;
} catch (const std::exception &failure) {
    std::fprintf(stderr, "bench_start: %s\n", failure.what());
    return EXIT_FAILURE;
}
