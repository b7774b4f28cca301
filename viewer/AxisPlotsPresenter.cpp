#include "viewer/AxisPlotsPresenter.h"

#include "base/SettingsStore.h"
#include "dsp/SpectrogramParameters.h"
#include "viewer/FrequencyAxisView.h"
#include "viewer/MyQwtZoomer2.h"
#include "viewer/OverlayMarker.h"
#include "viewer/PlotOverlay.h"
#include "viewer/RangeMarker.h"
#include "viewer/SpectrogramView.h"
#include "viewer/TimeAxisView.h"
#include "viewer/core/LevelCurve.h"
#include "viewer/core/TimeCurve.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace {

constexpr int resizeMilliseconds = 60; ///< a splitter is dragged on for longer than that
constexpr double densitySpan = 120.0;  ///< dB below the peak that the density axis shows at most
constexpr double densityStep = 10.0;   ///< dB

QSize screenSize()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->availableSize() : QSize(1024, 768);
}

/// An index of `count` cells that lie one after the other from 0 on.
int cellAt(double position, double cellWidth, int count)
{
    if (count <= 0 || !(cellWidth > 0.0) || std::isnan(position))
        return 0;
    return static_cast<int>(std::clamp(std::floor(position / cellWidth), 0.0, count - 1.0));
}

} // namespace

AxisPlotsPresenter::AxisPlotsPresenter(SpectrogramView& spectrogram, TimeAxisView& time,
                                       FrequencyAxisView& frequency, const SettingsStore& settings,
                                       QObject* parent)
    : QObject(parent), m_spectrogram(spectrogram), m_time(time), m_frequency(frequency), m_settings(settings)
{
    showTitles(true);
    m_resizeTimer.setSingleShot(true);
    m_resizeTimer.setInterval(resizeMilliseconds);
    connect(&m_resizeTimer, &QTimer::timeout, this, [this] {
        if (plotWidth() != m_curveWidth)
            schedule(TimeCurveChange);
    });
    m_time.canvas()->installEventFilter(this);
    connect(&m_time.zoomer(), &QwtPlotZoomer::zoomed, this, [this] { schedule(TimeCurveChange); });
}

void AxisPlotsPresenter::setRecording(const std::vector<int>* samples, int sampleRate, int bitsPerSample)
{
    clear();
    m_samples = samples;
    m_sampleRate = sampleRate;
    m_bitsPerSample = bitsPerSample;
    if (m_samples)
        m_displayPeak = TimeCurve::displayPeak(*m_samples, m_bitsPerSample);
}

void AxisPlotsPresenter::setResult(const QVector<double>& matrix, int columns)
{
    m_matrix = matrix;
    m_columns = columns;
    m_maxima.reset();
    m_wholeFrequency = m_spectrogram.frequencyLimits();
    m_cursor = QPointF(duration() / 2.0, (m_wholeFrequency.lower + m_wholeFrequency.upper) / 2.0);
    const bool needsResult = modeOf(m_settings.value(SettingKeys::timePlotMode)) != FromSamples;
    schedule(LevelChange | (needsResult ? TimeView | TimeCurveChange : 0U));
}

void AxisPlotsPresenter::clear()
{
    m_samples = nullptr;
    m_sampleRate = 0;
    m_bitsPerSample = 0;
    m_displayPeak = 0;
    m_matrix = {};
    m_columns = 0;
    m_maxima.reset();
    m_time.visibleRange().clear();
    m_frequency.visibleRange().clear();
    m_frequency.marker().setVisible(false);
    PlotOverlay::of(m_frequency).refresh();
    schedule(TimeView | TimeCurveChange | LevelChange);
}

void AxisPlotsPresenter::setGridVisible(bool on)
{
    m_time.setGridVisible(on);
    m_frequency.setGridVisible(on);
    m_time.replot();
    m_frequency.replot();
}

void AxisPlotsPresenter::spectroZoomed(const QRectF& rect)
{
    m_spectrogram.setScaleItemPosition(rect.left());
    m_time.visibleRange().setRange(rect.left(), rect.right(), duration());
    m_frequency.visibleRange().setRange(rect.top(), rect.bottom(), m_sampleRate * 0.5 / 1000.0);
    if (m_settings.value(SettingKeys::timePlotZoom))
        schedule(TimeView | TimeCurveChange);
    if (m_settings.value(SettingKeys::frequencyPlotZoom))
        schedule(LevelChange);
    emit timeRangeShown(rect.left(), rect.right());
}

void AxisPlotsPresenter::slotTimePlotChanged()
{
    schedule(TimeView | TimeCurveChange);
}

void AxisPlotsPresenter::slotFrequencyPlotChanged()
{
    schedule(LevelChange);
}

void AxisPlotsPresenter::amplitudeScaleChanged()
{
    if (modeOf(m_settings.value(SettingKeys::timePlotMode)) != FromSamples)
        schedule(TimeView);
    if (modeOf(m_settings.value(SettingKeys::frequencyPlotMode)) != FromSamples)
        schedule(LevelChange);
}

void AxisPlotsPresenter::frequencyScaleChanged()
{
    m_wholeFrequency = m_spectrogram.frequencyLimits();
    m_frequency.visibleRange().clear();
    schedule(LevelChange);
}

void AxisPlotsPresenter::setCursor(const QPointF& position)
{
    if (m_columns <= 0)
        return;
    const int row = cursorRow();
    m_cursor.setY(position.y());
    if (cursorRow() != row && modeOf(m_settings.value(SettingKeys::timePlotMode)) == AtCursor)
        schedule(TimeCurveChange);
    setCursorTime(position.x());
    m_frequency.marker().setYValue(position.y());
    m_frequency.marker().setVisible(true);
    PlotOverlay::of(m_frequency).refresh();
}

void AxisPlotsPresenter::setCursorTime(double seconds)
{
    const int column = cursorColumn();
    m_cursor.setX(seconds);
    if (cursorColumn() != column && modeOf(m_settings.value(SettingKeys::frequencyPlotMode)) == AtCursor)
        schedule(LevelChange);
}

bool AxisPlotsPresenter::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::Resize && m_samples)
        m_resizeTimer.start(); // another number of points
    return QObject::eventFilter(object, event);
}

void AxisPlotsPresenter::schedule(unsigned changes)
{
    if (m_changes == 0)
        QMetaObject::invokeMethod(this, &AxisPlotsPresenter::update, Qt::QueuedConnection);
    m_changes |= changes;
}

void AxisPlotsPresenter::update()
{
    const unsigned changes = m_changes;
    m_changes = 0;
    if (m_samples)
        showTitles(false);
    if (changes & TimeView)
        updateTimeView();
    if (changes & TimeCurveChange)
        updateTimeCurve();
    if (changes & (TimeView | TimeCurveChange))
        m_time.replot();
    if (changes & LevelChange) {
        updateFrequencyPlot();
        m_frequency.replot();
    }
}

/// Until something has been computed the short title of the level stands at the time-axis plot, and that of
/// the other modes at the frequency-axis plot.
void AxisPlotsPresenter::showTitles(bool atStart)
{
    const bool isAmplitude = modeOf(m_settings.value(SettingKeys::timePlotMode)) == FromSamples;
    const bool isDensity = modeOf(m_settings.value(SettingKeys::frequencyPlotMode)) == FromSamples;
    const QString level = tr("Ampl. in dBFS");
    const QString timeTitle =
        isAmplitude ? tr("Norm. Amplitude") : (atStart ? level : tr("Amplitude in dBFS"));
    const QString levelTitle = isDensity && !atStart ? tr("Power/Freq. in dB/Hz") : level;
    if (m_time.axisTitle(QwtPlot::yLeft).text() != timeTitle)
        m_time.setAmplitudeTitle(timeTitle);
    if (m_frequency.axisTitle(QwtPlot::xBottom).text() != levelTitle)
        m_frequency.setLevelTitle(levelTitle);
}

void AxisPlotsPresenter::updateTimeView()
{
    const bool follows = m_settings.value(SettingKeys::timePlotZoom) && m_columns > 0;
    AxisLimits time = follows ? m_spectrogram.timeLimits() : AxisLimits{0.0, duration()};
    if (!time.isValid())
        time = AxisLimits::emptyTime();
    const double peak = m_displayPeak > 0.0 ? m_displayPeak : 1.0;
    AxisLimits amplitude{-peak, peak};
    if (modeOf(m_settings.value(SettingKeys::timePlotMode)) != FromSamples)
        amplitude = m_spectrogram.amplitudeLimits();
    m_time.setView(time, amplitude);
    m_time.setScaleItemPosition(follows ? time.lower : 0.0);
}

void AxisPlotsPresenter::updateTimeCurve()
{
    const Mode mode = modeOf(m_settings.value(SettingKeys::timePlotMode));
    const AxisLimits shown = m_time.timeLimits();
    m_curveWidth = plotWidth();
    TimeCurve curve;
    if (mode == FromSamples && m_samples)
        curve = TimeCurve::envelope(
            *m_samples, m_sampleRate, m_bitsPerSample,
            SampleRange::between(shown.lower, shown.upper, m_sampleRate, m_samples->size()), m_curveWidth);
    else if (mode == AtCursor)
        curve = TimeCurve::rowLevels(matrix(), cursorRow(), columnsOf(shown), m_curveWidth);
    else if (mode == Largest && m_columns > 0)
        curve = TimeCurve::largestLevels(matrix(), maxima(), columnsOf(shown), m_curveWidth);
    m_time.showCurve(curve, mode == FromSamples ? 0.0 : DecibelMatrix::floor);
}

void AxisPlotsPresenter::updateFrequencyPlot()
{
    const Mode mode = modeOf(m_settings.value(SettingKeys::frequencyPlotMode));
    const bool hasResult = m_columns > 0;
    const bool follows = m_settings.value(SettingKeys::frequencyPlotZoom) || !hasResult;
    const AxisLimits frequency = follows ? m_spectrogram.frequencyLimits() : m_wholeFrequency;
    QVector<QPointF> curve;
    if (hasResult)
        curve = levels(mode, timesOfLevels());
    m_frequency.setFrequencyLimits(frequency);
    m_frequency.setLevelLimits(levelLimits(mode, curve, frequency));
    m_frequency.showCurve(curve);
}

/// The part of the recording that the frequency-axis plot is about.
AxisLimits AxisPlotsPresenter::timesOfLevels() const
{
    return m_settings.value(SettingKeys::frequencyPlotZoom) ? m_spectrogram.timeLimits()
                                                            : AxisLimits{0.0, duration()};
}

QVector<QPointF> AxisPlotsPresenter::levels(Mode mode, const AxisLimits& times)
{
    const int height = screenSize().height();
    switch (mode) {
    case AtCursor:
        return LevelCurve::columnLevels(matrix(), cursorColumn(), height);
    case Largest:
        return LevelCurve::largestLevels(matrix(), maxima(), columnsOf(times), height);
    case FromSamples:
        break;
    }
    if (!m_samples)
        return {};
    const QString window =
        SpectrogramParameters::fromIndexes(m_settings.value(SettingKeys::window), 0, 0, 0).window;
    return LevelCurve::powerDensity(
        *m_samples, m_sampleRate, m_bitsPerSample,
        SampleRange::between(times.lower, times.upper, m_sampleRate, m_samples->size()), window);
}

/// A density has no scale of its own, so it gets one from its peak among the shown frequencies (kHz).
AxisLimits AxisPlotsPresenter::levelLimits(Mode mode, const QVector<QPointF>& curve,
                                           const AxisLimits& frequency) const
{
    if (mode != FromSamples)
        return m_spectrogram.amplitudeLimits();
    AxisLimits found{HUGE_VAL, -HUGE_VAL};
    for (const QPointF& point : curve) {
        if (point.y() < frequency.lower || point.y() > frequency.upper)
            continue;
        found.lower = qMin(found.lower, point.x());
        found.upper = qMax(found.upper, point.x());
    }
    if (found.lower > found.upper)
        return {};
    const double upper = (std::floor(found.upper / densityStep) + 1.0) * densityStep;
    return {qMax(std::floor(found.lower / densityStep) * densityStep, upper - densitySpan), upper};
}

AxisPlotsPresenter::Mode AxisPlotsPresenter::modeOf(int setting)
{
    return setting == 1 ? AtCursor : setting == 2 ? Largest : FromSamples;
}

/// s, in the precision of the spectrogram's time axis.
double AxisPlotsPresenter::duration() const
{
    if (!m_samples || m_sampleRate <= 0)
        return 0.0;
    return static_cast<double>(static_cast<float>(m_samples->size()) / static_cast<float>(m_sampleRate));
}

/// Whole kHz, as the spectrogram's frequency axis ends.
double AxisPlotsPresenter::nyquist() const
{
    const int kilohertz = m_sampleRate / 2000;
    return kilohertz;
}

DecibelMatrix AxisPlotsPresenter::matrix() const
{
    if (m_columns <= 0 || m_matrix.size() < m_columns)
        return {};
    const int rows = m_matrix.size() / m_columns;
    return {m_matrix.constData(), rows, m_columns, duration() / m_columns, nyquist() / rows};
}

ColumnRange AxisPlotsPresenter::columnsOf(const AxisLimits& times) const
{
    const double width = matrix().secondsPerColumn;
    if (!(width > 0.0))
        return {};
    return {
        static_cast<int>(std::clamp(std::floor(times.lower / width), 0.0, static_cast<double>(m_columns))),
        static_cast<int>(std::clamp(std::ceil(times.upper / width), 0.0, static_cast<double>(m_columns)))};
}

int AxisPlotsPresenter::cursorRow() const
{
    const DecibelMatrix levels = matrix();
    return cellAt(m_cursor.y(), levels.kilohertzPerRow, levels.rows);
}

int AxisPlotsPresenter::cursorColumn() const
{
    const DecibelMatrix levels = matrix();
    return cellAt(m_cursor.x(), levels.secondsPerColumn, levels.columns);
}

const MatrixMaxima& AxisPlotsPresenter::maxima()
{
    if (!m_maxima)
        m_maxima.emplace(matrix());
    return *m_maxima;
}

/// Before the window has its size, one point per pixel of the screen does.
int AxisPlotsPresenter::plotWidth() const
{
    return m_time.isVisible() ? m_time.canvas()->width() : screenSize().width();
}
