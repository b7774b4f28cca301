#include "app/ActivityPlotsOpener.h"

#include "evaluation/core/ActivitySettings.h"
#include "evaluation/plotFolderDialog.h"
#include "recordings/RecordingSession.h"

#include <QScreen>

ActivityPlotsOpener::ActivityPlotsOpener(QWidget& window, const ListedRows& rows,
                                         const RecordingSession& session, UserPrompts& prompts)
    : QObject(&window), m_window(window), m_rows(rows), m_session(session), m_prompts(prompts)
{}

void ActivityPlotsOpener::open()
{
    const QVector<RecordingRow> rows = m_rows.all();
    ActivitySettings settings;
    plotFolderDialog dialog(m_session.folder, {rows.cbegin(), rows.cend()}, settings, m_prompts, &m_window);
    dialog.setWindowTitle(m_session.viewMode == 1 ? QStringLiteral("Activity Plots")
                                                  : QStringLiteral("Activity Plot"));
    if (const QScreen* screen = m_window.screen())
        dialog.resize(
            dialog.size().expandedTo(dialog.sizeHint()).boundedTo(screen->availableSize() * 19 / 20));
    dialog.exec();
}
