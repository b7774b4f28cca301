#ifndef SONAVIA_EVALUATION_LISTEDROWS_H
#define SONAVIA_EVALUATION_LISTEDROWS_H

#include "recordings/RecordingRow.h"

#include <QList>
#include <QVector>

class QTreeWidget;
class QTreeWidgetItem;
struct RecordingSession;

/// The recordings that the window shows at the moment, as values: what every evaluation of them starts with.
/// Owns nothing. GUI thread.
class ListedRows
{
public:
    ListedRows(const QTreeWidget& folderList, const QTreeWidget& evaluationList,
               const RecordingSession& session)
        : m_folderList(folderList), m_evaluationList(evaluationList), m_session(session)
    {}

    /// The list of view mode 1, or that of the modes above it; nullptr while a single file is shown.
    const QTreeWidget* list() const;

    /// In the order of the list; none without a list.
    QVector<RecordingRow> all() const;
    /// Those of `items`, also in the order of the list.
    QVector<RecordingRow> of(const QList<QTreeWidgetItem*>& items) const;

private:
    const QTreeWidget& m_folderList;
    const QTreeWidget& m_evaluationList;
    const RecordingSession& m_session;
};

#endif
