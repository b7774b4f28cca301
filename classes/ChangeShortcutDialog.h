#ifndef SONAVIA_CLASSES_CHANGESHORTCUTDIALOG_H
#define SONAVIA_CLASSES_CHANGESHORTCUTDIALOG_H

#include <QDialog>

#include <memory>

namespace Ui {
class ChangeShortcutDialog;
}

/// Lets the user choose another shortcut for a class, out of the free ones, or none.
class ChangeShortcutDialog : public QDialog
{
    Q_OBJECT

public:
    explicit ChangeShortcutDialog(const QStringList& freeShortcuts, QWidget* parent = nullptr);
    ~ChangeShortcutDialog() override;

    QString shortcut() const; ///< "<A>" to "<Z>", or empty

private slots:
    void on_buttonBox_accepted();
    void on_buttonBox_rejected();

private:
    std::unique_ptr<Ui::ChangeShortcutDialog> m_ui;
};

#endif
