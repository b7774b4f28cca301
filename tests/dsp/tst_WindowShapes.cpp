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
    void cosineSums_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<double>("peak");
        QTest::newRow("Hann") << "Hann" << 1.0;
        QTest::newRow("Hamming") << "Hamming" << 1.0;
        QTest::newRow("Blackman") << "Blackman" << 1.0;
        QTest::newRow("Flattop, not normalised") << "Flattop" << 4.636;
        QTest::newRow("Blackman-Harris") << "BlackmanHarris" << 1.0;
    }
    void cosineSums()
    {
        QFETCH(QString, name);
        QFETCH(double, peak);
        for (const int length : {2, 3, 8, 100, 511, 512, 2048, 4096}) {
            const std::vector<double> shape = windowShape(name, length);
            QCOMPARE(static_cast<int>(shape.size()), length);
            for (int n = 0; n < length; ++n)
                QVERIFY2(std::abs(shape[n] - formula(name, n, length)) < 8e-15,
                         qPrintable(QString::number(n)));
        }
        const std::vector<double> odd = windowShape(name, 255);
        QCOMPARE(*std::max_element(odd.begin(), odd.end()), odd[127]);
        QVERIFY(std::abs(odd[127] - peak) < 1e-9);
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

    void onesWhereThereIsNoShape_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("length");
        QTest::newRow("rectangular") << "Rectangular" << 64;
        QTest::newRow("with a hyphen") << "Blackman-Harris" << 64;
        QTest::newRow("other case") << "hann" << 64;
        QTest::newRow("empty") << QString() << 64;
        QTest::newRow("one sample") << "Hann" << 1;
        QTest::newRow("Bartlett of two") << "Bartlett" << 2;
        QTest::newRow("no sample") << "Hamming" << 0;
        QTest::newRow("negative") << "Hamming" << -5;
    }
    void onesWhereThereIsNoShape()
    {
        QFETCH(QString, name);
        QFETCH(int, length);
        QCOMPARE(windowShape(name, length), std::vector<double>(std::max(length, 0), 1.0));
    }
};

QTEST_GUILESS_MAIN(tst_WindowShapes)
#include "tst_WindowShapes.moc"
