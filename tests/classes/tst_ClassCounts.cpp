#include "classes/core/ClassCounts.h"

#include <QtTest>

class tst_ClassCounts : public QObject
{
    Q_OBJECT

private slots:
    void change_data();
    void change();
};

void tst_ClassCounts::change_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("counts"); // Pip, Nyc, Unassigned

    QTest::newRow("first class") << "|"
                                 << "Pip|"
                                 << "1 0 0";
    QTest::newRow("second class") << "Pip|"
                                  << "Pip + Nyc|"
                                  << "1 1 0";
    QTest::newRow("last class goes") << "Pip|x"
                                     << "|x"
                                     << "0 0 1";
    QTest::newRow("class 4 overwritten") << "a + b + c + Pip|"
                                         << "a + b + c + Nyc|"
                                         << "0 1 0";
    QTest::newRow("all replaced") << "Pip + Nyc|x|0|"
                                  << "No Call|x|0|"
                                  << "0 0 0";
    QTest::newRow("gap before a class") << "Pip|"
                                        << " + Nyc|"
                                        << "0 1 1";
    QTest::newRow("class twice in a record") << "|"
                                             << "Pip + Pip + Nyc|"
                                             << "1 1 0";
}

void tst_ClassCounts::change()
{
    QFETCH(QString, before);
    QFETCH(QString, after);

    ClassCounts counts;
    const auto shown = [&counts] {
        return QStringLiteral("%1 %2 %3")
            .arg(counts.of("Pip"))
            .arg(counts.of("Nyc"))
            .arg(counts.unassigned());
    };
    counts.add(ClassRecord::parse(before));
    counts.change(ClassRecord::parse(before), ClassRecord::parse(after));
    QTEST(shown(), "counts");
    counts.remove(ClassRecord::parse(after));
    QCOMPARE(shown(), QStringLiteral("0 0 0"));
}

QTEST_GUILESS_MAIN(tst_ClassCounts)
#include "tst_ClassCounts.moc"
