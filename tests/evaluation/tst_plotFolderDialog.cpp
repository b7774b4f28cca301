#include "evaluation/ActivityPlot.h"
#include "evaluation/ActivityTab.h"
#include "evaluation/core/ActivitySettings.h"
#include "evaluation/plotFolderDialog.h"
#include "tests/evaluation/DialogScript.h"
#include "tests/support/ScriptedPrompts.h"
#include "tools/DemoSeason.h"
#include "viewer/ClampedZoomer.h"

#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTabBar>
#include <QTabWidget>
#include <QtTest>
#include <qwt_legend.h>
#include <qwt_legend_label.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_item.h>
#include <qwt_scale_draw.h>

#include <set>

namespace {

std::vector<RecordingRow> rowsOf(const DemoSeason& season)
{
    std::vector<RecordingRow> rows;
    for (const DemoSeason::Recording& recording : season.recordings()) {
        RecordingRow row;
        row.name = recording.fileName();
        row.date = QLocale::c().toString(recording.start, QStringLiteral("dd/MM/yy"));
        row.time = QLocale::c().toString(recording.start, QStringLiteral("HH:mm:ss"));
        row.record = ClassRecord::parse(QString::fromLatin1(recording.classRecord));
        rows.push_back(row);
    }
    return rows;
}

/// The ticks with a label; none when two labels touch each other.
int legibleTicks(const QwtPlot& plot)
{
    const auto* draw = plot.axisScaleDraw(QwtPlot::xBottom);
    const QList<double> ticks = plot.axisScaleDiv(QwtPlot::xBottom).ticks(QwtScaleDiv::MajorTick);
    const bool isInclined = draw->labelRotation() != 0.0;
    double end = -HUGE_VAL;
    for (const double tick : ticks) {
        const QSizeF size = draw->label(tick).textSize(plot.axisFont(QwtPlot::xBottom));
        const double width = isInclined ? 1.2 * size.height() : size.width();
        const double middle = plot.transform(QwtPlot::xBottom, tick);
        if (middle - width / 2.0 <= end)
            return 0;
        end = middle + width / 2.0;
    }
    return ticks.size();
}

} // namespace

/// Works like a user on the demo season. With SONAVIA_ACTIVITY_OUTPUT set, pictures, a plot and all tables
/// are left in that folder.
class tst_plotFolderDialog : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_output = qEnvironmentVariable("SONAVIA_ACTIVITY_OUTPUT", m_folder.path());
        QFile::remove(m_folder.filePath(QStringLiteral("SonaviaSettings.ini")));
        m_settings = std::make_unique<ActivitySettings>(m_folder.path(), m_folder.path());
        MonitoringPlan plan = m_settings->monitoring();
        plan.zone = QTimeZone("Europe/Berlin");
        m_settings->setMonitoring(plan);
        m_settings->setTemperatureFile(written(QStringLiteral("t.csv"), m_season.temperatureFile()));
        m_settings->setWindFile(written(QStringLiteral("w.csv"), m_season.windFile()));
        WindFormat format;
        format.definition = WindFormat::Definition::End;
        m_settings->setWind(format, plan.zone, true);
        open(rowsOf(m_season));
    }
    void cleanup() { m_dialog.reset(); }

    void showsEachTab_data()
    {
        QTest::addColumn<QString>("quantity");
        QTest::addColumn<int>("bins");
        QTest::newRow("Activity over Time") << QStringLiteral("Time;") << 144;
        QTest::newRow("Activity over Days") << QStringLiteral("Day;") << 365;
        QTest::newRow("Activity over Months") << QStringLiteral("Month;") << 12;
        QTest::newRow("Activity over Night Time") << QStringLiteral("Night Times in 2026;") << 11;
        QTest::newRow("Activity over Temperature") << QString::fromUtf8("Temperatures in 2026 [°C];") << 35;
        QTest::newRow("Activity over Precipitation")
            << QStringLiteral("Precipitations in 2026 [mm/min];") << 11;
        QTest::newRow("Activity over Wind Speed") << QStringLiteral("Wind Speeds in 2026 [m/s];") << 11;
    }
    void showsEachTab()
    {
        QFETCH(QString, quantity);
        QFETCH(int, bins);
        int index = 0;
        while (index < 6 && tabs()->tabText(index) != QLatin1String(QTest::currentDataTag()))
            ++index;
        QCOMPARE(tabs()->tabText(index), QLatin1String(QTest::currentDataTag()));
        show(index);
        const ActivityTable& table = tab(index).plot().table();
        QCOMPARE(table.bins.size(), static_cast<std::size_t>(bins));
        const std::vector<double>& all = table.curves.values.front();
        QVERIFY(std::any_of(all.begin(), all.end(), [](double value) { return value > 0.0; }));
        const QByteArray text = exported(index, m_output);
        QVERIFY(text.startsWith(quantity.toUtf8()));
        QCOMPARE(text.count("\r\n"), bins + 1);
        QVERIFY(m_dialog->grab().save(m_output + QStringLiteral("/tab%1.png").arg(index)));
    }

    /// Also on an axis from midnight to midnight, and by a clock of the other side of the earth.
    void shadesTheNight_data()
    {
        QTest::addColumn<bool>("centerNight");
        QTest::addColumn<QByteArray>("zone");
        QTest::addColumn<QVector<int>>("hours"); // at night, at night, by day
        QTest::newRow("noon to noon") << true << QByteArray("Europe/Berlin") << QVector<int>{23, 26, 13};
        QTest::newRow("midnight") << false << QByteArray("Europe/Berlin") << QVector<int>{23, 2, 13};
        QTest::newRow("far") << true << QByteArray("Pacific/Auckland") << QVector<int>{13, 34, 24};
    }
    void shadesTheNight()
    {
        QFETCH(bool, centerNight);
        QFETCH(QByteArray, zone);
        QFETCH(QVector<int>, hours);
        MonitoringPlan plan = m_settings->monitoring();
        plan.zone = QTimeZone(zone);
        m_settings->setMonitoring(plan);
        m_settings->setCenterNight(centerNight);
        open(rowsOf(m_season));
        QwtPlot& plot = tab(0).plot();
        for (QwtPlotItem* item : plot.itemList())
            item->setVisible(item->rtti() == QwtPlotItem::Rtti_PlotZone);
        plot.replot();
        const QImage picture = plot.canvas()->grab().toImage();
        for (int i = 0; i < 3; ++i) {
            const int x = static_cast<int>(plot.transform(QwtPlot::xBottom, hours.at(i) * 3600.0));
            QCOMPARE(picture.pixelColor(x, picture.height() / 2) != QColor(Qt::white), i < 2);
        }
    }

    void showsNoDataWithoutWeather()
    {
        m_settings->setTemperatureFile(m_folder.filePath(QStringLiteral("missing.csv")));
        m_settings->setWindFile(QString());
        open(rowsOf(m_season));
        for (int index = 4; index < 7; ++index) {
            show(index);
            QVERIFY(tab(index).plot().table().bins.empty());
            QVERIFY(!tab(index).plot().grab().isNull());
        }
        const auto* text = tab(5).findChild<QLabel*>(QStringLiteral("labelFilePrec"));
        QVERIFY(text->text().contains(QLatin1String("cannot be opened")));
    }

    void legendSwitchesCurvesAndColumns()
    {
        const QByteArray before = exported(2).split('\r').first();
        show(2); // of which there was a table before it was seen
        QVERIFY(before.startsWith("Month;Valid Hours [h];All Classes [Rec./h];"));
        QVERIFY(before.endsWith(";Unassigned [Rec./h]"));
        for (const char* name : {"Valid Hours", "All Classes", "Unassigned"}) {
            QVERIFY2(entry(name) != nullptr && entry(name)->isChecked(), name);
            QTest::mouseClick(entry(name), Qt::LeftButton);
            QVERIFY(!entry(name)->isChecked());
        }
        const QByteArray after = exported(2).split('\r').first();
        QVERIFY(!after.contains("Valid Hours") && !after.contains("All Classes") &&
                !after.contains("Unassigned"));
        QCOMPARE(after.count(';'), before.count(';') - 3);
        QTest::mouseClick(entry("Unassigned"), Qt::LeftButton);
        QVERIFY(exported(2).split('\r').first().endsWith(";Unassigned [Rec./h]"));
        m_dialog->plotFunctionVsMonth(true); // makes the curves anew, in place of those that there are
        QCOMPARE(exported(2).split('\r').first(), before.mid(0, 5) + before.mid(before.indexOf(";All")));
    }

    /// A class may have any name, also one that looks like markup.
    void oddClassNames()
    {
        std::vector<RecordingRow> rows = rowsOf(m_season);
        rows.front().record.classes[0] = QStringLiteral("<b>a</b> & \"b\"=%1,");
        m_settings->setClassColors({{rows.front().record.classes[0], Qt::red}});
        open(rows);
        QwtLegendLabel* label = entry("<b>a</b> & \"b\"=%1,");
        QVERIFY(label != nullptr);
        const QwtText plain(label->text().text(), QwtText::PlainText);
        QCOMPARE(label->text().textSize(label->font()), plain.textSize(label->font()));
        QCOMPARE(ActivitySettings(m_folder.path(), m_folder.path()).classColors().firstKey(),
                 label->text().text());
    }

    /// Each has a line of its own, and a place in the legend of an exported plot.
    void manyClasses()
    {
        QStringList names;
        for (int i = 0; i < 40; ++i)
            names << QStringLiteral("Class %1").arg(i);
        ActivityPlot plot(ActivityKind::Days);
        plot.initialise(names);
        std::set<std::pair<QString, int>> lines;
        for (const QwtPlotItem* item : plot.itemList(QwtPlotItem::Rtti_PlotCurve)) {
            const QPen pen = static_cast<const QwtPlotCurve*>(item)->pen();
            lines.insert({pen.color().name(), pen.style()});
        }
        QCOMPARE(lines.size(), std::size_t(40));
        const QString path = m_folder.filePath(QStringLiteral("many.png"));
        QVERIFY(plot.exportTo(path));
        const int legend = plot.plotLegend().contentsWidget()->sizeHint().height();
        QVERIFY(QImage(path).height() > legend * 85 / plot.logicalDpiY()); // both in dots per inch
    }

    void axisAndZoom_data()
    {
        QTest::addColumn<int>("width");
        QTest::newRow("wide") << 1560;
        QTest::newRow("narrow") << 900;
    }
    void axisAndZoom()
    {
        QFETCH(int, width);
        m_dialog->resize(width, 700);
        for (int index = 0; index < 7; ++index) {
            show(index);
            ActivityPlot& plot = tab(index).plot();
            tab(index).findChildren<QComboBox*>().first()->setCurrentIndex(1);
            QVERIFY(plot.axisScaleDiv(QwtPlot::yLeft).lowerBound() > 0.0);
            const auto zoomers = plot.canvas()->findChildren<ClampedZoomer*>();
            QCOMPARE(zoomers.size(), 2);
            for (int step = 0; step < 4; ++step) { // deeper and deeper
                const QByteArray place = QStringLiteral("tab %1, step %2").arg(index).arg(step).toLatin1();
                QVERIFY2(legibleTicks(plot) >= 1 || step == 3, place);
                QCOMPARE(plot.axisInterval(QwtPlot::xBottom), plot.axisInterval(QwtPlot::xTop));
                for (ClampedZoomer* zoomer : zoomers) {
                    QRectF view = zoomer->zoomRect();
                    view.setWidth(view.width() / 4.0);
                    view.translate(view.width(), 0.0);
                    zoomer->zoom(view);
                }
                QVERIFY(!plot.grab().isNull());
            }
        }
    }

    void tabsFitIntoASmallScreen()
    {
        QFont font = m_dialog->font();
        font.setPixelSize(17); // 12 pt at 100 dpi
        m_dialog->setFont(font);
        m_dialog->resize(1024, 700);
        QCoreApplication::processEvents();
        const QTabBar* bar = tabs()->tabBar();
        for (int i = 0; i < bar->count(); ++i)
            QVERIFY2(bar->rect().contains(bar->tabRect(i)) && bar->width() <= 1024,
                     qPrintable(bar->tabText(i)));
    }

    void exportsThePlot_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("begin");
        QTest::newRow("PDF") << "plot.pdf" << QByteArray("%PDF");
        QTest::newRow("SVG") << "plot.SVG" << QByteArray("<?xml");
        QTest::newRow("PNG") << "plot.png" << QByteArray("\x89PNG");
        QTest::newRow("no suffix") << "plain" << QByteArray("%PDF");
    }
    void exportsThePlot()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, begin);
        show(1);
        QTest::mouseClick(entry("Noise"), Qt::LeftButton);
        const QString path = m_output + QLatin1Char('/') + name;
        QFile::remove(path); // or the dialog asks
        QFile file(name.contains(QLatin1Char('.')) ? path : path + QStringLiteral(".pdf"));
        file.remove();
        DialogScript script;
        script.choosePath(path);
        button("exportPlotDays")->click();
        QCOMPARE(script.asked.first().section(QLatin1Char('|'), 0, 0), QStringLiteral("Export File Name"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readAll().startsWith(begin));
        // The legend is as it was.
        QVERIFY(entry("Noise") != nullptr && !entry("Noise")->isChecked() && entry("Ppip")->isChecked());
    }

    void tellsOfAFailedExport()
    {
        m_prompts.takeAsked();
        const QString path = m_folder.filePath(QStringLiteral("no/such/folder.csv"));
        const QString before = m_settings->exportPath(ActivityKind::Time);
        DialogScript script;
        for (const char* name : {"exportPlotData", "exportPlot"}) {
            script.choosePath(path);
            button(name)->click();
        }
        QCOMPARE(m_settings->exportPath(ActivityKind::Time), before);
        const QString failure = QStringLiteral("|Could not write to file.");
        QCOMPARE(m_prompts.takeAsked().filter(failure).size(), 2);
        // Of a suffix that is none of a plot, what stands there is left alone.
        QVERIFY(!tab(0).plot().exportTo(written(QStringLiteral("notes.txt"), "mine")));
        QCOMPARE(QFileInfo(m_folder.filePath(QStringLiteral("notes.txt"))).size(), qint64(4));
    }

    void keepsSettings()
    {
        auto* minutes = m_dialog->findChild<QSpinBox*>(QStringLiteral("spinBoxStart"));
        QTest::keyClick(m_dialog->findChild<QComboBox*>(QStringLiteral("comboBoxPeriodType")), Qt::Key_Down);
        minutes->selectAll();
        QTest::keyClicks(minutes, QStringLiteral("-20\r"));
        QVERIFY(m_dialog->isVisible()); // Return is for the number alone
        m_dialog->findChild<QDateEdit*>(QStringLiteral("dateEditStart"))->setDate(QDate(2026, 5, 2));
        QCOMPARE(m_dialog->findChild<QDateEdit*>(QStringLiteral("dateEditStartWind"))->date(),
                 QDate(2026, 5, 2));
        QCOMPARE(tab(0).plot().table().year, 2026);
        m_settings = std::make_unique<ActivitySettings>(m_folder.path(), m_folder.path());
        QCOMPARE(m_settings->monitoring().startMinutes, -20);
        open(rowsOf(m_season));
        show(1);
        QCOMPARE(tab(1).plot().table().bins.front().label, QStringLiteral("02/05/26"));
    }

    /// The days of a season over New Year, with and without recordings in the year it begins in.
    void showsYearsWithRecordings_data()
    {
        QTest::addColumn<int>("begin");
        QTest::addColumn<int>("shown");
        QTest::newRow("begins in the recordings' year") << 2026 << 2026;
        QTest::newRow("ends in it") << 2025 << 2025;
        QTest::newRow("long ago") << 2015 << 2026;
    }
    void showsYearsWithRecordings()
    {
        QFETCH(int, begin);
        QFETCH(int, shown);
        MonitoringPlan plan = m_settings->monitoring();
        plan.begin = QDate(begin, 11, 1);
        plan.end = QDate(begin + 1, 8, 31);
        m_settings->setMonitoring(plan);
        open(rowsOf(m_season));
        const auto days = [this] {
            return std::make_pair(m_dialog->findChild<QDateEdit*>(QStringLiteral("dateEditStart"))->date(),
                                  m_dialog->findChild<QDateEdit*>(QStringLiteral("dateEditStop"))->date());
        };
        QCOMPARE(days(), std::make_pair(QDate(shown, 11, 1), QDate(shown + 1, 8, 31)));
        auto* years = m_dialog->findChild<QComboBox*>(QStringLiteral("comboBoxYear"));
        years->setCurrentIndex(0);
        emit years->activated(0);
        QCOMPARE(days(), std::make_pair(QDate(2026, 11, 1), QDate(2027, 8, 31)));
    }

    void survivesOddSettings_data()
    {
        QTest::addColumn<int>("rows");
        QTest::addColumn<QDate>("end");
        QTest::addColumn<double>("latitude");
        QTest::newRow("no recordings") << 0 << QDate(2026, 12, 31) << 51.0;
        QTest::newRow("one recording") << 1 << QDate(2026, 12, 31) << 51.0;
        QTest::newRow("end before begin") << 1 << QDate(2025, 12, 31) << 51.0;
        QTest::newRow("one day") << 1 << QDate(2026, 1, 1) << 51.0;
        QTest::newRow("pole") << 1 << QDate(2026, 12, 31) << 90.0;
    }
    void survivesOddSettings()
    {
        QFETCH(int, rows);
        QFETCH(QDate, end);
        QFETCH(double, latitude);
        MonitoringPlan plan = m_settings->monitoring();
        plan.begin = QDate(2026, 1, 1);
        plan.end = end;
        plan.position.latitude = latitude;
        plan.relative = true;
        m_settings->setMonitoring(plan);
        std::vector<RecordingRow> list = rowsOf(m_season);
        list.resize(static_cast<std::size_t>(rows));
        open(list);
        for (int index = 0; index < 7; ++index) {
            show(index);
            tab(index).findChildren<QComboBox*>().first()->setCurrentIndex(1);
            QVERIFY(!m_dialog->grab().isNull());
            QVERIFY(!exported(index).isEmpty());
        }
    }

private:
    ActivityTab& tab(int index) { return *qobject_cast<ActivityTab*>(tabs()->widget(index)); }
    QTabWidget* tabs() { return m_dialog->findChild<QTabWidget*>(QStringLiteral("tabWidget")); }
    QPushButton* button(const char* name) { return m_dialog->findChild<QPushButton*>(QLatin1String(name)); }

    void open(const std::vector<RecordingRow>& rows)
    {
        m_dialog = std::make_unique<plotFolderDialog>(m_folder.path(), rows, *m_settings, m_prompts);
        m_dialog->resize(1560, 860);
        m_dialog->show();
    }

    void show(int index)
    {
        tabs()->setCurrentIndex(index);
        QCoreApplication::processEvents();
    }

    QString written(const QString& name, const QByteArray& bytes)
    {
        QFile file(m_folder.filePath(name));
        if (file.open(QIODevice::WriteOnly))
            file.write(bytes);
        return file.fileName();
    }

    QByteArray exported(int index) { return exported(index, m_folder.path()); }
    QByteArray exported(int index, const QString& folder)
    {
        const QString path = folder + QStringLiteral("/table%1.csv").arg(index);
        QFile::remove(path);
        DialogScript script;
        script.choosePath(path);
        emit tab(index).exportDataClicked();
        QFile file(path);
        return m_settings->exportPath(static_cast<ActivityKind>(index)) == path &&
                       file.open(QIODevice::ReadOnly)
                   ? file.readAll()
                   : QByteArray();
    }

    QwtLegendLabel* entry(const char* name)
    {
        for (QwtLegendLabel* label : tabs()->currentWidget()->findChildren<QwtLegendLabel*>())
            if (label->text().text() == QLatin1String(name))
                return label;
        return nullptr;
    }

    QTemporaryDir m_folder;
    QString m_output;
    std::unique_ptr<ActivitySettings> m_settings;
    ScriptedPrompts m_prompts;
    std::unique_ptr<plotFolderDialog> m_dialog;
    DemoSeason m_season{2026};
};

QTEST_MAIN(tst_plotFolderDialog)
#include "tst_plotFolderDialog.moc"
