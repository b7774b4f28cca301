#ifndef SONAVIA_CLASSES_ROWUPDATER_H
#define SONAVIA_CLASSES_ROWUPDATER_H

#include "recordings/ClassRecord.h"

#include <QElapsedTimer>

class ClassTreePane;
class QTreeWidget;
class QTreeWidgetItem;

/// Brings a row of a file list, its colour, and the counts of the class tree up to date after
/// its record has changed. Only rows of `countedList` count and have colours. Owns nothing. GUI thread.
class RowUpdater
{
public:
    RowUpdater(QTreeWidget& countedList, ClassTreePane& classes);

    void show(QTreeWidgetItem& row, const ClassRecord& record);

    /// Between them `count` rows change, each in show(): the list is not sorted by what changes, and counts
    /// are shown by show() only, now and then.
    void beginRun(int count);
    void endRun();

private:
    QTreeWidget& m_countedList;
    ClassTreePane& m_classes;
    bool m_sortingSuspended = false;
    bool m_inRun = false;
    bool m_manyRows = false; // in a run
    QElapsedTimer m_sinceCounts;
};

#endif
