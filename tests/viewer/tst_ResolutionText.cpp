#include "viewer/core/ResolutionText.h"

#include <QtTest>

class tst_ResolutionText : public QObject
{
    Q_OBJECT

private slots:
    void temporal()
    {
        const QString title = "Temporal Resolution: ";
        QCOMPARE(ResolutionText::temporal(1024, 50.0, 500000), title + "1.024 ms");
        QCOMPARE(ResolutionText::temporal(2048, 0.0, 250000), title + "8.192 ms");
        QCOMPARE(ResolutionText::temporal(64, 98.4375, 384000), title + "0.00260417 ms"); // one sample
        QCOMPARE(ResolutionText::temporal(1024, 50.0, 0), title + QChar(0x2013));
        QCOMPARE(ResolutionText::temporal(0, 50.0, 500000), title + QChar(0x2013));
    }

    void frequency()
    {
        const QString title = "Frequency Resolution: ";
        const QLocale german(QLocale::German);
        QCOMPARE(ResolutionText::frequency(1024, 500000, german), title + "244,1 Hz");
        QCOMPARE(ResolutionText::frequency(2048, 250000, QLocale::c()), title + "61.0 Hz");
        QCOMPARE(ResolutionText::frequency(64, 384000, QLocale::c()), title + "3000.0 Hz");
        QCOMPARE(ResolutionText::frequency(1024, 0, german), title + QChar(0x2013));
        QCOMPARE(ResolutionText::frequency(0, 500000, german), title + QChar(0x2013));
    }
};

QTEST_GUILESS_MAIN(tst_ResolutionText)
#include "tst_ResolutionText.moc"
