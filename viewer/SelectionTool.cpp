#include "viewer/SelectionTool.h"

#include "viewer/FrequencyMarkers.h"
#include "viewer/MyRectRangeMarker.h"
#include "viewer/PointerReach.h"
#include "viewer/RangeMarker.h"
#include "viewer/SpectrogramView.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QKeyEvent>

#include <algorithm>
#include <cmath>

SelectionTool::SelectionTool(SpectrogramView& spectrogram, RangeMarker& timeRange, FrequencyMarkers& markers,
                             QObject* parent)
    : QObject(parent),
      m_spectrogram(spectrogram),
      m_markers(markers),
      m_timeRange(timeRange),
      m_frame(new MyRectRangeMarker(spectrogram))
{
    createPickers();
    setMode(Mode::Zoom);
    useColours(m_spectrogram.colourScheme());
    connect(&m_spectrogram, &SpectrogramView::colourSchemeChanged, this, &SelectionTool::useColours);
    // Escape reaches the canvas once it has been clicked.
    m_spectrogram.canvas()->setFocusPolicy(Qt::ClickFocus);
    m_spectrogram.canvas()->installEventFilter(this);
}

void SelectionTool::createPickers()
{
    QWidget* canvas = m_spectrogram.canvas();
    m_zoomer = new MyQwtZoomer(canvas);
    m_pointer = new MyQwtPlotPicker(MyQwtPlotPicker::Drag::Nothing, canvas);
    m_selector = new MyQwtPlotPicker(MyQwtPlotPicker::Drag::Rectangle, canvas);
    for (MyQwtPlotPicker*& edge : m_edges) {
        edge = new MyQwtPlotPicker(MyQwtPlotPicker::Drag::Point, canvas);
        edge->setEnabled(false);
        watchDrag(*edge);
    }
}

/// An aborted drag takes the selection back to what it was. At a corner two edges are dragged at once; each
/// restores the same.
void SelectionTool::watchDrag(MyQwtPlotPicker& edge)
{
    connect(&edge, &QwtPicker::activated, this, [this](bool on) {
        if (on)
            m_beforeDrag = m_frame->rect();
    });
    connect(&edge, &MyQwtPlotPicker::aborted, this, [this] { setSelection(m_beforeDrag); });
}

void SelectionTool::setMode(Mode mode)
{
    m_mode = mode;
    const bool zoomsPlainly = mode == Mode::Zoom;
    m_zoomer->setDragModifiers(zoomsPlainly ? Qt::NoModifier : Qt::ShiftModifier);
    m_selector->setMousePattern(QwtEventPattern::MouseSelect1, Qt::LeftButton,
                                zoomsPlainly ? Qt::ShiftModifier : Qt::NoModifier);
    emit modeChanged(mode);
}

void SelectionTool::setButtons(QAbstractButton& zoom, QAbstractButton& selection)
{
    // In an exclusive group the click that checks a button does not take the check away again.
    auto* group = new QButtonGroup(this);
    group->setExclusive(true);
    for (QAbstractButton* button : {&zoom, &selection}) {
        button->setCheckable(true);
        group->addButton(button);
    }
    const auto show = [&zoom, &selection](Mode mode) {
        (mode == Mode::Zoom ? zoom : selection).setChecked(true);
    };
    connect(this, &SelectionTool::modeChanged, group, show);
    show(m_mode);
}

void SelectionTool::mouseMoved(const QPointF& point)
{
    m_pointerPixel = point;
    enableWhatIsInReach();
    const QPoint pixel = point.toPoint();
    emit pointerMoved({m_spectrogram.invTransform(QwtPlot::xBottom, pixel.x()),
                       m_spectrogram.invTransform(QwtPlot::yLeft, pixel.y())});
}

void SelectionTool::enableWhatIsInReach()
{
    const bool isMarker = m_markers.enableDraggingAt(m_pointerPixel);
    const bool isEdge = enableEdgesAt(m_pointerPixel, isMarker);
    m_zoomer->setEnabled(!isMarker && !isEdge);
    m_selector->setReady(!isMarker && !isEdge);
    QWidget* canvas = m_spectrogram.canvas();
    const Qt::CursorShape shape = cursorFor(isMarker);
    if (canvas->cursor().shape() != shape)
        canvas->setCursor(shape);
}

/// Near a corner both of its edges can be dragged. A marker comes first.
bool SelectionTool::enableEdgesAt(const QPointF& pixel, bool markerInReach)
{
    const QRectF& selected = m_frame->rect();
    const double left = m_spectrogram.transform(QwtPlot::xBottom, selected.left());
    const double right = m_spectrogram.transform(QwtPlot::xBottom, selected.right());
    const double top = m_spectrogram.transform(QwtPlot::yLeft, selected.bottom());
    const double bottom = m_spectrogram.transform(QwtPlot::yLeft, selected.top());
    const auto isNear = [](double a, double b) { return std::abs(a - b) <= PointerReach::pixels; };
    const auto isBetween = [&](double value, double first, double last) {
        return value >= first - PointerReach::pixels && value <= last + PointerReach::pixels;
    };
    const bool mayDrag = !selected.isNull() && !markerInReach;
    const bool isBeside = mayDrag && isBetween(pixel.y(), top, bottom);
    const bool isAbove = mayDrag && isBetween(pixel.x(), left, right);

    // A selection may be so small that both sides are near; the nearer one is meant.
    const bool isLeft = std::abs(pixel.x() - left) <= std::abs(pixel.x() - right);
    const bool isTop = std::abs(pixel.y() - top) <= std::abs(pixel.y() - bottom);
    m_edges[Left]->setReady(isBeside && isLeft && isNear(pixel.x(), left));
    m_edges[Right]->setReady(isBeside && !isLeft && isNear(pixel.x(), right));
    m_edges[Top]->setReady(isAbove && isTop && isNear(pixel.y(), top));
    m_edges[Bottom]->setReady(isAbove && !isTop && isNear(pixel.y(), bottom));
    return std::any_of(m_edges.begin(), m_edges.end(), [](const auto* edge) { return edge->isEnabled(); });
}

Qt::CursorShape SelectionTool::cursorFor(bool markerInReach) const
{
    const bool isLeft = m_edges[Left]->isEnabled();
    const bool isTop = m_edges[Top]->isEnabled();
    const bool isHorizontal = isLeft || m_edges[Right]->isEnabled();
    const bool isVertical = isTop || m_edges[Bottom]->isEnabled();
    if (isHorizontal && isVertical)
        return isLeft == isTop ? Qt::SizeFDiagCursor : Qt::SizeBDiagCursor;
    if (isHorizontal)
        return Qt::SizeHorCursor;
    return isVertical || markerInReach ? Qt::SizeVerCursor : Qt::CrossCursor;
}

void SelectionTool::deactivateZoomer(bool on)
{
    m_zoomer->setEnabled(!on);
}

void SelectionTool::plotSelectionRect(const QPolygon& polygon)
{
    const QRect pixels = polygon.boundingRect();
    setSelection(QRectF(QPointF(m_spectrogram.invTransform(QwtPlot::xBottom, pixels.left()),
                                m_spectrogram.invTransform(QwtPlot::yLeft, pixels.bottom())),
                        QPointF(m_spectrogram.invTransform(QwtPlot::xBottom, pixels.right()),
                                m_spectrogram.invTransform(QwtPlot::yLeft, pixels.top()))));
}

// An edge stops at the opposite one.

void SelectionTool::moveSelectorLeft(const QPoint& point)
{
    QRectF selected = m_frame->rect();
    if (selected.isNull())
        return;
    selected.setLeft(qMin(m_spectrogram.invTransform(QwtPlot::xBottom, point.x()), selected.right()));
    setSelection(selected);
}

void SelectionTool::moveSelectorRight(const QPoint& point)
{
    QRectF selected = m_frame->rect();
    if (selected.isNull())
        return;
    selected.setRight(qMax(m_spectrogram.invTransform(QwtPlot::xBottom, point.x()), selected.left()));
    setSelection(selected);
}

void SelectionTool::moveSelectorTop(const QPoint& point)
{
    QRectF selected = m_frame->rect();
    if (selected.isNull())
        return;
    selected.setBottom(qMax(m_spectrogram.invTransform(QwtPlot::yLeft, point.y()), selected.top()));
    setSelection(selected);
}

void SelectionTool::moveSelectorBottom(const QPoint& point)
{
    QRectF selected = m_frame->rect();
    if (selected.isNull())
        return;
    selected.setTop(qMin(m_spectrogram.invTransform(QwtPlot::yLeft, point.y()), selected.bottom()));
    setSelection(selected);
}

QRectF SelectionTool::selection() const
{
    return m_frame->rect();
}

void SelectionTool::setSelection(const QRectF& selection)
{
    m_frame->setRect(selection);
    if (selection.isNull())
        m_timeRange.clear();
    else
        m_timeRange.setRange(selection.left(), selection.right(), m_zoomer->zoomBase().right());
}

void SelectionTool::clearSelection()
{
    m_beforeDrag = QRectF();
    setSelection(QRectF());
    enableWhatIsInReach();
}

void SelectionTool::recordingShown()
{
    clearSelection();
    m_zoomer->setZoomBase(false);
}

void SelectionTool::frequencyLimitsChanged()
{
    const AxisLimits frequency = m_spectrogram.frequencyLimits();
    const QRectF base = m_zoomer->zoomBase();
    m_zoomer->setZoomBase(
        QRectF(base.left(), frequency.lower, base.width(), frequency.upper - frequency.lower));
}

void SelectionTool::useColours(const ColourScheme& scheme)
{
    m_zoomer->setColours(scheme.rubberBand, scheme.tracker);
    m_selector->setColours(scheme.rubberBand, scheme.tracker);
    for (MyQwtPlotPicker* edge : m_edges)
        edge->setColours(scheme.rubberBand, scheme.tracker);
    m_frame->setPen(QPen(scheme.rubberBand));
}

bool SelectionTool::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress)
        m_isButtonDown = true;
    else if (event->type() == QEvent::MouseButtonRelease)
        m_isButtonDown = false;
    else if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape &&
             m_mode == Mode::Zoom && !m_isButtonDown)
        clearSelection();
    return QObject::eventFilter(object, event);
}
