#include "evaluation/core/ActivitySettings.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QStandardPaths>
#include <QTemporaryFile>

#include <cmath>

namespace {

constexpr char fileName[] = "/SonaviaSettings.ini";

/// Asking for permissions tells little on some systems, so it is tried.
bool canWriteIn(const QString& folder)
{
    const QString path = folder + QLatin1String(fileName);
    if (QFile::exists(path) && !QFile(path).open(QIODevice::ReadWrite))
        return false;
    QTemporaryFile attempt(folder + QStringLiteral("/sonavia-XXXXXX"));
    return attempt.open();
}

std::unique_ptr<QSettings> openIn(const QString& folder)
{
    auto settings = std::make_unique<QSettings>(folder + QLatin1String(fileName), QSettings::IniFormat);
    settings->setIniCodec("UTF-8");
    return settings;
}

QString dateText(const QDate& date)
{
    return QLocale::c().toString(date, QStringLiteral("dd.MM.yy"));
}

/// Of "dd.MM.yy", in the 2000s.
QDate dateOf(const QString& text, const QDate& fallback)
{
    const QString century = QStringLiteral("20");
    const QDate date = QLocale::c().toDate(QString(text).insert(6, century), QStringLiteral("dd.MM.yyyy"));
    return date.isValid() && text.size() == 8 ? date : fallback;
}

QTime timeOf(const QString& text)
{
    const QTime time = QLocale::c().toTime(text, QStringLiteral("hh:mm"));
    return time.isValid() ? time : QTime(0, 0);
}

QString timeText(const QTime& time)
{
    return QLocale::c().toString(time, QStringLiteral("hh:mm"));
}

struct ExportKey
{
    const char* key;
    const char* fallback;
};

const ExportKey& exportKeyOf(ActivityKind kind)
{
    static constexpr ExportKey keys[] = {
        {"Files/exportPlotDataTime", "C:/ActivityOverTimeData.csv"},
        {"Files/exportPlotDataDays", "C:/ActivityOverDaysData.csv"},
        {"Files/exportPlotDataMonth", "C:/ActivityOverMonthData.csv"},
        {"Files/exportPlotDataNightTime", "C:/ActivityOverNightTimeData.csv"},
        {"Files/exportPlotDataTemperature", "C:/ActivityOverTemperatureData.csv"},
        {"Files/exportPlotDataPrecipitation", "C:/ActivityOverPrecipitationData.csv"},
        {"Files/exportPlotDataWindSpeed", "C:/ActivityOverWindSpeedData.csv"}};
    return keys[static_cast<int>(kind)];
}

struct SeparatorName
{
    char separator;
    const char* name;
};

constexpr SeparatorName separatorNames[] = {{' ', "Space"}, {';', "Semicolon"}, {'\t', "\\t"}};

QString nameOfSeparator(char separator)
{
    for (const SeparatorName& known : separatorNames)
        if (known.separator == separator)
            return QLatin1String(known.name);
    return {};
}

char separatorOf(const QString& name, char fallback)
{
    if (name == QLatin1String("Tabulator") || name == QLatin1String("\t")) // typed with one backslash
        return '\t';
    for (const SeparatorName& known : separatorNames)
        if (name == QLatin1String(known.name))
            return known.separator;
    return fallback;
}

const QStringList& definitionNames()
{
    static const QStringList names{QStringLiteral("Beginning"), QStringLiteral("End"),
                                   QStringLiteral("Round")};
    return names;
}

} // namespace

ActivitySettings::ActivitySettings()
    : ActivitySettings(QCoreApplication::applicationDirPath(),
                       QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation))
{}

ActivitySettings::ActivitySettings(const QString& programFolder, const QString& userFolder)
{
    if (canWriteIn(programFolder)) {
        m_settings = openIn(programFolder);
        return;
    }
    QDir().mkpath(userFolder);
    m_settings = openIn(userFolder);
    m_presets = openIn(programFolder);
}

QString ActivitySettings::filePath() const
{
    return m_settings->fileName();
}

QVariant ActivitySettings::value(const QString& key, const QVariant& fallback) const
{
    return m_settings->value(key, m_presets ? m_presets->value(key, fallback) : fallback);
}

/// A text with commas that somebody typed into the file without quotes arrives as a list.
QString ActivitySettings::text(const QString& key, const QString& fallback) const
{
    const QVariant stored = value(key, fallback);
    return stored.type() == QVariant::StringList ? stored.toStringList().join(QLatin1Char(','))
                                                 : stored.toString();
}

/// Within what the dialog can show, or it would compute with something else.
double ActivitySettings::number(const QString& key, double fallback, double most) const
{
    bool isNumber = false;
    const double stored = value(key, fallback).toDouble(&isNumber);
    return isNumber && std::isfinite(stored) ? qBound(-most, stored, most) : fallback;
}

QTimeZone ActivitySettings::zone(const QString& key) const
{
    const QTimeZone stored(value(key, QByteArray()).toByteArray());
    return stored.isValid() ? stored : QTimeZone::systemTimeZone();
}

void ActivitySettings::setValue(const QString& key, const QVariant& value)
{
    m_settings->setValue(key, value);
}

MonitoringPlan ActivitySettings::monitoring() const
{
    MonitoringPlan plan;
    plan.position = {number(QStringLiteral("Geocoordinates/latitude"), 51.0, 90.0),
                     number(QStringLiteral("Geocoordinates/longitude"), 9.0, 180.0)};
    plan.zone = zone(QStringLiteral("Time/TimeZone"));
    plan.daylightSaving = value(QStringLiteral("Time/daylightSaving"), true).toBool();
    plan.begin = dateOf(text(QStringLiteral("Time/BeginDate"), QString()), QDate(2015, 1, 1));
    plan.end = dateOf(text(QStringLiteral("Time/EndDate"), QString()), QDate(2015, 12, 31));
    plan.year = plan.begin.year();
    plan.relative = value(QStringLiteral("Time/PeriodType"), 0).toInt() == 1;
    plan.dailyStart = timeOf(text(QStringLiteral("Time/StartRecording"), QString()));
    plan.dailyStop = timeOf(text(QStringLiteral("Time/StopRecording"), QString()));
    plan.startMinutes = qRound(number(QStringLiteral("Time/StartMin"), 0.0, 1440.0));
    plan.stopMinutes = qRound(number(QStringLiteral("Time/StopMin"), 0.0, 1440.0));
    plan.twilight = twilightNames().at(twilight());
    plan.invalidTimes = text(QStringLiteral("Time/invalidTimes"), QString());
    return plan;
}

void ActivitySettings::setMonitoring(const MonitoringPlan& plan)
{
    setValue(QStringLiteral("Geocoordinates/latitude"), plan.position.latitude);
    setValue(QStringLiteral("Geocoordinates/longitude"), plan.position.longitude);
    setValue(QStringLiteral("Time/TimeZone"), QString::fromLatin1(plan.zone.id()));
    setValue(QStringLiteral("Time/daylightSaving"), plan.daylightSaving);
    setValue(QStringLiteral("Time/BeginDate"), dateText(plan.begin));
    setValue(QStringLiteral("Time/EndDate"), dateText(plan.end));
    setValue(QStringLiteral("Time/PeriodType"), plan.relative ? 1 : 0);
    setValue(QStringLiteral("Time/StartRecording"), timeText(plan.dailyStart));
    setValue(QStringLiteral("Time/StopRecording"), timeText(plan.dailyStop));
    setValue(QStringLiteral("Time/StartMin"), plan.startMinutes);
    setValue(QStringLiteral("Time/StopMin"), plan.stopMinutes);
    setValue(QStringLiteral("Time/invalidTimes"), plan.invalidTimes);
}

const QStringList& ActivitySettings::twilightNames()
{
    static const QStringList names{QStringLiteral("Civil twilight"), QStringLiteral("Nautical twilight"),
                                   QStringLiteral("Astronomical twilight"),
                                   QStringLiteral("Vantor twilight (15%)")};
    return names;
}

int ActivitySettings::twilight() const
{
    return qBound(0, value(QStringLiteral("Time/Twilight"), 0).toInt(), twilightNames().size() - 1);
}

void ActivitySettings::setTwilight(int index)
{
    setValue(QStringLiteral("Time/Twilight"), index);
}

bool ActivitySettings::centerNight() const
{
    return value(QStringLiteral("Time/centerNight"), true).toBool();
}

void ActivitySettings::setCenterNight(bool center)
{
    setValue(QStringLiteral("Time/centerNight"), center);
}

int ActivitySettings::daysQuantity() const
{
    const int last = static_cast<int>(ActivityQuantity::choices().size()) - 1;
    return qBound(0, value(QStringLiteral("Time/intervalDays"), 0).toInt(), last);
}

void ActivitySettings::setDaysQuantity(int index)
{
    setValue(QStringLiteral("Time/intervalDays"), index);
}

QString ActivitySettings::temperatureFile() const
{
    return text(QStringLiteral("Files/temperaturePrecipitationFile"), QString());
}

void ActivitySettings::setTemperatureFile(const QString& path)
{
    setValue(QStringLiteral("Files/temperaturePrecipitationFile"), path);
}

QString ActivitySettings::windFile() const
{
    return text(QStringLiteral("Files/windSpeedFile"), QString());
}

void ActivitySettings::setWindFile(const QString& path)
{
    setValue(QStringLiteral("Files/windSpeedFile"), path);
}

WindFormat ActivitySettings::windFormat() const
{
    WindFormat format;
    const QString group = QStringLiteral("WindDataSettings/");
    const QString date = text(group + QStringLiteral("dateFormat"), format.dateFormat);
    if (WindFormat::dateFormats().contains(date))
        format.dateFormat = date;
    // The default "hh.mm.ss" is none of the formats offered, so the first one is meant.
    const QString time = text(group + QStringLiteral("timeFormat"), QStringLiteral("hh.mm.ss"));
    if (WindFormat::timeFormats().contains(time))
        format.timeFormat = time;
    format.decimalSeparator =
        text(group + QStringLiteral("decimalSeparator"), QStringLiteral(",")) == QLatin1String(".") ? '.'
                                                                                                    : ',';
    format.separator1 = separatorOf(text(group + QStringLiteral("separator1"), QString()), ' ');
    format.separator2 = separatorOf(text(group + QStringLiteral("separator2"), QString()), ';');
    const int definition =
        definitionNames().indexOf(text(group + QStringLiteral("dateTimeDefinition"), QString()));
    format.definition = static_cast<WindFormat::Definition>(qMax(0, definition));
    return format;
}

QTimeZone ActivitySettings::windZone() const
{
    return zone(QStringLiteral("WindDataSettings/WindDataTimeZone"));
}

bool ActivitySettings::windDaylightSaving() const
{
    return value(QStringLiteral("WindDataSettings/considerDaylightSaving"), true).toBool();
}

void ActivitySettings::setWind(const WindFormat& format, const QTimeZone& zone, bool daylightSaving)
{
    const QString group = QStringLiteral("WindDataSettings/");
    setValue(group + QStringLiteral("dateFormat"), format.dateFormat);
    setValue(group + QStringLiteral("timeFormat"), format.timeFormat);
    setValue(group + QStringLiteral("decimalSeparator"), QString(QLatin1Char(format.decimalSeparator)));
    setValue(group + QStringLiteral("separator1"), nameOfSeparator(format.separator1));
    setValue(group + QStringLiteral("separator2"), nameOfSeparator(format.separator2));
    setValue(group + QStringLiteral("dateTimeDefinition"),
             definitionNames().at(static_cast<int>(format.definition)));
    setValue(group + QStringLiteral("considerDaylightSaving"), daylightSaving);
    setValue(group + QStringLiteral("WindDataTimeZone"), QString::fromLatin1(zone.id()));
}

QString ActivitySettings::exportPath(ActivityKind kind) const
{
    const ExportKey& key = exportKeyOf(kind);
    return text(QLatin1String(key.key), QLatin1String(key.fallback));
}

void ActivitySettings::setExportPath(ActivityKind kind, const QString& path)
{
    setValue(QLatin1String(exportKeyOf(kind).key), path);
}

QMap<QString, QColor> ActivitySettings::classColors() const
{
    QMap<QString, QColor> colors;
    const QStringList stored = value(QStringLiteral("Files/classColors"), QStringList()).toStringList();
    for (const QString& entry : stored) {
        const QColor color(entry.section(QLatin1Char(' '), 0, 0));
        if (color.isValid())
            colors.insert(entry.section(QLatin1Char(' '), 1), color);
    }
    return colors;
}

void ActivitySettings::setClassColors(const QMap<QString, QColor>& colors)
{
    QStringList entries; // "#rrggbb name"
    for (auto color = colors.begin(); color != colors.end(); ++color)
        entries << color.value().name() + QLatin1Char(' ') + color.key();
    setValue(QStringLiteral("Files/classColors"), entries);
}
