#include "dsp/MatrixLimit.h"
#include "dsp/SpectrogramParameters.h"

#include <QtTest>

class tst_MatrixLimit : public QObject
{
    Q_OBJECT

private slots:
    void reduced_data()
    {
        QTest::addColumn<qint64>("samples");
        QTest::addColumn<int>("window");
        QTest::addColumn<double>("percent");
        QTest::addColumn<double>("expected");
        // 1024 at 98.4375 %: estimated with a hop of 17; 156555 frames of 511 are the last below the limit.
        const qint64 border = 1024 + 156556 * 17;
        QTest::newRow("last that fits") << border - 1 << 1024 << 98.4375 << 98.4375;
        QTest::newRow("first too large") << border << 1024 << 98.4375 << 96.875;
        QTest::newRow("several steps") << qint64{30'000'000} << 1024 << 98.4375 << 75.0;
        QTest::newRow("down to none") << qint64{2'000'000'000} << 1024 << 50.0 << 0.0;
        QTest::newRow("nothing left to reduce") << qint64{2'000'000'000} << 1024 << 0.0 << 0.0;
        QTest::newRow("off the ladder") << qint64{100'000'000} << 64 << 90.0 << 0.0;
        QTest::newRow("off the ladder, fits") << qint64{1'000'000} << 64 << 90.0 << 90.0;
        QTest::newRow("shorter than the window") << qint64{10} << 2048 << 98.4375 << 98.4375;
        QTest::newRow("beyond 32 bits") << qint64{20'000'000'000} << 2048 << 98.4375 << 0.0;
    }
    void reduced()
    {
        QFETCH(qint64, samples);
        QFETCH(int, window);
        QFETCH(double, percent);
        QFETCH(double, expected);
        const MatrixLimit::Overlap result = MatrixLimit::reduced(samples, window, percent);
        QCOMPARE(result.percent, expected);
        QCOMPARE(result.reduced, expected != percent);
    }

    void reducedForVantor()
    {
        // 447 shared samples: a hop of 66 in the estimate; 313726 x 255 is just above the limit.
        const qint64 border = 512 + 313726 * 66;
        QCOMPARE(MatrixLimit::reducedForVantor(border - 1, 87.5F), 87.5F);
        QCOMPARE(MatrixLimit::reducedForVantor(border, 87.5F), 75.0F);
        QCOMPARE(MatrixLimit::reducedForVantor(qint64{1} << 40, 87.5F), 0.0F);
    }

    void message()
    {
        const QString start =
            "Current spectrogram matrix size is over the limit.\n Overlap for this spectrogram "
            "calculation is reduced to ";
        QCOMPARE(MatrixLimit::message(96.875), start + "96.875%");
        QCOMPARE(MatrixLimit::message(0), start + "0%");
    }

    void storedIndexGoesOneStepOnly()
    {
        QCOMPARE(MatrixLimit::nextIndex(0), 1);
        QCOMPARE(MatrixLimit::nextIndex(5), 6);
        QCOMPARE(MatrixLimit::nextIndex(6), 6);
    }

    void parametersOfIndexes_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("window");
        QTest::addColumn<float>("frameSize");
        QTest::addColumn<double>("overlap");
        QTest::addColumn<int>("windowSize");
        QTest::newRow("0") << 0 << "Rectangular" << 100.0F << 98.4375 << 2048;
        QTest::newRow("1") << 1 << "Hamming" << 75.0F << 96.875 << 1024;
        QTest::newRow("2") << 2 << "Hann" << 50.0F << 93.75 << 512;
        QTest::newRow("3") << 3 << "Blackman" << 25.0F << 87.5 << 256;
        QTest::newRow("4") << 4 << "Bartlett" << 12.5F << 75.0 << 128;
        QTest::newRow("5") << 5 << "Flattop" << 12.5F << 50.0 << 64;
        QTest::newRow("6") << 6 << "Blackman-Harris" << 12.5F << 0.0 << 64;
        QTest::newRow("-1") << -1 << "Blackman-Harris" << 12.5F << 0.0 << 64;
    }
    void parametersOfIndexes()
    {
        QFETCH(int, index);
        const auto parameters = SpectrogramParameters::fromIndexes(index, index, index, index);
        QTEST(parameters.window, "window");
        QTEST(parameters.frameSize, "frameSize");
        QTEST(parameters.overlap, "overlap");
        QTEST(parameters.windowSize, "windowSize");
    }
};

QTEST_GUILESS_MAIN(tst_MatrixLimit)
#include "tst_MatrixLimit.moc"
