#ifndef SONAVIA_VIEWER_PLAYCURSOR_H
#define SONAVIA_VIEWER_PLAYCURSOR_H

#include <QObject>

class OverlayMarker;
class SpectrogramView;
class TimeAxisView;
struct ColourScheme;

/// The vertical line that moves over the spectrogram and the time-axis plot while a recording is played.
/// Moving it draws neither plot again. GUI thread only.
class PlayCursor : public QObject
{
    Q_OBJECT

public:
    /// Hidden at first. Owns neither plot.
    PlayCursor(SpectrogramView& spectrogram, TimeAxisView& time, QObject* parent = nullptr);

    void moveTo(double seconds); ///< in the recording
    void setVisible(bool visible);

private:
    void refresh();
    void useColours(const ColourScheme& scheme);

    SpectrogramView& m_spectrogram;
    TimeAxisView& m_time;
    OverlayMarker* m_onSpectrogram; ///< owned by the plot
};

#endif
