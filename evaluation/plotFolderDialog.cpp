#include "evaluation/plotFolderDialog.h"

#include "base/UserPrompts.h"
#include "evaluation/ActivityPlot.h"
#include "evaluation/ActivityTab.h"
#include "evaluation/ClassColorsDialog.h"
#include "evaluation/LoadWindDialog.h"
#include "evaluation/core/ActivitySettings.h"
#include "evaluation/core/CurveColors.h"
#include "evaluation/core/ExportFile.h"
#include "evaluation/core/TimeZoneChoice.h"
#include "evaluation/invalidTimesDialog.h"
#include "evaluation/zoneBox.h"
#include "ui_plotFolderDialog.h"

#include <QFileDialog>
#include <QImageWriter>
#include <QProgressDialog>
#include <QScrollBar>
#include <QTabBar>
#include <qwt_legend.h>

#include <algorithm>

namespace {

using Dialog = plotFolderDialog;

/// The slots that the plots of a kind are connected to, by name.
struct TabSlots
{
    void (Dialog::*zoomed)(const QRectF&);
    void (Dialog::*legendChecked)(const QVariant&, bool);
    void (Dialog::*plotFunction)(bool, bool);
    void (Dialog::*initPlot)();
    const char* exportName;
    const char* noData;
};

const TabSlots& slotsOf(ActivityKind kind)
{
    static const TabSlots table[] = {
        {&Dialog::zoomed, &Dialog::legendChecked, &Dialog::plotFunctionVsTime, &Dialog::initPlotVsTime,
         "/activityOverTime.pdf", ""},
        {&Dialog::zoomedVsDays, &Dialog::legendVsDaysChecked, &Dialog::plotFunctionVsDays,
         &Dialog::initPlotVsDays, "/activityOverDays.pdf", ""},
        {&Dialog::zoomedVsMonth, &Dialog::legendVsMonthChecked, &Dialog::plotFunctionVsMonth,
         &Dialog::initPlotVsMonth, "/activityOverMonth.pdf", ""},
        {&Dialog::zoomedVsNight, &Dialog::legendVsNightChecked, &Dialog::plotFunctionVsNight,
         &Dialog::initPlotVsNight, "/activityOverNightTime.pdf", ""},
        {&Dialog::zoomedVsTemp, &Dialog::legendVsTempChecked, &Dialog::plotFunctionVsTemp,
         &Dialog::initPlotVsTemp, "/activityOverTemperature.pdf",
         "No Temperature Data available\nPlease Define Temperature Data File"},
        {&Dialog::zoomedVsPrec, &Dialog::legendVsPrecChecked, &Dialog::plotFunctionVsPrec,
         &Dialog::initPlotVsPrec, "/activityOverPrecipitation.pdf",
         "No Precipitation Data available\nPlease Define Precipitation Data File"},
        {&Dialog::zoomedVsWind, &Dialog::legendVsWindChecked, &Dialog::plotFunctionVsWind,
         &Dialog::initPlotVsWind, "/activityOverWindSpeed.pdf",
         "No Wind Speed Data available\nPlease Define Wind Speed Data File"}};
    return table[static_cast<int>(kind)];
}

/// Shown when something takes long.
class WaitBox : public QProgressDialog
{
public:
    WaitBox(const QString& text, const QString& cancelText, QWidget* parent)
        : QProgressDialog(text, cancelText, 0, 1000, parent) // events come in at every step
    {
        setWindowTitle(QStringLiteral("Please wait"));
        setWindowModality(Qt::WindowModal);
        setMinimumDuration(200);
        setValue(0);
    }
    bool advance(double share)
    {
        setValue(static_cast<int>(share * 1000.0));
        return !wasCanceled();
    }
};

QString waitText(ActivityKind kind, const ActivityQuantity& quantity)
{
    if (kind != ActivityKind::Days || quantity.kind == ActivityQuantity::Kind::RecordingsPerHour)
        return QStringLiteral("Calculating activities...");
    return quantity.minutes > 0 ? QStringLiteral("Calculating events...")
                                : QStringLiteral("Calculating files per day...");
}

QString plotFilter()
{
    QString images = QStringLiteral("Images (");
    for (const QByteArray& suffix : QImageWriter::supportedImageFormats())
        images += QStringLiteral(" *.") + QString::fromLatin1(suffix);
    return QStringList{QStringLiteral("PDF documents (*.pdf)"), QStringLiteral("SVG documents (*.svg)"),
                       images + QLatin1Char(')')}
        .join(QStringLiteral(";;"));
}

QDate inYear(const QDate& date, int year)
{
    return date.addYears(year - date.year());
}

QString fileText(const QString& path, const WeatherRead& read)
{
    if (!read.isOpened)
        return QStringLiteral("%1: the file cannot be opened.").arg(QFileInfo(path).fileName());
    return QFileInfo(path).fileName() + QStringLiteral(": ") + read.text() +
           (read.isComplete ? QString() : QStringLiteral(" Reading was stopped."));
}

} // namespace

plotFolderDialog::plotFolderDialog(const QString& folder, const std::vector<RecordingRow>& rows,
                                   ActivitySettings& settings, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent),
      m_ui(std::make_unique<Ui::plotFolderDialog>()),
      m_folder(folder),
      m_settings(settings),
      m_prompts(prompts),
      m_model(rows)
{
    m_ui->setupUi(this);
    setWindowTitle(QStringLiteral("Activity Plots"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    m_ui->buttonBox->button(QDialogButtonBox::Close)->setAutoDefault(false); // Return ends a date or number
    addTabs();
    showSettings();
    placeSettings();
    connectSettings();
    applyPlan();
}

plotFolderDialog::~plotFolderDialog() = default;

QColor plotFolderDialog::makeColor(int i)
{
    return curveColor(i);
}

void plotFolderDialog::addTabs()
{
    for (int i = 0; i < kindCount; ++i) {
        const auto kind = static_cast<ActivityKind>(i);
        m_tabs[i] = new ActivityTab(kind);
        m_ui->tabWidget->addTab(m_tabs[i], activityTitle(kind));
        (this->*slotsOf(kind).initPlot)();
        connectTab(m_tabs[i]);
    }
    connect(m_ui->tabWidget, &QTabWidget::currentChanged, this, &plotFolderDialog::refresh);
}

/// The settings lie over the right part of each tab, so that the names of the tabs have the whole width.
void plotFolderDialog::placeSettings()
{
    m_ui->labelInvalidTimes->setMinimumWidth(
        fontMetrics().horizontalAdvance(QStringLiteral("00.00.0000 00:00-00.00.0000 00:00")));
    m_ui->gridLayout->setRowMinimumHeight(0, m_ui->tabWidget->tabBar()->sizeHint().height());
    const int scrollBar = m_ui->scrollArea->verticalScrollBar()->sizeHint().width();
    m_ui->scrollArea->setFixedWidth(m_ui->settingsPane->minimumSizeHint().width() + scrollBar);
    m_ui->scrollArea->viewport()->setAutoFillBackground(false); // one surface with the tab
    m_ui->settingsPane->setAutoFillBackground(false);
    m_ui->settings->raise();
    for (ActivityTab* each : m_tabs)
        each->leaveRoom(m_ui->settings->sizeHint().width());
}

void plotFolderDialog::connectTab(ActivityTab* tab)
{
    const ActivityKind kind = tab->kind();
    const TabSlots& names = slotsOf(kind);
    connect(&tab->plot(), &ActivityPlot::zoomed, this, names.zoomed);
    connect(&tab->plot().plotLegend(), &QwtLegend::checked, this, names.legendChecked);
    connect(tab, &ActivityTab::datesChanged, this, &plotFolderDialog::datesChanged);
    connect(tab, &ActivityTab::quantityChanged, this, [this](int index) {
        m_settings.setDaysQuantity(index);
        plotFunctionVsDays();
    });
    connect(tab, &ActivityTab::exportPlotClicked, this, [this, kind] { exportPlot(kind); });
    connect(tab, &ActivityTab::exportDataClicked, this,
            [this, kind] { (this->*slotsOf(kind).plotFunction)(false, true); });
    connect(tab, &ActivityTab::defineFileClicked, this,
            kind == ActivityKind::WindSpeed ? &plotFolderDialog::defineWindFile
                                            : &plotFolderDialog::defineTemperatureFile);
}

void plotFolderDialog::showSettings()
{
    m_plan = m_settings.monitoring();
    fillZoneBox(*m_ui->comboBoxZone);
    m_ui->comboBoxTwilight->addItems(ActivitySettings::twilightNames());
    m_ui->comboBoxTwilight->setCurrentIndex(m_settings.twilight());
    m_ui->checkBoxCenterNight->setChecked(m_settings.centerNight());
    m_ui->spinBoxLatitude->setValue(m_plan.position.latitude);
    m_ui->spinBoxLongitude->setValue(m_plan.position.longitude);
    m_ui->comboBoxZone->setCurrentIndex(TimeZoneChoice::indexOf(m_plan.zone));
    m_ui->checkBoxDaylight->setChecked(m_plan.daylightSaving);
    m_ui->comboBoxPeriodType->setCurrentIndex(m_plan.relative ? 1 : 0);
    m_ui->timeEditStart->setTime(m_plan.dailyStart);
    m_ui->timeEditStop->setTime(m_plan.dailyStop);
    m_ui->spinBoxStart->setValue(m_plan.startMinutes);
    m_ui->spinBoxStop->setValue(m_plan.stopMinutes);
    tab(ActivityKind::Days).setQuantity(m_settings.daysQuantity());
    showYears();
}

/// Plots of years without recordings would be empty: then the newest one is shown.
void plotFolderDialog::showYears()
{
    const std::vector<int>& years = m_model.recordings().years();
    for (const int year : years)
        m_ui->comboBoxYear->addItem(QString::number(year), year);
    const bool hasRecordings = std::any_of(years.begin(), years.end(), [this](int year) {
        return year >= m_plan.begin.year() && year <= std::max(m_plan.begin, m_plan.end).year();
    });
    if (!hasRecordings && !years.empty())
        moveToYear(years.front());
}

/// A season over New Year stays one.
void plotFolderDialog::moveToYear(int year)
{
    const bool hasDays = m_plan.begin <= m_plan.end;
    m_plan.begin = inYear(m_plan.begin, year);
    m_plan.end = inYear(m_plan.end, year);
    if (hasDays && m_plan.end < m_plan.begin)
        m_plan.end = inYear(m_plan.end, year + 1);
}

void plotFolderDialog::connectSettings()
{
    const auto changed = &plotFolderDialog::settingsChanged;
    for (QDoubleSpinBox* box : {m_ui->spinBoxLatitude, m_ui->spinBoxLongitude})
        connect(box, qOverload<double>(&QDoubleSpinBox::valueChanged), this, changed);
    for (QSpinBox* box : {m_ui->spinBoxStart, m_ui->spinBoxStop})
        connect(box, qOverload<int>(&QSpinBox::valueChanged), this, changed);
    for (QComboBox* box : {m_ui->comboBoxZone, m_ui->comboBoxTwilight, m_ui->comboBoxPeriodType})
        connect(box, qOverload<int>(&QComboBox::activated), this, changed);
    for (QTimeEdit* edit : {m_ui->timeEditStart, m_ui->timeEditStop})
        connect(edit, &QTimeEdit::timeChanged, this, changed);
    for (QCheckBox* box : {m_ui->checkBoxDaylight, m_ui->checkBoxCenterNight})
        connect(box, &QCheckBox::clicked, this, changed);
    connect(m_ui->comboBoxYear, qOverload<int>(&QComboBox::activated), this, &plotFolderDialog::yearChosen);
    connect(m_ui->pushButtonInvalidTimes, &QPushButton::clicked, this, &plotFolderDialog::editInvalidTimes);
    connect(m_ui->pushButtonColors, &QPushButton::clicked, this, &plotFolderDialog::editColors);
}

void plotFolderDialog::settingsChanged()
{
    m_plan.position = {m_ui->spinBoxLatitude->value(), m_ui->spinBoxLongitude->value()};
    if (sender() == m_ui->comboBoxZone) // the box has one zone of each name, which may not be the stored one
        m_plan.zone = selectedZone(*m_ui->comboBoxZone);
    m_plan.daylightSaving = m_ui->checkBoxDaylight->isChecked();
    m_plan.relative = m_ui->comboBoxPeriodType->currentIndex() == 1;
    m_plan.dailyStart = m_ui->timeEditStart->time();
    m_plan.dailyStop = m_ui->timeEditStop->time();
    m_plan.startMinutes = m_ui->spinBoxStart->value();
    m_plan.stopMinutes = m_ui->spinBoxStop->value();
    m_plan.twilight = m_ui->comboBoxTwilight->currentText();
    m_settings.setTwilight(m_ui->comboBoxTwilight->currentIndex());
    m_settings.setCenterNight(m_ui->checkBoxCenterNight->isChecked());
    m_settings.setMonitoring(m_plan);
    applyPlan();
}

void plotFolderDialog::datesChanged(const QDate& begin, const QDate& end)
{
    m_plan.begin = begin;
    m_plan.end = end;
    settingsChanged();
}

void plotFolderDialog::yearChosen()
{
    moveToYear(m_ui->comboBoxYear->currentData().toInt());
    settingsChanged();
}

void plotFolderDialog::applyPlan()
{
    m_plan.year = m_plan.begin.year();
    m_hasNewPlan = true;
    showPlan();
    m_isCurrent.fill(false);
    refresh();
}

void plotFolderDialog::showPlan()
{
    for (ActivityTab* each : m_tabs)
        each->setDates(m_plan.begin, m_plan.end);
    m_ui->comboBoxYear->setCurrentIndex(m_ui->comboBoxYear->findData(m_plan.year));
    for (QWidget* edit : {m_ui->timeEditStart, m_ui->timeEditStop})
        edit->setEnabled(!m_plan.relative);
    for (QWidget* box : {m_ui->spinBoxStart, m_ui->spinBoxStop})
        box->setEnabled(m_plan.relative);
    m_ui->labelInvalidTimes->setText(
        QStringLiteral("Invalid Periods:\n") +
        QString(m_plan.invalidTimes).replace(QLatin1Char(';'), QLatin1Char('\n')));
}

void plotFolderDialog::initPlot(ActivityKind kind)
{
    ActivityPlot& plot = tab(kind).plot();
    plot.initialise(m_model.recordings().curveNames());
    plot.setColors(m_settings.classColors());
}

void plotFolderDialog::plotFunction(ActivityKind kind, bool init, bool exportData)
{
    if (init)
        initPlot(kind);
    if (!exportData || !m_isCurrent[static_cast<std::size_t>(kind)])
        compute(kind);
    if (exportData)
        this->exportData(kind);
}

/// Waiting boxes let events in: what arrives in between is computed afterwards.
void plotFolderDialog::compute(ActivityKind kind)
{
    if (m_isBusy) {
        m_isCurrent[static_cast<std::size_t>(kind)] = false;
        return;
    }
    m_isBusy = true;
    if (m_hasNewPlan)
        m_model.setPlan(m_plan);
    m_hasNewPlan = false;
    loadWeather(kind);
    m_isCurrent[static_cast<std::size_t>(kind)] = true;
    ActivityPlot& plot = tab(kind).plot();
    if (m_model.hasData(kind)) {
        const ActivityQuantity quantity = kind == ActivityKind::Days
                                              ? ActivityQuantity::choices().at(m_settings.daysQuantity())
                                              : ActivityQuantity();
        WaitBox box(waitText(kind, quantity), QString(), this);
        plot.showTable(m_model.table(kind, m_ui->checkBoxCenterNight->isChecked(), quantity,
                                     [&](double share) { box.advance(share); }),
                       quantity.text());
        if (kind == ActivityKind::Time)
            plot.showTwilight(m_model.twilight(m_plan.twilight), m_plan.twilight);
    } else {
        plot.showMessage(QLatin1String(slotsOf(kind).noData));
    }
    m_isBusy = false;
    if (!m_isCurrent[static_cast<std::size_t>(m_ui->tabWidget->currentIndex())])
        QMetaObject::invokeMethod(
            this, [this] { refresh(); }, Qt::QueuedConnection);
}

void plotFolderDialog::refresh()
{
    const int index = m_ui->tabWidget->currentIndex();
    if (!m_isCurrent[static_cast<std::size_t>(index)])
        (this->*slotsOf(static_cast<ActivityKind>(index)).plotFunction)(false, false);
}

void plotFolderDialog::exportData(ActivityKind kind)
{
    const QString path =
        QFileDialog::getSaveFileName(this, QStringLiteral("Plot Data Export File"),
                                     m_settings.exportPath(kind), QStringLiteral("CSV Files (*.csv)"));
    if (path.isEmpty())
        return;
    ActivityPlot& plot = tab(kind).plot();
    ActivityTable table = plot.table();
    table.year = m_plan.year;
    if (ExportFile::write(path, table.text(plot.shownColumns())))
        m_settings.setExportPath(kind, path);
    else
        m_prompts.fail(QStringLiteral("Error"), ExportFile::failureText());
}

void plotFolderDialog::exportPlot(ActivityKind kind)
{
    const QString path = askPlotFile(m_folder + QLatin1String(slotsOf(kind).exportName));
    if (!path.isEmpty() && !tab(kind).plot().exportTo(path))
        m_prompts.fail(QStringLiteral("Error"), ExportFile::failureText());
}

/// A name without a suffix gets that of the filter before the user is asked whether to overwrite the file.
QString plotFolderDialog::askPlotFile(const QString& proposal)
{
    QFileDialog dialog(this, QStringLiteral("Export File Name"), QFileInfo(proposal).path(), plotFilter());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.selectFile(proposal);
    dialog.setDefaultSuffix(QStringLiteral("pdf"));
    connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString& filter) {
        const bool isImage = filter.startsWith(QLatin1String("Images"));
        dialog.setDefaultSuffix(isImage ? QStringLiteral("png") : filter.left(3).toLower());
    });
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().constFirst() : QString();
}

void plotFolderDialog::editInvalidTimes()
{
    invalidTimesDialog dialog(this, m_plan.invalidTimes);
    if (dialog.exec() != QDialog::Accepted)
        return;
    m_plan.invalidTimes = dialog.invalidTimes();
    settingsChanged();
}

void plotFolderDialog::editColors()
{
    QMap<QString, QColor> colors = m_settings.classColors();
    const QStringList names =
        m_model.recordings().curveNames().mid(1, m_model.recordings().curveNames().size() - 2);
    QVector<ClassColorsDialog::Entry> entries;
    for (int i = 0; i < names.size(); ++i)
        entries.append({names.at(i), colors.value(names.at(i), makeColor(i))});
    ClassColorsDialog dialog(entries, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QMap<QString, QColor> changed = dialog.changedColors();
    for (auto color = changed.begin(); color != changed.end(); ++color)
        colors.insert(color.key(), color.value());
    m_settings.setClassColors(colors);
    for (ActivityTab* each : m_tabs)
        each->plot().setColors(colors);
}

/// The first one is likely to lie with the recordings.
QString plotFolderDialog::askWeatherFile(const QString& title, const QString& present)
{
    return QFileDialog::getOpenFileName(this, title, present.isEmpty() ? m_folder : present);
}

void plotFolderDialog::defineTemperatureFile()
{
    const QString path = askWeatherFile(QStringLiteral("Define Temperature and Precipitation Data File"),
                                        m_settings.temperatureFile());
    if (path.isEmpty())
        return;
    m_settings.setTemperatureFile(path);
    m_hasReadTemperature = false;
    readTemperatureFile();
    applyPlan();
}

void plotFolderDialog::defineWindFile()
{
    const QString path = askWeatherFile(QStringLiteral("Define Wind Speed Data File"), m_settings.windFile());
    if (path.isEmpty() || LoadWindDialog(this, path, m_settings).exec() != QDialog::Accepted)
        return;
    m_settings.setWindFile(path);
    m_hasReadWind = false;
    readWindFile();
    applyPlan();
}

/// The files are read when they are first needed.
void plotFolderDialog::loadWeather(ActivityKind kind)
{
    if (kind == ActivityKind::Temperature || kind == ActivityKind::Precipitation)
        readTemperatureFile();
    else if (kind == ActivityKind::WindSpeed)
        readWindFile();
}

void plotFolderDialog::readTemperatureFile()
{
    const QString path = m_settings.temperatureFile();
    if (m_hasReadTemperature || path.isEmpty())
        return;
    m_hasReadTemperature = true;
    WaitBox box(QStringLiteral("Reading weather data..."), QStringLiteral("Cancel"), this);
    WeatherRead read = WeatherFile::readTemperature(path, [&](double share) { return box.advance(share); });
    tab(ActivityKind::Temperature).setFileText(fileText(path, read));
    tab(ActivityKind::Precipitation).setFileText(fileText(path, read));
    m_model.setTemperature(std::move(read));
}

void plotFolderDialog::readWindFile()
{
    const QString path = m_settings.windFile();
    if (m_hasReadWind || path.isEmpty())
        return;
    m_hasReadWind = true;
    WaitBox box(QStringLiteral("Reading weather data..."), QStringLiteral("Cancel"), this);
    WeatherRead read = WeatherFile::readWind(path, m_settings.windFormat(),
                                             [&](double share) { return box.advance(share); });
    tab(ActivityKind::WindSpeed).setFileText(fileText(path, read));
    m_model.setWind(std::move(read), m_settings.windZone(), m_settings.windDaylightSaving());
}
