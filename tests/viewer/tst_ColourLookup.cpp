#include "tests/support/Table.h"
#include "viewer/ColorMap.h"
#include "viewer/ColourLookup.h"

#include <QtTest>

#include <cmath>
#include <memory>

using MapPointer = std::shared_ptr<QwtLinearColorMap>;
namespace {

MapPointer scheme(int index)
{
    return std::make_shared<ColorMap>(ColourScheme::forIndex(index)->ramp);
}

/// Stops of which two share a place, two make a spike and the last repeats the end.
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

/// Values around every place where the colour changes, as close as doubles go.
QVector<double> valuesAroundChanges(const QwtColorMap& map, const QwtInterval& interval)
{
    QVector<double> values;
    for (int i = 0; i < 5000; ++i) {
        double from = interval.minValue() + interval.width() * i / 5000;
        double to = interval.minValue() + interval.width() * (i + 1) / 5000;
        const QRgb colour = map.rgb(interval, from);
        for (int step = 0; step < 60 && map.rgb(interval, to) != colour; ++step) {
            const double middle = from + (to - from) / 2;
            (map.rgb(interval, middle) == colour ? from : to) = middle;
        }
        values << from << to << std::nextafter(from, -qInf()) << std::nextafter(to, qInf());
    }
    return values;
}

} // namespace

class tst_ColourLookup : public QObject
{
    Q_OBJECT

    using MapRow = Table<MapPointer, double, double>; // map, lower, upper

private slots:
    void equalsTheMap_data()
    {
        MapRow row;
        row("black to green", scheme(0), -100.0, -30.0);
        row("white to black", scheme(1), -87.2, -12.5);
        row("rainbow around zero", scheme(2), -0.7, 1e-3);
        row("rainbow over a narrow interval", scheme(2), -50.0, -50.0 + 1e-11);
        row("odd stops, interpolating", oddMap(QwtLinearColorMap::ScaledColors), -100.0, -30.0);
        row("odd stops, fixed colours", oddMap(QwtLinearColorMap::FixedColors), -100.0, -30.0);
    }
    void equalsTheMap()
    {
        const auto& [map, lower, upper] = MapRow::row();
        const QwtInterval interval(lower, upper);
        const ColourLookup lookup(*map, interval);
        QVERIFY(lookup.isValid());

        QVector<double> values = valuesAroundChanges(*map, interval);
        values << -qInf() << qInf() << qQNaN() << -5000.0 << 0.0 << lower << upper;
        for (const double value : std::as_const(values)) {
            if (lookup.rgb(value) != map->rgb(interval, value))
                QFAIL(qPrintable(QString::number(value, 'g', 17)));
        }
    }

    void degenerateIntervals()
    {
        for (const QwtInterval& interval : {QwtInterval(-30.0, -30.0), QwtInterval(-qInf(), 0.0),
                                            QwtInterval(-1.7e308, 1.7e308), QwtInterval(0.0, 5e-324)})
            QVERIFY(!ColourLookup(ColorMap(), interval).isValid());
    }

    void knowsWhatItWasMadeFor()
    {
        ColorMap map;
        const QwtInterval interval(-100.0, -30.0);
        const ColourLookup lookup(map, interval);
        QVERIFY(lookup.isFor(ColorMap(), interval));
        QVERIFY(!lookup.isFor(map, QwtInterval(-100.0, -31.0)));
        QVERIFY(!lookup.isFor(*scheme(0), interval));
        map.addColorStop(0.5, Qt::white);
        QVERIFY(!lookup.isFor(map, interval));
    }
};

QTEST_GUILESS_MAIN(tst_ColourLookup)
#include "tst_ColourLookup.moc"
