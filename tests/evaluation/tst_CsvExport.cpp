#include "evaluation/core/CsvExport.h"
#include "tests/evaluation/exampleRow.h"

#include <QTest>

using Mode = ClassEvents::Mode;

namespace {

/// Four recordings of one evening.
const QVector<RecordingRow> evening = {
    exampleRow("b.wav", "01/08/17", "21:09:59", "Pip + Nyc||0|two; \"calls\""),
    exampleRow("a.wav", "01/08/17", "21:10:00", "Pip|"),
    exampleRow("c.wav", "01/08/17", "21:20:00", "|No call|0|quiet"),
    exampleRow("d.raw", "N/A", "N/A", "Nyc|")};

CsvExport exportOf(const QStringList& classes, const QVector<int>& intervals = {}, Mode mode = Mode::Dynamic)
{
    CsvExport choice;
    choice.classes = classes;
    choice.intervals = intervals;
    choice.mode = mode;
    choice.time = {QTimeZone("Europe/Berlin"), false};
    return choice;
}

QStringList linesOf(const QString& text)
{
    QStringList lines = text.split("\r\n");
    return lines.takeLast().isEmpty() ? lines : QStringList("does not end in a line's end");
}

} // namespace

class tst_CsvExport : public QObject
{
    Q_OBJECT

private slots:
    void writesHeader();
    void writesChosenRows_data();
    void writesChosenRows();
    void writesEvents();
};

void tst_CsvExport::writesHeader()
{
    CsvExport choice = exportOf({});
    const QString header = "FileName;Date;Time [%1];Length [s];Class1;Class2;Class3;Class4;%2Comment\r\n";
    QCOMPARE(choice.text(evening), header.arg("UTC+01:00", "")); // nothing is chosen
    choice.intervals = {1, 5, 10};
    QCOMPARE(choice.text({}), header.arg("UTC+01:00", "1min class event (dynamic);5min class event (dynamic);"
                                                      "10min class event (dynamic);"));
    choice.intervals = {5};
    choice.mode = Mode::Static;
    choice.time.daylightSaving = true;
    QCOMPARE(choice.text({}), header.arg("GMT+1", "5min class event (static);"));
}

void tst_CsvExport::writesChosenRows_data()
{
    QTest::addColumn<QStringList>("classes");
    QTest::addColumn<bool>("detection");
    QTest::addColumn<QStringList>("lines");
    const QString a = "a.wav;01/08/17;21:10:00;3.000;Pip;;;;";
    const QString b = "b.wav;01/08/17;21:09:59;3.000;Pip;Nyc;;;two; \"calls\"";
    const QString unassigned = "c.wav;01/08/17;21:20:00;3.000;;;;;quiet";
    const QString noCall = "c.wav;01/08/17;21:20:00;3.000;Detected No Call;;;;quiet";
    const QString d = "d.raw;N/A;N/A;3.000;Nyc;;;;";
    QTest::newRow("all") << QStringList{"Pip", "Nyc", "Unassigned"} << false
                         << QStringList{b, a, unassigned, d};
    QTest::newRow("without unassigned") << QStringList{"Pip", "Nyc"} << false << QStringList{b, a, d};
    QTest::newRow("no call detected") << QStringList{"Detected No Call"} << true << QStringList{noCall};
    QTest::newRow("is not unassigned") << QStringList{"Unassigned"} << true << QStringList();
}

void tst_CsvExport::writesChosenRows()
{
    QFETCH(QStringList, classes);
    QFETCH(bool, detection);
    CsvExport choice = exportOf(classes);
    if (detection)
        choice.unassigned = ClassChoice::Unassigned::ByDetection;
    const QStringList rows = linesOf(choice.text(evening)).mid(1);
    QTEST(rows, "lines");
}

void tst_CsvExport::writesEvents()
{
    const QStringList classes{"Nyc", "Pip"};
    QCOMPARE(linesOf(exportOf(classes, {1, 10}).text(evening)).mid(1),
             QStringList({"b.wav;01/08/17;21:09:59;3.000;Pip;Nyc;;;Nyc,Pip;Nyc,Pip;two; \"calls\"",
                          "a.wav;01/08/17;21:10:00;3.000;Pip;;;;;;", "d.raw;N/A;N/A;3.000;Nyc;;;;;;"}));
    QCOMPARE(linesOf(exportOf(classes, {1, 10}, Mode::Static).text(evening)).at(2),
             QStringLiteral("a.wav;01/08/17;21:10:00;3.000;Pip;;;;Pip;Pip;"));
}

QTEST_GUILESS_MAIN(tst_CsvExport)

#include "tst_CsvExport.moc"
