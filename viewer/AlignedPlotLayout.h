#ifndef SONAVIA_VIEWER_ALIGNEDPLOTLAYOUT_H
#define SONAVIA_VIEWER_ALIGNEDPLOTLAYOUT_H

#include <QMargins>
#include <qwt_plot_layout.h>

#include <functional>

/// The layout of a plot whose canvas keeps a given distance from the plot's edges, so that it can be lined up
/// with the canvas of another plot. The axes stay at the canvas; their outer ends, where the titles stand, at
/// the edges. Documents get the ordinary layout.
///
/// Titles, footers and legends of the plot are not moved along. Belongs to the plot it is set to.
class AlignedPlotLayout : public QwtPlotLayout
{
public:
    /// Takes canvas margins and alignment from `like`. `naturalMarginsChanged` is called from within the
    /// layout of the plot and must not change it there.
    AlignedPlotLayout(const QwtPlotLayout& like, std::function<void()> naturalMarginsChanged);

    /// The distances (pixels) between the edges of the plot's contents and its canvas that the axes need by
    /// themselves, as of the last layout.
    QMargins naturalMargins() const { return m_natural; }

    /// The distances that the canvas keeps, where the natural ones are not larger. Returns whether that is a
    /// change: then call QwtPlot::updateLayout().
    bool setLeastMargins(const QMargins& margins);

    void activate(const QwtPlot* plot, const QRectF& plotRect, Options options) override;

private:
    void moveCanvas(const QRectF& canvas);

    std::function<void()> m_naturalMarginsChanged;
    QMargins m_natural;
    QMargins m_least;
};

#endif
