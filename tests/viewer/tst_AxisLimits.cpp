#include "viewer/core/AxisLimits.h"

#include <QPointF>
#include <QtTest>

class tst_AxisLimits : public QObject
{
    Q_OBJECT

private slots:
    void frequency()
    {
        const auto shown = [](bool fixed, double lower, double upper) {
            const AxisLimits limits = AxisLimits::frequency(fixed, lower, upper, 250);
            return QPointF(limits.lower, limits.upper);
        };
        QCOMPARE(shown(false, 10.0, 100.0), QPointF(0.0, 250.0));
        QCOMPARE(shown(true, 10.0, 100.0), QPointF(10.0, 100.0));
        QCOMPARE(shown(true, 10.0, 400.0), QPointF(10.0, 250.0));
        QCOMPARE(shown(true, 300.0, 400.0), QPointF(249.0, 250.0));
        QCOMPARE(shown(true, 0.0, 250.0), QPointF(0.0, 250.0));
        QCOMPARE(shown(true, 0.0, 0.0), QPointF(0.0, 0.0)); // nothing stored
    }

    void amplitude()
    {
        const AxisLimits stored{-90.0, -30.0};
        const AxisLimits silence{-100.0, -5000.0};
        QCOMPARE(AxisLimits::amplitude(true, stored, silence).upper, -30.0);
        QVERIFY(AxisLimits::amplitude(true, stored, silence).isValid());
        QCOMPARE(AxisLimits::amplitude(false, stored, {-87.2, -12.5}).lower, -87.2);
        QVERIFY(!AxisLimits::amplitude(false, stored, silence).isValid());
        QVERIFY(!(AxisLimits{-40.0, -40.0}.isValid()));
        QVERIFY(!(AxisLimits{qQNaN(), -12.5}.isValid()));
    }
};

QTEST_GUILESS_MAIN(tst_AxisLimits)
#include "tst_AxisLimits.moc"
