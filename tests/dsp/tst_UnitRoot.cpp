#include "dsp/UnitRoot.h"

#include <QtTest>

#include <cmath>

class tst_UnitRoot : public QObject
{
    Q_OBJECT

private slots:
    void quartersAreExact();
    void nearTheMathematicalValue_data();
    void nearTheMathematicalValue();
};

void tst_UnitRoot::quartersAreExact()
{
    const double cosines[] = {1, 0, -1, 0, 1};
    const double sines[] = {0, 1, 0, -1, 0};
    for (std::int64_t quarter = 0; quarter <= 4; ++quarter) {
        const UnitRoot root = unitRoot(quarter * 256, 1024);
        QCOMPARE(root.cosine, cosines[quarter]);
        QCOMPARE(root.sine, sines[quarter]);
    }
}

void tst_UnitRoot::nearTheMathematicalValue_data()
{
    QTest::addColumn<qint64>("n");
    QTest::addColumn<qint64>("step");
    QTest::newRow("1") << qint64(1) << qint64(1);
    QTest::newRow("16") << qint64(16) << qint64(1);
    QTest::newRow("16384") << qint64(16384) << qint64(1);
    QTest::newRow("2^30") << (qint64(1) << 30) << qint64(1000003);
}

void tst_UnitRoot::nearTheMathematicalValue()
{
    QFETCH(qint64, n);
    QFETCH(qint64, step);
    for (qint64 k = 0; k <= n; k += step) {
        const long double angle =
            2 * std::acos(-1.0L) * static_cast<long double>(k) / static_cast<long double>(n);
        const UnitRoot root = unitRoot(k, n);
        QVERIFY2(std::abs(root.cosine - std::cos(angle)) < 4e-16L, qPrintable(QString::number(k)));
        QVERIFY2(std::abs(root.sine - std::sin(angle)) < 4e-16L, qPrintable(QString::number(k)));
    }
}

QTEST_GUILESS_MAIN(tst_UnitRoot)
#include "tst_UnitRoot.moc"
