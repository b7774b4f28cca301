#ifndef SONAVIA_VIEWER_PLOTOVERLAY_H
#define SONAVIA_VIEWER_PLOTOVERLAY_H

#include <QRegion>
#include <QWidget>

class OverlayItem;
class QwtPlot;

/// A transparent sheet over the canvas of a plot on which the items are drawn that move often: cursors,
/// markers, the selection. Moving one costs the repainting of a few strips of pixels; neither the curves nor
/// the picture of the plot are drawn again.
///
/// The items stay ordinary items of the plot, attached to it, owned by it and drawn in its order; they draw
/// themselves on the sheet because they are OverlayItems and the sheet exists. GUI thread only.
class PlotOverlay : public QWidget
{
    Q_OBJECT

public:
    /// The sheet of this plot, made on the first call. It belongs to the canvas.
    static PlotOverlay& of(QwtPlot& plot);

    /// Whether there is a sheet that draws the OverlayItems of this plot.
    static bool draws(const QwtPlot* plot);

    /// Shows the items as they are now. To be called after every change of an item's position, text, colour
    /// or visibility; paints later, once for several calls in a row.
    void refresh();

    /// While one of these lives, the plot draws all of its items itself: for printing and exporting.
    class Suspension
    {
    public:
        explicit Suspension(QwtPlot& plot);
        ~Suspension();
        Suspension(const Suspension&) = delete;
        Suspension& operator=(const Suspension&) = delete;

    private:
        PlotOverlay* m_overlay;
    };

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    explicit PlotOverlay(QwtPlot& plot);
    template <typename Visit>
    void visitItems(const Visit& visit) const;
    QRegion itemPixels() const;

    QwtPlot& m_plot;
    QRegion m_painted; ///< where the items were when they were last painted
    bool m_suspended = false;
};

#endif
