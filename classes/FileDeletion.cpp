#include "classes/FileDeletion.h"

#include "base/UserPrompts.h"
#include "classes/ClassTreePane.h"
#include "classes/FileRun.h"
#include "classes/selectedRows.h"
#include "recordings/RecordingSession.h"
#include "recordings/rows/RowItem.h"

#include <QFile>
#include <QTreeWidget>

#include <memory>

FileDeletion::FileDeletion(QTreeWidget& countedList, ClassTreePane& classes, const RecordingSession& session,
                           FileRun& run, UserPrompts& prompts)
    : m_countedList(countedList), m_classes(classes), m_session(session), m_run(run), m_prompts(prompts)
{}

void FileDeletion::deleteSelected(QTreeWidget& list)
{
    const FileRun::RowsInUse use(m_run);
    const QList<QTreeWidgetItem*> rows = selectedRows(list);
    if (rows.isEmpty() || m_run.isActive() || !confirms(rows))
        return;
    const auto removed = std::make_shared<QList<QTreeWidgetItem*>>();
    FileRun::Setup setup;
    setup.label = QStringLiteral("Deleting...");
    setup.cancellable = false;
    setup.count = rows.size();
    setup.errorText = [rows](int index) {
        return QStringLiteral("The file %1 could not be deleted.").arg(rows.at(index)->text(RowItem::Name));
    };
    setup.ended = [this, &list, removed](bool) { removeRows(list, *removed); };
    m_run.startHere(std::move(setup), [folder = m_session.folder, rows, removed](int index) {
        const bool success = QFile::remove(folder + QLatin1Char('/') + rows.at(index)->text(RowItem::Name));
        if (success)
            removed->append(rows.at(index));
        return success;
    });
}

bool FileDeletion::confirms(const QList<QTreeWidgetItem*>& rows)
{
    using Answer = UserPrompts::Answer;
    const QString subject = rows.size() == 1 ? rows.constFirst()->text(RowItem::Name)
                                             : QStringLiteral("%1 files").arg(rows.size());
    return m_prompts.ask(
               {UserPrompts::Icon::Warning,
                QStringLiteral("Warning"),
                QStringLiteral("Do you really want to delete ") + subject + QStringLiteral(" irrevocably?"),
                {},
                {Answer::Ok, Answer::Cancel},
                Answer::Cancel}) == Answer::Ok;
}

/// `rows` go from top to bottom.
void FileDeletion::removeRows(QTreeWidget& list, const QList<QTreeWidgetItem*>& rows)
{
    if (rows.isEmpty())
        return;
    m_classes.holdCounts();
    for (const QTreeWidgetItem* item : rows) {
        const RecordingRow row = RowItem::read(*item);
        if (&list == &m_countedList && row.isHeaderRead())
            m_classes.countRemoved(row);
    }
    m_classes.releaseCounts();
    list.clearSelection(); // else each of its parts is looked at with each removal
    // Neighbours at once, from the bottom: each removal makes the view look at all its rows.
    int last = rows.size() - 1;
    while (last >= 0) {
        const int lastNumber = list.indexOfTopLevelItem(rows.at(last));
        int first = last;
        while (first > 0 && list.indexOfTopLevelItem(rows.at(first - 1)) == lastNumber - (last - first) - 1)
            --first;
        const int count = last - first + 1;
        list.model()->removeRows(lastNumber - count + 1, count);
        last = first - 1;
    }
    emit recordingsDeleted(&list);
}
