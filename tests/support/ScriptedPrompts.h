#ifndef SONAVIA_TESTS_SUPPORT_SCRIPTEDPROMPTS_H
#define SONAVIA_TESTS_SUPPORT_SCRIPTEDPROMPTS_H

#include "base/UserPrompts.h"

#include <QMutex>
#include <QStringList>

/// Answers questions from a script and keeps what was asked. Callable from any thread, like the real one.
class ScriptedPrompts : public UserPrompts
{
public:
    Answer ask(const Question& question) override;

    /// The next unanswered question gets this answer; without a script a question gets its preset.
    void willAnswer(Answer answer);

    /// What was asked since the last call, one line each: "icon|title|text".
    QStringList takeAsked();

private:
    QMutex m_mutex;
    QVector<Answer> m_answers;
    QStringList m_asked;
};

#endif
