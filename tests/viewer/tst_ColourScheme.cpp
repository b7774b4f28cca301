#include "viewer/core/ColourScheme.h"

#include <QtTest>

class tst_ColourScheme : public QObject
{
    Q_OBJECT

private slots:
    void schemes()
    {
        const QColor white(255, 255, 255);
        const QColor black(0, 0, 0);
        const QColor canvases[] = {black, white, black};
        const QColor trackers[] = {white, QColor(122, 184, 0), white};
        for (int index = 0; index < 3; ++index) {
            const auto scheme = ColourScheme::forIndex(index);
            QVERIFY(scheme.has_value());
            QCOMPARE(scheme->canvas, canvases[index]);
            QCOMPARE(scheme->tracker, trackers[index]);
            QColor ink = index == 1 ? black : white;
            for (const QColor& colour : {scheme->rubberBand, scheme->markerLine, scheme->detectedLabel})
                QCOMPARE(colour, ink);
            ink.setAlpha(50);
            QCOMPARE(scheme->grid, ink);
        }
        QVERIFY(!ColourScheme::forIndex(-1) && !ColourScheme::forIndex(3));
    }
};

QTEST_GUILESS_MAIN(tst_ColourScheme)
#include "tst_ColourScheme.moc"
