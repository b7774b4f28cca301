#ifndef SONAVIA_APP_MESSAGEBOXPROMPTS_H
#define SONAVIA_APP_MESSAGEBOXPROMPTS_H

#include "base/UserPrompts.h"

#include <QMutex>
#include <QObject>

#include <memory>
#include <vector>

class QWidget;

/// The program's prompts: modal message boxes over the main window.
///
/// Lives in the GUI thread. A worker that asks waits until the user has answered on the GUI thread;
/// shutDown() frees workers that still wait.
class MessageBoxPrompts : public QObject, public UserPrompts
{
    Q_OBJECT

public:
    /// The boxes are modal to `window`, which is not owned and outlives this object.
    explicit MessageBoxPrompts(QWidget* window);
    ~MessageBoxPrompts() override;

    Answer ask(const Question& question) override;

    /// From now on nothing is shown and every question, waiting ones included, counts as dismissed. GUI
    /// thread.
    void shutDown();

private:
    struct Pending;

    Answer show(const Question& question);
    void answerPending(const std::shared_ptr<Pending>& pending);

    QWidget* m_window;
    QMutex m_mutex;
    bool m_closed = false;                           // guarded by m_mutex
    std::vector<std::shared_ptr<Pending>> m_pending; // guarded by m_mutex
};

#endif
