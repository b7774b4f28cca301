#include "tools/DemoSeason.h"

#include "tools/RandomSource.h"
#include "tools/WavBytes.h"

#include <QLocale>

#include <algorithm>
#include <cmath>

namespace {

constexpr double pi = 3.14159265358979323846;
constexpr qint64 interval = 600; // s

/// When a class is about: its share of a good night, its month and its hours.
struct DemoClass
{
    const char* record;
    double perNight;   ///< recordings in a good night
    double peakDay;    ///< day of the year of its best nights
    double spreadDays; ///< how fast it gets fewer around it
    double peakNight;  ///< best part of the night, 0 sunset to 1 sunrise
    double spreadNight;
};

constexpr DemoClass classes[] = {
    {"Ppip||0|", 9.0, 190, 60, 0.15, 0.25},  {"Ppip + social||0|", 2.5, 235, 22, 0.3, 0.3},
    {"Pnat||0|", 3.0, 240, 25, 0.4, 0.3},    {"Nnoc||0|", 4.0, 200, 55, 0.02, 0.12},
    {"Nnoc||0|", 1.5, 235, 25, 0.95, 0.06},  {"Nlei||0|", 2.0, 185, 40, 0.1, 0.2},
    {"Eser||0|", 3.0, 180, 45, 0.2, 0.25},   {"Mdau||0|", 3.5, 200, 60, 0.55, 0.35},
    {"Myotis||0|", 2.0, 215, 60, 0.6, 0.35}, {"Paur||0|", 1.2, 205, 60, 0.5, 0.3},
    {"Noise||0|", 1.2, 200, 200, 0.5, 0.6},  {"", 1.5, 200, 90, 0.35, 0.4}};

double bell(double x, double middle, double spread)
{
    const double z = (x - middle) / spread;
    return std::exp(-0.5 * z * z);
}

/// About the sun at 51° north: hours from midnight of the clock, which is an hour ahead from the last Sunday
/// of March to that of October. Made-up nights need no better.
struct DemoSun
{
    double sunset;
    double sunrise; ///< of the next morning, beyond 24

    explicit DemoSun(const QDate& date)
    {
        const double season = std::cos(2.0 * pi * (date.dayOfYear() - 172) / 365.25);
        const QDate october(date.year(), 10, 31);
        const bool isSummer = date < october.addDays(-(october.dayOfWeek() % 7));
        const double noon = 12.4 + (isSummer ? 1.0 : 0.0);
        const double halfDay = 6.15 + 2.15 * season;
        sunset = noon + halfDay;
        sunrise = noon + 24.0 - halfDay;
    }
};

QString text(const QDateTime& time, const char* format)
{
    return QLocale::c().toString(time, QString::fromLatin1(format));
}

int poisson(double mean, RandomSource& random)
{
    const double limit = std::exp(-mean);
    double product = random.uniform();
    int count = 0;
    while (product > limit) {
        product *= random.uniform();
        ++count;
    }
    return count;
}

} // namespace

QString DemoSeason::Recording::fileName() const
{
    return text(start, "yyyyMMdd_HHmmss") + QStringLiteral(".wav");
}

QByteArray DemoSeason::Recording::bytes() const
{
    WavBytes::Bext fields;
    fields.description = classRecord;
    fields.originationDate = text(start, "yyyy-MM-dd").toLatin1();
    fields.originationTime = text(start, "HH:mm:ss").toLatin1();
    return WavBytes().fmt(256000).bext(fields).data(std::vector<std::int16_t>(1024)).bytes();
}

DemoSeason::DemoSeason(int year)
    : m_begin(QDate(year, 4, 1), QTime(0, 0), Qt::UTC), m_end(QDate(year, 11, 1), QTime(0, 0), Qt::UTC)
{
    makeWeather();
    unsigned seed = 1;
    for (QDate date = m_begin.date(); date.addDays(1) < m_end.date(); date = date.addDays(1))
        makeNight(date, seed++);
    std::sort(m_recordings.begin(), m_recordings.end(),
              [](const Recording& a, const Recording& b) { return a.start < b.start; });
    // The names of files are their times.
    m_recordings.erase(std::unique(m_recordings.begin(), m_recordings.end(),
                                   [](const Recording& a, const Recording& b) { return a.start == b.start; }),
                       m_recordings.end());
}

/// Warm and cold spells of some days, days warmer than nights, showers, gusts.
void DemoSeason::makeWeather()
{
    RandomSource random(2026);
    double spell = 0.0;
    double gust = 3.0;
    double shower = 0.0;
    for (QDateTime time = m_begin; time < m_end; time = time.addSecs(interval)) {
        const double day = time.date().dayOfYear();
        const double hour = time.time().msecsSinceStartOfDay() / 3.6e6;
        spell = 0.998 * spell + 0.22 * static_cast<double>(random.noise());
        gust = std::max(0.0, gust + 0.012 * (3.2 - gust) + 0.28 * static_cast<double>(random.noise()));
        if (random.uniform() < 0.003)
            shower = random.between(0.3, 7.0);
        shower = shower < 0.05 ? 0.0 : shower * random.between(0.75, 1.0);
        const double temperature = 15.0 + 8.0 * std::cos(2.0 * pi * (day - 205) / 365.25) +
                                   4.5 * std::cos(2.0 * pi * (hour - 15.5) / 24.0);
        m_weather.push_back({temperature + spell - 0.4 * shower, shower, gust});
    }
}

const DemoSeason::Weather& DemoSeason::weatherAt(const QDateTime& time) const
{
    return m_weather[static_cast<std::size_t>(m_begin.secsTo(time) / interval)];
}

void DemoSeason::makeNight(const QDate& date, unsigned seed)
{
    RandomSource random(seed * 7919U);
    const DemoSun sun(date);
    const double night = sun.sunrise - sun.sunset;
    const QDateTime midnight(date, QTime(0, 0), Qt::UTC);
    for (const DemoClass& each : classes) {
        const double wanted = each.perNight * bell(date.dayOfYear(), each.peakDay, each.spreadDays);
        for (int left = poisson(3.0 * wanted, random); left > 0; --left) {
            const double part = each.peakNight + each.spreadNight * static_cast<double>(random.noise());
            const double keep = random.uniform();
            if (part < -0.12 || part > 1.05)
                continue;
            const auto second = static_cast<qint64>((sun.sunset + part * night) * 3600.0);
            const QDateTime time = midnight.addSecs(second);
            const Weather& weather = weatherAt(time);
            const double warm = 1.0 / (1.0 + std::exp((9.0 - weather.temperature) / 1.8));
            if (keep < warm * std::exp(-weather.precipitation) * bell(weather.wind, 0.0, 4.0))
                m_recordings.push_back({time, QByteArray(each.record)});
        }
    }
}

QByteArray DemoSeason::temperatureFile() const
{
    QByteArray lines("date and time,temperature,precipitation\r\n");
    QDateTime time = m_begin;
    for (const Weather& weather : m_weather) {
        lines += text(time, "yyyy-MM-dd HH:mm:ss").toLatin1() + ',' +
                 QByteArray::number(weather.temperature, 'f', 1) + ',' +
                 QByteArray::number(weather.precipitation, 'f', 2) + "\r\n";
        time = time.addSecs(interval);
    }
    return lines;
}

QByteArray DemoSeason::windFile() const
{
    QByteArray lines("date time;wind speed\r\n");
    QDateTime time = m_begin;
    for (const Weather& weather : m_weather) {
        time = time.addSecs(interval);
        lines += text(time, "dd.MM.yyyy HH:mm:ss").toLatin1() + ';' +
                 QByteArray::number(weather.wind, 'f', 1).replace('.', ',') + "\r\n";
    }
    return lines;
}
