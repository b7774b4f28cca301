#include "recordings/ClassRecord.h"
#include "tools/DemoSeason.h"

#include <QtTest>

#include <map>

class tst_DemoSeason : public QObject
{
    Q_OBJECT

private slots:
    /// The same on every run, with names of their own, in order, and enough of each class to see something.
    void recordings()
    {
        const auto& recordings = m_season.recordings();
        QCOMPARE(DemoSeason(2026).recordings().size(), recordings.size());
        std::map<QString, int> classes;
        for (std::size_t i = 0; i < recordings.size(); ++i) {
            QCOMPARE(recordings[i].start.date().year(), 2026);
            QVERIFY(i == 0 || recordings[i - 1].fileName() < recordings[i].fileName());
            const ClassRecord record = ClassRecord::parse(QString::fromLatin1(recordings[i].classRecord));
            QVERIFY(record.isUnassigned() || ClassRecord::acceptsClassName(record.classes[0]));
            ++classes[record.classes[0]];
        }
        QVERIFY(classes.size() >= 9);
        for (const auto& [name, count] : classes)
            QVERIFY2(count > 80, qPrintable(name));
    }

    void file()
    {
        const DemoSeason::Recording& first = m_season.recordings().front();
        const QByteArray bytes = first.bytes();
        QVERIFY(bytes.startsWith("RIFF") && bytes.size() < 4096);
        const int bext = bytes.indexOf("bext") + 8;
        QVERIFY(bytes.mid(bext).startsWith(first.classRecord));
        QCOMPARE(bytes.mid(bext + 320, 10), first.start.date().toString(Qt::ISODate).toLatin1());
        QCOMPARE(bytes.mid(bext + 330, 8),
                 first.start.time().toString(QStringLiteral("HH:mm:ss")).toLatin1());
    }

    void weather()
    {
        const QList<QByteArray> temperature = m_season.temperatureFile().split('\n');
        const QList<QByteArray> wind = m_season.windFile().split('\n');
        const int lines = 1 + 214 * 144 + 1; // a header and the end of the last line
        QCOMPARE(temperature.size(), lines);
        QCOMPARE(wind.size(), lines);
        QVERIFY(temperature.at(1).startsWith("2026-04-01 00:00:00,"));
        QVERIFY(wind.at(1).startsWith("01.04.2026 00:10:00;"));
        QVERIFY(wind.at(1).contains(',') && !wind.at(1).mid(20).contains('.'));
    }

private:
    const DemoSeason m_season{2026};
};

QTEST_GUILESS_MAIN(tst_DemoSeason)
#include "tst_DemoSeason.moc"
