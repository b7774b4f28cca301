#include "viewer/PlotAlignment.h"

#include "viewer/AlignedPlotLayout.h"

#include <QEvent>
#include <qwt_plot.h>

PlotAlignment::PlotAlignment(QwtPlot& spectrogram, QwtPlot& time, QwtPlot& frequency, QObject* parent)
    : QObject(parent), m_spectrogram(take(spectrogram)), m_time(take(time)), m_frequency(take(frequency))
{
    schedule();
}

PlotAlignment::Member PlotAlignment::take(QwtPlot& plot)
{
    const QPointer<PlotAlignment> self(this);
    auto* layout = new AlignedPlotLayout(*plot.plotLayout(), [self] {
        if (self)
            self->schedule();
    });
    plot.setPlotLayout(layout);
    watch(&plot);
    return {&plot, layout};
}

/// A plot may be moved by any of the widgets that it lies in.
void PlotAlignment::watch(QWidget* widget)
{
    for (; widget; widget = widget->isWindow() ? nullptr : widget->parentWidget())
        widget->installEventFilter(this);
}

bool PlotAlignment::eventFilter(QObject* object, QEvent* event)
{
    switch (event->type()) {
    case QEvent::ParentChange:
        watch(qobject_cast<QWidget*>(object));
        [[fallthrough]];
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::ShowToParent:
    case QEvent::HideToParent:
        schedule();
        break;
    default:
        break;
    }
    return QObject::eventFilter(object, event);
}

void PlotAlignment::schedule()
{
    if (m_isScheduled)
        return;
    m_isScheduled = true;
    // A queued call comes before the painting of what has changed.
    QMetaObject::invokeMethod(this, &PlotAlignment::align, Qt::QueuedConnection);
}

bool PlotAlignment::Member::isIn(const QWidget* window) const
{
    return plot && plot->window() == window && plot->isVisibleTo(window);
}

QRect PlotAlignment::Member::contents(const QWidget* window) const
{
    const QRect rect = plot->contentsRect();
    return {plot->mapTo(window, rect.topLeft()), rect.size()};
}

/// Where the canvas would be if nobody else had to be considered.
QRect PlotAlignment::Member::canvas(const QWidget* window) const
{
    return contents(window).marginsRemoved(layout->naturalMargins());
}

void PlotAlignment::align()
{
    m_isScheduled = false;
    const QWidget* window = m_spectrogram.plot ? m_spectrogram.plot->window() : nullptr;
    if (!window)
        return;

    QRect common = m_spectrogram.canvas(window);
    if (m_time.isIn(window)) {
        const QRect time = m_time.canvas(window);
        common.setLeft(qMax(common.left(), time.left()));
        common.setRight(qMin(common.right(), time.right()));
    }
    if (m_frequency.isIn(window)) {
        const QRect frequency = m_frequency.canvas(window);
        common.setTop(qMax(common.top(), frequency.top()));
        common.setBottom(qMin(common.bottom(), frequency.bottom()));
    }
    if (!common.isValid())
        return; // no room for a canvas

    for (const Member* member : {&m_spectrogram, &m_time, &m_frequency}) {
        if (!member->isIn(window))
            continue;
        const QRect contents = member->contents(window);
        QMargins margins(common.left() - contents.left(), common.top() - contents.top(),
                         contents.right() - common.right(), contents.bottom() - common.bottom());
        if (member == &m_time)
            margins = QMargins(margins.left(), 0, margins.right(), 0);
        else if (member == &m_frequency)
            margins = QMargins(0, margins.top(), 0, margins.bottom());
        if (member->layout->setLeastMargins(margins))
            member->plot->updateLayout();
    }
}
