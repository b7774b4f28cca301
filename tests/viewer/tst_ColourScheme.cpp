#include "viewer/core/ColourScheme.h"

#include <QtTest>

class tst_ColourScheme : public QObject
{
    Q_OBJECT

private slots:
    void schemes_data();
    void schemes();
};

void tst_ColourScheme::schemes_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("exists");
    QTest::addColumn<QColor>("canvas");
    QTest::addColumn<QColor>("ink");
    QTest::addColumn<QColor>("tracker");

    const QColor white(255, 255, 255);
    const QColor black(0, 0, 0);
    QTest::newRow("black to green") << 0 << true << black << white << white;
    QTest::newRow("white to black") << 1 << true << white << black << QColor(122, 184, 0);
    QTest::newRow("rainbow") << 2 << true << black << white << white;
    QTest::newRow("below the list") << -1 << false << QColor() << QColor() << QColor();
    QTest::newRow("above the list") << 3 << false << QColor() << QColor() << QColor();
}

void tst_ColourScheme::schemes()
{
    QFETCH(int, index);
    QFETCH(bool, exists);
    QFETCH(QColor, ink);
    const auto scheme = ColourScheme::forIndex(index);
    QCOMPARE(scheme.has_value(), exists);
    if (!exists)
        return;
    QTEST(scheme->canvas, "canvas");
    QTEST(scheme->tracker, "tracker");
    for (const QColor& colour : {scheme->rubberBand, scheme->markerLine, scheme->detectedLabel})
        QCOMPARE(colour, ink);
    ink.setAlpha(50);
    QCOMPARE(scheme->grid, ink);
}

QTEST_GUILESS_MAIN(tst_ColourScheme)
#include "tst_ColourScheme.moc"
