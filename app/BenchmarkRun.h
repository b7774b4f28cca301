#ifndef SONAVIA_APP_BENCHMARKRUN_H
#define SONAVIA_APP_BENCHMARKRUN_H

#include <QElapsedTimer>
#include <QObject>
#include <QStringList>

#include <vector>

class MainWindow;

/// Loads each recording several times, measures from the request to the painted spectrogram, prints the
/// median for each file and ends the program. GUI thread.
class BenchmarkRun : public QObject
{
    Q_OBJECT

public:
    BenchmarkRun(MainWindow& window, const QStringList& files);

private:
    void loadNext();
    void painted();
    void print() const;

    MainWindow& m_window;
    QStringList m_files;
    int m_file = 0;
    QElapsedTimer m_timer;
    std::vector<double> m_milliseconds; // of the current file, the first one is a warm-up
};

#endif
