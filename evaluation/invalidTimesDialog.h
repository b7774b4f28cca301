#ifndef SONAVIA_EVALUATION_INVALIDTIMESDIALOG_H
#define SONAVIA_EVALUATION_INVALIDTIMESDIALOG_H

#include <QDialog>

#include <memory>

class QDateTimeEdit;
class QTreeWidgetItem;
struct InvalidPeriod;

namespace Ui {
class invalidTimesDialog;
}

/// Edits the list of periods in which a recorder did not work. Periods are text as invalidPeriods() reads it,
/// in the time of the recorder's clock. GUI thread only.
class invalidTimesDialog : public QDialog
{
    Q_OBJECT

public:
    invalidTimesDialog(QWidget* parent, const QString& invalidTimes);
    ~invalidTimesDialog() override;

    /// What was accepted with OK; before that, what the dialog was opened with.
    QString invalidTimes() const { return m_invalidTimes; }

public slots:
    void on_pushButton_clicked();   ///< adds a period
    void on_pushButton_2_clicked(); ///< deletes the selected one
    void on_pushButton_3_clicked(); ///< deletes all
    void on_buttonBox_accepted();
    /// Keeps the end of the sender's row from being earlier than its begin.
    void beginTimeChanged();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void addRow(const InvalidPeriod& period);
    QDateTimeEdit* makeEditor(const QDateTime& time);
    QDateTimeEdit* editorOf(QTreeWidgetItem* item, int column) const;

    std::unique_ptr<Ui::invalidTimesDialog> m_ui;
    QString m_invalidTimes;
};

#endif
