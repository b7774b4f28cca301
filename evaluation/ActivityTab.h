#ifndef SONAVIA_EVALUATION_ACTIVITYTAB_H
#define SONAVIA_EVALUATION_ACTIVITYTAB_H

#include "evaluation/core/ActivityTable.h"

#include <QWidget>

class ActivityPlot;
class QComboBox;
class QDateEdit;

/// One tab of the activity plots: the plot and the controls under it. It tells what the user wants and
/// computes nothing.
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

signals:
    void datesChanged(const QDate& begin, const QDate& end);
    void quantityChanged(int index);
    void exportPlotClicked();
    void exportDataClicked();

private:
    QDateEdit* addDateEdit(const QString& label, const QString& name);
    void addAxisBox();
    void addQuantityBox();

    ActivityKind m_kind;
    ActivityPlot* m_plot;
    QWidget* m_controls;
    QDateEdit* m_begin;
    QDateEdit* m_end;
    QComboBox* m_quantity = nullptr;
};

#endif
