#include "viewer/FrequencyMarkers.h"

#include "base/SettingsStore.h"
#include "viewer/OverlayMarker.h"
#include "viewer/PlotOverlay.h"
#include "viewer/PointerReach.h"
#include "viewer/SpectrogramView.h"

#include <QLocale>
#include <qwt_text.h>

#include <cmath>

namespace {

const std::array<SettingKey<bool>, 2> shownKeys{SettingKeys::marker1, SettingKeys::marker2};
const std::array<SettingKey<double>, 2> valueKeys{SettingKeys::valueMarker1, SettingKeys::valueMarker2};

} // namespace

FrequencyMarkers::FrequencyMarkers(SpectrogramView& spectrogram, SettingsStore& settings, QObject* parent)
    : QObject(parent), m_spectrogram(spectrogram), m_settings(settings)
{
    for (std::size_t index = 0; index < m_markers.size(); ++index) {
        Marker& marker = m_markers[index];
        marker.line = new OverlayMarker(QString(), QwtPlotMarker::HLine, m_spectrogram);
        marker.line->setLabelAlignment(Qt::AlignRight | Qt::AlignTop);
        marker.line->setVisible(m_settings.value(shownKeys[index]));
        marker.picker = new MyQwtPlotPicker(MyQwtPlotPicker::Drag::Point, m_spectrogram.canvas());
        marker.picker->setTrackerMode(QwtPicker::AlwaysOff); // the label tells the frequency
        marker.picker->setEnabled(false);
        watchDrag(index);
        place(index, stored(index));
    }
    useColours(m_spectrogram.colourScheme());
    connect(&m_spectrogram, &SpectrogramView::colourSchemeChanged, this, &FrequencyMarkers::useColours);
}

/// Where a drag ends is stored, not every step of it: the store writes its file in every turn of the event
/// loop that changed something. An aborted drag takes the marker back to where it was.
void FrequencyMarkers::watchDrag(std::size_t index)
{
    connect(m_markers[index].picker, &QwtPicker::activated, this, [this, index](bool on) {
        if (on)
            m_markers[index].beforeDrag = stored(index);
        else
            store(index, m_markers[index].line->yValue());
    });
    connect(m_markers[index].picker, &MyQwtPlotPicker::aborted, this, [this, index] {
        store(index, m_markers[index].beforeDrag);
        limitToAxis();
    });
}

double FrequencyMarkers::rounded(double kilohertz)
{
    return std::floor(2.0 * kilohertz + 0.5) * 0.5;
}

void FrequencyMarkers::setShown(std::size_t index, bool shown)
{
    m_settings.setValue(shownKeys[index], shown);
    m_markers[index].line->setVisible(shown);
    PlotOverlay::of(m_spectrogram).refresh();
}

void FrequencyMarkers::moveTo(std::size_t index, double kilohertz)
{
    const AxisLimits axis = m_spectrogram.frequencyLimits();
    const double value = qBound(axis.lower, rounded(kilohertz), axis.upper);
    place(index, value);
    if (!m_markers[index].picker->isActive())
        store(index, value);
}

void FrequencyMarkers::limitToAxis()
{
    for (std::size_t index = 0; index < m_markers.size(); ++index)
        place(index, qMin(stored(index), m_spectrogram.frequencyLimits().upper));
}

void FrequencyMarkers::place(std::size_t index, double kilohertz)
{
    OverlayMarker& line = *m_markers[index].line;
    line.setYValue(kilohertz);
    QwtText label(QLocale().toString(kilohertz, 'f', 1) + QStringLiteral(" kHz"));
    label.setColor(line.linePen().color());
    line.setLabel(label);
    PlotOverlay::of(m_spectrogram).refresh();
}

double FrequencyMarkers::stored(std::size_t index) const
{
    return m_settings.value(valueKeys[index]);
}

void FrequencyMarkers::store(std::size_t index, double kilohertz)
{
    m_settings.setValue(valueKeys[index], kilohertz);
}

void FrequencyMarkers::useColours(const ColourScheme& scheme)
{
    for (std::size_t index = 0; index < m_markers.size(); ++index) {
        m_markers[index].line->setLinePen(scheme.markerLine, 0.0, Qt::DashLine);
        place(index, m_markers[index].line->yValue());
    }
}

bool FrequencyMarkers::enableDraggingAt(const QPointF& pixel)
{
    bool isAny = false;
    for (const Marker& marker : m_markers) {
        const double line = m_spectrogram.transform(QwtPlot::yLeft, marker.line->yValue());
        const bool isInReach =
            !isAny && marker.line->isVisible() && std::abs(pixel.y() - line) <= PointerReach::pixels;
        marker.picker->setReady(isInReach);
        isAny = isAny || isInReach;
    }
    return isAny;
}
