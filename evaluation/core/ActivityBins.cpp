#include "evaluation/core/ActivityBins.h"

#include <QLocale>

#include <array>
#include <cmath>

namespace {

constexpr qint64 dayLength = 86400;
constexpr qint64 timeBin = 600;
constexpr qint64 sampleLength = 600;
constexpr double vantorShare = 0.15;
constexpr int nightBinCount = 11;

QString dateText(const QDate& date, const char* format)
{
    return QLocale::c().toString(date, QLatin1String(format));
}

QString rangeText(const QString& low, const QString& high)
{
    return low + QStringLiteral(" to ") + high;
}

/// The limits of the bins of one night, before sunset first; n + 1 limits for n bins.
std::array<qint64, nightBinCount + 1> nightLimits(const MonitoringCalendar::Night& night)
{
    const auto length = static_cast<double>(night.sunrise - night.sunset);
    std::array<qint64, nightBinCount + 1> limits{};
    limits[0] = night.sunset - std::llround(vantorShare * length);
    for (int i = 0; i < nightBinCount; ++i)
        limits[i + 1] = night.sunset + std::llround(length * i / 10.0);
    return limits;
}

/// How the values of one quantity fall into bins of equal width: `count` of them from `lowest`, closed at the
/// upper end of the last one.
struct ValueScale
{
    double lowest;
    double width;
    int count;

    /// -1 when outside
    int indexOf(double value) const
    {
        if (!(value >= lowest && value <= lowest + width * count))
            return -1;
        return qMin(static_cast<int>((value - lowest) / width), count - 1);
    }
    ActivityBin bin(int index) const
    {
        const double low = lowest + width * index;
        return {rangeText(QString::number(low, 'f', 0), QString::number(low + width, 'f', 0)),
                low + width / 2.0,
                width,
                {}};
    }
};

/// Fills `bins`, which have no spans yet; `binOf` gives the index for a value or -1.
template <typename BinOf>
ActivityBins filledByValue(ActivityBins bins, const MonitoringCalendar& calendar,
                           const WeatherSamples& samples, const BinOf& binOf)
{
    std::vector<std::vector<TimeSpan>> spans(bins.size());
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const int bin = binOf(static_cast<double>(samples[i].value));
        if (bin < 0)
            continue;
        qint64 stop = samples[i].time + sampleLength;
        if (i + 1 < samples.size())
            stop = qMin(stop, samples[i + 1].time);
        if (!spans[bin].empty() && spans[bin].back().stop == samples[i].time)
            spans[bin].back().stop = stop;
        else
            spans[bin].push_back({samples[i].time, stop});
    }
    for (std::size_t i = 0; i < bins.size(); ++i)
        bins[i].spans = intersection(united(std::move(spans[i])), calendar.monitored());
    return bins;
}

} // namespace

ActivityBins ActivityRules::timeOfDay(const MonitoringCalendar& calendar, bool centerNight)
{
    ActivityBins bins;
    if (calendar.days().empty())
        return bins;
    // Windows begin on their date and end on one of the two that follow, or begin as early before it.
    const qint64 first = RecorderClock::wall(calendar.days().front().date.addDays(-2));
    const qint64 last = RecorderClock::wall(calendar.days().back().date.addDays(3));
    const qint64 axisStart = centerNight ? dayLength / 2 : 0;
    for (qint64 second = axisStart; second < axisStart + dayLength; second += timeBin) {
        std::vector<TimeSpan> spans;
        for (qint64 wall = first + second % dayLength; wall < last; wall += dayLength)
            calendar.clock().appendUtc({wall, wall + timeBin}, spans);
        bins.push_back({QLocale::c().toString(RecorderClock::timeOfWall(second), QStringLiteral("hh:mm")),
                        static_cast<double>(second) + timeBin / 2.0, static_cast<double>(timeBin),
                        intersection(united(std::move(spans)), calendar.monitored())});
    }
    return bins;
}

ActivityBins ActivityRules::days(const MonitoringCalendar& calendar)
{
    ActivityBins bins;
    for (const MonitoringCalendar::Day& day : calendar.days()) {
        const auto start = static_cast<double>(RecorderClock::wall(day.date));
        bins.push_back({dateText(day.date, "dd/MM/yy"), (start + dayLength / 2.0) * 1000.0,
                        dayLength * 1000.0, day.window});
    }
    return bins;
}

ActivityBins ActivityRules::months(const MonitoringCalendar& calendar)
{
    ActivityBins bins;
    for (const MonitoringCalendar::Day& day : calendar.days()) {
        const int month = 12 * day.date.year() + day.date.month() - 1;
        if (bins.empty() || static_cast<int>(bins.back().position) != month)
            bins.push_back({dateText(day.date, "MM/yy"), static_cast<double>(month), 1.0, {}});
        TimeSpans& spans = bins.back().spans;
        spans.insert(spans.end(), day.window.begin(), day.window.end());
    }
    for (ActivityBin& bin : bins)
        bin.spans = united(std::move(bin.spans));
    return bins;
}

ActivityBins ActivityRules::night(const MonitoringCalendar& calendar)
{
    const auto tenth = [](int i) { return QString::number(i / 10.0, 'g', 2); };
    ActivityBins bins{{QStringLiteral("-0.15 to 0"), -vantorShare / 2.0, vantorShare, {}}};
    for (int i = 0; i + 1 < nightBinCount; ++i)
        bins.push_back({rangeText(tenth(i), tenth(i + 1)), (i + 0.5) / 10.0, 0.1, {}});
    std::vector<std::vector<TimeSpan>> spans(bins.size());
    for (const MonitoringCalendar::Night& night : calendar.nights()) {
        const auto limits = nightLimits(night);
        for (std::size_t i = 0; i < bins.size(); ++i)
            spans[i].push_back({limits[i], limits[i + 1]});
    }
    for (std::size_t i = 0; i < bins.size(); ++i)
        bins[i].spans = intersection(united(std::move(spans[i])), calendar.monitored());
    return bins;
}

ActivityBins ActivityRules::temperature(const MonitoringCalendar& calendar, const WeatherSamples& samples)
{
    const ValueScale scale{-20.0, 2.0, 35};
    ActivityBins bins;
    for (int i = 0; i < scale.count; ++i)
        bins.push_back(scale.bin(i));
    return filledByValue(std::move(bins), calendar, samples,
                         [&](double value) { return scale.indexOf(value); });
}

ActivityBins ActivityRules::precipitation(const MonitoringCalendar& calendar, const WeatherSamples& samples)
{
    const ValueScale scale{0.0, 1.0, 10};
    ActivityBins bins{{QStringLiteral("0"), -0.5, 1.0, {}}};
    for (int i = 0; i < scale.count; ++i)
        bins.push_back(scale.bin(i));
    return filledByValue(std::move(bins), calendar, samples, [&](double value) {
        if (value == 0.0)
            return 0;
        const int index = scale.indexOf(value);
        return index < 0 ? -1 : index + 1;
    });
}

ActivityBins ActivityRules::windSpeed(const MonitoringCalendar& calendar, const WeatherSamples& samples)
{
    const ValueScale scale{0.0, 1.0, 10};
    ActivityBins bins;
    for (int i = 0; i < scale.count; ++i)
        bins.push_back(scale.bin(i));
    bins.push_back({QStringLiteral(">10"), 10.5, 1.0, {}});
    return filledByValue(std::move(bins), calendar, samples,
                         [&](double value) { return value > 10.0 ? scale.count : scale.indexOf(value); });
}

TwilightTimes averageTwilight(const MonitoringCalendar& calendar, const QString& twilightName)
{
    const bool byShare = twilightName == QLatin1String("Vantor twilight (15%)");
    const std::vector<MonitoringCalendar::Night> nights = calendar.nights();
    const std::vector<MonitoringCalendar::Night> dark = calendar.nights(SunTimes::altitudeOf(twilightName));
    const MonitoringPlan& plan = calendar.plan();
    TwilightTimes sum;
    int count = 0;
    auto inner = dark.begin();
    for (const MonitoringCalendar::Night& night : nights) {
        while (inner != dark.end() && inner->date < night.date)
            ++inner;
        const bool hasTwilight = inner != dark.end() && inner->date == night.date;
        if (night.date < plan.begin || night.date > plan.end || !hasTwilight)
            continue;
        const qint64 midnight = RecorderClock::wall(night.date);
        const auto shown = [&](qint64 utc) {
            return static_cast<double>(calendar.clock().toWall(utc) - midnight);
        };
        const double share = vantorShare * static_cast<double>(night.sunrise - night.sunset);
        sum.sunset += shown(night.sunset);
        sum.sunrise += shown(night.sunrise);
        sum.eveningTwilight += byShare ? shown(night.sunset) - share : shown(inner->sunset);
        sum.morningTwilight += byShare ? shown(night.sunrise) + share : shown(inner->sunrise);
        ++count;
    }
    if (count == 0)
        return {};
    return {true, sum.sunset / count, sum.sunrise / count, sum.eveningTwilight / count,
            sum.morningTwilight / count};
}
