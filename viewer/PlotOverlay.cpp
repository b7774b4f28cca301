#include "viewer/PlotOverlay.h"

#include "viewer/OverlayItem.h"

#include <QEvent>
#include <QPainter>
#include <qwt_plot.h>
#include <qwt_plot_item.h>
#include <qwt_scale_map.h>

namespace {

PlotOverlay* existingOverlay(const QwtPlot* plot)
{
    return plot && plot->canvas()
               ? plot->canvas()->findChild<PlotOverlay*>(QString(), Qt::FindDirectChildrenOnly)
               : nullptr;
}

} // namespace

PlotOverlay& PlotOverlay::of(QwtPlot& plot)
{
    PlotOverlay* overlay = existingOverlay(&plot);
    return overlay ? *overlay : *new PlotOverlay(plot);
}

bool PlotOverlay::draws(const QwtPlot* plot)
{
    const PlotOverlay* overlay = existingOverlay(plot);
    return overlay && !overlay->m_suspended;
}

PlotOverlay::PlotOverlay(QwtPlot& plot) : QWidget(plot.canvas()), m_plot(plot)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    setFocusPolicy(Qt::NoFocus);
    setGeometry(plot.canvas()->rect());
    plot.canvas()->installEventFilter(this);
    lower(); // rubber bands and coordinates lie above
    show();
}

void PlotOverlay::refresh()
{
    update(m_painted | itemPixels());
}

void PlotOverlay::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    visitItems([&painter](const OverlayItem& item, const QwtPlotItem& plotItem, const QwtScaleMap& xMap,
                          const QwtScaleMap& yMap, const QRectF& canvasRect) {
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing,
                              plotItem.testRenderHint(QwtPlotItem::RenderAntialiased));
        item.drawOver(&painter, xMap, yMap, canvasRect);
        painter.restore();
    });
    m_painted = itemPixels();
}

bool PlotOverlay::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        setGeometry(m_plot.canvas()->rect());
    return QWidget::eventFilter(object, event);
}

/// Calls visit() for each visible item that belongs here, the lowest first.
template <typename Visit>
void PlotOverlay::visitItems(const Visit& visit) const
{
    QwtScaleMap maps[QwtPlot::axisCnt];
    for (int axis = 0; axis < QwtPlot::axisCnt; ++axis)
        maps[axis] = m_plot.canvasMap(axis);
    const QRectF canvasRect = m_plot.canvas()->contentsRect();
    for (const QwtPlotItem* plotItem : m_plot.itemList()) {
        const auto* item = plotItem->isVisible() ? dynamic_cast<const OverlayItem*>(plotItem) : nullptr;
        if (item)
            visit(*item, *plotItem, maps[plotItem->xAxis()], maps[plotItem->yAxis()], canvasRect);
    }
}

QRegion PlotOverlay::itemPixels() const
{
    QRegion pixels;
    visitItems([&pixels](const OverlayItem& item, const QwtPlotItem& /*plotItem*/, const QwtScaleMap& xMap,
                         const QwtScaleMap& yMap,
                         const QRectF& canvasRect) { pixels |= item.pixels(xMap, yMap, canvasRect); });
    return pixels;
}

PlotOverlay::Suspension::Suspension(QwtPlot& plot) : m_overlay(existingOverlay(&plot))
{
    if (m_overlay)
        m_overlay->m_suspended = true;
}

PlotOverlay::Suspension::~Suspension()
{
    if (m_overlay)
        m_overlay->m_suspended = false;
}
