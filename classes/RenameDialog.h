#ifndef SONAVIA_CLASSES_RENAMEDIALOG_H
#define SONAVIA_CLASSES_RENAMEDIALOG_H

#include <QDialog>

#include <memory>

class UserPrompts;

namespace Ui {
class RenameDialog;
}

/// Asks for another name of a class or subclass. It stays open until the name is not empty and could stand in
/// a class record; whether there is such a class already is the caller's question.
class RenameDialog : public QDialog
{
    Q_OBJECT

public:
    RenameDialog(bool subclass, UserPrompts& prompts, QWidget* parent = nullptr);
    ~RenameDialog() override;

    QString name() const;

    void done(int result) override;

private:
    std::unique_ptr<Ui::RenameDialog> m_ui;
    UserPrompts& m_prompts;
};

#endif
