#ifndef SONAVIA_CLASSES_ASSIGNSECONDCLASSDIALOG_H
#define SONAVIA_CLASSES_ASSIGNSECONDCLASSDIALOG_H

#include <QDialog>

#include <memory>

namespace Ui {
class AssignSecondClassDialog;
}

/// Lets the user choose one class for the selected files.
class AssignSecondClassDialog : public QDialog
{
    Q_OBJECT

public:
    /// Without any name to choose there is only "Cancel".
    AssignSecondClassDialog(const QString& title, const QStringList& classNames, QWidget* parent = nullptr);
    ~AssignSecondClassDialog() override;

    QString className() const;

private:
    std::unique_ptr<Ui::AssignSecondClassDialog> m_ui;
};

#endif
