#include "evaluation/core/ActivityBins.h"
#include "evaluation/core/WeatherFile.h"

#include <QtTest>

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
    void temperatureLines()
    {
        const auto values = [&](const QByteArray& line) {
            const WeatherRead read = WeatherFile::readTemperature(written(line + '\n'));
            const bool isCounted = read.isComplete && read.usedLines + read.skippedLines == 1 &&
                                   read.skippedLines == (read.samples() == 0 ? 1 : 0);
            return isCounted ? valuesOf(read.temperature) + '|' + valuesOf(read.precipitation) : "miscounted";
        };
        QCOMPARE(values("2016-07-01 22:10:00,15.3,0"), QByteArray("15.3|0"));
        QCOMPARE(values("2016-07-01T22:10:00\t-3.5\t1.25"), QByteArray("-3.5|1.25"));
        QCOMPARE(values("2016-07-01 22:10:00\t+1,5\t.5"), QByteArray("|0.5")); // the tab comes first
        QCOMPARE(values("\"2016-07-01 22:10:00\",\"15.3\",\"0\"\r"), QByteArray("15.3|0"));
        QCOMPARE(values("2016-07-01 22:10:00,nan,+.5"), QByteArray("|0.5"));
        for (const char* rest : {",NaN,", ",-inf,1e99", ",+-1,2 3", ",15.3", ",15.3,0,0", "0,15.3,0"})
            QCOMPARE(values(QByteArray("2016-07-01 22:10:00") + rest), QByteArray("|"));
    }

    void windLines()
    {
        WindFormat format;
        const auto speed = [&](const QByteArray& line) {
            const WeatherSamples read = WeatherFile::readWind(written(line), format).windSpeed;
            return read.empty() || read[0].time == at(1, 22, 10) ? valuesOf(read) : "another time";
        };
        QCOMPARE(speed("01.07.2016 22:10:00;3,5"), QByteArray("3.5"));
        QCOMPARE(speed("01.07.2016 22:10:00;3.5"), QByteArray("3.5"));
        for (const char* line :
             {"01.07.2016 22:10:00;", "01.07.2016 22:10:00;NAN", "01.07.2016 22:10:00;3,5;9",
              "01.07.2016 24:10:00;3,5", "30.02.2016 22:10:00;3,5", "2016-07-01 22:10:00;3,5"})
            QCOMPARE(speed(line), QByteArray());
        format.separator1 = ';';
        QCOMPARE(speed("01.07.2016;22:10:00;3,5\r"), QByteArray("3.5")); // the first of equal separators
        format.timeFormat = QStringLiteral("hh-mm-ss");
        format.separator2 = '\t';
        format.decimalSeparator = '.';
        QCOMPARE(speed("01.07.2016;22-10-00\t3,5"), QByteArray());
        const char* dates[] = {"01.07.2016", "01-07-2016", "2016-07-01",
                               "01/07/2016", "07/01/2016", "2016/07/01"};
        for (int i = 0; i < 6; ++i) {
            format.dateFormat = WindFormat::dateFormats().at(i);
            QCOMPARE(speed(dates[i] + QByteArray(";22-10-00\t3.5")), QByteArray("3.5"));
        }
    }

    void timeDefinition()
    {
        WindFormat format;
        const auto begin = [&](WindFormat::Definition definition, int hour, int minute, int second = 0) {
            format.definition = definition;
            return format.begin(at(2, hour, minute, second));
        };
        QCOMPARE(begin(WindFormat::Definition::Beginning, 22, 7, 30), at(2, 22, 7, 30));
        QCOMPARE(begin(WindFormat::Definition::End, 22, 10), at(2, 22, 0));
        QCOMPARE(begin(WindFormat::Definition::End, 22, 7), at(2, 22, 7));
        QCOMPARE(begin(WindFormat::Definition::End, 22, 10, 1), at(2, 22, 10, 1));
        QCOMPARE(begin(WindFormat::Definition::End, 0, 0), at(1, 23, 50));
        QCOMPARE(begin(WindFormat::Definition::Round, 22, 7, 30), at(2, 22, 0));
        QCOMPARE(begin(WindFormat::Definition::Round, 22, 10), at(2, 22, 10));
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
        const WeatherRead read = WeatherFile::readTemperature(written(bytes));
        QVERIFY(read.isComplete);
        QCOMPARE(read.temperature.size(), std::size_t(144));
        QCOMPARE(read.temperature.front().value, 1.0F);
        QCOMPARE(read.temperature.front().time, at(1, 0, 0));
        QCOMPARE(read.temperature.back().time, at(1, 23, 50));
        QCOMPARE(read.skippedLines, 3002);
        QCOMPARE(read.repeated, 2);
    }

    /// Enough samples for the sort to take several steps, in the opposite order, and each twice.
    void bringsInOrder()
    {
        const int count = 150'000;
        QByteArray bytes;
        for (int i = count - 1; i >= 0; --i) {
            const QDateTime time = QDateTime::fromSecsSinceEpoch(at(1, 0, 0) + i, Qt::UTC);
            const QByteArray stamp = time.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")).toLatin1() + ',';
            bytes += stamp + QByteArray::number(i) + ",nan\n" + stamp + "-1,nan\n";
        }
        double last = 0.0;
        const WeatherRead read = WeatherFile::readTemperature(written(bytes), [&](double share) {
            const bool grows = share > last;
            last = share;
            return grows;
        });
        QVERIFY(read.isComplete);
        QCOMPARE(last, 1.0);
        QCOMPARE(read.text(),
                 QStringLiteral(
                     "150000 samples read, 0 lines skipped. 150000 more had the time of an earlier one."));
        for (int i = 0; i < count; ++i) {
            QCOMPARE(read.temperature[i].time, at(1, 0, 0) + i);
            QCOMPARE(read.temperature[i].value, static_cast<float>(i));
        }
    }

    void stops()
    {
        const QString path =
            written(QByteArray("01.07.2016 22:10:00;3,5\n01.07.2016 22:00:00;4\n").repeated(50'000));
        // As it stands in the file.
        const WeatherRead begin = WeatherFile::previewWind(path, {}, 3);
        QCOMPARE(valuesOf(begin.windSpeed), QByteArray("3.5 4 3.5"));
        const WeatherRead cancelled = WeatherFile::readWind(path, {}, [](double) { return false; });
        QVERIFY(cancelled.isOpened && !cancelled.isComplete);
        QVERIFY(!WeatherFile::readWind(path + QStringLiteral(".missing"), {}).isOpened);
        QVERIFY(!WeatherFile::readWind(m_folder.path(), {}).isOpened);
    }

    /// Wind times are those of their own clock; the year is the recorder's.
    void yearOfTheRecorder()
    {
        const RecorderClock station = RecorderClock::inZone(QTimeZone("America/New_York"), 2016, 2016);
        const RecorderClock recorder = RecorderClock::inZone(QTimeZone("Europe/Berlin"), 2016, 2016);
        const WeatherSamples samples{{RecorderClock::wall(QDate(2015, 12, 31), QTime(17, 50)), 1.0F},
                                     {RecorderClock::wall(QDate(2015, 12, 31), QTime(18, 0)), 2.0F},
                                     {RecorderClock::wall(QDate(2016, 3, 13), QTime(2, 0)), 3.0F}, // left out
                                     {RecorderClock::wall(QDate(2016, 3, 13), QTime(3, 0)), 4.0F},
                                     {at(1, 12, 0), 5.0F},
                                     {RecorderClock::wall(QDate(2016, 12, 31), QTime(18, 0)), 6.0F}};
        const WeatherSamples kept = WeatherFile::inYear(samples, station, recorder, 2016);
        QCOMPARE(valuesOf(kept), QByteArray("2 4 5"));
        QCOMPARE(recorder.toWall(kept[0].time), RecorderClock::wall(QDate(2016, 1, 1)));
        QCOMPARE(recorder.toWall(kept[2].time), at(1, 18, 0));
    }

    void valueBins()
    {
        MonitoringPlan plan;
        plan.zone = QTimeZone("UTC");
        plan.begin = plan.end = QDate(2016, 7, 1);
        const MonitoringCalendar calendar(plan);
        const auto binsOf = [&](auto rule, std::initializer_list<float> values) {
            QString found;
            for (const float value : values) {
                for (const ActivityBin& bin : rule(calendar, {{at(1, 22, 0), value}, {at(1, 22, 7), value}}))
                    if (bin.spans == TimeSpans{{at(1, 22, 0), at(1, 22, 17)}})
                        found += bin.label;
                found += QLatin1Char('|');
            }
            return found;
        };
        QCOMPARE(binsOf(ActivityRules::temperature, {-20.1F, -20.0F, -0.1F, 12.0F, 50.0F}),
                 QStringLiteral("|-20 to -18|-2 to 0|12 to 14|48 to 50|"));
        QCOMPARE(binsOf(ActivityRules::precipitation, {0.0F, 0.01F, 1.0F, 10.0F, 10.5F}),
                 QStringLiteral("0|0 to 1|1 to 2|9 to 10||"));
        QCOMPARE(binsOf(ActivityRules::windSpeed, {-0.1F, 0.0F, 10.0F, 10.1F}),
                 QStringLiteral("|0 to 1|9 to 10|>10|"));
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

    static QByteArray valuesOf(const WeatherSamples& samples)
    {
        QByteArrayList values;
        for (const WeatherSample& sample : samples)
            values << QByteArray::number(static_cast<double>(sample.value));
        return values.join(' ');
    }

    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(tst_WeatherFile)
#include "tst_WeatherFile.moc"
