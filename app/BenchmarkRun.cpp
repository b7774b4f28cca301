#include "app/BenchmarkRun.h"

#include "app/MainWindow.h"

#include <QCoreApplication>
#include <QTimer>

#include <algorithm>
#include <cstdio>

namespace {

constexpr std::size_t measuredLoads = 15;

} // namespace

BenchmarkRun::BenchmarkRun(MainWindow& window, const QStringList& files)
    : QObject(&window), m_window(window), m_files(files)
{
    connect(&window, &MainWindow::spectrogramPainted, this, &BenchmarkRun::painted);
    QTimer::singleShot(0, this, &BenchmarkRun::loadNext);
}

void BenchmarkRun::loadNext()
{
    m_timer.start();
    m_window.plot_Data(m_files.at(m_file));
}

void BenchmarkRun::painted()
{
    m_milliseconds.push_back(static_cast<double>(m_timer.nsecsElapsed()) * 1e-6);
    if (m_milliseconds.size() > measuredLoads) {
        print();
        m_milliseconds.clear();
        ++m_file;
    }
    if (m_file == m_files.size())
        QCoreApplication::quit();
    else
        QTimer::singleShot(50, this, &BenchmarkRun::loadNext); // let what the last load left behind settle
}

void BenchmarkRun::print() const
{
    std::vector<double> sorted(m_milliseconds.begin() + 1, m_milliseconds.end());
    std::sort(sorted.begin(), sorted.end());
    std::printf(
        "%s: from loading to the painted spectrogram %.1f ms median, %.1f ms least, %.1f ms most of %zu\n",
        qPrintable(m_files.at(m_file)), sorted[sorted.size() / 2], sorted.front(), sorted.back(),
        sorted.size());
    std::fflush(stdout);
}
