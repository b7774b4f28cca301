// Assigning a class to all recordings of a large folder, as by a letter key: the run with its worker thread,
// rows and counts in a shown window, against the writing alone, and how long the GUI thread is kept from its
// event loop.

#include "benchmarks/windowBenchmarks.h"
#include "classes/AssignmentController.h"
#include "classes/ClassTreePane.h"
#include "recordings/RecordingSession.h"
#include "recordings/rows/RowItem.h"
#include "recordings/rows/WriteFileBextThread.h"
#include "recordings/writeBextDescription.h"
#include "tests/support/ScriptedPrompts.h"
#include "tools/WavBytes.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QHBoxLayout>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>
#include <QTreeWidget>

#include <algorithm>
#include <benchmark/benchmark.h>

namespace {

constexpr int fileCount = 10000;

/// The lists and the class tree of a window, connected to the worker, over a folder of short recordings.
class Window
{
public:
    Window()
        : m_pane(m_tree, m_prompts),
          m_controller(m_window, {m_list, m_folderList}, m_pane, m_session, m_prompts)
    {
        auto* layout = new QHBoxLayout(&m_window);
        layout->addWidget(&m_tree);
        layout->addWidget(&m_list);
        m_list.setHeaderLabels(RowItem::headerTexts());
        m_list.setUniformRowHeights(true);
        m_list.setSelectionMode(QAbstractItemView::ExtendedSelection);
        m_pane.setClassTree(ClassTree::advancedDefault());
        m_session.folder = m_folder.path();
        m_session.viewMode = 2;
        addFiles();
        connectWorker();
        m_window.resize(1000, 700);
        m_window.show();
        m_worker.moveToThread(&m_thread);
        m_thread.start();
    }
    ~Window()
    {
        m_thread.quit();
        m_thread.wait();
    }

    /// Assigns the class with the shortcut to all files. The longest time, in ms, between two turns of the
    /// event loop.
    double assign(const QString& shortcut)
    {
        constexpr int period = 5;
        double longest = 0.0;
        QElapsedTimer since;
        QTimer beat;
        QObject::connect(&beat, &QTimer::timeout,
                         [&] { longest = std::max(longest, static_cast<double>(since.restart() - period)); });
        since.start();
        beat.start(period);
        m_list.selectAll();
        QEventLoop loop;
        QObject::connect(&m_controller, &AssignmentController::rowsInUseChanged, &loop, [&loop](bool inUse) {
            if (!inUse)
                loop.quit();
        });
        m_controller.assignByShortcut(shortcut);
        loop.exec();
        return longest;
    }

    double writingAlone() const
    {
        QElapsedTimer timer;
        timer.start();
        for (int row = 0; row < fileCount; ++row)
            writeBextDescription(m_folder.filePath(m_list.topLevelItem(row)->text(RowItem::Name)),
                                 QStringLiteral("Pip|"));
        return static_cast<double>(timer.nsecsElapsed()) * 1e-9;
    }

private:
    void addFiles()
    {
        const QByteArray bytes =
            WavBytes().fmt(384000).data(std::vector<std::int16_t>(2000)).bext({}).bytes();
        for (int number = 0; number < fileCount; ++number) {
            RecordingRow row;
            row.name = QStringLiteral("M500_20240514_%1.wav").arg(number, 6, 10, QLatin1Char('0'));
            row.date = QStringLiteral("14/05/24");
            QFile file(m_folder.filePath(row.name));
            if (file.open(QIODevice::WriteOnly))
                file.write(bytes);
            RowItem::write(*new QTreeWidgetItem(&m_list, {row.name}), row);
            m_pane.countAdded(row);
        }
    }

    void connectWorker()
    {
        QObject::connect(&m_controller, &AssignmentController::signalWriteFileBextExtended, &m_worker,
                         &WriteFileBextThread::writeFileBextExtended);
        QObject::connect(&m_worker, &WriteFileBextThread::signalFileBextFinishedExtended, &m_controller,
                         &AssignmentController::fileBextFinishedExtended);
    }

    QTemporaryDir m_folder;
    ScriptedPrompts m_prompts;
    RecordingSession m_session;
    QWidget m_window;
    QTreeWidget m_tree;
    QTreeWidget m_list;
    QTreeWidget m_folderList;
    ClassTreePane m_pane;
    AssignmentController m_controller;
    WriteFileBextThread m_worker;
    QThread m_thread;
};

/// Each round gives all files one more class.
void assignToAll(benchmark::State& state)
{
    Window window;
    QStringList shortcuts = {"<A>", "<Q>", "<S>", "<D>"};
    double least = 1e9;
    double writing = 1e9;
    double stall = 0.0;
    for (auto _ : state) {
        QApplication::processEvents();
        QElapsedTimer timer;
        timer.start();
        stall = std::max(stall, window.assign(shortcuts.takeFirst()));
        const double seconds = static_cast<double>(timer.nsecsElapsed()) * 1e-9;
        state.SetIterationTime(seconds);
        least = std::min(least, seconds);
    }
    for (int round = 0; round < 3; ++round)
        writing = std::min(writing, window.writingAlone());
    state.counters["us_per_file"] = 1e6 * least / fileCount;
    state.counters["us_writing"] = 1e6 * writing / fileCount;
    state.counters["ratio"] = least / writing;
    state.counters["stall_ms"] = stall;
}
BENCHMARK(assignToAll)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(4);

} // namespace

int main(int argc, char** argv)
{
    qRegisterMetaType<QTreeWidgetItem*>("QTreeWidgetItem*");
    qRegisterMetaType<QList<QTreeWidgetItem*>>("QList<QTreeWidgetItem*>");
    return runWindowBenchmarks(argc, argv);
}
