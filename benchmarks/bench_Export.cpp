// What leaves a folder: the dialog over a long list, the CSV file of its rows, and copies of its recordings.
//
// The goals: for 100,000 rows the dialog is there within 1 s, a second time within 50 ms (the list is read
// and counted in both), and the table with ten classes and three columns of events is on the disk within 2 s;
// copying files of 1 MB takes at most 1.2 times as long as `cp` does. Copies are made in turns with those of
// the peer; the best round of each counts.
#include "benchmarks/windowBenchmarks.h"
#include "evaluation/ListedRows.h"
#include "evaluation/core/CopyFilesThread.h"
#include "evaluation/core/CsvExport.h"
#include "evaluation/core/ExportFile.h"
#include "evaluation/exportcsvDialog.h"
#include "recordings/RecordingSession.h"
#include "recordings/rows/RowItem.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QProcess>
#include <QStorageInfo>
#include <QTemporaryDir>
#include <QThread>
#include <QTreeWidget>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <functional>
#include <limits>

namespace {

constexpr int longList = 100000;
constexpr int copiedFiles = 2000;
constexpr int copyRounds = 3;

double seconds(const std::function<void()>& work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) * 1e-9;
}

/// A night's recordings every 20 s, of ten classes and combinations of them.
QVector<RecordingRow> makeRows(int count)
{
    QVector<RecordingRow> rows;
    const QDateTime start(QDate(2020, 4, 1), QTime(20, 0), Qt::UTC);
    for (int i = 0; i < count; ++i) {
        const QDateTime at = start.addSecs(i * 20LL);
        RecordingRow row;
        row.name = QStringLiteral("M%1.wav").arg(i, 6, 10, QLatin1Char('0'));
        row.date = at.toString(QStringLiteral("dd/MM/yy"));
        row.time = at.toString(QStringLiteral("hh:mm:ss"));
        row.length = QStringLiteral("3.000");
        row.record.classes[0] = QStringLiteral("Class %1").arg(i % 10);
        row.record.classes[1] = i % 3 ? QString() : QStringLiteral("Class %1").arg(i / 3 % 10);
        row.record.comment = i % 7 ? QString() : QStringLiteral("two calls");
        rows.append(row);
    }
    return rows;
}

void writeCsv(benchmark::State& state)
{
    const QVector<RecordingRow> rows = makeRows(static_cast<int>(state.range(0)));
    const QTemporaryDir folder;
    CsvExport choice;
    choice.intervals = {1, 5, 10};
    choice.time = {QTimeZone("Europe/Berlin"), true};
    for (int i = 0; i < 10; ++i)
        choice.classes.append(QStringLiteral("Class %1").arg(i));
    for (auto _ : state)
        if (!ExportFile::write(folder.filePath(QStringLiteral("table.csv")), choice.text(rows)))
            state.SkipWithError("cannot be written");
    state.SetComplexityN(state.range(0));
}

void openDialog(benchmark::State& state)
{
    QTreeWidget list;
    QTreeWidget otherList;
    list.setColumnCount(RowItem::ColumnCount);
    QList<QTreeWidgetItem*> items;
    for (const RecordingRow& row : makeRows(longList)) {
        auto* item = new QTreeWidgetItem;
        RowItem::write(*item, row);
        items.append(item);
    }
    list.addTopLevelItems(items);
    RecordingSession session;
    session.viewMode = 1;
    for (auto _ : state) {
        exportcsvDialog dialog(nullptr, ListedRows(list, otherList, session).classText({}));
        dialog.show();
        QApplication::processEvents();
        dialog.repaint();
    }
}

/// Has the worker copy all files of a folder, one request after the other, as the window does.
void copyByWorker(const QString& from, const QString& to)
{
    QThread thread;
    CopyFilesThread worker;
    worker.moveToThread(&thread);
    thread.start();
    QEventLoop loop;
    QObject requester;
    const QStringList names = QDir(from).entryList(QDir::Files);
    const auto request = [&](int index) {
        QMetaObject::invokeMethod(&worker, [&, index] { worker.copyFiles(index, to, from, names, false); });
    };
    QObject::connect(&worker, &CopyFilesThread::signalCopyFinished, &requester,
                     [&](int index, const QString&, const QString&, const QStringList& answered) {
                         if (answered.size() != names.size())
                             qFatal("a file was not copied");
                         if (index + 1 < names.size())
                             request(index + 1);
                         else
                             loop.quit();
                     });
    request(0);
    loop.exec();
    thread.quit();
    thread.wait();
}

void copyFiles(benchmark::State& state)
{
    const QTemporaryDir folder;
    if (QStorageInfo(folder.path()).bytesAvailable() < copiedFiles * (2 * copyRounds + 2) * 1000000LL) {
        state.SkipWithError("no room");
        return;
    }
    const QString from = folder.filePath(QStringLiteral("from"));
    QDir(folder.path()).mkdir(QStringLiteral("from"));
    const QByteArray bytes(1000000, 's');
    for (int i = 0; i < copiedFiles; ++i) {
        QFile file(from + QStringLiteral("/M%1.wav").arg(i));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            state.SkipWithError("no room");
    }
    QProcess::execute(QStringLiteral("sync"), {});
    double ours = std::numeric_limits<double>::infinity();
    double peers = ours;
    // Each copy into memory that is new to it: what the last one gave back is quick for some and not for
    // others.
    int folders = 0;
    const auto intoNewFolder = [&folder, &folders](const std::function<void(const QString&)>& copy) {
        const QString to = folder.filePath(QStringLiteral("to%1").arg(++folders));
        QDir().mkdir(to);
        const double time = seconds([&] { copy(to); });
        QProcess::execute(QStringLiteral("sync"), {});
        return time;
    };
    for (auto _ : state) {
        for (int i = 0; i < copyRounds; ++i) {
            ours = std::min(ours, intoNewFolder([&](const QString& to) { copyByWorker(from, to); }));
            peers =
                std::min(peers, intoNewFolder([&](const QString& to) {
                             if (QProcess::execute(QStringLiteral("cp"),
                                                   {QStringLiteral("-r"), from + QStringLiteral("/."), to}))
                                 state.SkipWithError("no cp");
                         }));
        }
        state.SetIterationTime(ours);
    }
    state.counters["cp_ms"] = peers * 1e3;
    state.counters["ratio"] = ours / peers;
}

} // namespace

BENCHMARK(openDialog)->Name("ExportDialog/first")->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(openDialog)->Name("ExportDialog/again")->Unit(benchmark::kMillisecond);
BENCHMARK(writeCsv)
    ->Name("CsvFile")
    ->RangeMultiplier(2)
    ->Range(longList / 4, longList * 2LL)
    ->Complexity(benchmark::oN)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(copyFiles)->Name("CopyFiles")->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    return runWindowBenchmarks(argc, argv);
}
