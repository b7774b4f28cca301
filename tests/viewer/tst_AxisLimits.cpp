#include "viewer/core/AxisLimits.h"

#include <QtTest>

#include <limits>

class tst_AxisLimits : public QObject
{
    Q_OBJECT

private slots:
    void frequency_data();
    void frequency();
    void amplitude();
    void validity_data();
    void validity();
};

void tst_AxisLimits::frequency_data()
{
    QTest::addColumn<bool>("fixed");
    QTest::addColumn<double>("storedLower");
    QTest::addColumn<double>("storedUpper");
    QTest::addColumn<int>("nyquist");
    QTest::addColumn<double>("lower");
    QTest::addColumn<double>("upper");

    QTest::newRow("whole range") << false << 10.0 << 100.0 << 250 << 0.0 << 250.0;
    QTest::newRow("within") << true << 10.0 << 100.0 << 250 << 10.0 << 100.0;
    QTest::newRow("upper above Nyquist") << true << 10.0 << 400.0 << 250 << 10.0 << 250.0;
    QTest::newRow("both above Nyquist") << true << 300.0 << 400.0 << 250 << 249.0 << 250.0;
    QTest::newRow("at Nyquist") << true << 0.0 << 250.0 << 250 << 0.0 << 250.0;
    QTest::newRow("nothing stored") << true << 0.0 << 0.0 << 250 << 0.0 << 0.0;
    QTest::newRow("sample rate below 2 kHz") << true << 10.0 << 100.0 << 0 << -1.0 << 0.0;
}

void tst_AxisLimits::frequency()
{
    QFETCH(bool, fixed);
    QFETCH(double, storedLower);
    QFETCH(double, storedUpper);
    QFETCH(int, nyquist);
    const AxisLimits limits = AxisLimits::frequency(fixed, storedLower, storedUpper, nyquist);
    QTEST(limits.lower, "lower");
    QTEST(limits.upper, "upper");
}

void tst_AxisLimits::amplitude()
{
    const AxisLimits stored{-90.0, -30.0};
    const AxisLimits result{-87.2, -12.5};
    QCOMPARE(AxisLimits::amplitude(true, stored, result).lower, -90.0);
    QCOMPARE(AxisLimits::amplitude(true, stored, result).upper, -30.0);
    QCOMPARE(AxisLimits::amplitude(false, stored, result).lower, -87.2);
    QCOMPARE(AxisLimits::amplitude(false, stored, result).upper, -12.5);
}

void tst_AxisLimits::validity_data()
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    QTest::addColumn<double>("lower");
    QTest::addColumn<double>("upper");
    QTest::addColumn<bool>("valid");

    QTest::newRow("a recording") << -87.2 << -12.5 << true;
    QTest::newRow("shorter than one window") << 0.0 << -5000.0 << false;
    QTest::newRow("silence") << -100.0 << -5000.0 << false;
    QTest::newRow("one level") << -40.0 << -40.0 << false;
    QTest::newRow("no number") << nan << -12.5 << false;
}

void tst_AxisLimits::validity()
{
    QFETCH(double, lower);
    QFETCH(double, upper);
    QTEST((AxisLimits{lower, upper}.isValid()), "valid");
}

QTEST_GUILESS_MAIN(tst_AxisLimits)
#include "tst_AxisLimits.moc"
