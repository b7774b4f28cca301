// Filling the list of a large folder: the chain of header requests against an empty chain on the same
// threads, and how long the GUI thread is kept from its event loop.

#include "benchmarks/FolderLoading.h"
#include "benchmarks/StallWatch.h"
#include "benchmarks/windowBenchmarks.h"
#include "tools/WavBytes.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <memory>

namespace {

constexpr int folderFiles = 10000;

/// Recordings of a night: each with a class record behind its samples, so that all of the file is walked.
const QTemporaryDir& nightFolder()
{
    static const auto folder = [] {
        auto made = std::make_unique<QTemporaryDir>();
        WavBytes::Bext bext;
        bext.description = "Pip + Ppyg|Pip|0|two calls";
        bext.originationDate = "2024-05-14";
        bext.originationTime = "22:10:00";
        const QByteArray bytes =
            WavBytes().fmt(384000).data(std::vector<std::int16_t>(2000)).bext(bext).bytes();
        for (int i = 0; i < folderFiles; ++i) {
            QFile file(
                made->filePath(QStringLiteral("M500_20240514_%1.wav").arg(i, 6, 10, QLatin1Char('0'))));
            if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
                std::fputs("cannot write the recordings of the benchmark\n", stderr);
        }
        return made;
    }();
    return *folder;
}

/// Answers every request at once, with nothing.
class EmptyWorker : public QObject
{
    Q_OBJECT

public slots:
    void getFileHeaderInfo(int index, const QString&, bool, const QString&, int)
    {
        emit signalFileInfoHeaderFinished(index, {}, {}, {}, {}, {}, {}, {}, {}, {}, {});
    }

signals:
    void signalFileInfoHeaderFinished(int, const QString&, const QString&, const QString&, const QString&,
                                      const QString&, const QString&, const QString&, const QString&,
                                      const QString&, const QString&);
};

/// The other end of the empty chain: asks for the next and nothing else.
class EmptyAsker : public QObject
{
    Q_OBJECT

public:
    int left = 0;

public slots:
    void fileInfoHeaderFinished(int index, const QString&, const QString&, const QString&, const QString&,
                                const QString&, const QString&, const QString&, const QString&,
                                const QString&, const QString&)
    {
        if (--left == 0)
            emit finished();
        else
            emit signalGetFileHeaderInfo(index + 1, QString(), false, QString(), 1);
    }

signals:
    void signalGetFileHeaderInfo(int, const QString&, bool, const QString&, int);
    void finished();
};

double emptyChain(int requests)
{
    EmptyWorker worker;
    EmptyAsker asker;
    QThread thread;
    worker.moveToThread(&thread);
    QObject::connect(&asker, &EmptyAsker::signalGetFileHeaderInfo, &worker, &EmptyWorker::getFileHeaderInfo);
    QObject::connect(&worker, &EmptyWorker::signalFileInfoHeaderFinished, &asker,
                     &EmptyAsker::fileInfoHeaderFinished);
    thread.start();
    asker.left = requests;
    QEventLoop loop;
    QObject::connect(&asker, &EmptyAsker::finished, &loop, &QEventLoop::quit);
    QElapsedTimer timer;
    timer.start();
    emit asker.signalGetFileHeaderInfo(0, QString(), false, QString(), 1);
    loop.exec();
    const double seconds = static_cast<double>(timer.nsecsElapsed()) * 1e-9;
    thread.quit();
    thread.wait();
    return seconds;
}

/// The worker alone, called directly: what the headers cost without chain and list.
double readingAlone(const FolderTask& task)
{
    ScriptedPrompts prompts;
    GetFileInfoThread worker(prompts);
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < task.names.size(); ++i)
        worker.getFileHeaderInfo(i, task.pathOf(task.names.at(i)), false, QString(), 1);
    return static_cast<double>(timer.nsecsElapsed()) * 1e-9;
}

/// Opens the folder and fills all rows; beside it, in the same minute, the empty chain and the reading alone.
/// On an idle machine waking the other thread dominates, and `ratio` (to the empty chain) is near 1; on a
/// busy one it is cheap, and `ratio_with_reading` tells more.
void folderAgainstEmptyChain(benchmark::State& state)
{
    const QString folder = nightFolder().path();
    double least = 1e9;
    double leastEmpty = 1e9;
    double leastReading = 1e9;
    double stall = 0.0;
    for (auto _ : state) {
        FolderLoading loading(FileListPane::Purpose::Folder);
        const StallWatch watch(5);
        const double seconds = loading.run(FolderTask::openedFolder(folder));
        state.SetIterationTime(seconds);
        least = std::min(least, seconds);
        stall = std::max(stall, watch.milliseconds());
        leastEmpty = std::min(leastEmpty, emptyChain(folderFiles));
        leastReading = std::min(leastReading, readingAlone(FolderTask::openedFolder(folder)));
    }
    state.counters["us_per_file"] = 1e6 * least / folderFiles;
    state.counters["us_empty"] = 1e6 * leastEmpty / folderFiles;
    state.counters["us_reading"] = 1e6 * leastReading / folderFiles;
    state.counters["ratio"] = least / leastEmpty;
    state.counters["ratio_with_reading"] = least / (leastEmpty + leastReading);
    state.counters["stall_ms"] = stall;
}
BENCHMARK(folderAgainstEmptyChain)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

QStringList manyNames(int count)
{
    QStringList names;
    for (int i = 0; i < count; ++i)
        names.append(QStringLiteral("M500_20240514_%1.wav").arg(i, 6, 10, QLatin1Char('0')));
    return names;
}

RecordingRow someRow()
{
    RecordingRow row;
    row.date = QStringLiteral("14/05/24");
    row.time = QStringLiteral("22:10:00");
    row.length = QStringLiteral("5.000");
    row.record = ClassRecord::parse(QStringLiteral("Pip + Ppyg|Pip|0|two calls"));
    return row;
}

/// The list alone: building its rows, then filling each from a record.
void listRows(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    const QStringList names = manyNames(count);
    const RecordingRow row = someRow();
    double building = 1e9;
    double filling = 1e9;
    for (auto _ : state) {
        FolderLoading loading(FileListPane::Purpose::Assignment);
        QElapsedTimer timer;
        timer.start();
        loading.pane().beginLoading(names);
        const double built = static_cast<double>(timer.nsecsElapsed()) * 1e-6;
        for (int i = 0; i < count; ++i)
            loading.pane().fillRow(i, row);
        loading.pane().endLoading(true);
        const double all = static_cast<double>(timer.nsecsElapsed()) * 1e-6;
        state.SetIterationTime(all * 1e-3);
        building = std::min(building, built);
        filling = std::min(filling, all - built);
    }
    state.counters["building_ms"] = building;
    state.counters["filling_ms"] = filling;
}
BENCHMARK(listRows)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Arg(folderFiles)
    ->Arg(100000)
    ->Iterations(3);

/// A click on a header: sorting by name, date or length.
void sorting(benchmark::State& state)
{
    FolderLoading loading(FileListPane::Purpose::Folder);
    loading.pane().beginLoading(manyNames(folderFiles));
    for (int i = 0; i < folderFiles; ++i) {
        RecordingRow row = someRow();
        const int scattered = (i * 7919) % folderFiles;
        row.time = QTime(0, 0).addSecs(scattered).toString(QStringLiteral("hh:mm:ss"));
        row.length = QString::number(0.001 * scattered, 'f', 3);
        loading.pane().fillRow(i, row);
    }
    loading.pane().endLoading(true);
    const int column = static_cast<int>(state.range(0));
    auto order = Qt::DescendingOrder;
    for (auto _ : state) {
        loading.list.sortByColumn(column, order);
        order = order == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
    }
}
BENCHMARK(sorting)->Unit(benchmark::kMillisecond)->Arg(0)->Arg(1)->Arg(3);

} // namespace

int main(int argc, char** argv)
{
    return runWindowBenchmarks(argc, argv);
}

#include "bench_FolderChain.moc"
