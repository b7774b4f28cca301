#include "evaluation/core/ActivityTable.h"

#include <QtTest>

namespace {

RecordingRow row(const char* date, const char* time, const QStringList& classes)
{
    RecordingRow result;
    result.date = QLatin1String(date);
    result.time = QLatin1String(time);
    for (int i = 0; i < classes.size(); ++i)
        result.record.classes[i] = classes.at(i);
    return result;
}

/// Listening each night from 21:00 to 3:00.
MonitoringPlan nights(const QDate& begin, const QDate& end)
{
    MonitoringPlan plan;
    plan.zone = QTimeZone("Europe/Berlin");
    plan.begin = begin;
    plan.end = end;
    plan.dailyStart = QTime(21, 0);
    plan.dailyStop = QTime(3, 0);
    return plan;
}

/// The counts of every curve, "2 1 0; ...", one group for each bin.
QString countsOf(const std::vector<RecordingRow>& rows, const MonitoringPlan& plan,
                 const ActivityQuantity& quantity, ActivityBins (*rule)(const MonitoringCalendar&))
{
    const MonitoringCalendar calendar(plan);
    const ActivityRecordings recordings(rows);
    const ActivityCurves curves =
        ActivityCounter(recordings, calendar.clock()).curves(rule(calendar), quantity);
    QStringList bins;
    for (std::size_t bin = 0; bin < curves.validHours.size(); ++bin) {
        QStringList values;
        for (const std::vector<double>& curve : curves.values)
            values << (std::isnan(curve[bin]) ? QStringLiteral("-") : QString::number(curve[bin]));
        bins << values.join(QLatin1Char(' '));
    }
    return bins.join(QStringLiteral("; "));
}

const ActivityQuantity files{ActivityQuantity::Kind::Files, 0};

} // namespace

class tst_ActivityCounter : public QObject
{
    Q_OBJECT

private slots:
    void curveNames()
    {
        const ActivityRecordings recordings(
            {row("01/06/16", "22:00:00", {}), row("N/A", "22:00:00", {QStringLiteral("Nyc")}),
             row("31/06/16", "22:00:00", {}), row("01/06/17", "25:00:00", {QStringLiteral("Pip")}),
             row("01/06/18", "22:00:00", {QStringLiteral("Pip"), QString(), QStringLiteral("Behind")})});
        QCOMPARE(recordings.curveNames(), (QStringList{QStringLiteral("All Classes"), QStringLiteral("Nyc"),
                                                       QStringLiteral("Pip"), QStringLiteral("Unassigned")}));
        QCOMPARE(recordings.years(), (std::vector<int>{2018, 2016}));
        QCOMPARE(recordings.entries().size(), std::size_t(2));
    }

    void countsInDays_data()
    {
        QTest::addColumn<QString>("time");
        QTest::addColumn<QStringList>("classes");
        QTest::addColumn<QString>("counts"); // All, Pip, Unassigned for each of two days
        const QStringList pip{QStringLiteral("Pip")};
        QTest::newRow("first night") << "01/06/16 22:00:00" << pip << "1 1 0; 0 0 0";
        QTest::newRow("after midnight") << "02/06/16 01:00:00" << pip << "1 1 0; 0 0 0";
        QTest::newRow("at the start") << "02/06/16 21:00:00" << pip << "0 0 0; 1 1 0";
        QTest::newRow("at the stop") << "03/06/16 03:00:00" << pip << "0 0 0; 1 1 0";
        QTest::newRow("before the start") << "02/06/16 20:59:59" << pip << "0 0 0; 0 0 0";
        QTest::newRow("in an invalid period") << "01/06/16 23:30:00" << pip << "0 0 0; 0 0 0";
        QTest::newRow("after the end") << "03/06/16 22:00:00" << pip << "0 0 0; 0 0 0";
        QTest::newRow("twice the same class") << "01/06/16 22:00:00" << pip + pip << "1 2 0; 0 0 0";
        QTest::newRow("behind an empty class")
            << "01/06/16 22:00:00" << QStringList{QString(), QStringLiteral("Pip")} << "1 0 1; 0 0 0";
    }
    void countsInDays()
    {
        QFETCH(QString, time);
        QFETCH(QStringList, classes);
        QFETCH(QString, counts);
        MonitoringPlan plan = nights(QDate(2016, 6, 1), QDate(2016, 6, 2));
        plan.invalidTimes = QStringLiteral("01.06.2016 23:00-02.06.2016 00:00");
        RecordingRow counted = row("", "", classes);
        counted.date = time.left(8);
        counted.time = time.mid(9);
        const std::vector<RecordingRow> rows{row("01/01/10", "00:00:00", {QStringLiteral("Pip")}), counted};
        QCOMPARE(countsOf(rows, plan, files, ActivityRules::days), counts);
    }

    /// A recording at the boundary of two bins counts in both, in the one of a single bin once.
    void boundaries()
    {
        const std::vector<RecordingRow> rows{row("02/06/16", "00:00:00", {})};
        MonitoringPlan plan = nights(QDate(2016, 6, 1), QDate(2016, 6, 2));
        plan.dailyStart = plan.dailyStop = QTime(0, 0);
        QCOMPARE(countsOf(rows, plan, files, ActivityRules::days), QStringLiteral("1 1; 1 1"));
        QCOMPARE(countsOf(rows, plan, files, ActivityRules::months), QStringLiteral("1 1"));
        const MonitoringPlan newYear = nights(QDate(2016, 12, 31), QDate(2016, 12, 31));
        QCOMPARE(countsOf({row("01/01/17", "01:00:00", {})}, newYear, files, ActivityRules::days),
                 QStringLiteral("1 1"));
    }

    void events_data()
    {
        QTest::addColumn<int>("choice");
        QTest::addColumn<QString>("counts"); // All, Pip, Nyc, Unassigned
        QTest::newRow("per hour") << 0 << "1.5 1.33333 0.166667 0.166667";
        QTest::newRow("files") << 1 << "9 8 1 1";
        QTest::newRow("Dynamic 1") << 2 << "5 5 1 1";
        QTest::newRow("Dynamic 5") << 3 << "3 3 1 1";
        QTest::newRow("Dynamic 10") << 4 << "2 2 1 1";
        QTest::newRow("Static 1") << 5 << "7 6 1 1";
        QTest::newRow("Static 5") << 6 << "4 4 1 1";
        QTest::newRow("Static 10") << 7 << "3 3 1 1";
    }
    void events()
    {
        QFETCH(int, choice);
        QFETCH(QString, counts);
        const QStringList pip{QStringLiteral("Pip")};
        const std::vector<RecordingRow> rows{
            row("01/06/16", "22:00:00", pip),
            row("01/06/16", "22:01:00", pip), // 60 s: the same event
            row("01/06/16", "22:01:01", pip), // 61 s: another one
            row("01/06/16", "22:04:59", pip),
            row("01/06/16", "22:05:00", {}),
            row("01/06/16", "22:09:59", pip),
            row("01/06/16", "22:10:00", pip), // a slot of the hour ends
            row("02/06/16", "02:10:00", pip + QStringList{QStringLiteral("Nyc")}),
            row("02/06/16", "02:10:30", pip)};
        const ActivityQuantity quantity = ActivityQuantity::choices().at(static_cast<std::size_t>(choice));
        QCOMPARE(countsOf(rows, nights(QDate(2016, 6, 1), QDate(2016, 6, 1)), quantity, ActivityRules::days),
                 counts);
        const QString text = QStringLiteral("Number of Events per Day with %1 Minute Time Interval");
        const QString name = QString::fromLatin1(QTest::currentDataTag());
        QVERIFY(choice < 2 || quantity.text() == text.arg(name));
    }

    void tableText()
    {
        MonitoringPlan plan = nights(QDate(2016, 6, 1), QDate(2016, 6, 2));
        plan.invalidTimes = QStringLiteral("02.06.2016 12:00-03.06.2016 12:00");
        const MonitoringCalendar calendar(plan);
        const ActivityRecordings recordings(
            {row("01/06/16", "22:00:00", {QStringLiteral("Pip")}), row("01/06/16", "22:00:01", {})});
        ActivityTable table;
        table.kind = ActivityKind::Days;
        table.bins = ActivityRules::days(calendar);
        table.curveNames = recordings.curveNames();
        table.curves = ActivityCounter(recordings, calendar.clock()).curves(table.bins);
        QCOMPARE(table.text({true, true, false, true}),
                 QStringLiteral("Day;Valid Hours [h];All Classes [Rec./h];Unassigned [Rec./h]\r\n"
                                "01/06/16;6.000;0.333;0.167\r\n02/06/16;0.000;;\r\n"));
        QCOMPARE(table.text({}), QStringLiteral("Day\r\n01/06/16\r\n02/06/16\r\n"));
    }
};

QTEST_GUILESS_MAIN(tst_ActivityCounter)
#include "tst_ActivityCounter.moc"
