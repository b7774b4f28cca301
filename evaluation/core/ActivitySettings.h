#ifndef SONAVIA_EVALUATION_CORE_ACTIVITYSETTINGS_H
#define SONAVIA_EVALUATION_CORE_ACTIVITYSETTINGS_H

#include "evaluation/core/ActivityTable.h"
#include "evaluation/core/WeatherFile.h"

#include <QColor>
#include <QMap>
#include <QSettings>

#include <memory>

/// The settings of the activity plots, in a file "SonaviaSettings.ini" of their own.
///
/// The file lies beside the program. Where that folder cannot be written, changes go to a file of the same
/// name in the user's configuration folder; what is not in there is still read from beside the program, so
/// that an administrator's presets hold until the user changes them. Values are written at once. Dates, times
/// and numbers are stored in the same way on every computer. GUI thread only.
class ActivitySettings
{
public:
    /// The file beside the program and the one in the user's configuration folder.
    ActivitySettings();
    /// Both folders must not be empty; missing ones are made when a value is written.
    ActivitySettings(const QString& programFolder, const QString& userFolder);

    /// The file that values are written to.
    QString filePath() const;

    // Where and when the recorder listened. `year` is that of the begin.
    MonitoringPlan monitoring() const;
    void setMonitoring(const MonitoringPlan& plan);

    /// The index in twilightNames().
    int twilight() const;
    void setTwilight(int index);
    static const QStringList& twilightNames();

    bool centerNight() const;
    void setCenterNight(bool center);
    /// The index in ActivityQuantity::choices().
    int daysQuantity() const;
    void setDaysQuantity(int index);

    QString temperatureFile() const;
    void setTemperatureFile(const QString& path);
    QString windFile() const;
    void setWindFile(const QString& path);

    WindFormat windFormat() const;
    QTimeZone windZone() const;
    bool windDaylightSaving() const;
    void setWind(const WindFormat& format, const QTimeZone& zone, bool daylightSaving);

    /// The last file that the table of this kind was written to.
    QString exportPath(ActivityKind kind) const;
    void setExportPath(ActivityKind kind, const QString& path);

    /// The colours that the user gave to classes, by class name.
    QMap<QString, QColor> classColors() const;
    void setClassColors(const QMap<QString, QColor>& colors);

private:
    QVariant value(const QString& key, const QVariant& fallback) const;
    QString text(const QString& key, const QString& fallback) const;
    double number(const QString& key, double fallback, double most) const;
    QTimeZone zone(const QString& key) const;
    void setValue(const QString& key, const QVariant& value);

    std::unique_ptr<QSettings> m_settings;
    std::unique_ptr<QSettings> m_presets; ///< null when the settings lie beside the program
};

#endif
