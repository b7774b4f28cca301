#include "dsp/MatrixLimit.h"
#include "dsp/SpectrogramParameters.h"

#include <QtTest>

class tst_MatrixLimit : public QObject
{
    Q_OBJECT

private slots:
    void reduced()
    {
        const auto reduced = [](qint64 samples, int window, double percent) {
            const MatrixLimit::Overlap result = MatrixLimit::reduced(samples, window, percent);
            return result.reduced == (result.percent != percent) ? result.percent : qQNaN();
        };
        // 1024 at 98.4375 %: estimated with a hop of 17; 156555 frames of 511 are the last below the limit.
        const qint64 border = 1024 + 156556 * 17;
        QCOMPARE(reduced(border - 1, 1024, 98.4375), 98.4375);
        QCOMPARE(reduced(border, 1024, 98.4375), 96.875);
        QCOMPARE(reduced(30'000'000, 1024, 98.4375), 75.0);
        QCOMPARE(reduced(2'000'000'000, 1024, 50.0), 0.0);
        QCOMPARE(reduced(2'000'000'000, 1024, 0.0), 0.0);
        QCOMPARE(reduced(100'000'000, 64, 90.0), 0.0); // off the ladder
        QCOMPARE(reduced(1'000'000, 64, 90.0), 90.0);
        QCOMPARE(reduced(10, 2048, 98.4375), 98.4375); // shorter than the window
        QCOMPARE(reduced(20'000'000'000, 2048, 98.4375), 0.0);
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
    }

    void storedIndexGoesOneStepOnly()
    {
        QCOMPARE(MatrixLimit::nextIndex(0), 1);
        QCOMPARE(MatrixLimit::nextIndex(5), 6);
        QCOMPARE(MatrixLimit::nextIndex(6), 6);
    }

    void parametersOfIndexes()
    {
        const char* const windows[] = {"Rectangular", "Hamming", "Hann",           "Blackman",
                                       "Bartlett",    "Flattop", "Blackman-Harris"};
        const float frameSizes[] = {100, 75, 50, 25, 12.5F, 12.5F, 12.5F};
        const double overlaps[] = {98.4375, 96.875, 93.75, 87.5, 75, 50, 0};
        const int windowSizes[] = {2048, 1024, 512, 256, 128, 64, 64};
        for (const int index : {0, 1, 2, 3, 4, 5, 6, -1}) {
            const auto parameters = SpectrogramParameters::fromIndexes(index, index, index, index);
            const int effective = index < 0 ? 6 : index; // the last of each list
            QCOMPARE(parameters.window, QString(windows[effective]));
            QCOMPARE(parameters.frameSize, frameSizes[effective]);
            QCOMPARE(parameters.overlap, overlaps[effective]);
            QCOMPARE(parameters.windowSize, windowSizes[effective]);
        }
    }
};

QTEST_GUILESS_MAIN(tst_MatrixLimit)
#include "tst_MatrixLimit.moc"
