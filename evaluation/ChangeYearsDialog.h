#ifndef SONAVIA_EVALUATION_CHANGEYEARSDIALOG_H
#define SONAVIA_EVALUATION_CHANGEYEARSDIALOG_H

#include <QDialog>
#include <QVector>

#include <memory>

namespace Ui {
class ChangeYearsDialog;
}

/// Asks to which of several years all recordings of an export are moved. GUI thread.
class ChangeYearsDialog : public QDialog
{
    Q_OBJECT

public:
    ChangeYearsDialog(QWidget* parent, const QVector<int>& years);
    ~ChangeYearsDialog() override;

    int year() const;

private:
    std::unique_ptr<Ui::ChangeYearsDialog> m_ui;
};

#endif
