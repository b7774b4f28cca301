// Reviewing a large folder: the whole chain of list, header worker and result file, against opening the same
// folder without the results, and the lookup against searching the file from its start for each recording.

#include "benchmarks/FolderLoading.h"
#include "benchmarks/windowBenchmarks.h"
#include "recordings/RecorderResult.h"
#include "tools/WavBytes.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>

namespace {

constexpr int folderFiles = 10000;

void write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        std::fputs("cannot write the files of the benchmark\n", stderr);
}

QString nameOf(int i)
{
    return QStringLiteral("M500_20240514_%1.wav").arg(i, 6, 10, QLatin1Char('0'));
}

/// Recordings with a class, a species that the simple tree does not know, and a line for each.
class ReviewFolder
{
public:
    ReviewFolder()
    {
        QByteArray lines;
        for (int i = 0; i < folderFiles; ++i)
            lines += nameOf(i).toLatin1() +
                     "\t2024-05-14 22:10:00\t17\tbat\tPipistrelloid\t98\t\t\tPpip\t91\t"
                     "PpPp\t12\r\n";
        write(task(0).recorderResultFileName, lines);
    }

    /// All records as before any review.
    void writeRecordings() const
    {
        WavBytes::Bext bext;
        bext.description = "Ppip|Pip|0|two calls";
        bext.originationDate = "2024-05-14";
        bext.originationTime = "22:10:00";
        const QByteArray bytes =
            WavBytes().fmt(384000).data(std::vector<std::int16_t>(2000)).bext(bext).bytes();
        for (int i = 0; i < folderFiles; ++i)
            write(m_folder.filePath(nameOf(i)), bytes);
    }

    FolderTask task(int reviewMode) const { return FolderTask::review(m_folder.path(), reviewMode); }
    FolderTask taskWithoutResults() const { return FolderTask::folderEvaluation(m_folder.path()); }

private:
    QTemporaryDir m_folder;
};

const ReviewFolder& reviewFolder()
{
    static const ReviewFolder folder;
    return folder;
}

double secondsToFill(const FolderTask& task)
{
    return FolderLoading(FileListPane::Purpose::Assignment).run(task);
}

/// `rewriting`: each record has to be changed and written, as in the first review with the simple tree; else
/// none. `ratio` is to the same folder without the results.
void review(benchmark::State& state, bool rewriting)
{
    double least = 1e9;
    double leastWithout = 1e9;
    for (auto _ : state) {
        reviewFolder().writeRecordings();
        leastWithout = std::min(leastWithout, secondsToFill(reviewFolder().taskWithoutResults()));
        const double seconds = secondsToFill(reviewFolder().task(rewriting ? 0 : 1));
        state.SetIterationTime(seconds);
        least = std::min(least, seconds);
    }
    state.counters["us_per_file"] = 1e6 * least / folderFiles;
    state.counters["us_without"] = 1e6 * leastWithout / folderFiles;
    state.counters["ratio"] = least / leastWithout;
}
BENCHMARK_CAPTURE(review, records_kept, false)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK_CAPTURE(review, records_changed, true)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);

QString searched(const QString& resultFileName, const QByteArray& name)
{
    QFile file(resultFileName);
    file.open(QIODevice::ReadOnly);
    while (!file.atEnd()) {
        const QByteArray line = file.readLine();
        if (line.contains(name))
            return QString::fromUtf8(line).split(QLatin1Char('\t')).value(8);
    }
    return {};
}

/// All proposals of the folder, the file read and put in order again; `ratio` is to a plain search, measured
/// on every fiftieth recording.
void lookUp(benchmark::State& state)
{
    const FolderTask task = reviewFolder().task(1);
    double least = 1e9;
    double leastSearched = 1e9;
    QElapsedTimer timer;
    for (auto _ : state) {
        timer.start();
        RecorderResult result;
        for (int i = 0; i < folderFiles; ++i)
            benchmark::DoNotOptimize(
                result.proposal(task.recorderResultFileName, nameOf(i), RecorderResult::Mode::Species));
        const double seconds = static_cast<double>(timer.nsecsElapsed()) * 1e-9;
        state.SetIterationTime(seconds);
        least = std::min(least, seconds);
        timer.start();
        for (int i = 0; i < folderFiles; i += 50)
            benchmark::DoNotOptimize(searched(task.recorderResultFileName, nameOf(i).toLatin1()));
        leastSearched = std::min(leastSearched, 50e-9 * static_cast<double>(timer.nsecsElapsed()));
    }
    state.counters["us_per_file"] = 1e6 * least / folderFiles;
    state.counters["us_searched"] = 1e6 * leastSearched / folderFiles;
    state.counters["ratio"] = least / leastSearched;
}
BENCHMARK(lookUp)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

} // namespace

int main(int argc, char** argv)
{
    return runWindowBenchmarks(argc, argv);
}
