#include "classes/CommentEditing.h"

#include "base/UserPrompts.h"
#include "classes/CommentDelegate.h"
#include "classes/FileRun.h"
#include "recordings/RecordingSession.h"
#include "recordings/classRecordEdit.h"
#include "recordings/rows/RowItem.h"
#include "recordings/writeBextDescription.h"

#include <QKeyEvent>
#include <QTreeWidget>

#include <algorithm>

CommentEditing::CommentEditing(const RecordingSession& session, const FileRun& run, UserPrompts& prompts)
    : m_session(session), m_run(run), m_prompts(prompts)
{}

void CommentEditing::addList(QTreeWidget& list)
{
    list.setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_delegates.append(new CommentDelegate(list));
    list.installEventFilter(this);
}

void CommentEditing::edit(QTreeWidgetItem* row)
{
    if (row && !isBlocked() && RowItem::read(*row).isHeaderRead())
        row->treeWidget()->editItem(row, RowItem::Comment);
}

void CommentEditing::itemChanged(QTreeWidgetItem* item, int column)
{
    const auto delegate =
        std::find_if(m_delegates.cbegin(), m_delegates.cend(),
                     [](const CommentDelegate* candidate) { return candidate->isCommitting(); });
    if (column != RowItem::Comment || delegate == m_delegates.cend())
        return;
    const QString previous = (*delegate)->previousComment();
    if (item->text(column) == previous || write(*item, previous))
        return;
    const QString name = item->text(RowItem::Name);
    item->setText(column, previous);
    m_prompts.fail(
        QStringLiteral("Error"),
        QStringLiteral("Could not write file %1\nNew comment is not saved to wav file.").arg(name));
}

bool CommentEditing::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || static_cast<QKeyEvent*>(event)->key() != Qt::Key_F2)
        return QObject::eventFilter(watched, event);
    edit(static_cast<QTreeWidget*>(watched)->currentItem());
    return true;
}

bool CommentEditing::isBlocked() const
{
    return m_session.busy || m_run.isActive();
}

bool CommentEditing::write(QTreeWidgetItem& item, const QString& previousComment)
{
    RecordingRow row = RowItem::read(item);
    const QString comment = row.record.comment;
    row.record.comment = previousComment;
    const RecordEdit edit = classRecordEdit::setComment(row, comment);
    if (!edit.writesFile())
        return true;
    return !isBlocked() && edit.fits() && ClassRecord::acceptsComment(comment) &&
           writeBextDescription(m_session.folder + QLatin1Char('/') + row.name, edit.description);
}
