#include "evaluation/core/ActivityBins.h"
#include "evaluation/core/WeatherFile.h"

#include <QtTest>

Q_DECLARE_METATYPE(WindFormat)

namespace {

qint64 at(int day, int hour, int minute, int second = 0)
{
    return RecorderClock::wall(QDate(2016, 7, day), QTime(hour, minute, second));
}

} // namespace

class tst_WeatherFile : public QObject
{
    Q_OBJECT

private slots:
    void temperatureLines_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QVector<float>>("temperature");
        QTest::addColumn<QVector<float>>("precipitation");
        const QVector<float> none;
        QTest::newRow("commas") << QByteArray("2016-07-01 22:10:00,15.3,0") << QVector<float>{15.3F}
                                << QVector<float>{0.0F};
        QTest::newRow("tabs before commas") << QByteArray("2016-07-01 22:10:00\t-3.5\t1.25")
                                            << QVector<float>{-3.5F} << QVector<float>{1.25F};
        QTest::newRow("quotes") << QByteArray("\"2016-07-01 22:10:00\",\"15.3\",\"0\"\r")
                                << QVector<float>{15.3F} << QVector<float>{0.0F};
        QTest::newRow("nan") << QByteArray("2016-07-01 22:10:00,nan,0.5") << none << QVector<float>{0.5F};
        QTest::newRow("NaN and nothing") << QByteArray("2016-07-01 22:10:00,NaN,") << none << none;
        QTest::newRow("infinite") << QByteArray("2016-07-01 22:10:00,inf,1e99") << none << none;
        QTest::newRow("two fields") << QByteArray("2016-07-01 22:10:00,15.3") << none << none;
        QTest::newRow("four fields") << QByteArray("2016-07-01 22:10:00,15.3,0,0") << none << none;
        QTest::newRow("header") << QByteArray("date,temperature,precipitation") << none << none;
        QTest::newRow("no such day") << QByteArray("2016-02-30 22:10:00,15.3,0") << none << none;
        QTest::newRow("no such time") << QByteArray("2016-07-01 24:10:00,15.3,0") << none << none;
        QTest::newRow("decimal comma")
            << QByteArray("2016-07-01 22:10:00\t15,3\t0") << none << QVector<float>{0.0F};
        QTest::newRow("empty") << QByteArray() << none << none;
    }
    void temperatureLines()
    {
        QFETCH(QByteArray, line);
        QFETCH(QVector<float>, temperature);
        QFETCH(QVector<float>, precipitation);
        const WeatherRead read = WeatherFile::readTemperature(written(line + '\n'));
        QVERIFY(read.isOpened && read.isComplete);
        QCOMPARE(valuesOf(read.temperature), temperature);
        QCOMPARE(valuesOf(read.precipitation), precipitation);
        const bool isUsed = !temperature.isEmpty() || !precipitation.isEmpty();
        QCOMPARE(read.usedLines, isUsed ? 1 : 0);
        QCOMPARE(read.skippedLines, isUsed ? 0 : 1);
        for (const WeatherSample& sample : read.temperature)
            QCOMPARE(sample.time, at(1, 22, 10));
    }

    void windLines_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<WindFormat>("format");
        QTest::addColumn<QVector<float>>("speed");
        WindFormat format;
        QTest::newRow("standard") << QByteArray("01.07.2016 22:10:00;3,5") << format << QVector<float>{3.5F};
        QTest::newRow("other point") << QByteArray("01.07.2016 22:10:00;3.5") << format
                                     << QVector<float>{3.5F};
        QTest::newRow("nothing") << QByteArray("01.07.2016 22:10:00;") << format << QVector<float>();
        QTest::newRow("nan") << QByteArray("01.07.2016 22:10:00;NAN") << format << QVector<float>();
        QTest::newRow("other date") << QByteArray("2016-07-01 22:10:00;3,5") << format << QVector<float>();
        QTest::newRow("too many columns")
            << QByteArray("01.07.2016 22:10:00;3,5;9") << format << QVector<float>();
        format.separator1 = ';';
        QTest::newRow("first of equal separators")
            << QByteArray("01.07.2016;22:10:00;3,5\r") << format << QVector<float>{3.5F};
        format.separator2 = '\t';
        format.dateFormat = QStringLiteral("mm/dd/yyyy");
        format.timeFormat = QStringLiteral("hh-mm-ss");
        format.decimalSeparator = '.';
        QTest::newRow("all other") << QByteArray("07/01/2016;22-10-00\t3.5") << format
                                   << QVector<float>{3.5F};
    }
    void windLines()
    {
        QFETCH(QByteArray, line);
        QFETCH(WindFormat, format);
        QFETCH(QVector<float>, speed);
        const WeatherRead read = WeatherFile::readWind(written(line), format);
        QCOMPARE(valuesOf(read.windSpeed), speed);
        for (const WeatherSample& sample : read.windSpeed)
            QCOMPARE(sample.time, at(1, 22, 10));
    }

    void timeDefinition_data()
    {
        QTest::addColumn<int>("definition");
        QTest::addColumn<qint64>("stamp");
        QTest::addColumn<qint64>("begin");
        QTest::newRow("beginning") << 0 << at(1, 22, 7) << at(1, 22, 7);
        QTest::newRow("end on the boundary") << 1 << at(1, 22, 10) << at(1, 22, 0);
        QTest::newRow("end elsewhere") << 1 << at(1, 22, 7) << at(1, 22, 7);
        QTest::newRow("end at midnight") << 1 << at(2, 0, 0) << at(1, 23, 50);
        QTest::newRow("round") << 2 << at(1, 22, 7, 30) << at(1, 22, 0);
        QTest::newRow("round on the boundary") << 2 << at(1, 22, 10) << at(1, 22, 10);
    }
    void timeDefinition()
    {
        QFETCH(int, definition);
        QFETCH(qint64, stamp);
        QFETCH(qint64, begin);
        WindFormat format;
        format.definition = static_cast<WindFormat::Definition>(definition);
        QCOMPARE(format.begin(stamp), begin);
    }

    /// Binary rubbish, endless lines and lines across the pieces that are read at a time cost no sample.
    void survivesRubbish()
    {
        QByteArray bytes("\xEF\xBB\xBF");
        bytes += "2016-07-01 00:00:00,1,0\n";
        for (int i = 0; i < 3000; ++i)
            bytes += QByteArray(i % 300, char(i % 9)) + '\n'; // no line feed among them
        bytes += QByteArray(3'000'000, '7') + '\n';
        for (int i = 1; i < 144; ++i)
            bytes += "2016-07-01 " +
                     RecorderClock::timeOfWall(600 * i).toString(QStringLiteral("hh:mm:ss")).toLatin1() +
                     ",2.5,0" + QByteArray(i * 20, ' ') + "\r\n";
        bytes += "2016-07-01 00:00:00,9,0\n"; // again
        bytes += QByteArray(700'000, ',');
        double last = 0.0;
        const WeatherRead read = WeatherFile::readTemperature(written(bytes), [&](double share) {
            last = share;
            return true;
        });
        QVERIFY(read.isComplete);
        QCOMPARE(last, 1.0);
        QCOMPARE(read.temperature.size(), std::size_t(144));
        QCOMPARE(read.temperature.front().value, 1.0F);
        QCOMPARE(read.temperature.front().time, at(1, 0, 0));
        QCOMPARE(read.temperature.back().time, at(1, 23, 50));
        QCOMPARE(read.skippedLines, 3002);
        QVERIFY(read.text().startsWith(QLatin1String("288 samples read, 3002 lines")));
    }

    void stops()
    {
        QByteArray bytes;
        for (int i = 0; i < 50'000; ++i)
            bytes += "01.07.2016 22:10:00;3,5\n";
        const QString path = written(bytes);
        QCOMPARE(WeatherFile::readWind(path, {}, {}, 5).usedLines, 5);
        const WeatherRead cancelled = WeatherFile::readWind(path, {}, [](double) { return false; });
        QVERIFY(cancelled.isOpened && !cancelled.isComplete);
        QVERIFY(!WeatherFile::readWind(path + QStringLiteral(".missing"), {}).isOpened);
    }

    /// Wind times are those of their own clock; the year is the recorder's.
    void yearOfTheRecorder()
    {
        const RecorderClock station = RecorderClock::inZone(QTimeZone("America/New_York"), 2016, 2016);
        const RecorderClock recorder = RecorderClock::inZone(QTimeZone("Europe/Berlin"), 2016, 2016);
        const WeatherSamples samples{{RecorderClock::wall(QDate(2015, 12, 31), QTime(17, 50)), 1.0F},
                                     {RecorderClock::wall(QDate(2015, 12, 31), QTime(18, 0)), 2.0F},
                                     {at(1, 12, 0), 3.0F},
                                     {RecorderClock::wall(QDate(2016, 12, 31), QTime(18, 0)), 4.0F}};
        const WeatherSamples kept = WeatherFile::inYear(samples, station, recorder, 2016);
        QCOMPARE(valuesOf(kept), (QVector<float>{2.0F, 3.0F}));
        QCOMPARE(recorder.toWall(kept[0].time), RecorderClock::wall(QDate(2016, 1, 1)));
        QCOMPARE(recorder.toWall(kept[1].time), at(1, 18, 0));
    }

    void valueBins_data()
    {
        using Rule = ActivityBins (*)(const MonitoringCalendar&, const WeatherSamples&);
        QTest::addColumn<void*>("rule");
        QTest::addColumn<float>("value");
        QTest::addColumn<QString>("label");
        const auto row = [](const char* name, Rule rule, float value, const char* label) {
            QTest::newRow(name) << reinterpret_cast<void*>(rule) << value << QString::fromLatin1(label);
        };
        row("coldest", ActivityRules::temperature, -20.0F, "-20 to -18");
        row("too cold", ActivityRules::temperature, -20.1F, "");
        row("below zero", ActivityRules::temperature, -0.1F, "-2 to 0");
        row("lower bound", ActivityRules::temperature, 12.0F, "12 to 14");
        row("hottest", ActivityRules::temperature, 50.0F, "48 to 50");
        row("dry", ActivityRules::precipitation, 0.0F, "0");
        row("drizzle", ActivityRules::precipitation, 0.01F, "0 to 1");
        row("rain", ActivityRules::precipitation, 1.0F, "1 to 2");
        row("flood", ActivityRules::precipitation, 10.5F, "");
        row("calm", ActivityRules::windSpeed, 0.0F, "0 to 1");
        row("ten", ActivityRules::windSpeed, 10.0F, "9 to 10");
        row("storm", ActivityRules::windSpeed, 10.1F, ">10");
        row("negative", ActivityRules::windSpeed, -0.1F, "");
    }
    void valueBins()
    {
        QFETCH(void*, rule);
        QFETCH(float, value);
        QFETCH(QString, label);
        MonitoringPlan plan;
        plan.zone = QTimeZone("UTC");
        plan.begin = plan.end = QDate(2016, 7, 1);
        const auto bins =
            reinterpret_cast<ActivityBins (*)(const MonitoringCalendar&, const WeatherSamples&)>(rule)(
                MonitoringCalendar(plan), {{at(1, 22, 0), value}, {at(1, 22, 7), value}});
        QString found;
        for (const ActivityBin& bin : bins) {
            if (bin.spans.empty())
                continue;
            found += bin.label;
            QCOMPARE(bin.spans, (TimeSpans{{at(1, 22, 0), at(1, 22, 17)}}));
        }
        QCOMPARE(found, label);
    }

private:
    QString written(const QByteArray& bytes)
    {
        const QString path = m_folder.filePath(QStringLiteral("weather.txt"));
        QFile file(path);
        if (file.open(QIODevice::WriteOnly))
            file.write(bytes);
        return path;
    }

    static QVector<float> valuesOf(const WeatherSamples& samples)
    {
        QVector<float> values;
        for (const WeatherSample& sample : samples)
            values << sample.value;
        return values;
    }

    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(tst_WeatherFile)
#include "tst_WeatherFile.moc"
