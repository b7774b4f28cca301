#ifndef SONAVIA_EVALUATION_LISTEDROWS_H
#define SONAVIA_EVALUATION_LISTEDROWS_H

#include "evaluation/core/ClassChoice.h"

#include <QList>
#include <QVector>

#include <functional>

class QTreeWidget;
class QTreeWidgetItem;
struct RecordingSession;

/// The recordings that the window shows at the moment, as values: what every evaluation of them starts with.
/// Owns nothing. GUI thread.
class ListedRows
{
public:
    /// Which of them, in the order of the list: all, or those of certain items. Items that are no longer in
    /// the list when it is read do no harm.
    class Choice
    {
    public:
        Choice() = default;
        explicit Choice(const QList<QTreeWidgetItem*>& items)
            : m_all(false), m_items(items.cbegin(), items.cend())
        {}

        bool contains(const QTreeWidgetItem* item) const { return m_all || m_items.contains(item); }

    private:
        bool m_all = true;
        QSet<const QTreeWidgetItem*> m_items;
    };

    ListedRows(const QTreeWidget& folderList, const QTreeWidget& evaluationList,
               const RecordingSession& session)
        : m_folderList(folderList), m_evaluationList(evaluationList), m_session(session)
    {}

    /// The list of view mode 1, or that of the modes above it; nullptr while a single file is shown.
    const QTreeWidget* list() const;

    /// None without a list.
    QVector<RecordingRow> read(const Choice& choice) const;
    QVector<RecordingRow> all() const { return read(Choice()); }

    /// ClassChoice::Tally over read(choice), in half the time that reading takes: a dialog is waiting for it.
    QString classText(const Choice& choice,
                      ClassChoice::Unassigned unassigned = ClassChoice::Unassigned::AsOne) const;

private:
    void visit(const Choice& choice, const std::function<void(const QTreeWidgetItem&)>& work) const;

    const QTreeWidget& m_folderList;
    const QTreeWidget& m_evaluationList;
    const RecordingSession& m_session;
};

#endif
