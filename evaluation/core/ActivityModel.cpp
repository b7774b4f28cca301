#include "evaluation/core/ActivityModel.h"

#include <utility>

ActivityModel::ActivityModel(const std::vector<RecordingRow>& rows) : m_recordings(rows)
{}

void ActivityModel::setPlan(const MonitoringPlan& plan)
{
    m_plan = plan;
    m_calendar.reset();
    m_counter.reset();
    m_temperature.reset();
    m_precipitation.reset();
    m_windSpeed.reset();
}

void ActivityModel::setTemperature(WeatherRead read)
{
    m_weather.temperature = std::move(read.temperature);
    m_weather.precipitation = std::move(read.precipitation);
    m_temperature.reset();
    m_precipitation.reset();
}

void ActivityModel::setWind(WeatherRead read, const QTimeZone& zone, bool daylightSaving)
{
    m_weather.windSpeed = std::move(read.windSpeed);
    m_windZone = zone;
    m_windDaylightSaving = daylightSaving;
    m_windSpeed.reset();
}

const MonitoringCalendar& ActivityModel::calendar()
{
    if (!m_calendar)
        m_calendar.emplace(m_plan);
    return *m_calendar;
}

const WeatherSamples& ActivityModel::samples(ActivityKind kind)
{
    const RecorderClock& recorder = calendar().clock();
    if (kind == ActivityKind::WindSpeed) {
        if (!m_windSpeed) {
            const RecorderClock station = m_windDaylightSaving
                                              ? RecorderClock::inZone(m_windZone, m_plan.year, m_plan.year)
                                              : RecorderClock::atStandardTime(m_windZone, m_plan.year);
            m_windSpeed = WeatherFile::inYear(m_weather.windSpeed, station, recorder, m_plan.year);
        }
        return *m_windSpeed;
    }
    const bool isTemperature = kind == ActivityKind::Temperature;
    std::optional<WeatherSamples>& samples = isTemperature ? m_temperature : m_precipitation;
    if (!samples)
        samples = WeatherFile::inYear(isTemperature ? m_weather.temperature : m_weather.precipitation,
                                      recorder, recorder, m_plan.year);
    return *samples;
}

bool ActivityModel::hasData(ActivityKind kind)
{
    return kind < ActivityKind::Temperature || !samples(kind).empty();
}

ActivityBins ActivityModel::bins(ActivityKind kind, bool centerNight)
{
    switch (kind) {
    case ActivityKind::Time:
        return ActivityRules::timeOfDay(calendar(), centerNight);
    case ActivityKind::Days:
        return ActivityRules::days(calendar());
    case ActivityKind::Months:
        return ActivityRules::months(calendar());
    case ActivityKind::NightTime:
        return ActivityRules::night(calendar());
    case ActivityKind::Temperature:
        return ActivityRules::temperature(calendar(), samples(kind));
    case ActivityKind::Precipitation:
        return ActivityRules::precipitation(calendar(), samples(kind));
    case ActivityKind::WindSpeed:
        return ActivityRules::windSpeed(calendar(), samples(kind));
    }
    return {};
}

ActivityTable ActivityModel::table(ActivityKind kind, bool centerNight, const ActivityQuantity& quantity,
                                   const ActivityCounter::Progress& progress)
{
    if (!m_counter)
        m_counter.emplace(m_recordings, calendar().clock());
    ActivityTable table;
    table.kind = kind;
    table.year = m_plan.year;
    table.bins = bins(kind, centerNight);
    table.curveNames = m_recordings.curveNames();
    table.curves =
        m_counter->curves(table.bins, kind == ActivityKind::Days ? quantity : ActivityQuantity(), progress);
    return table;
}

TwilightTimes ActivityModel::twilight(const QString& name)
{
    return averageTwilight(calendar(), name);
}
