#ifndef SONAVIA_BASE_USERPROMPTS_H
#define SONAVIA_BASE_USERPROMPTS_H

#include <QString>
#include <QVector>

/// Messages and questions to the user, as an interface: logic and workers ask through it and know no widget.
///
/// Callable from any thread. The program's implementation shows message boxes on the GUI thread and lets a
/// calling worker wait for the answer; tests answer from a script.
class UserPrompts
{
public:
    enum class Icon { None, Information, Warning, Critical, Question };
    enum class Answer { Ok, Cancel, Yes, No, Skip, SkipForAll };

    struct Question
    {
        Icon icon = Icon::None;
        QString title;
        QString text;
        QString informativeText = QString();
        QVector<Answer> answers = {Answer::Ok}; ///< the buttons, in order
        Answer preset = Answer::Ok;             ///< the default button
    };

    UserPrompts() = default;
    UserPrompts(const UserPrompts&) = delete;
    UserPrompts& operator=(const UserPrompts&) = delete;
    virtual ~UserPrompts();

    /// Shows the question and returns when it has been answered. Closing the box answers Cancel where that is
    /// offered, else No, else the preset.
    virtual Answer ask(const Question& question) = 0;

    // Boxes with an "OK" button only.
    void inform(const QString& title, const QString& text);
    void warn(const QString& title, const QString& text);
    void fail(const QString& title, const QString& text);
};

#endif
