#include "recordings/ClassRecord.h"
#include "tools/DemoSeason.h"

#include <QtTest>

#include <map>
#include <set>

class tst_DemoSeason : public QObject
{
    Q_OBJECT

private slots:
    /// The same on every run, with names of their own, in order, and enough of each class to see something.
    void recordings()
    {
        const DemoSeason season(2026);
        const auto& recordings = season.recordings();
        QVERIFY(recordings.size() > 3000 && recordings.size() < 12000);
        QCOMPARE(DemoSeason(2026).recordings().size(), recordings.size());
        std::set<QString> names;
        std::map<QString, int> classes;
        for (std::size_t i = 0; i < recordings.size(); ++i) {
            names.insert(recordings[i].fileName());
            QCOMPARE(recordings[i].start.date().year(), 2026);
            QVERIFY(i == 0 || recordings[i - 1].start < recordings[i].start);
            const ClassRecord record = ClassRecord::parse(QString::fromLatin1(recordings[i].classRecord));
            QVERIFY(record.isUnassigned() || ClassRecord::acceptsClassName(record.classes[0]));
            ++classes[record.classes[0]];
        }
        QCOMPARE(names.size(), recordings.size());
        QVERIFY(classes.size() >= 9);
        for (const auto& [name, count] : classes)
            QVERIFY2(count > 80, qPrintable(name));
    }

    void file()
    {
        const DemoSeason season(2026);
        const DemoSeason::Recording& first = season.recordings().front();
        const QByteArray bytes = first.bytes();
        QVERIFY(bytes.startsWith("RIFF"));
        QVERIFY(bytes.size() < 4096);
        const int bext = bytes.indexOf("bext") + 8;
        QVERIFY(bytes.mid(bext).startsWith(first.classRecord));
        QCOMPARE(bytes.mid(bext + 320, 10), first.start.date().toString(Qt::ISODate).toLatin1());
        QCOMPARE(bytes.mid(bext + 330, 8),
                 first.start.time().toString(QStringLiteral("HH:mm:ss")).toLatin1());
    }

    void weather()
    {
        const DemoSeason season(2026);
        const int intervals = 214 * 144;
        const QList<QByteArray> temperature = season.temperatureFile().split('\n');
        const QList<QByteArray> wind = season.windFile().split('\n');
        QCOMPARE(temperature.size(), intervals + 2); // a header and the end of the last line
        QCOMPARE(wind.size(), intervals + 2);
        QVERIFY(temperature.at(1).startsWith("2026-04-01 00:00:00,"));
        QVERIFY(wind.at(1).startsWith("01.04.2026 00:10:00;"));
        QVERIFY(wind.at(1).contains(',') && !wind.at(1).mid(20).contains('.'));
    }
};

QTEST_GUILESS_MAIN(tst_DemoSeason)
#include "tst_DemoSeason.moc"
