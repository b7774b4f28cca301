#include "classes/core/ClassCounts.h"

#include <QtTest>

class tst_ClassCounts : public QObject
{
    Q_OBJECT

private slots:
    void countsRowsAsTheyChange_data();
    void countsRowsAsTheyChange();
    void changesEqualAFreshCount();
    void clear();
};

void tst_ClassCounts::countsRowsAsTheyChange_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("counts"); // Pip, Nyc, Myo, Unassigned

    QTest::newRow("first class") << "|"
                                 << "Pip|"
                                 << "1 0 0 0";
    QTest::newRow("second class") << "Pip|"
                                  << "Pip + Nyc|"
                                  << "1 1 0 0";
    QTest::newRow("last class goes") << "Pip|x"
                                     << "|x"
                                     << "0 0 0 1";
    QTest::newRow("later classes move up") << "Pip + Nyc + Myo|"
                                           << "Nyc + Myo|"
                                           << "0 1 1 0";
    QTest::newRow("class 4 overwritten") << "a + b + c + Pip|"
                                         << "a + b + c + Nyc|"
                                         << "0 1 0 0";
    QTest::newRow("all replaced") << "Pip + Nyc|x|0|"
                                  << "No Call|x|0|"
                                  << "0 0 0 0";
    QTest::newRow("gap before a class") << "Pip|"
                                        << " + Nyc|"
                                        << "0 1 0 1";
    QTest::newRow("class twice in a record") << "|"
                                             << "Pip + Pip + Nyc|"
                                             << "1 1 0 0";
    QTest::newRow("nothing changes") << "Pip|"
                                     << "Pip|"
                                     << "1 0 0 0";
}

void tst_ClassCounts::countsRowsAsTheyChange()
{
    QFETCH(QString, before);
    QFETCH(QString, after);

    ClassCounts counts;
    counts.add(ClassRecord::parse(before));
    counts.change(ClassRecord::parse(before), ClassRecord::parse(after));
    QTEST(QStringLiteral("%1 %2 %3 %4")
              .arg(counts.of("Pip"))
              .arg(counts.of("Nyc"))
              .arg(counts.of("Myo"))
              .arg(counts.unassigned()),
          "counts");
    counts.remove(ClassRecord::parse(after));
    QCOMPARE(counts.of("Pip") + counts.of("Nyc") + counts.of("Myo") + counts.unassigned(), 0);
}

/// Whatever happens to some rows, the counts are those of counting the rows at the end.
void tst_ClassCounts::changesEqualAFreshCount()
{
    const QStringList texts = {"|", "Pip|", "Pip + Nyc|", "Nyc + Myo + Pip + Bat|", "Pip + Pip|", " + Myo|"};
    QVector<ClassRecord> rows(20);
    ClassCounts counts;
    for (const ClassRecord& row : rows)
        counts.add(row);
    unsigned random = 1;
    for (int change = 0; change < 500; ++change) {
        random = random * 1664525u + 1013904223u;
        ClassRecord& row = rows[int(random >> 16) % rows.size()];
        const ClassRecord before = row;
        row = ClassRecord::parse(texts.at(int(random >> 8) % texts.size()));
        counts.change(before, row);
    }
    ClassCounts fresh;
    for (const ClassRecord& row : rows)
        fresh.add(row);
    for (const char* name : {"Pip", "Nyc", "Myo", "Bat"})
        QCOMPARE(counts.of(name), fresh.of(name));
    QCOMPARE(counts.unassigned(), fresh.unassigned());
}

void tst_ClassCounts::clear()
{
    ClassCounts counts;
    counts.add(ClassRecord::parse("Pip|"));
    counts.add(ClassRecord());
    counts.clear();
    QCOMPARE(counts.of("Pip") + counts.unassigned(), 0);
}

QTEST_GUILESS_MAIN(tst_ClassCounts)
#include "tst_ClassCounts.moc"
