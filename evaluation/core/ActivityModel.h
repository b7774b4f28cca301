#ifndef SONAVIA_EVALUATION_CORE_ACTIVITYMODEL_H
#define SONAVIA_EVALUATION_CORE_ACTIVITYMODEL_H

#include "evaluation/core/ActivityTable.h"

#include <optional>

/// What the activity plots are computed from: the recordings of a list, when the recorder listened, and the
/// weather. Everything that the plots share is computed once for each change of it.
class ActivityModel
{
public:
    explicit ActivityModel(const std::vector<RecordingRow>& rows);
    ActivityModel(const ActivityModel&) = delete;
    ActivityModel& operator=(const ActivityModel&) = delete;

    const ActivityRecordings& recordings() const { return m_recordings; }

    /// When the recorder listened; its year is that of the plots and of the weather.
    void setPlan(const MonitoringPlan& plan);
    const MonitoringPlan& plan() const { return m_plan; }

    /// Temperature and precipitation are in the time of the recorder's clock.
    void setTemperature(WeatherRead read);
    /// Wind is in the time of a clock of its own.
    void setWind(WeatherRead read, const QTimeZone& zone, bool daylightSaving);

    /// Whether there is weather of the year for the plots that need it; true for the others.
    bool hasData(ActivityKind kind);

    /// `quantity` counts for the plot over days only, `centerNight` for that of the time of day. `progress`
    /// is told how much is done.
    ActivityTable table(ActivityKind kind, bool centerNight, const ActivityQuantity& quantity,
                        const ActivityCounter::Progress& progress = {});

    /// See averageTwilight().
    TwilightTimes twilight(const QString& name);

private:
    const MonitoringCalendar& calendar();
    const WeatherSamples& samples(ActivityKind kind);
    ActivityBins bins(ActivityKind kind, bool centerNight);

    ActivityRecordings m_recordings;
    MonitoringPlan m_plan;
    WeatherRead m_weather; ///< of all years
    QTimeZone m_windZone;
    bool m_windDaylightSaving = true;

    std::optional<MonitoringCalendar> m_calendar;
    std::optional<ActivityCounter> m_counter;
    std::optional<WeatherSamples> m_temperature; ///< of the year, in UTC
    std::optional<WeatherSamples> m_precipitation;
    std::optional<WeatherSamples> m_windSpeed;
};

#endif
