#ifndef SONAVIA_CLASSES_INSERTITEMDIALOG_H
#define SONAVIA_CLASSES_INSERTITEMDIALOG_H

#include <QDialog>

#include <memory>

class UserPrompts;

namespace Ui {
class InsertItemDialog;
}

/// Asks for the name and the shortcut of a new class or subclass. It stays open until the name is not empty
/// and could stand in a class record; whether there is such a class already is the caller's question.
class InsertItemDialog : public QDialog
{
    Q_OBJECT

public:
    InsertItemDialog(bool subclass, const QStringList& freeShortcuts, UserPrompts& prompts,
                     QWidget* parent = nullptr);
    ~InsertItemDialog() override;

    QString name() const;
    QString shortcut() const; ///< "<A>" to "<Z>", or empty

    void done(int result) override;

private:
    std::unique_ptr<Ui::InsertItemDialog> m_ui;
    UserPrompts& m_prompts;
};

#endif
