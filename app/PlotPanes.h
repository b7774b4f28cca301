#ifndef SONAVIA_APP_PLOTPANES_H
#define SONAVIA_APP_PLOTPANES_H

#include <QObject>

class SettingsStore;

namespace Ui {
class MainWindow;
}

/// Shows and hides the panes of the axis plots and the lists, and keeps the time plot as wide as the
/// spectrogram below it. Holds the form, which outlives it. GUI thread.
class PlotPanes : public QObject
{
    Q_OBJECT

public:
    PlotPanes(const Ui::MainWindow& form, SettingsStore& settings, QObject* parent);

    /// Each stores its setting, then shows or hides.
    void setTimePlotShown(bool shown);
    void setFrequencyPlotShown(bool shown);

    /// Shows the panes as the settings say.
    void restore();

    /// The lists of view mode 0 are empty and leave their room to the plots.
    void showListsOf(int viewMode);

    /// Keeps the free space beside the time plot as wide as the pane of the frequency plot.
    void align();

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void showTimePlot(bool shown);
    void showFrequencyPlot(bool shown);

    const Ui::MainWindow& m_form;
    SettingsStore& m_settings;
};

#endif
