#include "viewer/core/ScaleBounds.h"

#include <QtTest>

#include <utility>

class tst_ScaleBounds : public QObject
{
    Q_OBJECT

private slots:
    void highestFrequencyIsNyquist()
    {
        QCOMPARE(ScaleBounds::highestFrequency(0), 150); // no recording
        QCOMPARE(ScaleBounds::highestFrequency(-1), 150);
        QCOMPARE(ScaleBounds::highestFrequency(500000), 250);
        QCOMPARE(ScaleBounds::highestFrequency(44100), 22);
        QCOMPARE(ScaleBounds::highestFrequency(1500), 1); // room for a lower limit
    }

    void shownLimitsFitTheRange()
    {
        const auto shown = [](double lower, double upper) {
            const ScaleLimits limits =
                ScaleBounds::shown(lower, upper, ScaleBounds::lowestLevel, ScaleBounds::highestLevel);
            return std::make_pair(limits.lower, limits.upper);
        };
        const auto pair = [](int lower, int upper) { return std::make_pair(lower, upper); };
        QCOMPARE(shown(-100.0, -33.0), pair(-100, -33));
        QCOMPARE(shown(-87.23, -12.6), pair(-87, -13));
        QCOMPARE(shown(-12.4, -11.6), pair(-13, -12)); // rounded to the same
        QCOMPARE(shown(-20.0, -60.0), pair(-61, -60));
        QCOMPARE(shown(-20.0, -20.0), pair(-21, -20));
        QCOMPARE(shown(3.0, 6.0), pair(-1, 0));
        QCOMPARE(shown(-500.0, -5000.0), pair(-200, -199));
        QCOMPARE(shown(-qInf(), qInf()), pair(-200, 0));
        QCOMPARE(shown(-1e300, 1e300), pair(-200, 0)); // more than an int holds
        QCOMPARE(shown(qQNaN(), qQNaN()), pair(-200, -199));
    }
};

QTEST_GUILESS_MAIN(tst_ScaleBounds)
#include "tst_ScaleBounds.moc"
