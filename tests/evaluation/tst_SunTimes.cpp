#include "evaluation/core/SunTimes.h"

#include <QtTest>

#include <cmath>

namespace {

constexpr double degrees = 180.0 / 3.14159265358979323846;

/// The sun's altitude in degrees at `hours` of UT, by the low-precision series of J. Meeus, Astronomical
/// Algorithms, 2nd edition, chapters 12, 13 and 25 (good to 0.01 degrees).
double sunAltitude(const QDate& date, double hours, const GeoPosition& position)
{
    const double days = static_cast<double>(date.toJulianDay()) - 0.5 + hours / 24.0 - 2451545.0;
    const double t = days / 36525.0;
    const double anomaly = (357.52911 + 35999.05029 * t) / degrees;
    const double centre = (1.914602 - 0.004817 * t) * std::sin(anomaly) + 0.019993 * std::sin(2 * anomaly) +
                          0.000289 * std::sin(3 * anomaly);
    const double node = (125.04 - 1934.136 * t) / degrees;
    const double longitude =
        (280.46646 + 36000.76983 * t + centre - 0.00569 - 0.00478 * std::sin(node)) / degrees;
    const double obliquity = (23.4392911 - 0.0130042 * t + 0.00256 * std::cos(node)) / degrees;
    const double ascension =
        std::atan2(std::cos(obliquity) * std::sin(longitude), std::cos(longitude)) * degrees;
    const double declination = std::asin(std::sin(obliquity) * std::sin(longitude));
    const double sidereal = 280.46061837 + 360.98564736629 * days;
    const double hourAngle = (sidereal + position.longitude - ascension) / degrees;
    const double latitude = position.latitude / degrees;
    return std::asin(std::sin(latitude) * std::sin(declination) +
                     std::cos(latitude) * std::cos(declination) * std::cos(hourAngle)) *
           degrees;
}

/// The UT hour between `low` and `high` at which the sun crosses `altitude`, once.
double crossing(const QDate& date, const GeoPosition& position, double altitude, double low, double high)
{
    const bool rising = sunAltitude(date, high, position) > altitude;
    for (int i = 0; i < 40; ++i) {
        const double middle = (low + high) / 2.0;
        ((sunAltitude(date, middle, position) > altitude) == rising ? high : low) = middle;
    }
    return low;
}

} // namespace

class tst_SunTimes : public QObject
{
    Q_OBJECT

private slots:
    void agreesWithAnotherAlgorithm_data()
    {
        QTest::addColumn<double>("latitude");
        QTest::addColumn<double>("longitude");
        QTest::addColumn<double>("offset");
        QTest::newRow("Malta") << 35.9 << 14.5 << 1.0;
        QTest::newRow("Denver") << 39.7 << -105.0 << -7.0;
        QTest::newRow("Kassel") << 51.3 << 9.5 << 1.0;
        QTest::newRow("Oslo") << 59.9 << 10.75 << 1.0;
        QTest::newRow("Fairbanks") << 64.8 << -147.7 << -9.0;
    }

    /// Over a leap year and the one after it, when the day of the year says least about the sun.
    void agreesWithAnotherAlgorithm()
    {
        QFETCH(double, latitude);
        QFETCH(double, longitude);
        QFETCH(double, offset);
        const GeoPosition position{latitude, longitude};
        double worst = 0.0;
        double worstAfterLeapYear = 0.0;
        for (QDate date(2016, 1, 1); date.year() < 2018; date = date.addDays(1)) {
            const double noon = 12.0 - longitude / 15.0;
            const SunTimes::Day day = SunTimes::day(date, position, SunTimes::horizonAltitude, offset, 0);
            QVERIFY2(day.sunrise && day.sunset, qPrintable(date.toString(Qt::ISODate)));
            const double rise = crossing(date, position, SunTimes::horizonAltitude, noon - 12.0, noon);
            const double set = crossing(date, position, SunTimes::horizonAltitude, noon, noon + 12.0);
            const double minutes =
                std::max(std::abs(static_cast<double>(*day.sunrise) / 60.0 - (rise + offset) * 60.0),
                         std::abs(static_cast<double>(*day.sunset) / 60.0 - (set + offset) * 60.0));
            double& year = date.year() == 2016 ? worst : worstAfterLeapYear;
            year = std::max(year, minutes);
        }
        qInfo("at most %.2f and %.2f min away", worst, worstAfterLeapYear);
        QVERIFY(worst <= 2.0);
        QVERIFY(worstAfterLeapYear <= 2.5);
    }

    /// Deeper twilights end later in the evening and begin earlier in the morning.
    void twilightsShortenTheNight()
    {
        const GeoPosition position{51.0, 9.0};
        const QDate date(2016, 4, 10);
        double lastRise = 25.0;
        double lastSet = 0.0;
        for (const char* name : {"None", "Civil twilight", "Nautical twilight", "Astronomical twilight"}) {
            const QString twilight = QLatin1String(name);
            const double rise =
                SunTimes::clockHours(SunTimes::Event::Sunrise, date, position, twilight, 1, 1);
            const double set = SunTimes::clockHours(SunTimes::Event::Sunset, date, position, twilight, 1, 1);
            QVERIFY2(rise < lastRise && set > lastSet, name);
            lastRise = rise;
            lastSet = set;
        }
        QCOMPARE(SunTimes::altitudeOf(QStringLiteral("Vantor twilight (15%)")), -0.833);
    }

    void noEvent_data()
    {
        QTest::addColumn<double>("latitude");
        QTest::addColumn<QDate>("date");
        QTest::addColumn<QString>("twilight");
        QTest::newRow("midnight sun") << 70.0 << QDate(2016, 6, 21) << "None";
        QTest::newRow("polar night") << 70.0 << QDate(2016, 12, 21) << "None";
        QTest::newRow("pole") << 90.0 << QDate(2016, 3, 1) << "None";
        QTest::newRow("white night") << 51.0 << QDate(2016, 6, 21) << "Astronomical twilight";
    }
    void noEvent()
    {
        QFETCH(double, latitude);
        QFETCH(QDate, date);
        QFETCH(QString, twilight);
        const GeoPosition position{latitude, 9.0};
        for (const auto event : {SunTimes::Event::Sunrise, SunTimes::Event::Sunset})
            QCOMPARE(SunTimes::clockHours(event, date, position, twilight, 1, 0), -1.0);
        const SunTimes::Day day = SunTimes::day(date, position, SunTimes::altitudeOf(twilight), 1, 0);
        QVERIFY(!day.sunrise && !day.sunset);
    }

    /// On the clock a time is brought back into the day; for the night it stays after midnight.
    void sunsetAfterMidnight()
    {
        const GeoPosition fairbanks{64.8, -147.7};
        const QDate date(2016, 6, 20);
        const double hours = SunTimes::clockHours(SunTimes::Event::Sunset, date, fairbanks, QString(), -9, 1);
        QVERIFY(hours > 0.5 && hours < 1.0);
        const SunTimes::Day day = SunTimes::day(date, fairbanks, SunTimes::horizonAltitude, -9, 1);
        QCOMPARE(*day.sunset, std::llround((hours + 24.0) * 3600.0));
        QVERIFY(*day.sunrise > 2 * 3600 && *day.sunrise < 4 * 3600);
    }
};

QTEST_GUILESS_MAIN(tst_SunTimes)
#include "tst_SunTimes.moc"
