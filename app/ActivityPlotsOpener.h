#ifndef SONAVIA_APP_ACTIVITYPLOTSOPENER_H
#define SONAVIA_APP_ACTIVITYPLOTSOPENER_H

#include "evaluation/ListedRows.h"

#include <QObject>

class QWidget;
class UserPrompts;
struct RecordingSession;

/// Opens the activity plots of the listed recordings. GUI thread.
class ActivityPlotsOpener : public QObject
{
    Q_OBJECT

public:
    /// Owns nothing; becomes a child of `window`, which gets the dialog.
    ActivityPlotsOpener(QWidget& window, const ListedRows& rows, const RecordingSession& session,
                        UserPrompts& prompts);

    /// Shows the dialog and returns when it has been closed.
    void open();

private:
    QWidget& m_window;
    ListedRows m_rows;
    const RecordingSession& m_session;
    UserPrompts& m_prompts;
};

#endif
