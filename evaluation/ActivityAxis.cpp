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

/// Ticks at `offset` plus the multiples of the smallest of `steps` that leaves room for the labels; one
/// between two of them where the step is not the smallest.
QwtScaleDiv divided(double low, double high, double offset, std::initializer_list<double> steps)
{
    double step = *steps.begin();
    double minor = step;
    for (const double next : steps) {
        if ((high - low) / step <= mostTicks - 1)
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
        plot.setAxisMaxMajor(QwtPlot::xBottom, 9);
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
    switch (table.kind) {
    case ActivityKind::Time:
        plot.setAxisScaleDiv(QwtPlot::xBottom, divided(low, high, 0.0, {600, 1800, 3600, 7200, 14400}));
        break;
    case ActivityKind::Months:
        plot.setAxisScaleDiv(QwtPlot::xBottom, divided(low, high, 0.0, {1, 3, 6, 12, 60, 120}));
        plot.setAxisLabelRotation(QwtPlot::xBottom, high - low > 7.0 ? -30.0 : 0.0);
        plot.setAxisLabelAlignment(QwtPlot::xBottom,
                                   (high - low > 7.0 ? Qt::AlignLeft : Qt::AlignHCenter) | Qt::AlignBottom);
        break;
    case ActivityKind::NightTime:
        plot.setAxisScaleDiv(QwtPlot::xBottom, divided(low, high, 0.0, {0.01, 0.02, 0.05, 0.1, 0.2}));
        break;
    case ActivityKind::Precipitation:
    case ActivityKind::WindSpeed:
        plot.setAxisScaleDiv(QwtPlot::xBottom, divided(low, high, 0.5, {1, 2}));
        break;
    case ActivityKind::Temperature:
        plot.setAxisScaleDiv(QwtPlot::xBottom, divided(low, high, 0.0, {0.5, 1, 2, 5, 10}));
        break;
    case ActivityKind::Days:
        plot.setAxisScale(QwtPlot::xBottom, low, high);
        break;
    }
}
