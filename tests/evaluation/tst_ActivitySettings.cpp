#include "evaluation/core/ActivitySettings.h"
#include "evaluation/core/CurveColors.h"

#include <QtTest>

class tst_ActivitySettings : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void keepsEverything()
    {
        MonitoringPlan plan;
        plan.position = {-45.5, 170.25};
        plan.zone = QTimeZone("Pacific/Auckland");
        plan.daylightSaving = false;
        plan.begin = QDate(2024, 2, 29);
        plan.end = QDate(2099, 12, 31);
        plan.relative = true;
        plan.dailyStart = QTime(21, 30);
        plan.dailyStop = QTime(4, 5);
        plan.startMinutes = -15;
        plan.stopMinutes = 20;
        plan.invalidTimes =
            QStringLiteral("01.06.2024 23:00-02.06.2024 01:00;05.06.2024 00:00-06.06.2024 00:05");
        WindFormat format;
        format.dateFormat = QStringLiteral("yyyy/mm/dd");
        format.decimalSeparator = ',';
        format.separator1 = '\t';
        format.separator2 = ';';
        format.definition = WindFormat::Definition::Round;
        const QMap<QString, QColor> colors{{QString::fromUtf8("Fledermäuse, groß"), QColor(1, 2, 3)}};
        {
            ActivitySettings settings(folder(), folder());
            settings.setMonitoring(plan);
            settings.setWind(format, plan.zone, false);
            settings.setClassColors(colors);
            settings.setTwilight(2);
        }
        const ActivitySettings settings(folder(), folder());
        const MonitoringPlan read = settings.monitoring();
        const auto all = [](const MonitoringPlan& p) {
            return std::make_tuple(p.position.latitude, p.position.longitude, p.zone, p.daylightSaving,
                                   p.begin, p.end, p.relative, p.dailyStart, p.dailyStop, p.startMinutes,
                                   p.stopMinutes, p.invalidTimes);
        };
        QVERIFY(all(read) == all(plan));
        QCOMPARE(read.twilight, QStringLiteral("Astronomical twilight"));
        QCOMPARE(settings.windFormat().dateFormat, format.dateFormat);
        QCOMPARE(settings.windFormat().decimalSeparator, format.decimalSeparator);
        QCOMPARE(settings.windFormat().separator1, '\t');
        QVERIFY(settings.windFormat().definition == format.definition);
        QVERIFY(!settings.windDaylightSaving());
        QCOMPARE(settings.classColors(), colors);
    }

    /// The defaults in the file as it looks to a user and to other versions of the program.
    void fileText()
    {
        {
            ActivitySettings settings(folder(), folder());
            settings.setMonitoring(settings.monitoring());
            settings.setCenterNight(settings.centerNight());
            settings.setTwilight(settings.twilight());
            settings.setDaysQuantity(settings.daysQuantity());
            WindFormat format = settings.windFormat();
            format.separator2 = '\t';
            settings.setWind(format, QTimeZone("Europe/Berlin"), true);
        }
        QFile file(folder() + QStringLiteral("/SonaviaSettings.ini"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray text = file.readAll();
        for (const char* line : {"[Geocoordinates]",
                                 "latitude=51",
                                 "longitude=9",
                                 "[Time]",
                                 "BeginDate=01.01.15",
                                 "EndDate=31.12.15",
                                 "StartRecording=00:00",
                                 "StopRecording=00:00",
                                 "StartMin=0",
                                 "StopMin=0",
                                 "PeriodType=0",
                                 "daylightSaving=true",
                                 "TimeZone=",
                                 "invalidTimes=",
                                 "centerNight=true",
                                 "Twilight=0",
                                 "intervalDays=0",
                                 "[WindDataSettings]",
                                 "dateFormat=dd.mm.yyyy",
                                 "timeFormat=hh:mm:ss",
                                 "decimalSeparator=\",\"",
                                 "separator1=Space",
                                 "separator2=\\\\t",
                                 "WindDataTimeZone=Europe/Berlin"})
            QVERIFY2(text.contains(line), line);
    }

    /// Where nothing can be written beside the program, the user's file takes the changes and the other one
    /// gives what was never changed.
    void readOnlyProgramFolder()
    {
        const QString program = QStringLiteral(":/presets"); // which nobody can write to
        const QString user = folder() + QStringLiteral("/new/folder");
        {
            ActivitySettings settings(program, user);
            QCOMPARE(QFileInfo(settings.filePath()).path(), user);
            QCOMPARE(settings.twilight(), 1);
            settings.setTwilight(3);
        }
        const ActivitySettings settings(program, user);
        QCOMPARE(settings.twilight(), 3);
        QCOMPARE(settings.daysQuantity(), 4);
    }

    void foreignValues()
    {
        {
            QSettings file(folder() + QStringLiteral("/SonaviaSettings.ini"), QSettings::IniFormat);
            file.setValue(QStringLiteral("Time/Twilight"), 99);
            file.setValue(QStringLiteral("Time/intervalDays"), -4);
            file.setValue(QStringLiteral("Time/BeginDate"), QStringLiteral("31.02.15"));
            file.setValue(QStringLiteral("Time/EndDate"), QStringLiteral("29.02.00"));
            file.setValue(QStringLiteral("Time/TimeZone"), QStringLiteral("Nowhere/Else"));
            file.setValue(QStringLiteral("Time/StartMin"), QStringLiteral("-9999999999"));
            file.setValue(QStringLiteral("Geocoordinates/latitude"), QStringList{"51", "5"}); // typed 51,5
            file.setValue(QStringLiteral("Geocoordinates/longitude"), QStringLiteral("1000"));
            file.setValue(QStringLiteral("WindDataSettings/separator2"), QStringLiteral("\t"));
            file.setValue(QStringLiteral("WindDataSettings/dateFormat"), QStringLiteral("d"));
            file.setValue(QStringLiteral("WindDataSettings/separator1"), QStringLiteral("Tabulator"));
            file.setValue(QStringLiteral("Files/classColors"), QStringList{QStringLiteral("pink")});
        }
        const ActivitySettings settings(folder(), folder());
        const MonitoringPlan plan = settings.monitoring();
        QCOMPARE(plan.twilight, ActivitySettings::twilightNames().last());
        QCOMPARE(settings.daysQuantity(), 0);
        QCOMPARE(plan.begin, QDate(2015, 1, 1));
        QCOMPARE(plan.end, QDate(2000, 2, 29));
        QVERIFY(plan.zone.isValid());
        QCOMPARE(plan.startMinutes, -1440);
        QCOMPARE(plan.position.latitude, 51.0);
        QCOMPARE(plan.position.longitude, 180.0);
        QCOMPARE(settings.windFormat().separator2, '\t');
        QCOMPARE(settings.windFormat().dateFormat, WindFormat::dateFormats().first());
        QCOMPARE(settings.windFormat().separator1, '\t');
    }

    /// Neighbouring curves are told apart and none is too pale for paper.
    void defaultColors()
    {
        for (int i = 0; i < curveColorCount; ++i) {
            QVERIFY(curveColor(i).lightness() < 190);
            for (int other = i + 1; other < curveColorCount; ++other)
                QVERIFY(curveColor(i) != curveColor(other));
        }
        QCOMPARE(curveColor(curveColorCount), curveColor(0));
    }

private:
    QString folder() const { return m_folder->path(); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

QTEST_GUILESS_MAIN(tst_ActivitySettings)
#include "tst_ActivitySettings.moc"
