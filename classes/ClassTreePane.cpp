#include "classes/ClassTreePane.h"

#include "classes/ClassTreeEditor.h"

#include <QHeaderView>
#include <QIcon>
#include <QPushButton>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include <algorithm>

namespace {

constexpr int countInterval = 40; // ms; thousands of rows may be filled in a second

} // namespace

ClassTreePane::ClassTreePane(QTreeWidget& tree, UserPrompts& prompts)
    : QObject(&tree),
      m_tree(tree),
      m_editor(new ClassTreeEditor(tree, Shortcut, ClassTreeEditor::Saving::InMenu, prompts))
{
    setUpColumns();
    m_unassigned = new QTreeWidgetItem(&m_tree, {ClassTree::unassigned(), QStringLiteral("0")});
    m_unassigned->setTextAlignment(Count, Qt::AlignRight | Qt::AlignVCenter);
    describe(m_unassigned);
    m_tree.setUniformRowHeights(true);
    m_countTimer.setSingleShot(true);
    m_countTimer.setInterval(countInterval);
    connect(&m_countTimer, &QTimer::timeout, this, [this] {
        if (m_countsOutdated && !m_countsHeld)
            showCounts();
    });
    connect(m_editor, &ClassTreeEditor::classAdded, this, &ClassTreePane::addButton);
    connect(m_editor, &ClassTreeEditor::removalWanted, this, &ClassTreePane::deletionWanted);
    connect(m_editor, &ClassTreeEditor::renamingWanted, this, &ClassTreePane::renamingWanted);
}

void ClassTreePane::setUpColumns()
{
    m_tree.setColumnCount(ColumnCount);
    m_tree.setHeaderLabels(
        {QStringLiteral("class"), QStringLiteral("count"), QStringLiteral("shortcut"), QString()});
    QHeaderView* header = m_tree.header();
    header->setStretchLastSection(false);
    header->setSectionResizeMode(QHeaderView::Interactive);
    header->setSectionResizeMode(Name, QHeaderView::Stretch);
    header->setSectionResizeMode(AssignButton, QHeaderView::Fixed);
    constexpr int buttonWidth = 32;
    const int manyRecordings = m_tree.fontMetrics().horizontalAdvance(QStringLiteral("100000 00"));
    header->resizeSection(Count, std::max(manyRecordings, header->sectionSizeHint(Count)));
    header->resizeSection(Shortcut, header->sectionSizeHint(Shortcut));
    header->resizeSection(AssignButton, buttonWidth);
}

void ClassTreePane::setClassTree(const ClassTree& classes)
{
    m_clickedClass = nullptr;
    m_counts.clear();
    m_editor->show(classes);
    showCounts();
}

ClassTree ClassTreePane::classTree() const
{
    return m_editor->classTree();
}

QTreeWidgetItem* ClassTreePane::itemOfShortcut(const QString& shortcut) const
{
    return shortcut.isEmpty() ? nullptr : m_editor->itemOfShortcut(shortcut);
}

QTreeWidgetItem* ClassTreePane::itemOf(const QString& name) const
{
    return m_editor->itemOf(name);
}

void ClassTreePane::rename(QTreeWidgetItem* item, const QString& newName)
{
    item->setText(Name, newName);
    describe(item);
    showCounts();
}

void ClassTreePane::remove(QTreeWidgetItem* item)
{
    m_clickedClass = nullptr;
    delete item;
}

void ClassTreePane::clearCounts()
{
    m_counts.clear();
    countsChanged();
}

void ClassTreePane::countAdded(const RecordingRow& row)
{
    m_counts.add(row.record);
    countsChanged();
}

void ClassTreePane::countRemoved(const RecordingRow& row)
{
    m_counts.remove(row.record);
    countsChanged();
}

void ClassTreePane::countChanged(const ClassRecord& before, const ClassRecord& after)
{
    m_counts.change(before, after);
    countsChanged();
}

void ClassTreePane::holdCounts()
{
    m_countsHeld = true;
}

void ClassTreePane::showCounts()
{
    m_countsOutdated = false;
    m_countTimer.start();
    for (QTreeWidgetItemIterator it(&m_tree); *it; ++it) {
        QTreeWidgetItem* item = *it;
        const int count = item == m_unassigned ? m_counts.unassigned() : m_counts.of(item->text(Name));
        const QString text = QString::number(count);
        if (item->text(Count) != text)
            item->setText(Count, text);
    }
}

void ClassTreePane::releaseCounts()
{
    m_countsHeld = false;
    showCounts();
}

/// Shows single changes at once and many at a rate that the eye can follow.
void ClassTreePane::countsChanged()
{
    m_countsOutdated = true;
    if (!m_countsHeld && !m_countTimer.isActive())
        showCounts();
}

void ClassTreePane::showMenu(const QPoint& pos)
{
    m_editor->showMenu(pos);
}

void ClassTreePane::activate(const QTreeWidgetItem* item)
{
    if (item)
        emit fileWanted(item == m_unassigned ? QString() : item->text(Name));
}

void ClassTreePane::assignCurrent()
{
    QTreeWidgetItem* item = m_tree.currentItem();
    if (m_editor->isClass(item))
        assign(item);
    else
        activate(item);
}

void ClassTreePane::activateCurrent()
{
    activate(m_tree.currentItem());
}

void ClassTreePane::deleteCurrent()
{
    if (m_editor->isClass(m_tree.currentItem()))
        emit deletionWanted(m_tree.currentItem());
}

void ClassTreePane::assign(QTreeWidgetItem* item)
{
    m_clickedClass = item;
    emit assignButtonClicked();
}

void ClassTreePane::addButton(QTreeWidgetItem* item)
{
    auto* button = new QPushButton(QIcon(QStringLiteral(":/images/green_arrow_left.png")), QString());
    // The row's Return key does the same; a tab stop for each class would be in the way.
    button->setFocusPolicy(Qt::NoFocus);
    connect(button, &QPushButton::clicked, this, [this, item] { assign(item); });
    m_tree.setItemWidget(item, AssignButton, button);
    item->setTextAlignment(Count, Qt::AlignRight | Qt::AlignVCenter);
    item->setTextAlignment(Shortcut, Qt::AlignCenter);
    describe(item);
    showCounts();
}

/// Tool tips that name the class.
void ClassTreePane::describe(QTreeWidgetItem* item)
{
    const bool isClass = item != m_unassigned;
    item->setToolTip(Name, isClass ? QStringLiteral("Double-click or Ctrl+Return: first file of this class\n"
                                                    "Return: assign selected file/s to this class")
                                   : QStringLiteral("Double-click or Return: first file without a class"));
    if (QWidget* button = m_tree.itemWidget(item, AssignButton))
        button->setToolTip((item->parent() ? QStringLiteral("Assign selected file/s to subclass \"")
                                           : QStringLiteral("Assign selected file/s to class \"")) +
                           item->text(Name) + QLatin1Char('"'));
}
