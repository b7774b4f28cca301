#include "viewer/FileListPane.h"

#include "recordings/RecordingSession.h"
#include "recordings/rows/RowItem.h"
#include "viewer/AcceptDelegate.h"
#include "viewer/CommentDelegate.h"
#include "viewer/ElidedTextDelegate.h"
#include "viewer/core/CountLabel.h"
#include "viewer/fileViewTreeWidgetItem.h"

#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTimer>

#include <algorithm>

namespace {

constexpr int acceptColumnWidth = 15; // pixels

} // namespace

FileListPane::FileListPane(const Widgets& widgets, Purpose purpose, const RecordingSession& session,
                           QObject* parent)
    : QObject(parent),
      m_list(widgets.list),
      m_progress(widgets.progress),
      m_count(widgets.count),
      m_purpose(purpose),
      m_session(session),
      m_acceptDelegate(new AcceptDelegate(purpose == Purpose::Assignment, this)),
      m_commentDelegate(new CommentDelegate(this))
{
    setUpList();
    setProposalsShown(false);
    m_progress.hide();
    connect(m_acceptDelegate, &AcceptDelegate::clicked, this, &FileListPane::acceptClicked);
    connect(m_list.model(), &QAbstractItemModel::rowsRemoved, this, &FileListPane::rowsRemoved);
}

void FileListPane::setUpList()
{
    m_list.setColumnCount(RowItem::ColumnCount);
    m_list.setHeaderLabels(RowItem::headerTexts());
    m_list.setRootIsDecorated(false);
    m_list.setItemsExpandable(false);
    m_list.setUniformRowHeights(true);
    m_list.setAllColumnsShowFocus(true);
    m_list.setVerticalScrollMode(QAbstractItemView::ScrollPerItem); // RowItem::repaint() counts rows
    m_list.setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list.setSelectionBehavior(QAbstractItemView::SelectRows);
    m_list.setEditTriggers(QAbstractItemView::NoEditTriggers); // editComment() alone opens an editor
    m_list.setItemDelegate(new ElidedTextDelegate(this));
    m_list.setItemDelegateForColumn(RowItem::Accepted, m_acceptDelegate);
    m_list.setItemDelegateForColumn(RowItem::Comment, m_commentDelegate);

    QHeaderView& header = *m_list.header();
    const int shortText = m_list.fontMetrics().horizontalAdvance(QStringLiteral("00:00:00 00"));
    for (const int column : {RowItem::Date, RowItem::Time, RowItem::Length})
        header.resizeSection(column, std::max(shortText, headerWidth(column)));
    header.setMinimumSectionSize(acceptColumnWidth);
    header.setSectionResizeMode(RowItem::Accepted, QHeaderView::Fixed);
    header.resizeSection(RowItem::Accepted, acceptColumnWidth);
}

int FileListPane::rowCount() const
{
    return m_list.topLevelItemCount();
}

QTreeWidgetItem* FileListPane::row(int index) const
{
    return m_list.topLevelItem(index);
}

void FileListPane::beginLoading(const QStringList& names)
{
    m_list.setSortingEnabled(false);
    m_list.clear();
    emit rowsCleared();

    QList<QTreeWidgetItem*> rows;
    rows.reserve(names.size());
    for (const QString& name : names) {
        rows.append(new fileViewTreeWidgetItem(&m_list));
        rows.last()->setText(RowItem::Name, name);
    }
    m_list.addTopLevelItems(rows);
    m_list.header()->setSortIndicator(RowItem::Name, Qt::AscendingOrder);
    if (!rows.isEmpty())
        m_list.setCurrentItem(rows.first());
    fitNameColumn(names);
    m_list.setFocus(); // its keys walk through the recordings
    m_count.setText(CountLabel::total(names.size()));
    m_count.show();
    m_progress.setValue(1);
    m_progress.show();
}

/// Fits the column to the longest name only: measuring all of a large folder takes longer than filling it.
void FileListPane::fitNameColumn(const QStringList& names)
{
    const auto longest = std::max_element(
        names.cbegin(), names.cend(), [](const QString& a, const QString& b) { return a.size() < b.size(); });
    if (longest == names.cend())
        return;
    const int index = static_cast<int>(longest - names.cbegin());
    const int name = m_list.sizeHintForIndex(m_list.model()->index(index, RowItem::Name)).width();
    m_list.setColumnWidth(RowItem::Name, std::max(name, headerWidth(RowItem::Name)));
}

/// What the header's text needs beside the arrow that shows the order of the rows.
int FileListPane::headerWidth(int column) const
{
    QHeaderView& header = *m_list.header();
    const bool arrowShown = header.isSortIndicatorShown();
    header.setSortIndicatorShown(true);
    const int width = header.sectionSizeHint(column);
    header.setSortIndicatorShown(arrowShown);
    return width;
}

void FileListPane::fillRow(int index, const RecordingRow& header)
{
    QTreeWidgetItem* item = row(index);
    {
        // Twenty changes of a row, nearly always out of sight: one look at the screen instead of twenty.
        const QSignalBlocker quiet(m_list.model());
        RowItem::write(*item, header);
        if (m_purpose == Purpose::Assignment)
            RowItem::applyColour(*item);
    }
    RowItem::repaint(m_list, m_list.model()->index(index, RowItem::Name));
    RecordingRow filled = header;
    filled.name = item->text(RowItem::Name);
    emit rowFilled(filled);
}

void FileListPane::setProgress(int percent)
{
    m_progress.setValue(percent);
}

void FileListPane::endLoading(bool complete)
{
    m_progress.setValue(complete ? 100 : 0);
    m_progress.hide();
    if (!complete)
        return;
    // The rows are sorted by name already. Saying so afterwards, unheard, spares sorting them once more.
    QHeaderView& header = *m_list.header();
    header.setSortIndicator(-1, Qt::AscendingOrder);
    m_list.setSortingEnabled(true);
    const QSignalBlocker quiet(&header);
    header.setSortIndicator(RowItem::Name, Qt::AscendingOrder);
}

void FileListPane::setProposalsShown(bool shown)
{
    m_list.setColumnHidden(RowItem::Proposal, !shown);
    m_list.setColumnHidden(RowItem::Accepted, !shown);
}

void FileListPane::itemChanged(QTreeWidgetItem* item, int column)
{
    if (column != RowItem::Comment || !m_commentDelegate->isCommitting())
        return;
    m_commentDelegate->endCommit(); // the receiver of the signal changes the row again
    const QString comment = item->text(RowItem::Comment);
    {
        const QSignalBlocker quiet(m_list);
        item->setText(RowItem::Comment, m_commentDelegate->previous());
    }
    if (!m_session.busy)
        emit commentEdited(item, comment);
}

void FileListPane::selectionChanged()
{
    // Ranges of whole rows; asking for the selected items would make a list of all their cells.
    int selected = 0;
    const QItemSelection selection = m_list.selectionModel()->selection();
    for (const QItemSelectionRange& range : selection)
        selected += range.height();
    m_count.setText(CountLabel::selection(selected, rowCount()));
}

void FileListPane::editComment(QTreeWidgetItem* item)
{
    if (!item || m_session.busy || item->text(RowItem::Date).isEmpty())
        return;
    m_list.scrollTo(cell(item, RowItem::Comment));
    m_list.editItem(item, RowItem::Comment);
}

void FileListPane::toggleAccepted()
{
    if (QTreeWidgetItem* item = m_list.currentItem())
        acceptClicked(cell(item, RowItem::Accepted));
}

bool FileListPane::hasAcceptBox(QTreeWidgetItem* item) const
{
    return m_acceptDelegate->hasBox(cell(item, RowItem::Accepted));
}

void FileListPane::acceptClicked(const QModelIndex& index)
{
    if (m_acceptDelegate->hasBox(index) && !m_list.isColumnHidden(RowItem::Accepted))
        emit acceptToggled(row(index.row()), !AcceptDelegate::isChecked(index));
}

QModelIndex FileListPane::cell(QTreeWidgetItem* item, int column) const
{
    return m_list.model()->index(m_list.indexOfTopLevelItem(item), column);
}

void FileListPane::rowsRemoved()
{
    // Many rows may go one by one: the label follows when they are all gone.
    if (m_countPending)
        return;
    m_countPending = true;
    QTimer::singleShot(0, this, [this] {
        m_countPending = false;
        selectionChanged();
    });
}
