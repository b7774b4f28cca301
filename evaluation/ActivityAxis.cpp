#include "evaluation/ActivityAxis.h"

#include <QLocale>
#include <qwt_date_scale_draw.h>
#include <qwt_date_scale_engine.h>
#include <qwt_plot.h>
#include <qwt_scale_draw.h>
#include <qwt_scale_engine.h>

#include <cmath>
#include <functional>

namespace {

constexpr int mostTicks = 13;

/// So many labels of that width have room side by side.
int ticksWithRoom(const QwtPlot& plot, double labelWidth)
{
    return qBound(2, static_cast<int>(plot.canvas()->width() / labelWidth), mostTicks);
}

/// As wide as `text` and a gap.
double widthOf(const QwtPlot& plot, const QString& text)
{
    const QFontMetrics metrics(plot.axisFont(QwtPlot::xBottom));
    return metrics.horizontalAdvance(text + QLatin1Char('0'));
}

/// Labels by a function of the value.
class WordedScaleDraw : public QwtScaleDraw
{
public:
    using Wording = std::function<QString(double)>;
    explicit WordedScaleDraw(Wording wording) : m_wording(std::move(wording)) {}
    QwtText label(double value) const override { return m_wording(value); }

private:
    Wording m_wording;
};

class DayScaleDraw : public QwtDateScaleDraw
{
public:
    DayScaleDraw() : QwtDateScaleDraw(Qt::UTC)
    {
        for (const auto type : {QwtDate::Month, QwtDate::Week, QwtDate::Day})
            setDateFormat(type, QStringLiteral("dd/MM/yy"));
        for (const auto type : {QwtDate::Hour, QwtDate::Minute, QwtDate::Second, QwtDate::Millisecond})
            setDateFormat(type, QStringLiteral("hh:mm\ndd/MM/yy"));
    }
};

QString timeText(double seconds)
{
    return QLocale::c().toString(RecorderClock::timeOfWall(std::llround(seconds)), QStringLiteral("hh:mm"));
}

QString monthText(double position)
{
    const int month = static_cast<int>(std::lround(position));
    return QLocale::c().toString(QDate(month / 12, month % 12 + 1, 1), QStringLiteral("MMMM"));
}

QString precipitationText(double position)
{
    return position < 0.0 ? QStringLiteral("0")
                          : QStringLiteral("%1 to %2").arg(position - 0.5).arg(position + 0.5);
}

QString windText(double position)
{
    return position > 10.0 ? QStringLiteral(">10") : precipitationText(position);
}

/// At most `most` ticks at `offset` plus the multiples of the smallest of `steps` that will do; finer ones
/// between them where the step is not the smallest.
QwtScaleDiv divided(double low, double high, double offset, std::initializer_list<double> steps, int most)
{
    double step = *steps.begin();
    double minor = step;
    for (const double next : steps) {
        if ((high - low) / step <= most - 1)
            break;
        minor = step;
        step = next;
    }
    const auto ticks = [&](double distance) {
        QList<double> result;
        const auto first = static_cast<qint64>(std::ceil((low - offset) / distance));
        const auto last = static_cast<qint64>(std::floor((high - offset) / distance));
        for (qint64 i = first; i <= last; ++i)
            result.append(static_cast<double>(i) * distance + offset);
        return result;
    };
    return QwtScaleDiv(low, high, minor < step ? ticks(minor) : QList<double>(), {}, ticks(step));
}

/// Inclined, the names of months take less room.
void divideMonths(QwtPlot& plot, double low, double high)
{
    int most = ticksWithRoom(plot, widthOf(plot, QStringLiteral("September")));
    const bool isInclined = high - low > most;
    if (isInclined)
        most = ticksWithRoom(plot, 1.5 * QFontMetrics(plot.axisFont(QwtPlot::xBottom)).height());
    plot.setAxisScaleDiv(QwtPlot::xBottom, divided(low, high, 0.0, {1, 2, 3, 6, 12, 60, 120}, most));
    plot.setAxisLabelRotation(QwtPlot::xBottom, isInclined ? -30.0 : 0.0);
    plot.setAxisLabelAlignment(QwtPlot::xBottom,
                               (isInclined ? Qt::AlignLeft : Qt::AlignHCenter) | Qt::AlignBottom);
}

} // namespace

void ActivityAxis::install(QwtPlot& plot, ActivityKind kind)
{
    const auto word = [&](QString (*wording)(double)) {
        plot.setAxisScaleDraw(QwtPlot::xBottom, new WordedScaleDraw(wording));
    };
    switch (kind) {
    case ActivityKind::Time:
        word(timeText);
        break;
    case ActivityKind::Days:
        plot.setAxisScaleDraw(QwtPlot::xBottom, new DayScaleDraw);
        plot.setAxisScaleEngine(QwtPlot::xBottom, new QwtDateScaleEngine(Qt::UTC));
        break;
    case ActivityKind::Months:
        word(monthText);
        break;
    case ActivityKind::Precipitation:
        word(precipitationText);
        break;
    case ActivityKind::WindSpeed:
        word(windText);
        break;
    case ActivityKind::NightTime:
    case ActivityKind::Temperature:
        break;
    }
    plot.setAxisLabelAlignment(QwtPlot::xBottom, Qt::AlignHCenter | Qt::AlignBottom);
}

std::pair<double, double> ActivityAxis::range(const ActivityTable& table)
{
    std::size_t first = 0;
    std::size_t last = table.bins.size();
    if (table.kind >= ActivityKind::Temperature) {
        while (first < last && table.curves.validHours[first] <= 0.0)
            ++first;
        while (last > first && table.curves.validHours[last - 1] <= 0.0)
            --last;
    }
    if (first == last)
        return {0.0, 1.0};
    const ActivityBin& low = table.bins[first];
    const ActivityBin& high = table.bins[last - 1];
    return {low.position - low.width / 2.0, high.position + high.width / 2.0};
}

void ActivityAxis::divide(QwtPlot& plot, const ActivityTable& table, double low, double high)
{
    plot.setAxisScale(QwtPlot::xTop, low, high);
    const auto divide = [&](double offset, std::initializer_list<double> steps, const char* widest) {
        const int most = ticksWithRoom(plot, widthOf(plot, QLatin1String(widest)));
        plot.setAxisScaleDiv(QwtPlot::xBottom, divided(low, high, offset, steps, most));
    };
    switch (table.kind) {
    case ActivityKind::Time:
        divide(0.0, {600, 1800, 3600, 7200, 14400, 21600}, "00:00");
        break;
    case ActivityKind::Months:
        divideMonths(plot, low, high);
        break;
    case ActivityKind::NightTime:
        divide(0.0, {0.01, 0.02, 0.05, 0.1, 0.2}, "-0.15");
        break;
    case ActivityKind::Precipitation:
        divide(-0.5, {1, 2, 5}, "9 to 10"); // so that none at all has its label
        break;
    case ActivityKind::WindSpeed:
        divide(0.5, {1, 2, 5}, "9 to 10");
        break;
    case ActivityKind::Temperature:
        divide(0.0, {0.5, 1, 2, 5, 10, 20}, "-0.5");
        break;
    case ActivityKind::Days:
        plot.setAxisMaxMajor(QwtPlot::xBottom,
                             ticksWithRoom(plot, widthOf(plot, QStringLiteral("00/00/00"))));
        plot.setAxisScale(QwtPlot::xBottom, low, high);
        break;
    }
}
