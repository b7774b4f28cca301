#ifndef SONAVIA_TESTS_SUPPORT_PLOTSCENE_H
#define SONAVIA_TESTS_SUPPORT_PLOTSCENE_H

#include "base/SettingsStore.h"
#include "viewer/AxisPlotsPresenter.h"
#include "viewer/FrequencyAxisView.h"
#include "viewer/FrequencyMarkers.h"
#include "viewer/PlayCursor.h"
#include "viewer/PlotAlignment.h"
#include "viewer/SelectionTool.h"
#include "viewer/SpectrogramView.h"
#include "viewer/TimeAxisView.h"

#include <QCoreApplication>
#include <QSplitter>
#include <QWidget>
#include <QtMath>

#include <cmath>
#include <memory>
#include <vector>

/// The three plots in a window, arranged as in the program, with everything that belongs to them, showing a
/// recording of a falling tone whose spectrogram is made up: its level is -40 dB on the tone and lower
/// elsewhere.
class PlotScene
{
public:
    static constexpr int sampleRate = 250000;
    static constexpr int bits = 16;
    static constexpr int nyquist = sampleRate / 2000; ///< kHz

    PlotScene(double seconds, int rows, int columns, const QSize& size)
        : m_samples(static_cast<std::size_t>(seconds * sampleRate)),
          m_matrix(rows * columns),
          m_columns(columns)
    {
        makeRecording(rows);
        arrange();
        m_window.resize(size);
        m_window.show();
        presenter.setRecording(&m_samples, sampleRate, bits);
        showResult();
        settle();
    }

    /// Installs the result as it arrives from the worker.
    void showResult()
    {
        spectrogram->showResult(m_matrix, m_columns, duration(), nyquist);
        spectrogram->setFrequencyLimits({0.0, static_cast<double>(nyquist)});
        spectrogram->setAmplitudeLimits({-100.0, -30.0});
        tool.recordingShown();
        markers.limitToAxis();
        presenter.setResult(m_matrix, m_columns);
    }

    /// Lets the event loop do what is pending, painting included.
    static void settle()
    {
        for (int i = 0; i < 5; ++i) {
            QCoreApplication::sendPostedEvents();
            QCoreApplication::processEvents();
        }
    }

    double duration() const { return static_cast<double>(m_samples.size()) / sampleRate; }
    /// The frequency of the tone (kHz): it falls from 90 to 20 over the recording.
    double toneAt(double seconds) const { return 90.0 - 70.0 * seconds / duration(); }
    double levelAt(int row, int column) const { return m_matrix.at(row * m_columns + column); }
    int rows() const { return m_matrix.size() / m_columns; }
    int columns() const { return m_columns; }
    const std::vector<int>& samples() const { return m_samples; }

    QWidget& window() { return m_window; }
    QSplitter& upper() { return *m_upper; } ///< time-axis plot above the spectrogram
    QSplitter& lower() { return *m_lower; } ///< spectrogram and frequency-axis plot

private:
    void makeRecording(int rows)
    {
        double phase = 0;
        for (std::size_t i = 0; i < m_samples.size(); ++i) {
            const double seconds = static_cast<double>(i) / sampleRate;
            phase += 2.0 * M_PI * toneAt(seconds) * 1000.0 / sampleRate;
            const double envelope = std::exp(-8.0 * std::pow(seconds / duration() - 0.4, 2));
            m_samples[i] = static_cast<int>(12000.0 * envelope * std::sin(phase));
        }
        double* cell = m_matrix.data();
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column < m_columns; ++column) {
                const double tone = toneAt((column + 0.5) * duration() / m_columns);
                const double away = std::abs((row + 0.5) * nyquist / rows - tone);
                *cell++ = std::max(-40.0 - 10.0 * away, -100.0);
            }
        }
    }

    void arrange()
    {
        m_upper = new QSplitter(Qt::Vertical, &m_window);
        m_upper->addWidget(time);
        m_lower = new QSplitter(Qt::Horizontal);
        m_upper->addWidget(m_lower);
        m_lower->addWidget(spectrogram);
        m_lower->addWidget(frequency);
        m_lower->setStretchFactor(0, 4);
        m_lower->setStretchFactor(1, 1);
        m_upper->setStretchFactor(1, 3);
        m_window.setCentral(m_upper);
    }

    /// Gives its only child all of its room.
    class Window : public QWidget
    {
    public:
        void setCentral(QWidget* child) { m_child = child; }

    protected:
        void resizeEvent(QResizeEvent* /*event*/) override { m_child->setGeometry(rect()); }

    private:
        QWidget* m_child = nullptr;
    };

    std::vector<int> m_samples;
    QVector<double> m_matrix;
    int m_columns;
    Window m_window;
    QSplitter* m_upper = nullptr;
    QSplitter* m_lower = nullptr;

public:
    SettingsStore settings;
    // Owned by the window.
    SpectrogramView* spectrogram = new SpectrogramView;
    TimeAxisView* time = new TimeAxisView;
    FrequencyAxisView* frequency = new FrequencyAxisView;

    FrequencyMarkers markers{*spectrogram, settings};
    SelectionTool tool{*spectrogram, time->selectedRange(), markers};
    AxisPlotsPresenter presenter{*spectrogram, *time, *frequency, settings};
    PlayCursor playCursor{*spectrogram, *time};
    PlotAlignment alignment{*spectrogram, *time, *frequency};
};

#endif
