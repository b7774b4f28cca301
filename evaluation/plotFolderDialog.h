#ifndef SONAVIA_EVALUATION_PLOTFOLDERDIALOG_H
#define SONAVIA_EVALUATION_PLOTFOLDERDIALOG_H

#include "evaluation/core/ActivityModel.h"

#include <QColor>
#include <QDialog>

#include <array>
#include <memory>

class ActivitySettings;
class ActivityTab;
class UserPrompts;

namespace Ui {
class plotFolderDialog;
}

/// The activity plots of a list of recordings, a tab for each of seven quantities, with the settings that
/// they share beside them. What is plotted comes from ActivityModel, on the GUI thread and only for the tab
/// in sight; each change of a setting is stored at once. GUI thread only.
class plotFolderDialog : public QDialog
{
    Q_OBJECT

public:
    /// Plots of `rows`, which are not kept; plots are exported to `folder` at first. `settings` and `prompts`
    /// have to outlive the dialog.
    plotFolderDialog(const QString& folder, const std::vector<RecordingRow>& rows, ActivitySettings& settings,
                     UserPrompts& prompts, QWidget* parent = nullptr);
    ~plotFolderDialog() override;

    /// The colour of the i-th class curve that has none of its own.
    static QColor makeColor(int i);

    void initPlotVsTime() { initPlot(ActivityKind::Time); }
    void initPlotVsDays() { initPlot(ActivityKind::Days); }
    void initPlotVsNight() { initPlot(ActivityKind::NightTime); }
    void initPlotVsMonth() { initPlot(ActivityKind::Months); }
    void initPlotVsTemp() { initPlot(ActivityKind::Temperature); }
    void initPlotVsPrec() { initPlot(ActivityKind::Precipitation); }
    void initPlotVsWind() { initPlot(ActivityKind::WindSpeed); }

    // Compute and draw a plot, after making its curves where `init` is set; with `exportData` write its table
    // instead.
    void plotFunctionVsTime(bool init = false, bool exportData = false);
    void plotFunctionVsDays(bool init = false, bool exportData = false);
    void plotFunctionVsNight(bool init = false, bool exportData = false);
    void plotFunctionVsMonth(bool init = false, bool exportData = false);
    void plotFunctionVsTemp(bool init = false, bool exportData = false);
    void plotFunctionVsPrec(bool init = false, bool exportData = false);
    void plotFunctionVsWind(bool init = false, bool exportData = false);

public slots:
    void zoomed(const QRectF& view);
    void zoomedVsDays(const QRectF& view);
    void zoomedVsNight(const QRectF& view);
    void zoomedVsMonth(const QRectF& view);
    void zoomedVsTemp(const QRectF& view);
    void zoomedVsPrec(const QRectF& view);
    void zoomedVsWind(const QRectF& view);

    void legendChecked(const QVariant& entry, bool on);
    void legendVsDaysChecked(const QVariant& entry, bool on);
    void legendVsNightChecked(const QVariant& entry, bool on);
    void legendVsMonthChecked(const QVariant& entry, bool on);
    void legendVsTempChecked(const QVariant& entry, bool on);
    void legendVsPrecChecked(const QVariant& entry, bool on);
    void legendVsWindChecked(const QVariant& entry, bool on);

private:
    static constexpr int kindCount = 7;

    ActivityTab& tab(ActivityKind kind) const { return *m_tabs[static_cast<std::size_t>(kind)]; }
    void addTabs();
    void connectTab(ActivityTab* tab);
    void showSettings();
    void placeSettings();
    void showYears();
    void connectSettings();

    void settingsChanged();
    void datesChanged(const QDate& begin, const QDate& end);
    void yearChosen();
    void moveToYear(int year);
    void applyPlan();
    void showPlan();

    void initPlot(ActivityKind kind);
    void plotFunction(ActivityKind kind, bool init, bool exportData);
    void compute(ActivityKind kind);
    void refresh();
    void exportData(ActivityKind kind);
    void exportPlot(ActivityKind kind);
    QString askPlotFile(const QString& proposal);

    void editInvalidTimes();
    void editColors();
    QString askWeatherFile(const QString& title, const QString& present);
    void defineTemperatureFile();
    void defineWindFile();
    void loadWeather(ActivityKind kind);
    void readTemperatureFile();
    void readWindFile();

    std::unique_ptr<Ui::plotFolderDialog> m_ui;
    QString m_folder;
    ActivitySettings& m_settings;
    UserPrompts& m_prompts;
    ActivityModel m_model;
    MonitoringPlan m_plan;
    std::array<ActivityTab*, kindCount> m_tabs{};
    std::array<bool, kindCount> m_isCurrent{}; ///< the plot shows what the settings say
    bool m_hasNewPlan = true;                  ///< that the model does not know yet
    bool m_isBusy = false;
    bool m_hasReadTemperature = false;
    bool m_hasReadWind = false;
};

#endif
