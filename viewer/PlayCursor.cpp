#include "viewer/PlayCursor.h"

#include "viewer/OverlayMarker.h"
#include "viewer/PlotOverlay.h"
#include "viewer/SpectrogramView.h"
#include "viewer/TimeAxisView.h"

PlayCursor::PlayCursor(SpectrogramView& spectrogram, TimeAxisView& time, QObject* parent)
    : QObject(parent),
      m_spectrogram(spectrogram),
      m_time(time),
      m_onSpectrogram(
          new OverlayMarker(QStringLiteral("spectrogramPlotMarker"), QwtPlotMarker::VLine, spectrogram))
{
    useColours(m_spectrogram.colourScheme());
    connect(&m_spectrogram, &SpectrogramView::colourSchemeChanged, this, &PlayCursor::useColours);
}

void PlayCursor::moveTo(double seconds)
{
    m_onSpectrogram->setXValue(seconds);
    m_time.cursor().setXValue(seconds);
    refresh();
}

void PlayCursor::setVisible(bool visible)
{
    m_onSpectrogram->setVisible(visible);
    m_time.cursor().setVisible(visible);
    refresh();
}

void PlayCursor::refresh()
{
    PlotOverlay::of(m_spectrogram).refresh();
    PlotOverlay::of(m_time).refresh();
}

void PlayCursor::useColours(const ColourScheme& scheme)
{
    m_onSpectrogram->setLinePen(scheme.markerLine);
    refresh();
}
