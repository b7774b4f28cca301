#ifndef SONAVIA_CLASSES_CLASSNAMEEDIT_H
#define SONAVIA_CLASSES_CLASSNAMEEDIT_H

#include <QLineEdit>

class UserPrompts;

/// The editor of a class name. It takes no character that would break the class record of a file; where it
/// refuses one, a tool tip says what a name may hold. GUI thread.
class ClassNameEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit ClassNameEdit(QWidget* parent = nullptr);

    /// Without blanks around it. May be empty.
    QString name() const { return text().trimmed(); }
    /// Whether the name can be taken; else the user is told why, and the editor has the focus.
    bool confirm(UserPrompts& prompts);

private:
    void explain();
};

#endif
