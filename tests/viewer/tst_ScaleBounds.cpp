#include "viewer/core/ScaleBounds.h"

#include <QtTest>

#include <limits>

class tst_ScaleBounds : public QObject
{
    Q_OBJECT

private slots:
    void highestFrequencyIsNyquist_data();
    void highestFrequencyIsNyquist();
    void shownLimitsFitTheRange_data();
    void shownLimitsFitTheRange();
};

void tst_ScaleBounds::highestFrequencyIsNyquist_data()
{
    QTest::addColumn<int>("sampleRate");
    QTest::addColumn<int>("kilohertz");
    QTest::newRow("no recording") << 0 << 150;
    QTest::newRow("nonsense") << -1 << 150;
    QTest::newRow("usual") << 500000 << 250;
    QTest::newRow("truncated") << 44100 << 22;
    QTest::newRow("room for a lower limit") << 1500 << 1;
}

void tst_ScaleBounds::highestFrequencyIsNyquist()
{
    QFETCH(int, sampleRate);
    QFETCH(int, kilohertz);
    QCOMPARE(ScaleBounds::highestFrequency(sampleRate), kilohertz);
}

void tst_ScaleBounds::shownLimitsFitTheRange_data()
{
    QTest::addColumn<double>("lower");
    QTest::addColumn<double>("upper");
    QTest::addColumn<int>("shownLower");
    QTest::addColumn<int>("shownUpper");

    // All in the range -200 ... 0.
    const double infinity = std::numeric_limits<double>::infinity();
    const double noNumber = std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("as stored") << -100.0 << -33.0 << -100 << -33;
    QTest::newRow("rounded") << -87.23 << -12.6 << -87 << -13;
    QTest::newRow("rounded to the same") << -12.4 << -11.6 << -13 << -12;
    QTest::newRow("both low") << -150.0 << -120.0 << -150 << -120;
    QTest::newRow("inverted") << -20.0 << -60.0 << -61 << -60;
    QTest::newRow("equal") << -20.0 << -20.0 << -21 << -20;
    QTest::newRow("above the range") << 3.0 << 6.0 << -1 << 0;
    QTest::newRow("below the range") << -500.0 << -5000.0 << -200 << -199;
    QTest::newRow("wider than the range") << -infinity << infinity << -200 << 0;
    QTest::newRow("more than an int holds") << -1e300 << 1e300 << -200 << 0;
    QTest::newRow("no numbers") << noNumber << noNumber << -200 << -199;
}

void tst_ScaleBounds::shownLimitsFitTheRange()
{
    QFETCH(double, lower);
    QFETCH(double, upper);
    QFETCH(int, shownLower);
    QFETCH(int, shownUpper);
    const ScaleLimits limits =
        ScaleBounds::shown(lower, upper, ScaleBounds::lowestLevel, ScaleBounds::highestLevel);
    QCOMPARE(limits.lower, shownLower);
    QCOMPARE(limits.upper, shownUpper);
}

QTEST_GUILESS_MAIN(tst_ScaleBounds)
#include "tst_ScaleBounds.moc"
