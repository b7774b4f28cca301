#include "dsp/CallFeatures.h"
#include "dsp/ClassProposal.h"
#include "tests/support/Table.h"

#include <QtTest>

class tst_ClassProposal : public QObject
{
    Q_OBJECT

    using ClassifyRow = Table<double, double, double, QStringList>; // s; start, end in kHz; genus, subgroup
    // Genus and subgroup; switches, zeros, upward, downward jumps; whether it is low pitched, whether noise.
    using ShapeRow = Table<QStringList, QVector<int>, bool, bool>;
    using ProposalRow = Table<QString, QString>; // classes, where a digit and "x" repeats one; proposal

private slots:
    void classifiesByDurationAndPitch_data()
    {
        ClassifyRow table;
        const auto row = [&](double duration, double start, double end, const char* genus,
                             const char* subgroup = "No Sub") {
            table(QString::asprintf("%g s, %g to %g kHz", duration, start, end), duration, start, end,
                  {genus, subgroup});
        };
        // A long constant tone, and what is long but not constant.
        row(0.050, 40.0, 38.0, "Test");
        row(0.050, 6.0, 5.0, "Test");
        row(0.050, 38.0, 42.9, "Test");
        row(0.050, 45.0, 40.0, "Noise");
        row(0.050, 38.0, 43.0, "Noise");
        row(0.036, 40.0, 40.0, "Noise");
        // Durations and pitches at the outer bounds, where the upper one belongs to the range.
        row(0.001, 45.0, 45.0, "Noise");
        row(0.0015, 45.0, 45.0, "Noise");
        row(0.0016, 45.0, 45.0, "Pip");
        row(0.020, 45.0, 45.0, "Pip");
        row(0.0201, 45.0, 45.0, "Noise");
        row(0.0029, 20.0, 20.0, "Noise");
        row(0.0030, 20.0, 20.0, "Nyc");
        row(0.036, 20.0, 20.0, "Nyc");
        row(0.0361, 30.0, 20.0, "Noise");
        row(0.010, 9.0, 8.0, "Noise");
        row(0.010, 9.0, 8.1, "Nyc", "NycLow");
        row(0.010, 40.0, 33.0, "Nyc");
        row(0.010, 40.0, 33.1, "Pip");
        row(0.010, 70.0, 65.0, "Pip");
        row(0.010, 70.0, 65.1, "Noise");
        // Groups and the bounds between them.
        row(0.010, 20.0, 15.0, "Nyc", "NycLow");
        row(0.0059, 20.0, 15.0, "Nyc");
        row(0.029, 20.0, 15.0, "Nyc");
        row(0.010, 20.0, 20.0, "Nyc", "NycNoc");
        row(0.032, 20.0, 21.0, "Nyc", "NycNoc");
        row(0.0055, 30.0, 21.0, "Nyc");
        row(0.0055, 30.0, 21.1, "Nyc", "NycMid");
        row(0.030, 30.0, 26.5, "Nyc", "NycMid");
        row(0.030, 30.0, 26.6, "Nyc");
        row(0.025, 30.0, 31.2, "Nyc", "Enil");
        row(0.025, 30.0, 31.3, "Nyc");
        row(0.010, 50.0, 35.0, "Pip");
        row(0.010, 50.0, 35.1, "Pip", "PipNat");
        row(0.0029, 50.0, 41.2, "Pip");
        row(0.003, 50.0, 41.2, "Pip", "PipNat");
        row(0.018, 50.0, 42.5, "Pip", "PipPn");
        row(0.005, 45.0, 45.0, "Pip", "PipPip");
        row(0.0021, 55.0, 49.5, "Pip", "PipPip");
        row(0.0181, 55.0, 49.5, "Pip");
        row(0.015, 55.0, 51.0, "Pip", "PipPp");
        row(0.0151, 55.0, 51.0, "Pip");
        row(0.002, 60.0, 55.0, "Pip");
        row(0.005, 70.0, 64.0, "Pip", "PipPyg");
        row(0.005, 70.0, 64.1, "Pip");
    }
    void classifiesByDurationAndPitch()
    {
        const auto& [duration, startFreq, endFreq, proposal] = ClassifyRow::row();
        QCOMPARE(classify(duration, startFreq, endFreq), proposal);
        QCOMPARE(classText(proposal), proposal.at(proposal.at(1) == "No Sub" ? 0 : 1));
    }

    void shapeOverridesProposal_data()
    {
        ShapeRow table;
        const auto row = [&](const char* genus, const char* subgroup, const QVector<int>& counts, bool low,
                             bool noise) {
            table(QString::asprintf("%s %s %d %d %d %d%s", genus, subgroup, counts[0], counts[1], counts[2],
                                    counts[3], low ? " low" : ""),
                  {genus, subgroup}, counts, low, noise);
        };
        row("Nyc", "NycNoc", {1, 3, 2, 6}, false, false);
        row("Nyc", "NycNoc", {1, 3, 2, 6}, true, true);
        row("Nyc", "NycNoc", {1, 4, 2, 6}, false, true);
        row("Nyc", "NycNoc", {2, 0, 2, 6}, false, true);
        row("Nyc", "No Sub", {1, 3, 3, 6}, false, true);
        row("Nyc", "NycLow", {1, 3, 2, 7}, false, true);
        row("Nyc", "Enil", {9, 99, 9, 99}, false, false);
        row("Nyc", "Enil", {0, 0, 0, 0}, true, true);
        row("Pip", "PipPip", {2, 3, 2, 9}, false, false);
        row("Pip", "PipPip", {2, 4, 2, 9}, false, true);
        row("Pip", "PipPip", {3, 0, 2, 9}, false, true);
        row("Pip", "No Sub", {0, 0, 3, 9}, false, true);
        row("Pip", "No Sub", {0, 0, 0, 10}, false, true);
        row("Pip", "PipPyg", {0, 0, 1, 0}, false, false);
        row("Pip", "PipPyg", {0, 0, 2, 0}, false, true);
        row("Pip", "PipPyg", {0, 0, 1, 0}, true, true);
        row("Test", "No Sub", {0, 0, 1, 1}, true, false);
        row("Test", "No Sub", {0, 0, 2, 1}, true, true);
        row("Test", "No Sub", {0, 0, 1, 2}, true, true);
        row("Test", "No Sub", {9, 9, 9, 9}, false, false);
        row("Noise", "No Sub", {0, 0, 0, 0}, false, false);
        row("Noise", "No Sub", {0, 0, 0, 0}, true, true);
    }
    void shapeOverridesProposal()
    {
        const auto& [proposal, counts, lowPitched, noise] = ShapeRow::row();
        CallFeatures features;
        features.measured = true;
        features.switchCount = counts[0];
        features.zeroCount = counts[1];
        features.posHist = counts[2];
        features.negHist = counts[3];
        QCOMPARE(isNoise(proposal, features, lowPitched), noise);
        QVERIFY(isNoise(proposal, CallFeatures(), true));
    }

    void proposesForWholeRecording_data()
    {
        ProposalRow table;
        const auto row = [&](const char* classes, const char* proposal) {
            table(*classes == '\0' ? "nothing" : classes, classes, proposal);
        };
        row("", "");
        row("2xNoise", "No call");
        row("9xNoise PipNat", "PipNat");
        row("10xNoise PipNat", "No call");
        row("2xPipPip Noise", "PipPip");
        row("PipPip Test", "No call");
        row("9xPipPip Test", "No call");
        row("NycNoc PipPyg", "NycNoc, PipPyg");
        // Groups of the first genus: the most frequent, its name alone after a draw.
        row("2xNycLow NycNoc", "NycLow");
        row("2xNycNoc NycLow NycMid", "NycNoc");
        row("3xNycMid 2xNycNoc", "NycMid");
        row("2xNycLow 2xNycMid", "Nyc");
        row("5xNyc NycLow", "NycLow");
        row("2xNyc", "Nyc");
        // The odd one out counts only alone, and then from three on.
        row("2xEnil", "Nyc");
        row("3xEnil", "Enil");
        row("3xEnil Nyc", "Nyc");
        row("3xEnil PipPp", "Enil, PipPp");
        // Groups of the second genus: the most frequent, or three quarters of it and its neighbour.
        row("5xPip PipPn", "PipPn");
        row("2xPip", "Pip");
        row("2xPipNat 2xPipPip", "PipNat"); // no neighbour at all is outweighed
        row("3xPipNat PipPn 4xPipPip", "PipPip");
        row("4xPipNat PipPn 4xPipPip", "PipNat");
        row("3xPipNat 3xPipPn", "Pip");
        row("2xPipPip 2xPipPyg PipPn PipPp", "Pip");
        row("4xPipPip 4xPipPyg PipPn 2xPipPp", "PipPip");
        row("4xPipPip 4xPipPyg 2xPipPn PipPp", "PipPip");
        row("4xPipPip 4xPipPyg 2xPipPn 2xPipPp", "Pip");
        row("2xPipPp PipPyg", "PipPp");
        row("2xPipPp 2xPipPyg", "Pip");
        row("4xPipPyg 4xPipPn PipPp", "PipPyg");
        // Entries count by what they contain, in this case only.
        row("XPipPygX", "PipPyg");
        row("pippyg", "");
        row("9xNoise 9xpippyg", "");
    }
    void proposesForWholeRecording()
    {
        const auto& [classes, proposal] = ProposalRow::row();
        QStringList entries;
        for (const QString& item : classes.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
            const int times = item.section(QLatin1Char('x'), 0, 0).toInt();
            for (int i = 0; i < qMax(times, 1); ++i)
                entries << (times > 0 ? item.section(QLatin1Char('x'), 1) : item);
        }
        QCOMPARE(proposeFileClass(entries), proposal);
    }
};

QTEST_GUILESS_MAIN(tst_ClassProposal)
#include "tst_ClassProposal.moc"
