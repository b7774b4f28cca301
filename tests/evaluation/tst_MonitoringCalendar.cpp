#include "evaluation/core/ActivityBins.h"

#include <QtTest>

namespace {

MonitoringPlan berlin(const QDate& begin, const QDate& end)
{
    MonitoringPlan plan;
    plan.zone = QTimeZone("Europe/Berlin");
    plan.begin = begin;
    plan.end = end;
    plan.year = begin.year();
    return plan;
}

double hoursOf(const TimeSpans& spans)
{
    return static_cast<double>(totalLength(spans)) / 3600.0;
}

double hoursOf(const ActivityBins& bins)
{
    double hours = 0.0;
    for (const ActivityBin& bin : bins)
        hours += hoursOf(bin.spans);
    return hours;
}

} // namespace

class tst_MonitoringCalendar : public QObject
{
    Q_OBJECT

private slots:
    void spans()
    {
        const TimeSpans all = united({{50, 60}, {0, 10}, {10, 20}, {5, 8}, {30, 30}, {40, 35}});
        QCOMPARE(all, (TimeSpans{{0, 20}, {50, 60}}));
        QCOMPARE(intersection(all, {{-5, 5}, {15, 55}}), (TimeSpans{{0, 5}, {15, 20}, {50, 55}}));
        QCOMPARE(intersection(all, {{20, 50}}), TimeSpans());
        QCOMPARE(difference(all, {{-9, 0}, {3, 4}, {18, 52}, {58, 99}}),
                 (TimeSpans{{0, 3}, {4, 18}, {52, 58}}));
    }

    void clock_data()
    {
        QTest::addColumn<QByteArray>("zone");
        QTest::addColumn<QString>("shownText");
        QTest::addColumn<QString>("utcText");
        const QByteArray berlin("Europe/Berlin");
        QTest::newRow("winter") << berlin << "2016-01-05T10:00Z"
                                << "2016-01-05T09:00Z";
        QTest::newRow("summer") << berlin << "2016-07-05T10:00Z"
                                << "2016-07-05T08:00Z";
        QTest::newRow("left out") << berlin << "2016-03-27T02:30Z"
                                  << "2016-03-27T01:30Z";
        QTest::newRow("twice") << berlin << "2016-10-30T02:30Z"
                               << "2016-10-30T01:30Z";
        QTest::newRow("far east") << QByteArray("Pacific/Kiritimati") << "2016-07-05T10:00Z"
                                  << "2016-07-04T20:00Z";
        QTest::newRow("no zone") << QByteArray() << "2016-07-05T10:00Z"
                                 << "2016-07-05T10:00Z";
    }
    void clock()
    {
        QFETCH(QByteArray, zone);
        QFETCH(QString, shownText);
        QFETCH(QString, utcText);
        const QDateTime shown = QDateTime::fromString(shownText, Qt::ISODate);
        const QDateTime utc = QDateTime::fromString(utcText, Qt::ISODate);
        const RecorderClock clock =
            RecorderClock::inZone(zone.isEmpty() ? QTimeZone() : QTimeZone(zone), 2016, 2016);
        const qint64 wall = RecorderClock::wall(shown.date(), shown.time());
        QCOMPARE(wall, shown.toSecsSinceEpoch());
        QCOMPARE(clock.toUtc(wall), utc.toSecsSinceEpoch());
        QCOMPARE(RecorderClock::dateOfWall(wall), shown.date());
        QCOMPARE(RecorderClock::timeOfWall(wall), shown.time());
        if (QLatin1String(QTest::currentDataTag()) != QLatin1String("left out"))
            QCOMPARE(clock.toWall(clock.toUtc(wall)), wall);
    }

    void windows_data()
    {
        QTest::addColumn<QTime>("start");
        QTest::addColumn<QTime>("stop");
        QTest::addColumn<QDate>("end");
        QTest::addColumn<QString>("invalid");
        QTest::addColumn<double>("hours");
        const QDate first(2016, 6, 1);
        QTest::newRow("whole days") << QTime(0, 0) << QTime(0, 0) << first.addDays(1) << "" << 48.0;
        QTest::newRow("evening") << QTime(20, 0) << QTime(22, 30) << first << "" << 2.5;
        QTest::newRow("over midnight") << QTime(22, 0) << QTime(4, 0) << first << "" << 6.0;
        QTest::newRow("end before begin") << QTime(22, 0) << QTime(4, 0) << first.addDays(-1) << "" << 0.0;
        QTest::newRow("one period over two windows")
            << QTime(22, 0) << QTime(4, 0) << first.addDays(1) << "02.06.2016 03:00-02.06.2016 23:30" << 9.5;
        QTest::newRow("overlapping periods")
            << QTime(22, 0) << QTime(4, 0) << first
            << "01.06.2016 23:00-02.06.2016 01:00;02.06.2016 00:00-02.06.2016 02:00" << 3.0;
        QTest::newRow("no periods") << QTime(22, 0) << QTime(4, 0) << first
                                    << "02.06.2016 01:00-01.06.2016 23:00;rubbish;-;31.02.2016 00:00-" << 6.0;
    }
    void windows()
    {
        QFETCH(QTime, start);
        QFETCH(QTime, stop);
        QFETCH(QDate, end);
        QFETCH(QString, invalid);
        QFETCH(double, hours);
        MonitoringPlan plan = berlin(QDate(2016, 6, 1), end);
        plan.dailyStart = start;
        plan.dailyStop = stop;
        plan.invalidTimes = invalid;
        const MonitoringCalendar calendar(plan);
        QCOMPARE(hoursOf(calendar.monitored()), hours);
        QCOMPARE(hoursOf(ActivityRules::days(calendar)), hours);
        QCOMPARE(hoursOf(ActivityRules::months(calendar)), hours);
        QCOMPARE(hoursOf(ActivityRules::timeOfDay(calendar, true)), hours);
        QCOMPARE(hoursOf(ActivityRules::timeOfDay(calendar, false)), hours);
    }

    /// Clocks are changed in the night: the hours are those that really passed, and each stands in the bin
    /// that the clock shows.
    void changeOfClocks_data()
    {
        QTest::addColumn<QDate>("date");
        QTest::addColumn<bool>("daylightSaving");
        QTest::addColumn<double>("night");
        QTest::addColumn<double>("twoToThree");
        QTest::newRow("spring") << QDate(2016, 3, 26) << true << 7.0 << 0.0;
        QTest::newRow("autumn") << QDate(2016, 10, 29) << true << 9.0 << 2.0;
        QTest::newRow("unchanged") << QDate(2016, 3, 26) << false << 8.0 << 1.0;
    }
    void changeOfClocks()
    {
        QFETCH(QDate, date);
        QFETCH(bool, daylightSaving);
        QFETCH(double, night);
        QFETCH(double, twoToThree);
        MonitoringPlan plan = berlin(date, date);
        plan.daylightSaving = daylightSaving;
        plan.dailyStart = QTime(21, 0);
        plan.dailyStop = QTime(5, 0);
        const MonitoringCalendar calendar(plan);
        QCOMPARE(hoursOf(calendar.monitored()), night);
        double hours = 0.0;
        for (const ActivityBin& bin : ActivityRules::timeOfDay(calendar, true))
            if (bin.label.startsWith(QLatin1String("02:")))
                hours += hoursOf(bin.spans);
        QCOMPARE(hours, twoToThree);
    }

    void relativeToTheSun()
    {
        MonitoringPlan plan = berlin(QDate(2016, 12, 31), QDate(2016, 12, 31)); // into the new year
        plan.relative = true;
        const MonitoringCalendar bare(plan);
        const auto nights = bare.nights();
        QCOMPARE(bare.days().size(), std::size_t(1));
        const TimeSpan window = bare.days().front().window.front();
        const auto night = std::find_if(nights.begin(), nights.end(),
                                        [&](const auto& candidate) { return candidate.date == plan.begin; });
        QVERIFY(night != nights.end());
        QCOMPARE(window, (TimeSpan{night->sunset, night->sunrise}));
        QVERIFY(window.length() > 55800 && window.length() < 59400);

        plan.startMinutes = -30;
        plan.stopMinutes = 15;
        QCOMPARE(MonitoringCalendar(plan).monitored().front(),
                 (TimeSpan{window.start - 1800, window.stop + 900}));
        plan.twilight = QStringLiteral("Nautical twilight");
        QVERIFY(hoursOf(MonitoringCalendar(plan).monitored()) < hoursOf(bare.monitored()));
        plan.startMinutes = 2000;
        QVERIFY(MonitoringCalendar(plan).monitored().empty());
    }

    /// Windows that overlap are listened to once.
    void overlappingWindows()
    {
        MonitoringPlan plan = berlin(QDate(2016, 6, 1), QDate(2016, 6, 10));
        plan.relative = true;
        plan.startMinutes = -12 * 60;
        plan.stopMinutes = 12 * 60;
        const MonitoringCalendar calendar(plan);
        QVERIFY(hoursOf(ActivityRules::days(calendar)) > 300.0);
        QCOMPARE(calendar.monitored().size(), std::size_t(1));
        QCOMPARE(hoursOf(ActivityRules::timeOfDay(calendar, true)), hoursOf(calendar.monitored()));
    }

    void nightBins()
    {
        MonitoringPlan plan = berlin(QDate(2016, 5, 3), QDate(2016, 5, 3));
        const MonitoringCalendar calendar(plan); // 0:00 to 0:00: the ends of two nights
        const ActivityBins bins = ActivityRules::night(calendar);
        QCOMPARE(bins.size(), std::size_t(11));
        QCOMPARE(bins.front().label, QStringLiteral("-0.15 to 0"));
        QCOMPARE(bins[1].label, QStringLiteral("0 to 0.1"));
        QCOMPARE(bins.back().label, QStringLiteral("0.9 to 1"));

        plan.relative = true;
        plan.twilight = QStringLiteral("None");
        plan.startMinutes = -240;
        const ActivityBins whole = ActivityRules::night(MonitoringCalendar(plan));
        const double length = hoursOf(whole[1].spans) * 10.0;
        QVERIFY(qAbs(hoursOf(whole[0].spans) - 0.15 * length) < 0.01);
        QVERIFY(qAbs(hoursOf(whole.back().spans) - 0.1 * length) < 0.01);
    }

    /// Days without sunset have no night bins; the midsummer of the far north has none at all.
    void polarDays()
    {
        MonitoringPlan plan = berlin(QDate(2016, 6, 1), QDate(2016, 7, 1));
        plan.position = {70.0, 25.0};
        const MonitoringCalendar calendar(plan);
        QCOMPARE(hoursOf(ActivityRules::night(calendar)), 0.0);
        QVERIFY(hoursOf(ActivityRules::days(calendar)) > 700.0);
        QVERIFY(!averageTwilight(calendar, QStringLiteral("Civil twilight")).isValid);
        plan.relative = true;
        QVERIFY(MonitoringCalendar(plan).monitored().empty());
    }

    /// The nights follow each other, whatever zone a place is given, also when the sun sets after midnight.
    void nightsAreInOrder_data()
    {
        QTest::addColumn<QByteArray>("zone");
        QTest::addColumn<double>("latitude");
        QTest::addColumn<double>("longitude");
        QTest::newRow("Fairbanks") << QByteArray("America/Anchorage") << 64.8 << -147.7;
        QTest::newRow("Kiritimati") << QByteArray("Pacific/Kiritimati") << 1.9 << -157.4;
        QTest::newRow("half an hour of summer") << QByteArray("Australia/Lord_Howe") << -31.5 << 159.1;
        QTest::newRow("wrong zone") << QByteArray("Pacific/Auckland") << 51.0 << 9.0;
    }
    void nightsAreInOrder()
    {
        QFETCH(QByteArray, zone);
        QFETCH(double, latitude);
        QFETCH(double, longitude);
        MonitoringPlan plan = berlin(QDate(2016, 1, 1), QDate(2016, 12, 31));
        plan.zone = QTimeZone(zone);
        plan.position = {latitude, longitude};
        const auto nights = MonitoringCalendar(plan).nights();
        QVERIFY(nights.size() >= 365);
        for (std::size_t i = 1; i < nights.size(); ++i) {
            QVERIFY(nights[i - 1].sunrise < nights[i].sunset);
            QVERIFY(qAbs(nights[i].sunset - nights[i - 1].sunset - 86400) < 900);
        }
    }

    void twilightOnAverage()
    {
        MonitoringPlan plan = berlin(QDate(2016, 9, 1), QDate(2016, 9, 1));
        const MonitoringCalendar calendar(plan);
        const TwilightTimes civil = averageTwilight(calendar, QStringLiteral("Civil twilight"));
        QVERIFY(civil.isValid);
        QVERIFY(civil.sunset < civil.eveningTwilight && civil.morningTwilight < civil.sunrise);
        const TwilightTimes share = averageTwilight(calendar, QStringLiteral("Vantor twilight (15%)"));
        QCOMPARE(share.sunset, civil.sunset);
        const double part = 0.15 * (share.sunrise - share.sunset);
        QCOMPARE(share.eveningTwilight, share.sunset - part);
        QCOMPARE(share.morningTwilight, share.sunrise + part);
    }
};

QTEST_GUILESS_MAIN(tst_MonitoringCalendar)
#include "tst_MonitoringCalendar.moc"
