#include "tests/support/MessageBoxWatch.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

#include <utility>

MessageBoxWatch::MessageBoxWatch()
{
    m_timer.setInterval(10);
    QObject::connect(&m_timer, &QTimer::timeout, [this] { answer(); });
    m_timer.start();
}

QStringList MessageBoxWatch::takeShown()
{
    return std::exchange(m_shown, {});
}

void MessageBoxWatch::answer()
{
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box)
        return;
    static const char* const icons[] = {"none", "information", "warning", "critical", "question"};
    m_shown.append(QLatin1String(icons[box->icon()]) + QLatin1Char('|') + box->windowTitle() +
                   QLatin1Char('|') + box->text());
    QPushButton* button = box->defaultButton();
    (button ? button : qobject_cast<QPushButton*>(box->buttons().first()))->click();
}
