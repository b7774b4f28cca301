#include "app/MessageBoxPrompts.h"

#include <QMessageBox>
#include <QPushButton>
#include <QSemaphore>
#include <QThread>

#include <algorithm>

struct MessageBoxPrompts::Pending
{
    Question question;
    Answer answer;
    QSemaphore answered;
};

namespace {

UserPrompts::Answer dismissal(const UserPrompts::Question& question)
{
    using Answer = UserPrompts::Answer;
    for (const Answer answer : {Answer::Cancel, Answer::No})
        if (question.answers.contains(answer))
            return answer;
    return question.preset;
}

QPushButton* addButton(QMessageBox& box, UserPrompts::Answer answer)
{
    using Answer = UserPrompts::Answer;
    switch (answer) {
    case Answer::Ok:
        return box.addButton(QMessageBox::Ok);
    case Answer::Cancel:
        return box.addButton(QMessageBox::Cancel);
    case Answer::Yes:
        return box.addButton(QMessageBox::Yes);
    case Answer::No:
        return box.addButton(QMessageBox::No);
    case Answer::Skip:
        return box.addButton(QStringLiteral("Skip"), QMessageBox::AcceptRole);
    case Answer::SkipForAll:
        return box.addButton(QStringLiteral("Skip for all"), QMessageBox::AcceptRole);
    }
    return nullptr;
}

QMessageBox::Icon boxIcon(UserPrompts::Icon icon)
{
    switch (icon) {
    case UserPrompts::Icon::None:
        return QMessageBox::NoIcon;
    case UserPrompts::Icon::Information:
        return QMessageBox::Information;
    case UserPrompts::Icon::Warning:
        return QMessageBox::Warning;
    case UserPrompts::Icon::Critical:
        return QMessageBox::Critical;
    case UserPrompts::Icon::Question:
        return QMessageBox::Question;
    }
    return QMessageBox::NoIcon;
}

} // namespace

MessageBoxPrompts::MessageBoxPrompts(QWidget* window) : m_window(window)
{}

MessageBoxPrompts::~MessageBoxPrompts()
{
    shutDown();
}

UserPrompts::Answer MessageBoxPrompts::ask(const Question& question)
{
    if (QThread::currentThread() == thread())
        return show(question);

    const auto pending = std::make_shared<Pending>();
    pending->question = question;
    pending->answer = dismissal(question);
    {
        const QMutexLocker lock(&m_mutex);
        if (m_closed)
            return pending->answer;
        m_pending.push_back(pending);
    }
    QMetaObject::invokeMethod(
        this, [this, pending] { answerPending(pending); }, Qt::QueuedConnection);
    pending->answered.acquire();
    return pending->answer;
}

void MessageBoxPrompts::answerPending(const std::shared_ptr<Pending>& pending)
{
    const Answer answer = show(pending->question);
    const QMutexLocker lock(&m_mutex);
    // Gone from the list: a shut-down while the box was open has freed the worker already.
    const auto it = std::find(m_pending.begin(), m_pending.end(), pending);
    if (it == m_pending.end())
        return;
    m_pending.erase(it);
    pending->answer = answer;
    pending->answered.release();
}

void MessageBoxPrompts::shutDown()
{
    const QMutexLocker lock(&m_mutex);
    m_closed = true;
    for (const auto& pending : m_pending)
        pending->answered.release();
    m_pending.clear();
}

UserPrompts::Answer MessageBoxPrompts::show(const Question& question)
{
    {
        const QMutexLocker lock(&m_mutex);
        if (m_closed)
            return dismissal(question);
    }
    QMessageBox box(boxIcon(question.icon), question.title, question.text, QMessageBox::NoButton, m_window);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(question.informativeText);
    QVector<QPushButton*> buttons;
    for (const Answer answer : question.answers) {
        buttons.append(addButton(box, answer));
        if (answer == question.preset)
            box.setDefaultButton(buttons.last());
        if (answer == dismissal(question))
            box.setEscapeButton(buttons.last());
    }
    box.exec();
    for (int i = 0; i < buttons.size(); ++i)
        if (buttons.at(i) == box.clickedButton())
            return question.answers.at(i);
    return dismissal(question);
}
