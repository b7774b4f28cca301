#ifndef SONAVIA_APP_FILEACTIONS_H
#define SONAVIA_APP_FILEACTIONS_H

#include <QList>

class QAction;

namespace Ui {
class MainWindow;
}

/// Which menu actions can be used after which event. Holds the form's actions, which outlive it.
class FileActions
{
public:
    explicit FileActions(const Ui::MainWindow& form);

    /// At start: nothing is loaded, so nothing can be exported, copied or plotted.
    void nothingLoaded();
    /// A recording is about to be loaded, or could not be: its plots cannot be exported.
    void setRecordingShown(bool shown);
    /// The list of a folder is complete, or is not (any more).
    void setListComplete(bool complete);
    // Files and folders can be opened when both allow it.
    void setOpeningEnabled(bool enabled); ///< false while the headers of an evaluation are read
    void setRowsInUse(bool inUse);        ///< a run over many files works with the rows

private:
    void updateOpenings();

    QList<QAction*> m_plotExports;
    QList<QAction*> m_listActions;
    QList<QAction*> m_openings;
    bool m_openingEnabled = true;
    bool m_rowsInUse = false;
};

#endif
