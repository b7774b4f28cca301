// Reading the header and class record of 10,000 recordings, and writing the records, on a warm cache.
//
// Peers in the same run: the bare system calls of the same work, and, where installed, soxi given all files
// at once and exiftool given the folder. Worker and system calls take turns; the best of several rounds
// counts. A file is a short recording whose "bext" chunk stands behind 64 KB of samples, as recorders leave
// it.
#include "base/UserPrompts.h"
#include "recordings/GetFileInfoThread.h"
#include "recordings/writeBextDescription.h"
#include "tools/WavBytes.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtEndian>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstring>
#include <functional>
#include <limits>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

constexpr int fileCount = 10000;
constexpr int rounds = 7;

class NoPrompts : public UserPrompts
{
public:
    Answer ask(const Question& question) override { return question.preset; }
};

/// The recordings, made once; the folder goes with the process.
class Night
{
public:
    Night()
    {
        WavBytes::Bext bext;
        bext.description = "Pip + Ppyg|Pip|0|two calls";
        bext.originationDate = "2024-05-01";
        bext.originationTime = "22:10:30";
        bext.codingHistory = QByteArray(256, '\0');
        const QByteArray bytes =
            WavBytes().fmt(384000).data(std::vector<std::int16_t>(4096)).bext(bext).bytes();
        for (int i = 0; i < fileCount; ++i) {
            QFile file(m_folder.filePath(QStringLiteral("night_%1.wav").arg(i, 5, 10, QLatin1Char('0'))));
            if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
                qFatal("cannot make the recordings");
            m_paths.append(file.fileName());
        }
    }
    const QStringList& paths() const { return m_paths; }
    QString folder() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
    QStringList m_paths;
};

const Night& night()
{
    static const Night night;
    return night;
}

double seconds(const std::function<void()>& work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

void readAll()
{
    static NoPrompts prompts;
    static GetFileInfoThread worker(prompts);
    int index = 0;
    for (const QString& path : night().paths())
        worker.getFileHeaderInfo(index++, path, false, QString(), 1);
}

void writeAll(const QString& description)
{
    for (const QString& path : night().paths())
        if (!writeBextDescription(path, description))
            qFatal("cannot write a record");
}

#ifdef Q_OS_UNIX
/// Open, walk the chunks with a read for each end of the file, and close.
template <typename Visit>
void walkBare(int flags, Visit visit)
{
    static char bytes[4096];
    for (const QString& path : night().paths()) {
        const int file = ::open(QFile::encodeName(path).constData(), flags);
        struct stat status;
        if (file < 0 || ::fstat(file, &status) != 0 || ::pread(file, bytes, sizeof bytes, 0) < 44)
            qFatal("cannot read a recording");
        const off_t behindSamples = 44 + static_cast<off_t>(qFromLittleEndian<quint32>(bytes + 40));
        if (::pread(file, bytes, sizeof bytes, behindSamples) < 8 || std::memcmp(bytes, "bext", 4) != 0)
            qFatal("no bext chunk where it should be");
        visit(file, behindSamples + 8);
        ::close(file);
    }
}

void readAllBare()
{
    walkBare(O_RDONLY | O_CLOEXEC, [](int, off_t) {});
}

void writeAllBare(char fill)
{
    char description[bextDescriptionSize];
    std::fill(std::begin(description), std::end(description), fill);
    walkBare(O_RDWR | O_CLOEXEC, [&description](int file, off_t offset) {
        if (::pwrite(file, description, sizeof description, offset) != sizeof description)
            qFatal("cannot write a record");
    });
}
#endif

/// The best time of both, in turn.
struct Pair
{
    double ours = std::numeric_limits<double>::max();
    double peer = std::numeric_limits<double>::max();

    void round(const std::function<void()>& ourWork, const std::function<void()>& peerWork)
    {
        ours = std::min(ours, seconds(ourWork));
        peer = std::min(peer, seconds(peerWork));
    }
};

void report(benchmark::State& state, const char* peer, const Pair& best)
{
    state.counters["us_per_file"] = best.ours * 1e6 / fileCount;
    state.counters["peer_us_per_file"] = best.peer * 1e6 / fileCount;
    state.counters["ratio"] = best.ours / best.peer;
    state.SetLabel(peer);
    state.SetIterationTime(best.ours);
}

#ifdef Q_OS_UNIX
void readHeaders(benchmark::State& state)
{
    readAll(); // the first round fills the cache
    while (state.KeepRunning()) {
        Pair best;
        for (int i = 0; i < rounds; ++i)
            best.round(readAll, readAllBare);
        report(state, "bare system calls", best);
    }
}

void writeRecords(benchmark::State& state)
{
    while (state.KeepRunning()) {
        Pair best;
        for (int i = 0; i < rounds; ++i) // another text each time, since what is there already is not written
            best.round([i] { writeAll(QStringLiteral("Pip|Pip|1|round %1").arg(i)); },
                       [i] { writeAllBare(static_cast<char>('a' + i)); });
        report(state, "bare system calls", best);
    }
}
#endif

/// A program that reads all files in one process; without it the row is skipped.
void againstProgram(benchmark::State& state, const QString& name, const QStringList& arguments, int times)
{
    const QString program = QStandardPaths::findExecutable(name);
    if (program.isEmpty()) {
        state.SkipWithError("not installed");
        return;
    }
    while (state.KeepRunning()) {
        Pair best;
        for (int i = 0; i < times; ++i)
            best.round(readAll, [&] {
                QProcess process;
                process.setWorkingDirectory(night().folder());
                process.setStandardOutputFile(QProcess::nullDevice());
                process.setStandardErrorFile(QProcess::nullDevice());
                process.start(program, arguments);
                if (!process.waitForFinished(-1) || process.exitCode() != 0)
                    qFatal("the peer failed");
            });
        report(state, qPrintable(name), best);
    }
}

void readAgainstSoxi(benchmark::State& state)
{
    const QStringList names = QDir(night().folder()).entryList(QDir::Files);
    againstProgram(state, QStringLiteral("soxi"), names, 3);
}

void readAgainstExiftool(benchmark::State& state)
{
    againstProgram(state, QStringLiteral("exiftool"), {QStringLiteral(".")}, 1);
}

} // namespace

#ifdef Q_OS_UNIX
BENCHMARK(readHeaders)->Name("ReadHeaders")->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(writeRecords)->Name("WriteRecords")->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);
#endif
BENCHMARK(readAgainstSoxi)
    ->Name("ReadHeaders/soxi")
    ->Iterations(1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(readAgainstExiftool)
    ->Name("ReadHeaders/exiftool")
    ->Iterations(1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
