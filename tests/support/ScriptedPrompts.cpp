#include "tests/support/ScriptedPrompts.h"

#include <utility>

UserPrompts::Answer ScriptedPrompts::ask(const Question& question)
{
    static const char* const icons[] = {"none", "information", "warning", "critical", "question"};
    const QMutexLocker lock(&m_mutex);
    m_asked.append(QLatin1String(icons[static_cast<int>(question.icon)]) + QLatin1Char('|') + question.title +
                   QLatin1Char('|') + question.text);
    return m_answers.isEmpty() ? question.preset : m_answers.takeFirst();
}

void ScriptedPrompts::willAnswer(Answer answer)
{
    const QMutexLocker lock(&m_mutex);
    m_answers.append(answer);
}

QStringList ScriptedPrompts::takeAsked()
{
    const QMutexLocker lock(&m_mutex);
    return std::exchange(m_asked, {});
}
