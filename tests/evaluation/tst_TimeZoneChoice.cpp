#include "evaluation/core/TimeZoneChoice.h"

#include <QSet>
#include <QTest>

class tst_TimeZoneChoice : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void readsRowTexts();
    void knowsTheClocksOffset_data();
    void knowsTheClocksOffset();
    void listsEachNameOnce();
    void choosesZonesThatServeBothAnswers_data();
    void choosesZonesThatServeBothAnswers();
    void findsTheEntryOfAZone();
};

void tst_TimeZoneChoice::initTestCase()
{
    if (qgetenv("TZ") == "UTC")
        qputenv("TZ", "Etc/UTC"); // the usual name of it, which is known but not listed
}

void tst_TimeZoneChoice::readsRowTexts()
{
    const auto read = [](const QString& row) {
        return TimeZoneChoice::wallClock(row.section(' ', 0, 0), row.section(' ', 1)).toString(Qt::ISODate);
    };
    QCOMPARE(read("29/02/00 00:00:00"), QStringLiteral("2000-02-29T00:00:00Z"));
    QCOMPARE(read("31/12/99 23:59:59"), QStringLiteral("2099-12-31T23:59:59Z"));
    QCOMPARE(read("29/03/20 02:30:00"), QStringLiteral("2020-03-29T02:30:00Z")); // left out in Berlin
    for (const char* row :
         {"29/02/19 00:00:00", "08/13/17 00:00:00", "N/A N/A", "", "01/08/17 N/A", "01/08/17 9:05:01",
          "01/08/17 24:00:00", "01.08.17 21:09:59", "0a/08/17 21:09:59"})
        QCOMPARE(read(row), QString());
}

void tst_TimeZoneChoice::knowsTheClocksOffset_data()
{
    QTest::addColumn<QByteArray>("zone");
    QTest::addColumn<QString>("wallClock");
    QTest::addColumn<int>("withDaylightSaving"); // minutes
    QTest::addColumn<int>("without");
    const auto add = [](const char* title, const char* zone, const char* wallClock, int with, int without) {
        QTest::newRow(title) << QByteArray(zone) << wallClock << with << without;
    };
    add("none known is UTC", "", "2020-07-15T12:00:00Z", 0, 0);
    add("summer", "Europe/Berlin", "2020-07-15T12:00:00Z", 120, 60);
    add("start of the skipped hour", "Europe/Berlin", "2020-03-29T02:00:00Z", 60, 60);
    add("end of the skipped hour", "Europe/Berlin", "2020-03-29T02:59:59Z", 60, 60);
    add("after the skipped hour", "Europe/Berlin", "2020-03-29T03:00:00Z", 120, 60);
    add("start of the double hour", "Europe/Berlin", "2020-10-25T02:00:00Z", 60, 60);
    add("skipped hour in the west", "America/New_York", "2020-03-08T02:30:00Z", -300, -300);
    add("double hour in the west", "America/New_York", "2020-11-01T01:30:00Z", -300, -300);
    add("summer in the south", "Australia/Lord_Howe", "2020-01-01T12:00:00Z", 660, 630);
    add("skipped half hour", "Australia/Lord_Howe", "2020-10-04T02:15:00Z", 630, 630);
    add("double half hour", "Australia/Lord_Howe", "2020-04-05T01:45:00Z", 630, 630);
    add("far east", "Pacific/Kiritimati", "2020-07-15T12:00:00Z", 840, 840);
    add("other standard time in the past", "Asia/Pyongyang", "2017-07-15T12:00:00Z", 510, 510);
}

void tst_TimeZoneChoice::knowsTheClocksOffset()
{
    QFETCH(QByteArray, zone);
    QFETCH(QString, wallClock);
    QFETCH(int, withDaylightSaving);
    const QDateTime clock = QDateTime::fromString(wallClock, Qt::ISODate);
    TimeZoneChoice choice{zone.isEmpty() ? QTimeZone() : QTimeZone(zone), true};
    QCOMPARE(choice.utc(clock), clock.addSecs(-withDaylightSaving * 60));
    choice.daylightSaving = false;
    QTEST(choice.offsetAt(clock) / 60, "without");
}

void tst_TimeZoneChoice::listsEachNameOnce()
{
    const QDateTime summer(QDate(2017, 8, 1), QTime(17, 0), Qt::UTC);
    QSet<QString> names;
    int offset = -24 * 3600;
    for (const TimeZoneChoice::Entry& entry : TimeZoneChoice::entries()) {
        QVERIFY2(!entry.name.startsWith("UTC") && !names.contains(entry.name), qPrintable(entry.name));
        QVERIFY2(entry.zone.standardTimeOffset(summer) >= offset, qPrintable(entry.name));
        offset = entry.zone.standardTimeOffset(summer);
        names.insert(entry.name);
    }
    QVERIFY(names.size() > 100);
    QCOMPARE(&TimeZoneChoice::entries(), &TimeZoneChoice::entries()); // not made again
}

void tst_TimeZoneChoice::choosesZonesThatServeBothAnswers_data()
{
    QTest::addColumn<QString>("name"); // in English on every computer
    QTest::addColumn<int>("july");     // minutes, daylight saving considered
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("standardLabel");
    // By their ids, the first zones of these names are those of Algiers, Cairo, Abidjan, Atikokan, Pyongyang.
    QTest::newRow("Berlin") << "Central European Standard Time" << 120 << "GMT+1"
                            << "UTC+01:00";
    QTest::newRow("Bucharest") << "Eastern European Standard Time" << 180 << "GMT+2"
                               << "UTC+02:00";
    QTest::newRow("London") << "Greenwich Mean Time" << 60 << "GMT"
                            << "UTC+00:00";
    QTest::newRow("New York") << "Eastern Standard Time" << -240 << "EST"
                              << "UTC-05:00";
    QTest::newRow("Seoul") << "Korean Standard Time" << 540 << "GMT+9"
                           << "UTC+09:00";
}

void tst_TimeZoneChoice::choosesZonesThatServeBothAnswers()
{
    QFETCH(QString, name);
    QTimeZone zone;
    for (const TimeZoneChoice::Entry& entry : TimeZoneChoice::entries())
        if (entry.name == name)
            zone = entry.zone;
    const TimeZoneChoice summer{zone, true};
    QTEST(summer.offsetAt(TimeZoneChoice::wallClock("15/07/17", "22:00:00")) / 60, "july");
    QTEST(summer.label(), "label");
    QTEST((TimeZoneChoice{zone, false}.label()), "standardLabel");
}

void tst_TimeZoneChoice::findsTheEntryOfAZone()
{
    const auto entryFor = [](const char* id) {
        return TimeZoneChoice::entries().value(TimeZoneChoice::indexOf(QTimeZone(id)));
    };
    QCOMPARE(entryFor("Europe/Vienna").name, QStringLiteral("Central European Standard Time"));
    // One whose name is not in the list
    QCOMPARE(entryFor("UTC+01:00").zone.standardTimeOffset(QDateTime::currentDateTimeUtc()), 3600);
    const QByteArray own = QTimeZone::systemTimeZoneId();
    const QString name = QTimeZone(own).displayName(QTimeZone::GenericTime, QTimeZone::LongName,
                                                    QLocale(QLocale::English, QLocale::UnitedStates));
    QCOMPARE(entryFor(own).name, name);
}

QTEST_GUILESS_MAIN(tst_TimeZoneChoice)

#include "tst_TimeZoneChoice.moc"
