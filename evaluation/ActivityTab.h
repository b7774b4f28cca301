#ifndef SONAVIA_EVALUATION_ACTIVITYTAB_H
#define SONAVIA_EVALUATION_ACTIVITYTAB_H

#include "evaluation/core/ActivityTable.h"

#include <QWidget>

class ActivityPlot;
class QBoxLayout;
class QComboBox;
class QDateEdit;
class QLabel;

/// One tab of the activity plots: the plot and the controls under it. It
/// tells what the user wants and computes nothing.
class ActivityTab : public QWidget
{
    Q_OBJECT

public:
    explicit ActivityTab(ActivityKind kind, QWidget* parent = nullptr);

    ActivityKind kind() const { return m_kind; }
    ActivityPlot& plot() { return *m_plot; }

    /// Shows the days that are plotted; tells nobody.
    void setDates(const QDate& begin, const QDate& end);

    /// The index in ActivityQuantity::choices(); only the tab over days offers them.
    void setQuantity(int index);

    /// What became of the file with the weather; only the tabs of the weather show it.
    void setFileText(const QString& text);

    /// Leaves that many pixels at the right of the plot to something that lies over the tab.
    void leaveRoom(int width);

signals:
    void datesChanged(const QDate& begin, const QDate& end);
    void quantityChanged(int index);
    void exportPlotClicked();
    void exportDataClicked();
    void defineFileClicked();

private:
    QBoxLayout* addRow();
    QDateEdit* addDateEdit(QBoxLayout& row, const QString& label, const QString& name);
    void addAxisBox(QBoxLayout& row);
    void addExportButtons(QBoxLayout& row);
    void addQuantityBox(QBoxLayout& row);
    void addFileButton(QBoxLayout& row);

    ActivityKind m_kind;
    ActivityPlot* m_plot;
    QDateEdit* m_begin;
    QDateEdit* m_end;
    QComboBox* m_quantity = nullptr;
    QLabel* m_fileText = nullptr;
};

#endif
