#include "dsp/UnitRoot.h"

#include <QtTest>

#include <cmath>

class tst_UnitRoot : public QObject
{
    Q_OBJECT

private slots:
    void quartersAreExact()
    {
        const double cosines[] = {1, 0, -1, 0, 1};
        const double sines[] = {0, 1, 0, -1, 0};
        for (std::int64_t quarter = 0; quarter <= 4; ++quarter) {
            const UnitRoot root = unitRoot(quarter * 256, 1024);
            QCOMPARE(root.cosine, cosines[quarter]);
            QCOMPARE(root.sine, sines[quarter]);
        }
    }

    void nearTheMathematicalValue()
    {
        for (const qint64 n : {qint64(1), qint64(16), qint64(16384), qint64(1) << 30}) {
            for (qint64 k = 0; k <= n; k += n > 16384 ? 1000003 : 1) {
                const long double angle = 2 * std::acos(-1.0L) * static_cast<long double>(k) / n;
                const UnitRoot root = unitRoot(k, n);
                QVERIFY2(std::abs(root.cosine - std::cos(angle)) < 4e-16L &&
                             std::abs(root.sine - std::sin(angle)) < 4e-16L,
                         qPrintable(QStringLiteral("%1 of %2").arg(k).arg(n)));
            }
        }
    }
};

QTEST_GUILESS_MAIN(tst_UnitRoot)
#include "tst_UnitRoot.moc"
