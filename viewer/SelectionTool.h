#ifndef SONAVIA_VIEWER_SELECTIONTOOL_H
#define SONAVIA_VIEWER_SELECTIONTOOL_H

#include "viewer/MyQwtPlotPicker.h"
#include "viewer/MyQwtZoomer.h"

#include <QObject>
#include <QRectF>

#include <array>

class FrequencyMarkers;
class MyRectRangeMarker;
class QAbstractButton;
class RangeMarker;
class SpectrogramView;
struct ColourScheme;

/// What the pointer does on the spectrogram: zoom, select a rectangle of time and frequency, drag one of its
/// edges or a frequency marker, read coordinates.
///
/// In zoom mode, the first one, dragging with the left button zooms and with Shift selects; in selection mode
/// it is the other way round. A right click steps the zoom back. Near an edge or a marker the left button
/// drags that. Escape aborts a drag; in zoom mode, with no drag under way, it takes the selection away. GUI
/// thread only.
class SelectionTool : public QObject
{
    Q_OBJECT

public:
    enum class Mode { Zoom, Selection };

    /// `timeRange` shows the selected times on the time-axis plot. Nothing is owned.
    SelectionTool(SpectrogramView& spectrogram, RangeMarker& timeRange, FrequencyMarkers& markers,
                  QObject* parent = nullptr);

    void setMode(Mode mode);
    Mode mode() const { return m_mode; }
    /// The buttons that show the mode. A click on one of them, or setMode(), checks it and unchecks the
    /// other.
    void setButtons(QAbstractButton& zoom, QAbstractButton& selection);

    /// Connects what the pointer does to the slots of these names of `receiver`, for the main window, which
    /// forwards to the functions below.
    template <typename Receiver>
    void connectPickers(Receiver* receiver)
    {
        const auto moved = qOverload<const QPoint&>(&QwtPicker::moved);
        connect(m_pointer, &MyQwtPlotPicker::mouseMoved, receiver, &Receiver::mouseMoved);
        connect(m_selector, &QwtPicker::activated, receiver, &Receiver::deactivateZoomer);
        connect(m_selector, qOverload<const QPolygon&>(&QwtPicker::selected), receiver,
                &Receiver::plotSelectionRect);
        connect(m_edges[Left], moved, receiver, &Receiver::moveSelectorLeft);
        connect(m_edges[Right], moved, receiver, &Receiver::moveSelectorRight);
        connect(m_edges[Top], moved, receiver, &Receiver::moveSelectorTop);
        connect(m_edges[Bottom], moved, receiver, &Receiver::moveSelectorBottom);
    }

    // Points are pixels of the canvas.
    void mouseMoved(const QPointF& point);
    void deactivateZoomer(bool on); ///< while a selection is drawn
    void plotSelectionRect(const QPolygon& polygon);
    void moveSelectorLeft(const QPoint& point);
    void moveSelectorRight(const QPoint& point);
    void moveSelectorTop(const QPoint& point);
    void moveSelectorBottom(const QPoint& point);

    /// x in s, y in kHz, y growing with the frequency; null when nothing is selected.
    QRectF selection() const;
    void clearSelection();

    /// Tells every new view of the spectrogram through zoomed(QRectF).
    MyQwtZoomer& zoomer() { return *m_zoomer; }
    /// The spectrogram shows all of a recording: that becomes the zoom base, and the selection goes.
    void recordingShown();
    /// Other frequencies are shown: the zoom base gets them, and keeps its times.
    void frequencyLimitsChanged();

signals:
    /// Where the pointer is, in s and kHz.
    void pointerMoved(const QPointF& position);
    void modeChanged(SelectionTool::Mode mode);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    enum Edge { Left, Right, Top, Bottom, edgeCount };

    void createPickers();
    void watchDrag(MyQwtPlotPicker& edge);
    void setSelection(const QRectF& selection);
    void enableWhatIsInReach();
    bool enableEdgesAt(const QPointF& pixel, bool markerInReach);
    Qt::CursorShape cursorFor(bool markerInReach) const;
    void useColours(const ColourScheme& scheme);

    SpectrogramView& m_spectrogram;
    FrequencyMarkers& m_markers;
    RangeMarker& m_timeRange;
    MyRectRangeMarker* m_frame; ///< owned by the plot
    // Owned by the canvas.
    MyQwtZoomer* m_zoomer;
    MyQwtPlotPicker* m_pointer;
    MyQwtPlotPicker* m_selector;
    std::array<MyQwtPlotPicker*, edgeCount> m_edges{};

    Mode m_mode = Mode::Zoom;
    QPointF m_pointerPixel{-1e6, -1e6}; ///< far from everything until the pointer comes
    QRectF m_beforeDrag;
    bool m_isButtonDown = false;
};

#endif
