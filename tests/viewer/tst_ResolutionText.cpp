#include "viewer/core/ResolutionText.h"

#include <QtTest>

class tst_ResolutionText : public QObject
{
    Q_OBJECT

private slots:
    void namesBothResolutions_data();
    void namesBothResolutions();
    void frequencyFollowsTheLocale();
};

void tst_ResolutionText::namesBothResolutions_data()
{
    QTest::addColumn<int>("windowSize");
    QTest::addColumn<double>("overlap");
    QTest::addColumn<int>("sampleRate");
    QTest::addColumn<QString>("time");
    QTest::addColumn<QString>("frequency");

    const QString dash(QChar(0x2013));
    QTest::newRow("usual") << 1024 << 50.0 << 500000 << "1.024 ms"
                           << "244.1 Hz";
    QTest::newRow("no overlap") << 2048 << 0.0 << 250000 << "8.192 ms"
                                << "61.0 Hz";
    QTest::newRow("highest overlap") << 2048 << 98.4375 << 500000 << "0.064 ms"
                                     << "122.1 Hz";
    QTest::newRow("one new sample") << 64 << 98.4375 << 384000 << "0.00260417 ms"
                                    << "3000.0 Hz";
    QTest::newRow("six significant digits") << 1024 << 0.0 << 384000 << "2.66667 ms"
                                            << "187.5 Hz";
    QTest::newRow("no recording") << 1024 << 50.0 << 0 << dash << dash;
    QTest::newRow("no window size") << 0 << 50.0 << 500000 << dash << dash;
}

void tst_ResolutionText::namesBothResolutions()
{
    QFETCH(int, windowSize);
    QFETCH(double, overlap);
    QFETCH(int, sampleRate);
    QFETCH(QString, time);
    QFETCH(QString, frequency);
    QCOMPARE(ResolutionText::temporal(windowSize, overlap, sampleRate), "Temporal Resolution: " + time);
    QCOMPARE(ResolutionText::frequency(windowSize, sampleRate, QLocale::c()),
             "Frequency Resolution: " + frequency);
}

void tst_ResolutionText::frequencyFollowsTheLocale()
{
    QCOMPARE(ResolutionText::frequency(1024, 500000, QLocale(QLocale::German)),
             QStringLiteral("Frequency Resolution: 244,1 Hz"));
    QCOMPARE(ResolutionText::temporal(1024, 50.0, 500000), QStringLiteral("Temporal Resolution: 1.024 ms"));
}

QTEST_GUILESS_MAIN(tst_ResolutionText)
#include "tst_ResolutionText.moc"
