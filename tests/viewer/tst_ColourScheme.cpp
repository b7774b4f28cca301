#include "viewer/core/ColourScheme.h"

#include <QtTest>

class tst_ColourScheme : public QObject
{
    Q_OBJECT

private slots:
    void schemes_data();
    void schemes();
    void unknownIndexNamesNoScheme();
    void ramps_data();
    void ramps();
};

void tst_ColourScheme::schemes_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QColor>("canvas");
    QTest::addColumn<QColor>("ink");
    QTest::addColumn<QColor>("tracker");
    QTest::addColumn<QColor>("loudest");

    const QColor white(255, 255, 255);
    const QColor black(0, 0, 0);
    QTest::newRow("black to green") << 0 << black << white << white << QColor(122, 184, 0);
    QTest::newRow("white to black") << 1 << white << black << QColor(122, 184, 0) << black;
    QTest::newRow("rainbow") << 2 << black << white << white << QColor(189, 0, 0);
}

void tst_ColourScheme::schemes()
{
    QFETCH(int, index);
    QFETCH(QColor, ink);
    const auto scheme = ColourScheme::forIndex(index);
    QVERIFY(scheme.has_value());
    QTEST(scheme->canvas, "canvas");
    QTEST(scheme->tracker, "tracker");
    QTEST(scheme->ramp.last().colour, "loudest");
    QCOMPARE(scheme->rubberBand, ink);
    QCOMPARE(scheme->markerLine, ink);
    QCOMPARE(scheme->detectedLabel, ink);
    QCOMPARE(scheme->grid.rgb(), ink.rgb());
    QCOMPARE(scheme->grid.alpha(), 50);
}

void tst_ColourScheme::unknownIndexNamesNoScheme()
{
    QVERIFY(!ColourScheme::forIndex(-1).has_value());
    QVERIFY(!ColourScheme::forIndex(3).has_value());
}

void tst_ColourScheme::ramps_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("stops");
    QTest::newRow("black to green") << 0 << 2;
    QTest::newRow("white to black") << 1 << 2;
    QTest::newRow("rainbow, without the eleventh thirteenth") << 2 << 13;
}

void tst_ColourScheme::ramps()
{
    QFETCH(int, index);
    const auto ramp = ColourScheme::forIndex(index)->ramp;
    QTEST(ramp.size(), "stops");
    QCOMPARE(ramp.first().position, 0.0);
    QCOMPARE(ramp.last().position, 1.0);
    for (int i = 1; i < ramp.size(); ++i)
        QVERIFY2(ramp[i - 1].position < ramp[i].position, qPrintable(QString::number(i)));
}

QTEST_GUILESS_MAIN(tst_ColourScheme)
#include "tst_ColourScheme.moc"
