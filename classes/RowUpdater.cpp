#include "classes/RowUpdater.h"

#include "classes/ClassTreePane.h"
#include "recordings/rows/RowItem.h"

#include <QHeaderView>
#include <QSignalBlocker>
#include <QTreeWidget>

namespace {

constexpr int countInterval = 40; // ms

} // namespace

RowUpdater::RowUpdater(QTreeWidget& countedList, ClassTreePane& classes)
    : m_countedList(countedList), m_classes(classes)
{}

void RowUpdater::show(QTreeWidgetItem& row, const ClassRecord& record)
{
    QTreeWidget& list = *row.treeWidget();
    const ClassRecord before = RowItem::read(row).record;
    {
        // The colour counts as a change of all columns, for which the view draws the whole list again.
        const QSignalBlocker quiet(m_manyRows ? list.model() : nullptr);
        RowItem::writeRecord(row, record);
        if (&list == &m_countedList) {
            RowItem::applyColour(row);
            m_classes.countChanged(before, record);
        }
    }
    if (m_manyRows)
        RowItem::repaint(list, list.model()->index(list.indexOfTopLevelItem(&row), RowItem::Name));
    if (!m_inRun || m_sinceCounts.elapsed() >= countInterval) {
        m_classes.showCounts();
        m_sinceCounts.start();
    }
}

void RowUpdater::beginRun(int count)
{
    // With each changed text a sorted list looks for the row's new place.
    const bool sortedByRecord = m_countedList.header()->sortIndicatorSection() >= RowItem::Proposal;
    m_manyRows = count > 1;
    m_sortingSuspended = m_manyRows && m_countedList.isSortingEnabled() && sortedByRecord;
    if (m_sortingSuspended)
        m_countedList.setSortingEnabled(false);
    m_classes.holdCounts();
    m_inRun = true;
    m_sinceCounts.start();
}

void RowUpdater::endRun()
{
    m_inRun = m_manyRows = false;
    m_classes.releaseCounts();
    if (m_sortingSuspended)
        m_countedList.setSortingEnabled(true);
    m_sortingSuspended = false;
}
