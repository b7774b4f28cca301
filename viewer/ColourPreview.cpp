#include "viewer/ColourPreview.h"

#include "viewer/core/ScaleBounds.h"

#include <QFontMetrics>
#include <QLinearGradient>
#include <QPainter>

#include <utility>

namespace {

constexpr int levelsPerTick = 50; // dB
constexpr int tickLength = 4;

} // namespace

ColourPreview::ColourPreview(QWidget* parent) : QWidget(parent)
{
    setScheme(0);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ColourPreview::setScheme(int index)
{
    if (const auto scheme = ColourScheme::forIndex(index))
        m_ramp = scheme->ramp;
    update();
}

void ColourPreview::setLimits(int lower, int upper)
{
    m_lower = lower;
    m_upper = upper;
    update();
}

QSize ColourPreview::sizeHint() const
{
    const QFontMetrics metrics(font());
    return {metrics.horizontalAdvance(QStringLiteral("-200 dBFS")) * 4, metrics.height() * 2 + tickLength};
}

QSize ColourPreview::minimumSizeHint() const
{
    return {sizeHint().width() / 2, sizeHint().height()};
}

/// Leaves room at both ends for half a number of the scale.
QRect ColourPreview::strip() const
{
    const QFontMetrics metrics(font());
    const int margin = metrics.horizontalAdvance(QString::number(ScaleBounds::lowestLevel)) / 2 + 1;
    return rect().adjusted(margin, 0, -margin, -metrics.height() - tickLength);
}

double ColourPreview::xOf(double level) const
{
    const double range = ScaleBounds::highestLevel - ScaleBounds::lowestLevel;
    return strip().left() + (level - ScaleBounds::lowestLevel) / range * strip().width();
}

void ColourPreview::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    QLinearGradient gradient(xOf(m_lower), 0.0, xOf(m_upper), 0.0);
    for (const ColourScheme::Stop& stop : std::as_const(m_ramp))
        gradient.setColorAt(stop.position, stop.colour);
    painter.fillRect(strip(), palette().color(QPalette::Mid));
    painter.fillRect(strip().adjusted(1, 1, -1, -1), gradient);
    drawScale(painter);
}

void ColourPreview::drawScale(QPainter& painter) const
{
    painter.setPen(palette().color(QPalette::WindowText));
    const int top = strip().bottom() + 1;
    const int width = QFontMetrics(font()).horizontalAdvance(QString::number(ScaleBounds::lowestLevel)) + 2;
    for (int level = ScaleBounds::lowestLevel; level <= ScaleBounds::highestLevel; level += levelsPerTick) {
        const int x = qRound(xOf(level));
        painter.drawLine(x, top, x, top + tickLength - 1);
        painter.drawText(QRect(x - width / 2, top + tickLength, width, height() - top - tickLength),
                         Qt::AlignHCenter | Qt::AlignTop, QString::number(level));
    }
}
