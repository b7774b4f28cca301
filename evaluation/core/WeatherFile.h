#ifndef SONAVIA_EVALUATION_CORE_WEATHERFILE_H
#define SONAVIA_EVALUATION_CORE_WEATHERFILE_H

#include <QStringList>

#include <functional>
#include <vector>

class RecorderClock;

/// One value of the weather. It stands for the ten minutes that begin at its time.
struct WeatherSample
{
    qint64 time; ///< s: what the station's clock showed (see RecorderClock) or UTC, as named
    float value; ///< °C, mm/min or m/s
};

using WeatherSamples = std::vector<WeatherSample>;

/// What a weather file held. Samples are in order of time, one for each time: of several the first in the
/// file.
struct WeatherRead
{
    bool isOpened = false;   ///< otherwise the file could not be opened
    bool isComplete = false; ///< otherwise it was stopped or could not be read to its end
    WeatherSamples temperature;
    WeatherSamples precipitation;
    WeatherSamples windSpeed;
    qint64 usedLines = 0;
    qint64 skippedLines = 0; ///< of which no value could be used, a header among them
    qint64 repeated = 0;     ///< samples left out for one of the same time before them

    qint64 samples() const
    {
        return qint64(temperature.size()) + qint64(precipitation.size()) + qint64(windSpeed.size());
    }
    /// "52560 samples read, 1 line skipped."
    QString text() const;
};

/// How the lines of a wind file are to be read, as the user describes them: date, separator 1, time,
/// separator 2, wind speed.
struct WindFormat
{
    enum class Definition { Beginning, End, Round };

    QString dateFormat = QStringLiteral("dd.mm.yyyy"); ///< one of dateFormats()
    QString timeFormat = QStringLiteral("hh:mm:ss");   ///< one of timeFormats()
    char decimalSeparator = ',';
    char separator1 = ' ';
    char separator2 = ';';
    Definition definition = Definition::Beginning; ///< which moment of its interval a time names

    /// As the user reads them, with "mm" for the month.
    static const QStringList& dateFormats();
    static const QStringList& timeFormats();

    /// The time (s) that the interval of a line stamped `time` begins at.
    qint64 begin(qint64 time) const;
};

/// Reads weather files in pieces of bounded size, whatever is in them: lines that are of no use, binary or
/// endless ones included, are counted and skipped. Independent of zone and locale.
namespace WeatherFile {

/// Called every few hundred KB and while samples are brought in order, with the share of the work that is
/// done (0 to 1); false stops the reading.
using Progress = std::function<bool(double)>;

/// Lines of "yyyy-MM-dd hh:mm:ss", temperature and precipitation, separated by tabs or else by commas.
WeatherRead readTemperature(const QString& filePath, const Progress& progress = {});

WeatherRead readWind(const QString& filePath, const WindFormat& format, const Progress& progress = {});

/// The first `wanted` samples as they stand in the file, in its order and with repeated times, as far as they
/// are among its first few hundred KB.
WeatherRead previewWind(const QString& filePath, const WindFormat& format, qint64 wanted);

/// Those that `recorder`'s clock shows in `year`, with UTC times. `station` is the clock that the samples'
/// times are from; times that it never showed, as it was put forward over them, are left out. Linear.
WeatherSamples inYear(const WeatherSamples& samples, const RecorderClock& station,
                      const RecorderClock& recorder, int year);

} // namespace WeatherFile

#endif
