#include "evaluation/core/TimeZoneChoice.h"

#include <QSet>
#include <QTest>

class tst_TimeZoneChoice : public QObject
{
    Q_OBJECT

private slots:
    void readsRowTexts_data();
    void readsRowTexts();
    void knowsTheClocksOffset_data();
    void knowsTheClocksOffset();
    void takesUtcWithoutZone();
    void listsEachNameOnce();
    void choosesZonesThatServeBothAnswers_data();
    void choosesZonesThatServeBothAnswers();
    void findsTheEntryOfAZone();
};

void tst_TimeZoneChoice::readsRowTexts_data()
{
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("time");
    QTest::addColumn<QString>("expected");
    QTest::newRow("plain") << "01/08/17"
                           << "21:09:59"
                           << "2017-08-01T21:09:59Z";
    QTest::newRow("first year") << "29/02/00"
                                << "00:00:00"
                                << "2000-02-29T00:00:00Z";
    QTest::newRow("last year") << "31/12/99"
                               << "23:59:59"
                               << "2099-12-31T23:59:59Z";
    QTest::newRow("no such hour anywhere in Central Europe") << "29/03/20"
                                                             << "02:30:00"
                                                             << "2020-03-29T02:30:00Z";
    QTest::newRow("no leap year") << "29/02/19"
                                  << "00:00:00"
                                  << "";
    QTest::newRow("month first") << "08/13/17"
                                 << "00:00:00"
                                 << "";
    QTest::newRow("unknown") << "N/A"
                             << "N/A"
                             << "";
    QTest::newRow("empty") << ""
                           << ""
                           << "";
    QTest::newRow("no time") << "01/08/17"
                             << "N/A"
                             << "";
    QTest::newRow("short time") << "01/08/17"
                                << "9:05:01"
                                << "";
    QTest::newRow("one digit") << "01/08/17"
                               << " 9:05:01"
                               << "";
    QTest::newRow("24 hours") << "01/08/17"
                              << "24:00:00"
                              << "";
    QTest::newRow("other separator") << "01.08.17"
                                     << "21:09:59"
                                     << "";
    QTest::newRow("letters") << "0a/08/17"
                             << "21:09:59"
                             << "";
    QTest::newRow("foreign digits") << QString::fromUtf8("٠١/٠٨/١٧") << "21:09:59"
                                    << "";
}

void tst_TimeZoneChoice::readsRowTexts()
{
    QFETCH(QString, date);
    QFETCH(QString, time);
    QFETCH(QString, expected);
    const QDateTime read = TimeZoneChoice::wallClock(date, time);
    QCOMPARE(read.toString(Qt::ISODate), expected);
    QVERIFY(!read.isValid() || read.timeSpec() == Qt::UTC);
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
    add("winter", "Europe/Berlin", "2020-01-15T12:00:00Z", 60, 60);
    add("summer", "Europe/Berlin", "2020-07-15T12:00:00Z", 120, 60);
    add("before the skipped hour", "Europe/Berlin", "2020-03-29T01:59:59Z", 60, 60);
    add("start of the skipped hour", "Europe/Berlin", "2020-03-29T02:00:00Z", 60, 60);
    add("end of the skipped hour", "Europe/Berlin", "2020-03-29T02:59:59Z", 60, 60);
    add("after the skipped hour", "Europe/Berlin", "2020-03-29T03:00:00Z", 120, 60);
    add("before the double hour", "Europe/Berlin", "2020-10-25T01:59:59Z", 120, 60);
    add("start of the double hour", "Europe/Berlin", "2020-10-25T02:00:00Z", 60, 60);
    add("end of the double hour", "Europe/Berlin", "2020-10-25T02:59:59Z", 60, 60);
    add("after the double hour", "Europe/Berlin", "2020-10-25T03:00:00Z", 60, 60);
    add("skipped hour in the west", "America/New_York", "2020-03-08T02:30:00Z", -300, -300);
    add("double hour in the west", "America/New_York", "2020-11-01T01:30:00Z", -300, -300);
    add("summer in the west", "America/New_York", "2020-03-08T03:00:00Z", -240, -300);
    add("summer in the south", "Australia/Lord_Howe", "2020-01-01T12:00:00Z", 660, 630);
    add("skipped half hour", "Australia/Lord_Howe", "2020-10-04T02:15:00Z", 630, 630);
    add("double half hour", "Australia/Lord_Howe", "2020-04-05T01:45:00Z", 630, 630);
    add("no daylight saving", "Asia/Kathmandu", "2020-07-15T12:00:00Z", 345, 345);
    add("far east", "Pacific/Kiritimati", "2020-07-15T12:00:00Z", 840, 840);
    add("other standard time in the past", "Asia/Pyongyang", "2017-07-15T12:00:00Z", 510, 510);
}

void tst_TimeZoneChoice::knowsTheClocksOffset()
{
    QFETCH(QByteArray, zone);
    QFETCH(QString, wallClock);
    QFETCH(int, withDaylightSaving);
    QFETCH(int, without);
    const QDateTime clock = QDateTime::fromString(wallClock, Qt::ISODate);
    TimeZoneChoice choice{QTimeZone(zone), true};
    QCOMPARE(choice.offsetAt(clock), withDaylightSaving * 60);
    QCOMPARE(choice.utc(clock), clock.addSecs(-withDaylightSaving * 60));
    choice.daylightSaving = false;
    QCOMPARE(choice.offsetAt(clock), without * 60);
}

void tst_TimeZoneChoice::takesUtcWithoutZone()
{
    const TimeZoneChoice choice{QTimeZone(), true};
    QCOMPARE(choice.offsetAt(TimeZoneChoice::wallClock("01/08/17", "12:00:00")), 0);
    QCOMPARE(choice.label(), QStringLiteral("UTC"));
    QVERIFY(!choice.utc(QDateTime()).isValid());
}

void tst_TimeZoneChoice::listsEachNameOnce()
{
    const QVector<TimeZoneChoice::Entry>& entries = TimeZoneChoice::entries();
    QVERIFY(entries.size() > 100);
    QSet<QString> names;
    int offset = -24 * 3600;
    for (const TimeZoneChoice::Entry& entry : entries) {
        QVERIFY2(!names.contains(entry.name), qPrintable(entry.name));
        names.insert(entry.name);
        QVERIFY2(!entry.name.startsWith("UTC"), qPrintable(entry.name));
        const QDateTime summer(QDate(2017, 8, 1), QTime(17, 0), Qt::UTC);
        QVERIFY2(entry.zone.standardTimeOffset(summer) >= offset, qPrintable(entry.name));
        offset = entry.zone.standardTimeOffset(summer);
    }
    // English on every computer
    QVERIFY(names.contains("Central European Standard Time"));
    QCOMPARE(TimeZoneChoice::entries().constData(), entries.constData()); // not made again
}

void tst_TimeZoneChoice::choosesZonesThatServeBothAnswers_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("july"); // minutes, daylight saving considered
    QTest::addColumn<int>("standard");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("standardLabel");
    // The first zone of each name by its id is that of Algiers, Abidjan, Cairo, Atikokan, Anguilla,
    // Pyongyang.
    QTest::newRow("Berlin") << "Central European Standard Time" << 120 << 60 << "GMT+1"
                            << "UTC+01:00";
    QTest::newRow("London") << "Greenwich Mean Time" << 60 << 0 << "GMT"
                            << "UTC+00:00";
    QTest::newRow("Athens") << "Eastern European Standard Time" << 180 << 120 << "GMT+2"
                            << "UTC+02:00";
    QTest::newRow("New York") << "Eastern Standard Time" << -240 << -300 << "EST"
                              << "UTC-05:00";
    QTest::newRow("Halifax") << "Atlantic Standard Time" << -180 << -240 << "AST"
                             << "UTC-04:00";
    QTest::newRow("Seoul") << "Korean Standard Time" << 540 << 540 << "GMT+9"
                           << "UTC+09:00";
    QTest::newRow("Istanbul") << "GMT+03:00" << 180 << 180 << "GMT+3"
                              << "UTC+03:00";
}

void tst_TimeZoneChoice::choosesZonesThatServeBothAnswers()
{
    QFETCH(QString, name);
    QFETCH(int, july);
    QFETCH(int, standard);
    QFETCH(QString, label);
    QFETCH(QString, standardLabel);
    for (const TimeZoneChoice::Entry& entry : TimeZoneChoice::entries()) {
        if (entry.name != name)
            continue;
        const QDateTime clock = TimeZoneChoice::wallClock("15/07/17", "22:00:00");
        const TimeZoneChoice summer{entry.zone, true};
        const TimeZoneChoice winter{entry.zone, false};
        QCOMPARE(summer.offsetAt(clock), july * 60);
        QCOMPARE(winter.offsetAt(clock), standard * 60);
        QCOMPARE(summer.label(), label);
        QCOMPARE(winter.label(), standardLabel);
        return;
    }
    QFAIL("no such name");
}

void tst_TimeZoneChoice::findsTheEntryOfAZone()
{
    const auto nameFor = [](const char* id) {
        return TimeZoneChoice::entries().value(TimeZoneChoice::indexOf(QTimeZone(id))).name;
    };
    QCOMPARE(nameFor("Europe/Vienna"), QStringLiteral("Central European Standard Time"));
    QCOMPARE(nameFor("Asia/Kolkata"), QStringLiteral("India Standard Time"));
    // A zone whose name is not in the list
    const QTimeZone other =
        TimeZoneChoice::entries().value(TimeZoneChoice::indexOf(QTimeZone("UTC+01:00"))).zone;
    QCOMPARE(other.standardTimeOffset(QDateTime::currentDateTimeUtc()), 3600);
    QVERIFY(TimeZoneChoice::indexOf(QTimeZone::systemTimeZone()) >= 0);
}

QTEST_GUILESS_MAIN(tst_TimeZoneChoice)

#include "tst_TimeZoneChoice.moc"
