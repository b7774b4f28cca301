#include "dsp/WindowShapes.h"

#include <QtTest>

#include <algorithm>
#include <cmath>

namespace {

/// The textbook sums with the mathematical library's cosine.
double formula(const QString& name, int n, int length)
{
    const double turn = 6.283185307179586 * n / (length - 1);
    if (name == "Hann")
        return 0.5 * (1 - std::cos(turn));
    if (name == "Hamming")
        return 0.54 - 0.46 * std::cos(turn);
    if (name == "Blackman")
        return 0.42 - 0.5 * std::cos(turn) + 0.08 * std::cos(2 * turn);
    if (name == "Flattop")
        return 1 - 1.93 * std::cos(turn) + 1.29 * std::cos(2 * turn) - 0.388 * std::cos(3 * turn) +
               0.028 * std::cos(4 * turn);
    return 0.35875 - 0.48829 * std::cos(turn) + 0.14128 * std::cos(2 * turn) - 0.01168 * std::cos(3 * turn);
}

} // namespace

class tst_WindowShapes : public QObject
{
    Q_OBJECT

private slots:
    void cosineSums()
    {
        for (const char* name : {"Hann", "Hamming", "Blackman", "Flattop", "BlackmanHarris"}) {
            for (const int length : {2, 3, 8, 100, 511, 512, 2048, 4096}) {
                const std::vector<double> shape = windowShape(name, length);
                QCOMPARE(static_cast<int>(shape.size()), length);
                for (int n = 0; n < length; ++n)
                    QVERIFY2(std::abs(shape[n] - formula(name, n, length)) < 8e-15, name);
            }
        }
        QVERIFY(std::abs(windowShape("Flattop", 255)[127] - 4.636) < 1e-9); // not normalised
    }

    void bartlettIsCentredOnAnInteger()
    {
        const float third = 1.0F / 3.0F;
        const std::vector<double> expected{0, third, 2 * third, 1, 2 * third, third, 0, -third};
        QCOMPARE(windowShape("Bartlett", 8), expected);
        QCOMPARE(windowShape("Bartlett", 512).back(), static_cast<double>(-1.0F / 255.0F));
        QCOMPARE(windowShape("Bartlett", 9)[4], 1.0);
        QCOMPARE(windowShape("Bartlett", 9).back(), 0.0);
    }

    void onesWhereThereIsNoShape()
    {
        for (const char* name :
             {"Rectangular", "Blackman-Harris", "hann", ""}) // one hyphen too many, other case
            QCOMPARE(windowShape(name, 64), std::vector<double>(64, 1.0));
        QCOMPARE(windowShape("Hann", 1), std::vector<double>(1, 1.0));
        QCOMPARE(windowShape("Bartlett", 2), std::vector<double>(2, 1.0));
        QVERIFY(windowShape("Hamming", 0).empty());
        QVERIFY(windowShape("Hamming", -5).empty());
    }
};

QTEST_GUILESS_MAIN(tst_WindowShapes)
#include "tst_WindowShapes.moc"
