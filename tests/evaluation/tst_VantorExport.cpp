#include "evaluation/core/VantorExport.h"
#include "tests/evaluation/exampleRow.h"

#include <QTest>

class tst_VantorExport : public QObject
{
    Q_OBJECT

private slots:
    void writesQualifyingRows()
    {
        const QVector<RecordingRow> rows = {exampleRow("a", "01/08/17", "21:00:00", "Pip + Test|"),
                                            exampleRow("b", "01/08/17", "21:00:00", "Test|"),
                                            exampleRow("c", "01/08/17", "21:00:00", " + Pip|"),
                                            exampleRow("d", "02/08/17", "01:02:03", "No Call + Nyc|"),
                                            exampleRow("e", "N/A", "N/A", "Nyc|"),
                                            exampleRow("f", "01/08/17", "21:00:00", "|Pip|0|")};
        const TimeZoneChoice zone{QTimeZone("Europe/Berlin"), true};
        QCOMPARE(VantorExport(rows, {"Pip", "Nyc", "Unassigned"}).text(zone),
                 QStringLiteral("DateTime (MESZ, UTC+2);Class1;Class2;Class3;Class4\r\n"
                                "01.08.2017 21:00:00;Pip;Test;;\r\n"
                                "02.08.2017 01:02:03;No Call;Nyc;;\r\n"
                                ";Nyc;;;\r\n"));
    }

    void movesTimes_data()
    {
        QTest::addColumn<QByteArray>("zone");
        QTest::addColumn<bool>("daylightSaving");
        QTest::addColumn<QString>("time");
        QTest::addColumn<int>("year");
        QTest::addColumn<QString>("expected");
        const auto add = [](const char* zone, bool daylightSaving, const char* time, int year,
                            const char* expected) {
            QTest::addRow("%s%s %s, %d", zone, daylightSaving ? "+" : "", time, year)
                << QByteArray(zone) << daylightSaving << time << year << expected;
        };
        add("Europe/Berlin", false, "15/06/19 21:00:00", 0, "15.06.2019 22:00:00");
        add("Europe/Berlin", true, "15/06/19 21:00:00", 0, "15.06.2019 21:00:00");
        add("Europe/Berlin", true, "31/03/19 02:30:00", 0, "31.03.2019 03:30:00"); // left out
        add("Europe/Berlin", true, "27/10/19 02:30:00", 0, "27.10.2019 03:30:00"); // there twice
        add("America/New_York", true, "15/06/19 21:00:00", 0, "16.06.2019 03:00:00");
        add("Asia/Kolkata", false, "01/01/19 02:00:00", 0, "31.12.2018 22:30:00");
        add("Europe/London", false, "31/12/18 23:00:00", 2019, "01.01.2020 01:00:00"); // stays there
        add("Europe/Berlin", false, "29/02/20 21:00:00", 2019, "28.02.2019 22:00:00");
        add("Europe/Berlin", false, "29/02/20 21:00:00", 2016, "29.02.2016 22:00:00");
        // The clocks change on the 31st in 2019, on the 29th in 2020: the offset is that of the moved time.
        add("Europe/Berlin", true, "30/03/19 12:00:00", 2020, "30.03.2020 12:00:00");
    }

    void movesTimes()
    {
        QFETCH(QByteArray, zone);
        QFETCH(bool, daylightSaving);
        QFETCH(QString, time);
        QFETCH(int, year);
        QFETCH(QString, expected);
        const RecordingRow row = exampleRow("a", time.section(' ', 0, 0), time.section(' ', 1), "Pip|");
        const QString text = VantorExport({row}, {"Pip"}).text({QTimeZone(zone), daylightSaving}, year);
        QCOMPARE(text.section("\r\n", 1), expected + ";Pip;;;\r\n");
    }

    void listsYears()
    {
        const QVector<RecordingRow> rows = {
            exampleRow("a", "01/08/20", "21:00:00", "Pip|"), exampleRow("b", "N/A", "N/A", "Pip|"),
            exampleRow("c", "31/12/19", "23:59:59", "Pip|"), exampleRow("d", "01/08/20", "21:00:00", "Pip|"),
            exampleRow("e", "01/08/18", "21:00:00", "Test|")};
        QCOMPARE(VantorExport(rows, {"Pip"}).years(), QVector<int>({2020, 2019}));
    }

    void knowsItsClasses()
    {
        const ClassTree tree = VantorExport::classTree();
        QCOMPARE(
            tree.names().join(' '),
            QStringLiteral("Nyc NycLow NycNoc NycMid Enil Pip PipNat PipPn PipPip PipPp PipPyg No Call"));
        QString shortcuts; // two share one, whose key assigns the first
        for (const ClassTree::Entry& entry : tree.entries())
            shortcuts += (entry.isSubclass ? '.' : ' ') + entry.shortcut.mid(1, 1);
        QCOMPARE(shortcuts, QStringLiteral(" A.B.C.D.E D.F.G.H.I.J K"));
        QCOMPARE(tree.nameOfShortcut("<D>"), QStringLiteral("NycMid"));
        // Whatever is assigned from a tree, except "No Call", is exported in its mode.
        for (const int mode : {3, 4}) {
            QStringList names = (mode == 3 ? VantorExport::classTree() : ClassTree::advancedReview()).names();
            QVERIFY(names.removeOne("No Call"));
            const QStringList codes = VantorExport::speciesCodes(mode);
            QCOMPARE(QSet<QString>(names.cbegin(), names.cend()),
                     QSet<QString>(codes.cbegin(), codes.cend()));
        }
    }
};

QTEST_GUILESS_MAIN(tst_VantorExport)

#include "tst_VantorExport.moc"
