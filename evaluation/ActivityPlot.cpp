#include "evaluation/ActivityPlot.h"

#include "evaluation/ActivityAxis.h"
#include "evaluation/ActivityCurve.h"
#include "evaluation/ActivityZoomers.h"
#include "evaluation/core/CurveColors.h"
#include "evaluation/core/ExportFile.h"
#include "viewer/ClampedZoomer.h"
#include "viewer/PlotStyle.h"

#include <QFile>
#include <QFileInfo>
#include <QImageWriter>
#include <QLayout>
#include <QPainter>
#include <QTemporaryDir>
#include <qwt_legend.h>
#include <qwt_legend_label.h>
#include <qwt_painter.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_histogram.h>
#include <qwt_plot_marker.h>
#include <qwt_plot_renderer.h>
#include <qwt_plot_textlabel.h>
#include <qwt_plot_zoneitem.h>
#include <qwt_scale_engine.h>
#include <qwt_scale_map.h>
#include <qwt_symbol.h>

#include <algorithm>
#include <cmath>

namespace {

const QColor allColor(Qt::black);
const QColor unassignedColor(0x77, 0x77, 0x77);
const QColor hoursColor(0xE4, 0xE8, 0xEC);
const QColor nightColor(0x20, 0x30, 0x60, 26);
const QColor twilightColor(0x20, 0x30, 0x60, 13);

/// Colours repeat and print may be grey: neighbours differ in line and symbol, too. A colour has another line
/// each time.
QPen penOf(int i, const QColor& color)
{
    static const Qt::PenStyle styles[] = {Qt::SolidLine, Qt::DashLine, Qt::DashDotLine};
    return {color, 1.6, styles[(i % curveColorCount / 6 + i / curveColorCount) % 3]};
}

QwtSymbol* symbolOf(int i, const QColor& color, int size)
{
    static const QwtSymbol::Style styles[] = {QwtSymbol::Ellipse,   QwtSymbol::Rect,      QwtSymbol::Diamond,
                                              QwtSymbol::UTriangle, QwtSymbol::DTriangle, QwtSymbol::Hexagon};
    return new QwtSymbol(styles[i % 6], QBrush(color), QPen(color), QSize(size, size));
}

constexpr double secondsOfDay = 86400.0;

/// A shaded part of each day on the axis of the time of day, with a sample of its colour in the legend.
class ShadedZone : public QwtPlotZoneItem
{
public:
    explicit ShadedZone(const QColor& color)
    {
        setBrush(color);
        setPen(QPen(Qt::NoPen));
    }
    /// The library's own way leaves the area out of SVG documents.
    void draw(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& /*yMap*/,
              const QRectF& canvasRect) const override
    {
        if (!interval().isValid())
            return;
        painter->setPen(pen());
        painter->setBrush(brush());
        for (const double shift : {-2.0 * secondsOfDay, -secondsOfDay, 0.0, secondsOfDay}) {
            const QRectF area(QPointF(xMap.transform(interval().minValue() + shift), canvasRect.top()),
                              QPointF(xMap.transform(interval().maxValue() + shift), canvasRect.bottom()));
            if (area.intersects(canvasRect))
                QwtPainter::drawRect(painter, area & canvasRect);
        }
    }
    QwtGraphic legendIcon(int /*index*/, const QSizeF& size) const override
    {
        QColor color = brush().color();
        color.setAlpha(3 * color.alpha()); // so small, the shade would not be seen
        return defaultIcon(color, size);
    }
};

/// The next of 1, 2, 5, 10... that is not below `value`.
double roundedUp(double value)
{
    if (!(value > 0.0))
        return 1.0;
    const double power = std::pow(10.0, std::floor(std::log10(value)));
    for (const double factor : {1.0, 1.2, 1.5, 2.0, 2.5, 3.0, 4.0, 5.0, 6.0, 8.0})
        if (value <= factor * power * (1.0 + 1e-9))
            return factor * power;
    return 10.0 * power;
}

} // namespace

ActivityPlot::ActivityPlot(ActivityKind kind, QWidget* parent)
    : QwtPlot(parent),
      m_kind(kind),
      m_legend(new QwtLegend),
      m_validHours(new QwtPlotHistogram(QStringLiteral("Valid Hours"))),
      m_message(new QwtPlotTextLabel)
{
    PlotStyle::apply(*this);
    setCanvasBackground(Qt::white);
    setAutoReplot(false);
    initialiseAxes();
    m_legend->setDefaultItemMode(QwtLegendData::Checkable);
    m_legend->contentsWidget()->layout()->setSpacing(1);
    insertLegend(m_legend, QwtPlot::RightLegend);

    m_validHours->setYAxis(QwtPlot::yRight);
    m_validHours->setBrush(hoursColor);
    const bool isDense = kind == ActivityKind::Time || kind == ActivityKind::Days;
    m_validHours->setPen(isDense ? QPen(Qt::NoPen) : QPen(hoursColor.darker(106)));
    m_validHours->setStyle(isDense ? QwtPlotHistogram::Outline : QwtPlotHistogram::Columns); // no seams
    m_validHours->setZ(1.0);
    m_validHours->attach(this);
    initialiseZones();
    m_message->setItemAttribute(QwtPlotItem::Legend, false);
    m_message->setZ(100.0);
    m_message->attach(this);

    m_zoomers = std::make_unique<ActivityZoomers>(ActivityZoomers::make(kind, canvas()));
    m_zoomers->left->setColours(Qt::darkGray, Qt::black);
    connect(m_zoomers->left, SIGNAL(zoomed(QRectF)), this, SIGNAL(zoomed(QRectF)));
}

ActivityPlot::~ActivityPlot() = default;

void ActivityPlot::initialiseAxes()
{
    ActivityAxis::install(*this, m_kind);
    enableAxis(QwtPlot::yRight);
    PlotStyle::setAxisTitle(*this, QwtPlot::yRight, QStringLiteral("Valid Hours in h"));
    auto* grid = new QwtPlotGrid;
    grid->setMajorPen(QColor(0xD0, 0xD0, 0xD0), 0.0, Qt::DotLine);
    grid->setZ(2.0);
    grid->attach(this);
}

void ActivityPlot::initialiseZones()
{
    if (m_kind == ActivityKind::NightTime) {
        addMarker(0.0, QStringLiteral("Sunset"));
        addMarker(1.0, QStringLiteral("Sunrise"));
    }
    if (m_kind != ActivityKind::Time)
        return;
    for (const QColor& color : {twilightColor, nightColor, twilightColor}) {
        auto* zone = new ShadedZone(color);
        zone->setZ(1.5);
        zone->setItemAttribute(QwtPlotItem::Legend, m_zones.size() < 2);
        zone->attach(this);
        m_zones.push_back(zone);
    }
    m_zones[1]->setTitle(QStringLiteral("Night (average)"));
}

void ActivityPlot::addMarker(double position, const QString& text)
{
    auto* marker = new QwtPlotMarker;
    marker->setLineStyle(QwtPlotMarker::VLine);
    marker->setLinePen(QPen(Qt::darkGray, 1.0, Qt::DashLine));
    marker->setXValue(position);
    marker->setLabel(text);
    marker->setLabelAlignment((position > 0.5 ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignTop);
    marker->setItemAttribute(QwtPlotItem::Legend, false);
    marker->attach(this);
}

void ActivityPlot::initialise(const QStringList& curveNames)
{
    for (ActivityCurve* curve : m_curves) {
        curve->detach();
        delete curve;
    }
    m_curves.clear();
    for (const QString& name : curveNames) {
        auto* curve = new ActivityCurve(name);
        // The newest on top, except for the sum of all.
        curve->setZ(name == curveNames.first() ? 10.0 : 11.0 + static_cast<double>(m_curves.size()) * 0.01);
        curve->attach(this);
        m_curves.push_back(curve);
    }
    setColors({});
    checkLegend();
}

void ActivityPlot::setColors(const QMap<QString, QColor>& classColors)
{
    const bool isDense = m_kind == ActivityKind::Time || m_kind == ActivityKind::Days;
    const int last = static_cast<int>(m_curves.size()) - 1;
    for (int i = 0; i <= last; ++i) {
        ActivityCurve* curve = m_curves[i];
        const QColor fallback = i == 0 ? allColor : i == last ? unassignedColor : curveColor(i - 1);
        const QColor color = classColors.value(curve->title().text(), fallback);
        QPen pen = penOf(i == 0 || i == last ? 0 : i - 1, color);
        if (i == last)
            pen.setStyle(Qt::DotLine);
        if (i == 0)
            pen.setWidthF(2.2);
        curve->setPen(pen);
        curve->setSymbol(isDense ? nullptr : symbolOf(i, color, 7));
    }
    replot();
}

void ActivityPlot::showTable(const ActivityTable& table, const QString& quantity)
{
    m_table = table;
    m_message->setText(QwtText());
    PlotStyle::setAxisTitle(*this, QwtPlot::yLeft, quantity);
    PlotStyle::setAxisTitle(*this, QwtPlot::xBottom, activityAxisTitle(m_kind, table.year));
    updateCurves();
    resetView();
}

void ActivityPlot::showMessage(const QString& text)
{
    m_table = ActivityTable();
    m_table.kind = m_kind;
    QwtText message(text);
    message.setFont(font());
    m_message->setText(message);
    updateCurves();
    resetView();
}

void ActivityPlot::showTwilight(const TwilightTimes& times, const QString& label)
{
    for (QwtPlotZoneItem* zone : m_zones)
        zone->setInterval(QwtInterval());
    if (m_table.bins.empty() || m_zones.empty() || !times.isValid)
        return;
    const QwtInterval evening = QwtInterval(times.sunset, times.eveningTwilight).normalized();
    const QwtInterval morning = QwtInterval(times.morningTwilight, times.sunrise).normalized();
    m_zones[0]->setTitle(label);
    checkLegend(); // a new title makes a new entry
    m_zones[0]->setInterval(evening);
    m_zones[1]->setInterval(evening.maxValue(), morning.minValue());
    m_zones[2]->setInterval(morning);
    replot();
}

void ActivityPlot::setLogarithmic(bool logarithmic)
{
    m_isLogarithmic = logarithmic;
    if (logarithmic)
        setAxisScaleEngine(QwtPlot::yLeft, new QwtLogScaleEngine);
    else
        setAxisScaleEngine(QwtPlot::yLeft, new QwtLinearScaleEngine);
    updateCurves();
    resetView();
}

void ActivityPlot::setShown(const QVariant& legendEntry, bool shown)
{
    QwtPlotItem* item = infoToItem(legendEntry);
    if (item == nullptr)
        return;
    item->setVisible(shown);
    checkLegend();
    if (!m_zones.empty() && item == m_zones.front())
        m_zones.back()->setVisible(shown);
    if (m_zoomers->left->zoomRectIndex() == 0)
        resetView();
    else
        replot();
}

std::vector<bool> ActivityPlot::shownColumns() const
{
    std::vector<bool> shown{m_validHours->isVisible()};
    for (const ActivityCurve* curve : m_curves)
        shown.push_back(curve->isVisible());
    return shown;
}

void ActivityPlot::updateCurves()
{
    QVector<double> positions;
    QVector<QwtIntervalSample> hours;
    for (std::size_t i = 0; i < m_table.bins.size(); ++i) {
        const ActivityBin& bin = m_table.bins[i];
        positions.append(bin.position);
        hours.append({m_table.curves.validHours[i],
                      QwtInterval(bin.position - bin.width / 2.0, bin.position + bin.width / 2.0)});
    }
    m_validHours->setSamples(hours);
    for (std::size_t i = 0; i < m_curves.size(); ++i) {
        const std::vector<double> none(m_table.bins.size());
        m_curves[i]->setPoints(positions, i < m_table.curves.values.size() ? m_table.curves.values[i] : none,
                               m_isLogarithmic);
    }
}

/// Shows everything, as the view that zooming starts from.
void ActivityPlot::resetView()
{
    const auto [low, high] = ActivityAxis::range(m_table);
    double mostHours = 0.0;
    for (const double hours : m_table.curves.validHours)
        mostHours = std::max(mostHours, hours);
    // High enough for the bars to stay behind the curves.
    setAxisScale(QwtPlot::yRight, 0.0, roundedUp(mostHours * 1.05));
    setLeftScale();
    ActivityAxis::divide(*this, m_table, low, high);
    updateAxes();
    for (ClampedZoomer* zoomer : {m_zoomers->left, m_zoomers->right})
        zoomer->setZoomBase(false);
    // Setting the base has divided the axis anew.
    ActivityAxis::divide(*this, m_table, low, high);
    replot();
}

void ActivityPlot::setLeftScale()
{
    double most = 0.0;
    double least = HUGE_VAL;
    for (const ActivityCurve* curve : m_curves) {
        if (!curve->isVisible())
            continue;
        for (std::size_t i = 0; i < curve->dataSize(); ++i) {
            const double value = curve->sample(static_cast<int>(i)).y();
            most = std::max(most, value);
            if (value > 0.0)
                least = std::min(least, value);
        }
    }
    if (!m_isLogarithmic) {
        setAxisScale(QwtPlot::yLeft, 0.0, roundedUp(most * 1.02));
        return;
    }
    const double bottom = std::isfinite(least) ? std::pow(10.0, std::floor(std::log10(least))) : 0.1;
    const double top = most > 0.0 ? std::pow(10.0, std::ceil(std::log10(most * 1.02))) : 10.0;
    setAxisScale(QwtPlot::yLeft, bottom, top);
}

void ActivityPlot::divideAxes(const QRectF& view)
{
    ActivityAxis::divide(*this, m_table, view.left(), view.right());
    replot();
}

/// The room for labels has changed.
void ActivityPlot::resizeEvent(QResizeEvent* event)
{
    QwtPlot::resizeEvent(event);
    const QwtInterval shown = axisInterval(QwtPlot::xBottom);
    divideAxes(QRectF(shown.minValue(), 0.0, shown.width(), 0.0));
}

/// Entries are made unchecked. What is not shown is grey, too: a frame alone is easily overlooked.
void ActivityPlot::checkLegend()
{
    QPalette grey = palette();
    grey.setColor(QPalette::Text, grey.color(QPalette::Disabled, QPalette::Text));
    for (QwtPlotItem* item : itemList())
        for (QWidget* widget : m_legend->legendWidgets(itemToInfo(item)))
            if (auto* label = qobject_cast<QwtLegendLabel*>(widget)) {
                const QSignalBlocker blocker(label);
                label->setChecked(item->isVisible());
                label->setPalette(item->isVisible() ? palette() : grey);
            }
}

bool ActivityPlot::exportTo(const QString& filePath)
{
    const QString suffix = QFileInfo(filePath).suffix().toLower();
    const QStringList documents{QStringLiteral("pdf"), QStringLiteral("svg")};
    if (!documents.contains(suffix) && !QImageWriter::supportedImageFormats().contains(suffix.toLatin1()))
        return false;
    // The renderer does not tell of failures, and what the file was would be lost.
    const QTemporaryDir folder;
    QFile draft(folder.filePath(QStringLiteral("plot.") + suffix));
    reduceLegend();
    QwtPlotRenderer renderer;
    renderer.setDiscardFlag(QwtPlotRenderer::DiscardBackground); // paper is white
    renderer.renderDocument(this, draft.fileName(), QSizeF(300, std::max(200.0, legendHeight())), 85);
    restoreLegend();
    return draft.open(QIODevice::ReadOnly) && draft.size() > 0 &&
           ExportFile::writeBytes(filePath, draft.readAll());
}

/// The legend forgets an entry for which it gets no data.
void ActivityPlot::reduceLegend()
{
    for (QwtPlotItem* item : itemList())
        if (item->testItemAttribute(QwtPlotItem::Legend) && !item->isVisible())
            emit legendDataChanged(itemToInfo(item), {});
}

/// In mm: on paper it cannot be scrolled.
double ActivityPlot::legendHeight() const
{
    constexpr double margin = 4.0;
    return margin + 25.4 * m_legend->contentsWidget()->layout()->sizeHint().height() / logicalDpiY();
}

/// Makes all entries anew, so that they have their order again.
void ActivityPlot::restoreLegend()
{
    for (QwtPlotItem* item : itemList())
        if (item->testItemAttribute(QwtPlotItem::Legend))
            emit legendDataChanged(itemToInfo(item), {});
    updateLegend();
    checkLegend();
}
