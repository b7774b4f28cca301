#include "evaluation/core/ClassChoice.h"
#include "evaluation/core/CopyPlan.h"
#include "tests/evaluation/exampleRow.h"

#include <QTest>

namespace {

const QVector<RecordingRow> list = {
    exampleRow("a.wav", "", "", "Pip + Nyc|"),  exampleRow("b.wav", "", "", "||"),
    exampleRow("c.wav", "", "", "|No call|0|"), exampleRow("d.wav", "", "", "Nyc|No Call|0|"),
    exampleRow("e.wav", "", "", " + Pip||0|"),  exampleRow("f.wav", "", "", "Pip + Pip|")};

} // namespace

class tst_ClassChoice : public QObject
{
    Q_OBJECT

private slots:
    void countsClasses();
    void readsSubclasses();
    void choosesFilesToCopy();
};

void tst_ClassChoice::countsClasses()
{
    const auto textOf = [](ClassChoice::Unassigned unassigned) {
        ClassChoice::Tally tally(unassigned);
        for (const RecordingRow& row : list)
            tally.add(row.record);
        return tally.text();
    };
    QCOMPARE(textOf(ClassChoice::Unassigned::AsOne), QStringLiteral("Pip\t3\nNyc\t2\nUnassigned\t3\n"));
    QCOMPARE(textOf(ClassChoice::Unassigned::ByDetection),
             QStringLiteral("Pip\t3\nNyc\t2\nUnassigned\t2\nDetected No Call\t1\n"));
}

void tst_ClassChoice::readsSubclasses()
{
    QStringList read;
    for (const ClassChoice::Line& line :
         ClassChoice::lines("\tlost\t1\nPip\t12\n\tPnat\t3\n\nodd\tname\t4\nshort"))
        read.append(QStringLiteral("%1|%2|%3").arg(line.isSubclass).arg(line.name).arg(line.count));
    QCOMPARE(read, QStringList({"0|lost|1", "0|Pip|12", "1|Pnat|3", "0|odd\tname|4", "0|short|0"}));
}

void tst_ClassChoice::choosesFilesToCopy()
{
    const QMap<QString, QString> namesOfChecked{{"", ""},
                                                {"Nyc", "a.wav d.wav"},
                                                {"Pip Nyc", "a.wav d.wav e.wav f.wav"},
                                                {"Unassigned", "b.wav c.wav e.wav"},
                                                {"pip", ""}};
    for (const QString& checked : namesOfChecked.keys())
        QCOMPARE(CopyPlan::names(list, checked.split(' ')).join(' '), namesOfChecked.value(checked));
}

QTEST_GUILESS_MAIN(tst_ClassChoice)

#include "tst_ClassChoice.moc"
