#include "viewer/ColorMap.h"
#include "viewer/ColourLookup.h"

#include <QtTest>

#include <cmath>
#include <limits>
#include <memory>
#include <random>

using MapPointer = std::shared_ptr<QwtLinearColorMap>;
Q_DECLARE_METATYPE(MapPointer)

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

MapPointer scheme(int index)
{
    return std::make_shared<ColorMap>(ColourScheme::forIndex(index)->ramp);
}

/// Stops of which two share a place, one is a narrow spike and the last repeats the end.
MapPointer oddMap(QwtLinearColorMap::Mode mode)
{
    auto map = std::make_shared<QwtLinearColorMap>(Qt::darkBlue, Qt::darkRed);
    map->addColorStop(0.3, Qt::green);
    map->addColorStop(0.3, Qt::yellow);
    map->addColorStop(0.302, Qt::white);
    map->addColorStop(0.304, Qt::black);
    map->addColorStop(1.0, Qt::magenta);
    map->setMode(mode);
    return map;
}

QString difference(const ColourLookup& lookup, const QwtColorMap& map, const QwtInterval& interval,
                   double value)
{
    const QRgb expected = map.rgb(interval, value);
    const QRgb actual = lookup.rgb(value);
    if (actual == expected)
        return {};
    return QStringLiteral("%1 gives %2 instead of %3")
        .arg(value, 0, 'g', 17)
        .arg(actual, 0, 16)
        .arg(expected, 0, 16);
}

} // namespace

class tst_ColourLookup : public QObject
{
    Q_OBJECT

private slots:
    void equalsTheMap_data();
    void equalsTheMap();
    void degenerateIntervals_data();
    void degenerateIntervals();
    void knowsWhatItWasMadeFor();
    void seesTranslucentColours();
};

void tst_ColourLookup::equalsTheMap_data()
{
    QTest::addColumn<MapPointer>("map");
    QTest::addColumn<double>("lower");
    QTest::addColumn<double>("upper");

    QTest::newRow("black to green") << scheme(0) << -100.0 << -30.0;
    QTest::newRow("white to black") << scheme(1) << -87.2 << -12.5;
    QTest::newRow("rainbow") << scheme(2) << -100.0 << -33.0;
    QTest::newRow("rainbow around zero") << scheme(2) << -0.7 << 1e-3;
    QTest::newRow("rainbow over a narrow interval") << scheme(2) << -50.0 << -50.0 + 1e-11;
    QTest::newRow("odd stops, interpolating") << oddMap(QwtLinearColorMap::ScaledColors) << -100.0 << -30.0;
    QTest::newRow("odd stops, fixed colours") << oddMap(QwtLinearColorMap::FixedColors) << -100.0 << -30.0;
}

void tst_ColourLookup::equalsTheMap()
{
    QFETCH(MapPointer, map);
    QFETCH(double, lower);
    QFETCH(double, upper);
    const QwtInterval interval(lower, upper);
    const ColourLookup lookup(*map, interval);
    QVERIFY(lookup.isValid());

    QVector<double> values{-infinity, infinity, std::numeric_limits<double>::quiet_NaN(), -5000.0, 0.0,
                           lower,     upper};
    std::minstd_rand random(5);
    std::uniform_real_distribution<double> around(lower - (upper - lower) * 0.1,
                                                  upper + (upper - lower) * 0.1);
    for (int i = 0; i < 20000; ++i)
        values.append(around(random));
    for (const double stop : map->colorStops())
        values.append(lower + stop * (upper - lower));

    // Colours change between neighbouring doubles, so look closely wherever they do.
    for (int i = 0; i < 2000; ++i) {
        double from = lower + (upper - lower) * i / 2000;
        double to = lower + (upper - lower) * (i + 1) / 2000;
        const QRgb colour = lookup.rgb(from);
        for (int step = 0; step < 80 && lookup.rgb(to) != colour; ++step) {
            const double middle = from + (to - from) / 2;
            (lookup.rgb(middle) == colour ? from : to) = middle;
        }
        values << from << to << std::nextafter(from, -infinity) << std::nextafter(to, infinity);
    }
    for (const double value : std::as_const(values)) {
        const QString wrong = difference(lookup, *map, interval, value);
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
    }
}

void tst_ColourLookup::degenerateIntervals_data()
{
    QTest::addColumn<double>("lower");
    QTest::addColumn<double>("upper");
    QTest::newRow("empty") << -30.0 << -30.0;
    QTest::newRow("without a beginning") << -infinity << 0.0;
    QTest::newRow("without an end") << -100.0 << infinity;
    QTest::newRow("too wide for a double") << -1.7e308 << 1.7e308;
    QTest::newRow("of denormal width") << 0.0 << 5e-324;
}

void tst_ColourLookup::degenerateIntervals()
{
    QFETCH(double, lower);
    QFETCH(double, upper);
    QVERIFY(!ColourLookup(ColorMap(), QwtInterval(lower, upper)).isValid());
}

void tst_ColourLookup::knowsWhatItWasMadeFor()
{
    ColorMap map;
    const QwtInterval interval(-100.0, -30.0);
    const ColourLookup lookup(map, interval);
    QVERIFY(lookup.isFor(map, interval));
    QVERIFY(lookup.isFor(ColorMap(), interval));
    QVERIFY(!lookup.isFor(map, QwtInterval(-100.0, -31.0)));
    QVERIFY(!lookup.isFor(*scheme(0), interval));
    map.setColorInterval(Qt::black, Qt::white);
    QVERIFY(!lookup.isFor(map, interval));
    QVERIFY(!ColourLookup().isFor(map, interval));
}

void tst_ColourLookup::seesTranslucentColours()
{
    const QwtInterval interval(0.0, 1.0);
    QVERIFY(ColourLookup(ColorMap(), interval).isOpaque());
    const QwtLinearColorMap glass(QColor(0, 0, 0, 0), QColor(255, 0, 0, 255));
    const bool libraryDrawsAlpha = qAlpha(static_cast<const QwtColorMap&>(glass).rgb(interval, 0.5)) < 255;
    QCOMPARE(ColourLookup(glass, interval).isOpaque(), !libraryDrawsAlpha);
}

QTEST_GUILESS_MAIN(tst_ColourLookup)
#include "tst_ColourLookup.moc"
