#ifndef SONAVIA_VIEWER_FREQUENCYMARKERS_H
#define SONAVIA_VIEWER_FREQUENCYMARKERS_H

#include "viewer/MyQwtPlotPicker.h"

#include <QObject>

#include <array>

struct ColourScheme;
class OverlayMarker;
class SettingsStore;
class SpectrogramView;

/// The two dashed frequency lines on the spectrogram, each with its frequency as a label. The user drags them
/// in steps of half a kHz; where they stand and whether they are shown is stored. GUI thread only.
class FrequencyMarkers : public QObject
{
    Q_OBJECT

public:
    /// Places both as stored. Neither is owned; the store must outlive the markers.
    FrequencyMarkers(SpectrogramView& spectrogram, SettingsStore& settings, QObject* parent = nullptr);

    /// Shows or hides marker 1 or 2 and stores that.
    void setMarker1Shown(bool shown) { setShown(0, shown); }
    void setMarker2Shown(bool shown) { setShown(1, shown); }

    /// Takes a marker to where the pointer is (y in kHz), rounded and kept on the spectrogram's frequency
    /// axis, and stores the frequency; of a drag, when it ends.
    void moveMarker1(const QPointF& point) { moveTo(0, point.y()); }
    void moveMarker2(const QPointF& point) { moveTo(1, point.y()); }

    /// The frequency axis has changed: markers whose stored frequencies (kHz) lie above its end come down to
    /// it.
    void limitToAxis();

    /// Connects dragging to the slots moveMarker1(QPointF) and moveMarker2(QPointF) of `receiver`.
    template <typename Receiver>
    void connectPickers(Receiver* receiver)
    {
        connect(m_markers[0].picker, qOverload<const QPointF&>(&MyQwtPlotPicker::moved), receiver,
                &Receiver::moveMarker1);
        connect(m_markers[1].picker, qOverload<const QPointF&>(&MyQwtPlotPicker::moved), receiver,
                &Receiver::moveMarker2);
    }

    /// Makes the marker draggable that is visible and within reach of the pointer (in pixels of the canvas),
    /// and the others not. Returns whether there is one.
    bool enableDraggingAt(const QPointF& pixel);

    static double rounded(double kilohertz); ///< to the nearest half; a quarter goes up

private:
    struct Marker
    {
        OverlayMarker* line;     ///< owned by the plot
        MyQwtPlotPicker* picker; ///< owned by the canvas
        double beforeDrag;       ///< kHz, the stored frequency
    };

    void setShown(std::size_t index, bool shown);
    void moveTo(std::size_t index, double kilohertz);
    void place(std::size_t index, double kilohertz);
    double stored(std::size_t index) const;
    void store(std::size_t index, double kilohertz);
    void watchDrag(std::size_t index);
    void useColours(const ColourScheme& scheme);

    SpectrogramView& m_spectrogram;
    SettingsStore& m_settings;
    std::array<Marker, 2> m_markers{};
};

#endif
