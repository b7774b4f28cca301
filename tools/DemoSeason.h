#ifndef SONAVIA_TOOLS_DEMOSEASON_H
#define SONAVIA_TOOLS_DEMOSEASON_H

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <vector>

/// A made-up season of bats from April to October in Central Europe (51° north, 9° east), classified: nights
/// follow the sun, classes have their months and hours, and cold, rain and wind keep bats at home. Always the
/// same. All times are those of a clock that is put forward in summer, kept as Qt::UTC.
class DemoSeason
{
public:
    struct Recording
    {
        QDateTime start;
        QByteArray classRecord; ///< empty: not classified yet

        QString fileName() const;
        /// A WAV file of a few milliseconds of silence; the date stands in its broadcast extension chunk.
        QByteArray bytes() const;
    };

    explicit DemoSeason(int year);

    const std::vector<Recording>& recordings() const { return m_recordings; }

    /// Lines of date and time, °C and mm/min, every ten minutes.
    QByteArray temperatureFile() const;
    /// Lines of date, time and m/s: "01.04.2026 00:10:00;3,5". Times are the ends of ten minutes.
    QByteArray windFile() const;

private:
    struct Weather
    {
        double temperature;
        double precipitation;
        double wind;
    };

    void makeWeather();
    void makeNight(const QDate& date, unsigned seed);
    const Weather& weatherAt(const QDateTime& time) const;

    QDateTime m_begin;
    QDateTime m_end;
    std::vector<Weather> m_weather; ///< every ten minutes from m_begin
    std::vector<Recording> m_recordings;
};

#endif
