#include "evaluation/ActivityPlot.h"
#include "evaluation/ActivityTab.h"
#include "evaluation/core/ActivitySettings.h"
#include "evaluation/plotFolderDialog.h"
#include "tests/support/ScriptedPrompts.h"
#include "tools/DemoSeason.h"
#include "viewer/ClampedZoomer.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QtTest>
#include <qwt_legend.h>
#include <qwt_legend_label.h>
#include <qwt_plot_zoneitem.h>
#include <qwt_scale_draw.h>
#include <qwt_scale_widget.h>

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

} // namespace

/// Works like a user on the demo season. With SONAVIA_ACTIVITY_OUTPUT set, pictures, a plot and all tables
/// are left in that folder.
class tst_plotFolderDialog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup() { m_dialog.reset(); }

    void showsEachTab_data();
    void showsEachTab();
    void shadesTheNightAtBothEnds();
    void showsNoDataWithoutWeather();
    void legendSwitchesCurvesAndColumns();
    void axisAndZoom();
    void exportsThePlot_data();
    void exportsThePlot();
    void tellsOfAFailedExport();
    void keepsSettings();
    void survivesOddSettings_data();
    void survivesOddSettings();

private:
    ActivityTab& tab(int index) { return *qobject_cast<ActivityTab*>(tabs()->widget(index)); }
    QTabWidget* tabs() { return m_dialog->findChild<QTabWidget*>(QStringLiteral("tabWidget")); }
    void open(const std::vector<RecordingRow>& rows);
    QString written(const QString& name, const QByteArray& bytes);
    QByteArray exported(int index) { return exportedTo(m_folder.path(), index); }
    QByteArray exportedTo(const QString& folder, int index);
    static void answerFileDialog(const QString& path);
    QwtLegendLabel* entry(const QString& name);

    QTemporaryDir m_folder;
    QString m_output;
    std::unique_ptr<ActivitySettings> m_settings;
    ScriptedPrompts m_prompts;
    std::unique_ptr<plotFolderDialog> m_dialog;
    DemoSeason m_season{2026};
};

void tst_plotFolderDialog::initTestCase()
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    m_output = qEnvironmentVariable("SONAVIA_ACTIVITY_OUTPUT", m_folder.path());
}

void tst_plotFolderDialog::init()
{
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

void tst_plotFolderDialog::open(const std::vector<RecordingRow>& rows)
{
    m_dialog = std::make_unique<plotFolderDialog>(m_folder.path(), rows, *m_settings, m_prompts);
    m_dialog->resize(1560, 860);
    m_dialog->show();
}

QString tst_plotFolderDialog::written(const QString& name, const QByteArray& bytes)
{
    QFile file(m_folder.filePath(name));
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
    return file.fileName();
}

/// As soon as it is open, which may take long on a busy computer.
void tst_plotFolderDialog::answerFileDialog(const QString& path)
{
    auto* timer = new QTimer(qApp);
    connect(timer, &QTimer::timeout, timer, [timer, path] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr)
            return;
        timer->deleteLater();
        timer->stop();
        dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(path);
        QMetaObject::invokeMethod(dialog, "accept");
    });
    timer->start(20);
}

QByteArray tst_plotFolderDialog::exportedTo(const QString& folder, int index)
{
    const QString path = folder + QStringLiteral("/table%1.csv").arg(index);
    QFile::remove(path);
    answerFileDialog(path);
    emit tab(index).exportDataClicked();
    if (m_settings->exportPath(static_cast<ActivityKind>(index)) != path)
        return {};
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QwtLegendLabel* tst_plotFolderDialog::entry(const QString& name)
{
    const auto labels = tabs()->currentWidget()->findChildren<QwtLegendLabel*>();
    for (QwtLegendLabel* label : labels)
        if (label->text().text() == name)
            return label;
    return nullptr;
}

void tst_plotFolderDialog::showsEachTab_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QByteArray>("quantity");
    QTest::addColumn<int>("bins");
    QTest::newRow("time") << "Activity over Time" << QByteArray("Time;") << 144;
    QTest::newRow("days") << "Activity over Days" << QByteArray("Day;") << 365;
    QTest::newRow("months") << "Activity over Months" << QByteArray("Month;") << 12;
    QTest::newRow("night") << "Activity over Night Time" << QByteArray("Night Times in 2026;") << 11;
    QTest::newRow("temperature") << "Activity over Temperature"
                                 << QByteArray("Temperatures in 2026 [\xC2\xB0"
                                               "C];")
                                 << 35;
    QTest::newRow("precipitation") << "Activity over Precipitation"
                                   << QByteArray("Precipitations in 2026 [mm/min];") << 11;
    QTest::newRow("wind") << "Activity over Wind Speed" << QByteArray("Wind Speeds in 2026 [m/s];") << 11;
}

void tst_plotFolderDialog::showsEachTab()
{
    QFETCH(QString, title);
    QFETCH(QByteArray, quantity);
    QFETCH(int, bins);
    int index = 0;
    while (index < tabs()->count() && tabs()->tabText(index) != title)
        ++index;
    QVERIFY(index < tabs()->count());
    tabs()->setCurrentIndex(index);
    QCoreApplication::processEvents();
    const ActivityTable& table = tab(index).plot().table();
    QCOMPARE(table.bins.size(), static_cast<std::size_t>(bins));
    const std::vector<double>& all = table.curves.values.front();
    QVERIFY(std::any_of(all.begin(), all.end(), [](double value) { return value > 0.0; }));
    const QByteArray text = exportedTo(m_output, index);
    QVERIFY(text.startsWith(quantity));
    QCOMPARE(text.count("\r\n"), bins + 1);
    QVERIFY(m_dialog->grab().save(m_output + QStringLiteral("/tab%1.png").arg(index)));
}

void tst_plotFolderDialog::shadesTheNightAtBothEnds()
{
    QwtPlot& plot = tab(0).plot();
    const auto isNight = [&](double seconds) {
        int zones = 0;
        for (const QwtPlotItem* item : plot.itemList(QwtPlotItem::Rtti_PlotZone))
            zones += static_cast<const QwtPlotZoneItem*>(item)->interval().contains(seconds) ? 1 : 0;
        return zones == 1;
    };
    QVERIFY(isNight(23 * 3600) && isNight(26 * 3600) && !isNight(13 * 3600));
    m_dialog->findChild<QCheckBox*>(QStringLiteral("checkBoxCenterNight"))->click();
    QCOMPARE(plot.axisScaleDiv(QwtPlot::xBottom).upperBound(), 86400.0);
    QVERIFY(isNight(23 * 3600) && isNight(2 * 3600) && !isNight(13 * 3600));
    QVERIFY(m_dialog->grab().save(m_output + QStringLiteral("/midnight.png")));
}

void tst_plotFolderDialog::showsNoDataWithoutWeather()
{
    m_settings->setTemperatureFile(m_folder.filePath(QStringLiteral("missing.csv")));
    m_settings->setWindFile(QString());
    open(rowsOf(m_season));
    for (int index = 4; index < 7; ++index) {
        tabs()->setCurrentIndex(index);
        QVERIFY(tab(index).plot().table().bins.empty());
        QVERIFY(!tab(index).plot().grab().isNull());
    }
    QVERIFY(m_dialog->findChild<QLabel*>(QStringLiteral("labelTemperature"))
                ->text()
                .contains(QLatin1String("cannot be opened")));
}

void tst_plotFolderDialog::legendSwitchesCurvesAndColumns()
{
    tabs()->setCurrentIndex(2);
    const QByteArray before = exported(2).split('\r').first();
    QVERIFY(before.startsWith("Month;Valid Hours [h];All Classes [Rec./h];"));
    QVERIFY(before.endsWith(";Unassigned [Rec./h]"));
    for (const char* name : {"Valid Hours", "All Classes", "Unassigned"}) {
        QwtLegendLabel* label = entry(QLatin1String(name));
        QVERIFY2(label != nullptr && label->isChecked(), name);
        QTest::mouseClick(label, Qt::LeftButton);
        QVERIFY(!label->isChecked());
    }
    const QByteArray after = exported(2).split('\r').first();
    QVERIFY(!after.contains("Valid Hours") && !after.contains("All Classes") &&
            !after.contains("Unassigned"));
    QCOMPARE(after.count(';'), before.count(';') - 3);
    QTest::mouseClick(entry(QStringLiteral("Unassigned")), Qt::LeftButton);
    QVERIFY(exported(2).split('\r').first().endsWith(";Unassigned [Rec./h]"));
}

void tst_plotFolderDialog::axisAndZoom()
{
    for (int index = 0; index < 7; ++index) {
        tabs()->setCurrentIndex(index);
        QCoreApplication::processEvents();
        ActivityPlot& plot = tab(index).plot();
        tab(index).findChildren<QComboBox*>().first()->setCurrentIndex(1);
        QVERIFY(plot.axisScaleDiv(QwtPlot::yLeft).lowerBound() > 0.0);
        const auto zoomers = plot.canvas()->findChildren<ClampedZoomer*>();
        QCOMPARE(zoomers.size(), 2);
        for (int step = 0; step < 3; ++step) { // deeper and deeper
            for (ClampedZoomer* zoomer : zoomers) {
                QRectF view = zoomer->zoomRect();
                view.setWidth(view.width() / 4.0);
                view.translate(view.width(), 0.0);
                zoomer->zoom(view);
            }
            const QwtScaleDiv bottom = plot.axisScaleDiv(QwtPlot::xBottom);
            const QwtScaleDiv top = plot.axisScaleDiv(QwtPlot::xTop);
            QCOMPARE(bottom.lowerBound(), top.lowerBound());
            QCOMPARE(bottom.upperBound(), top.upperBound());
            const int ticks = bottom.ticks(QwtScaleDiv::MajorTick).size();
            QVERIFY2(ticks <= 14, qPrintable(QString::number(ticks)));
            QVERIFY2(ticks >= 1 || step == 2, qPrintable(QStringLiteral("%1 %2").arg(index).arg(step)));
        }
        QVERIFY(!plot.grab().isNull());
    }
}

void tst_plotFolderDialog::exportsThePlot_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("begin");
    QTest::newRow("PDF") << "plot.pdf" << QByteArray("%PDF");
    QTest::newRow("SVG") << "plot.svg" << QByteArray("<?xml");
    QTest::newRow("PNG") << "plot.png" << QByteArray("\x89PNG");
    QTest::newRow("no suffix") << "plain" << QByteArray("%PDF");
}

void tst_plotFolderDialog::exportsThePlot()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, begin);
    tabs()->setCurrentIndex(1);
    QTest::mouseClick(entry(QStringLiteral("Noise")), Qt::LeftButton);
    const QString path = m_output + QLatin1Char('/') + name;
    QFile::remove(path); // or the dialog asks
    answerFileDialog(path);
    emit tab(1).exportPlotClicked();
    QFile file(name.contains(QLatin1Char('.')) ? path : path + QStringLiteral(".pdf"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().startsWith(begin));
    // The legend is as it was.
    QVERIFY(entry(QStringLiteral("Noise")) != nullptr && !entry(QStringLiteral("Noise"))->isChecked());
    QVERIFY(entry(QStringLiteral("Ppip"))->isChecked());
}

void tst_plotFolderDialog::tellsOfAFailedExport()
{
    m_prompts.takeAsked();
    const QString path = m_folder.filePath(QStringLiteral("no/such/folder.csv"));
    const QString before = m_settings->exportPath(ActivityKind::Time);
    answerFileDialog(path);
    emit tab(0).exportDataClicked();
    answerFileDialog(path);
    emit tab(0).exportPlotClicked();
    QCOMPARE(m_settings->exportPath(ActivityKind::Time), before);
    const QStringList asked = m_prompts.takeAsked();
    QCOMPARE(asked.size(), 2);
    for (const QString& question : asked)
        QVERIFY(question.endsWith(QLatin1String("|Could not write to file.")));
}

void tst_plotFolderDialog::keepsSettings()
{
    m_dialog->findChild<QSpinBox*>(QStringLiteral("spinBoxStart"))->setValue(-20);
    m_dialog->findChild<QDateEdit*>(QStringLiteral("dateEditStart"))->setDate(QDate(2026, 5, 2));
    QCOMPARE(m_dialog->findChild<QDateEdit*>(QStringLiteral("dateEditStartWind"))->date(), QDate(2026, 5, 2));
    QCOMPARE(tab(0).plot().table().year, 2026);
    m_settings = std::make_unique<ActivitySettings>(m_folder.path(), m_folder.path());
    QCOMPARE(m_settings->monitoring().startMinutes, -20);
    QCOMPARE(m_settings->monitoring().begin, QDate(2026, 5, 2));
    open(rowsOf(m_season));
    tabs()->setCurrentIndex(1);
    QCOMPARE(tab(1).plot().table().bins.front().label, QStringLiteral("02/05/26"));
}

void tst_plotFolderDialog::survivesOddSettings_data()
{
    QTest::addColumn<bool>("hasRows");
    QTest::addColumn<QDate>("end");
    QTest::addColumn<double>("latitude");
    QTest::newRow("no recordings") << false << QDate(2026, 12, 31) << 51.0;
    QTest::newRow("end before begin") << true << QDate(2025, 12, 31) << 51.0;
    QTest::newRow("one day") << true << QDate(2026, 1, 1) << 51.0;
    QTest::newRow("pole") << true << QDate(2026, 12, 31) << 90.0;
}

void tst_plotFolderDialog::survivesOddSettings()
{
    QFETCH(bool, hasRows);
    QFETCH(QDate, end);
    QFETCH(double, latitude);
    MonitoringPlan plan = m_settings->monitoring();
    plan.begin = QDate(2026, 1, 1);
    plan.end = end;
    plan.position.latitude = latitude;
    plan.relative = true;
    m_settings->setMonitoring(plan);
    open(hasRows ? rowsOf(m_season) : std::vector<RecordingRow>());
    for (int index = 0; index < 7; ++index) {
        tabs()->setCurrentIndex(index);
        tab(index).findChildren<QComboBox*>().first()->setCurrentIndex(1);
        QVERIFY(!m_dialog->grab().isNull());
        QVERIFY(!exported(index).isEmpty());
    }
}

QTEST_MAIN(tst_plotFolderDialog)
#include "tst_plotFolderDialog.moc"
