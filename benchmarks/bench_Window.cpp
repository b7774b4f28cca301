// The whole window over large folders, as a user has it: opening one, stepping through it, giving all its
// recordings a class. Each figure goes with the longest time for which the GUI thread was kept from its event
// loop.

#include "app/MainWindow.h"
#include "app/QueuedTypes.h"
#include "benchmarks/StallWatch.h"
#include "benchmarks/windowBenchmarks.h"
#include "tests/support/TemporarySettings.h"
#include "tools/WavBytes.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeWidget>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdio>
#include <memory>
#include <numeric>
#include <vector>

namespace {

constexpr int patience = 120000; // ms
constexpr int sampleRate = 500000;

/// A folder of short recordings; the first ten are of 5 s at 500 kHz.
class Night
{
public:
    explicit Night(int files)
    {
        std::vector<std::int16_t> sweep(std::size_t{5} * sampleRate);
        for (std::size_t i = 0; i < sweep.size(); ++i) {
            const double t = std::fmod(static_cast<double>(i) / sampleRate, 0.1);
            sweep[i] = static_cast<std::int16_t>((t < 0.005 ? 9000.0 * std::sin(t * (5e5 - 3e7 * t)) : 0.0) +
                                                 static_cast<double>(i * 7919 % 61));
        }
        WavBytes::Bext bext;
        bext.originationDate = "2026-06-12";
        bext.originationTime = "22:10:00";
        const QByteArray full = WavBytes().fmt(sampleRate).bext(bext).data(sweep).bytes();
        sweep.resize(2000);
        const QByteArray brief = WavBytes().fmt(sampleRate).bext(bext).data(sweep).bytes();
        for (int i = 0; i < files; ++i) {
            QFile file(m_folder.filePath(QStringLiteral("M500_%1.wav").arg(i, 6, 10, QLatin1Char('0'))));
            const QByteArray& bytes = i < 10 ? full : brief;
            if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
                std::fputs("cannot write the recordings of the benchmark\n", stderr);
        }
    }
    QString path() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
};

/// The program's window with settings of its own, shown and drawn once.
class Program
{
public:
    Program()
    {
        window.show();
        window.activateWindow();
        waitFor([this] { return window.isActiveWindow(); });
        settle();
    }

    template <typename Condition>
    static bool waitFor(Condition condition)
    {
        QElapsedTimer timer;
        timer.start();
        while (!condition() && timer.elapsed() < patience)
            QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 10);
        return condition();
    }
    /// Lets pass what is still under way.
    static void settle()
    {
        QEventLoop loop;
        QTimer::singleShot(300, &loop, &QEventLoop::quit);
        loop.exec();
    }

    bool listComplete() const
    {
        return window.findChild<QAction*>(QStringLiteral("actionExport_CSV_File"))->isEnabled();
    }
    QTreeWidget& list(const char* name) const { return *window.findChild<QTreeWidget*>(QLatin1String(name)); }

    /// Starts "Evaluate Folder" and answers its dialogs.
    void evaluate(const QString& folder)
    {
        QTimer answering;
        QObject::connect(&answering, &QTimer::timeout, &window, [&] {
            QWidget* dialog = QApplication::activeModalWidget();
            if (auto* files = qobject_cast<QFileDialog*>(dialog)) {
                files->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(folder);
                QMetaObject::invokeMethod(files, "accept");
            } else if (dialog && dialog->inherits("OpenModelDialog")) {
                QMetaObject::invokeMethod(dialog, "accept");
            }
        });
        answering.start(50);
        window.findChild<QAction*>(QStringLiteral("actionEvaluate_Folder"))->trigger();
        waitFor([this] { return listComplete(); });
        settle();
    }

    static void press(QWidget& widget, int key, const QString& text = QString())
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(&widget, &event);
    }

private:
    TemporarySettings m_settings;

public:
    MainWindow window;
};

double since(const QElapsedTimer& timer)
{
    return static_cast<double>(timer.nsecsElapsed()) * 1e-6;
}

/// Memory of the process in MB, where the system tells it in /proc.
double residentMegabytes()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (status.open(QIODevice::ReadOnly)) {
        const QList<QByteArray> lines = status.readAll().split('\n');
        for (const QByteArray& line : lines)
            if (line.startsWith("VmRSS:"))
                return line.mid(6).trimmed().split(' ').first().toDouble() / 1024.0;
    }
    return 0.0;
}

/// Until the spectrogram of the first recording is painted, and until all rows are filled.
void openFolder(benchmark::State& state)
{
    const Night night(static_cast<int>(state.range(0)));
    double first = 0.0;
    double stall = 0.0;
    double memory = 0.0;
    for (auto _ : state) {
        Program program;
        double painted = 0.0;
        QElapsedTimer timer;
        QObject::connect(&program.window, &MainWindow::spectrogramPainted, [&] {
            if (painted == 0.0)
                painted = since(timer);
        });
        const StallWatch watch(2);
        timer.start();
        QTimer::singleShot(0, &program.window, [&] { program.window.open(night.path()); });
        if (!program.waitFor([&] { return painted > 0.0 && program.listComplete(); }))
            state.SkipWithError("the folder did not open");
        state.SetIterationTime(since(timer) * 1e-3);
        program.settle();
        first = std::max(first, painted);
        stall = std::max(stall, watch.milliseconds());
        memory = std::max(memory, residentMegabytes());
    }
    state.counters["first_spectrogram_ms"] = first;
    state.counters["stall_ms"] = stall;
    state.counters["memory_MB"] = memory;
}
BENCHMARK(openFolder)->UseManualTime()->Unit(benchmark::kMillisecond)->Arg(10000)->Arg(100000)->Iterations(3);

/// Key Right in the list of 10,000 recordings, to the painted spectrogram of 5 s at 500 kHz.
void stepToNext(benchmark::State& state)
{
    const Night night(10000);
    Program program;
    program.window.open(night.path());
    program.waitFor([&] { return program.listComplete(); });
    program.settle();
    bool painted = false;
    QObject::connect(&program.window, &MainWindow::spectrogramPainted, [&] { painted = true; });
    double most = 0.0;
    double stall = 0.0;
    for (auto _ : state) {
        painted = false;
        const StallWatch watch(2);
        QElapsedTimer timer;
        timer.start();
        program.press(program.list("treeWidget_2"), Qt::Key_Right);
        if (!program.waitFor([&] { return painted; }))
            state.SkipWithError("nothing was painted");
        state.SetIterationTime(since(timer) * 1e-3);
        most = std::max(most, since(timer));
        program.settle();
        stall = std::max(stall, watch.milliseconds());
    }
    state.counters["most_ms"] = most;
    state.counters["stall_ms"] = stall;
}
BENCHMARK(stepToNext)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(9);

/// All 10,000 recordings selected in the evaluation list, then one letter key.
void assignToAll(benchmark::State& state)
{
    const Night night(10000);
    Program program;
    program.evaluate(night.path());
    QTreeWidget& list = program.list("treeWidget_fileView");
    const QList<QPair<int, QString>> keys = {{Qt::Key_A, QStringLiteral("a")},
                                             {Qt::Key_D, QStringLiteral("d")}};
    int round = 0;
    double stall = 0.0;
    for (auto _ : state) {
        const StallWatch watch(2);
        QElapsedTimer timer;
        timer.start();
        list.selectAll();
        const int column = 6 + round;
        program.press(list, keys.at(round).first, keys.at(round).second);
        ++round;
        if (!program.waitFor([&] {
                return !list.topLevelItem(list.topLevelItemCount() - 1)->text(column).isEmpty() &&
                       !QApplication::activeModalWidget();
            }))
            state.SkipWithError("the classes were not written");
        state.SetIterationTime(since(timer) * 1e-3);
        program.settle();
        stall = std::max(stall, watch.milliseconds());
    }
    state.counters["stall_ms"] = stall;
}
BENCHMARK(assignToAll)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(2);

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    registerQueuedTypes();
    return runWindowBenchmarks(argc, argv);
}
