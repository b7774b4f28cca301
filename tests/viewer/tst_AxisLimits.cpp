#include "viewer/core/AxisLimits.h"

#include <QtTest>

class tst_AxisLimits : public QObject
{
    Q_OBJECT

private slots:
    void frequency_data();
    void frequency();
    void amplitude();
};

void tst_AxisLimits::frequency_data()
{
    QTest::addColumn<bool>("fixed");
    QTest::addColumn<double>("storedLower");
    QTest::addColumn<double>("storedUpper");
    QTest::addColumn<double>("lower");
    QTest::addColumn<double>("upper");

    QTest::newRow("whole range") << false << 10.0 << 100.0 << 0.0 << 250.0;
    QTest::newRow("within") << true << 10.0 << 100.0 << 10.0 << 100.0;
    QTest::newRow("upper above Nyquist") << true << 10.0 << 400.0 << 10.0 << 250.0;
    QTest::newRow("both above Nyquist") << true << 300.0 << 400.0 << 249.0 << 250.0;
    QTest::newRow("at Nyquist") << true << 0.0 << 250.0 << 0.0 << 250.0;
    QTest::newRow("nothing stored") << true << 0.0 << 0.0 << 0.0 << 0.0;
}

void tst_AxisLimits::frequency()
{
    QFETCH(bool, fixed);
    QFETCH(double, storedLower);
    QFETCH(double, storedUpper);
    const AxisLimits limits = AxisLimits::frequency(fixed, storedLower, storedUpper, 250);
    QTEST(limits.lower, "lower");
    QTEST(limits.upper, "upper");
}

void tst_AxisLimits::amplitude()
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

QTEST_GUILESS_MAIN(tst_AxisLimits)
#include "tst_AxisLimits.moc"
