#include "classes/ClassTreeEditor.h"

#include "base/UserPrompts.h"
#include "classes/ChangeShortcutDialog.h"
#include "classes/InsertItemDialog.h"
#include "classes/RenameDialog.h"
#include "classes/core/classModelFile.h"

#include <QFileDialog>
#include <QMenu>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

namespace {

constexpr int nameColumn = 0;

} // namespace

ClassTreeEditor::ClassTreeEditor(QTreeWidget& tree, int shortcutColumn, Saving saving, UserPrompts& prompts)
    : QObject(&tree), m_tree(tree), m_shortcutColumn(shortcutColumn), m_saving(saving), m_prompts(prompts)
{
    m_tree.setExpandsOnDoubleClick(false);
}

void ClassTreeEditor::show(const ClassTree& classes)
{
    for (int row = m_tree.topLevelItemCount() - 1; row >= 0; --row)
        if (isClass(m_tree.topLevelItem(row)))
            delete m_tree.topLevelItem(row);
    int row = 0;
    for (const ClassTree::Entry& entry : classes.entries()) {
        if (entry.isSubclass)
            insert(entry, m_tree.topLevelItem(row - 1), -1);
        else
            insert(entry, nullptr, row++);
    }
}

ClassTree ClassTreeEditor::classTree() const
{
    ClassTree classes;
    for (QTreeWidgetItemIterator it(&m_tree); *it; ++it)
        if (isClass(*it))
            classes.append({(*it)->text(nameColumn), (*it)->text(m_shortcutColumn), isSubclass(*it)});
    return classes;
}

QTreeWidgetItem* ClassTreeEditor::itemOf(const QString& name) const
{
    for (QTreeWidgetItemIterator it(&m_tree); *it; ++it)
        if (isClass(*it) && (*it)->text(nameColumn) == name)
            return *it;
    return nullptr;
}

QTreeWidgetItem* ClassTreeEditor::itemOfShortcut(const QString& shortcut) const
{
    for (QTreeWidgetItemIterator it(&m_tree); *it; ++it)
        if (isClass(*it) && (*it)->text(m_shortcutColumn) == shortcut)
            return *it;
    return nullptr;
}

bool ClassTreeEditor::isClass(const QTreeWidgetItem* item) const
{
    return item && item->text(nameColumn) != ClassTree::unassigned();
}

bool ClassTreeEditor::isSubclass(const QTreeWidgetItem* item)
{
    return item && item->parent();
}

void ClassTreeEditor::showMenu(const QPoint& pos)
{
    menuFor(m_tree.itemAt(pos))->exec(m_tree.viewport()->mapToGlobal(pos));
}

std::unique_ptr<QMenu> ClassTreeEditor::menuFor(QTreeWidgetItem* item)
{
    auto menu = std::make_unique<QMenu>(&m_tree);
    const bool onClass = isClass(item);
    const bool onSubclass = onClass && isSubclass(item);
    const QString level = onSubclass ? QStringLiteral("subclass") : QStringLiteral("class");
    if (!onSubclass)
        menu->addAction(QStringLiteral("&Add class"), this, [this, item] { addClass(item); });
    if (onClass && !onSubclass)
        menu->addAction(QStringLiteral("&Add subclass"), this, [this, item] { addSubclass(item); });
    if (onClass) {
        menu->addAction(QStringLiteral("&Delete ") + level, this, [this, item] { emit removalWanted(item); });
        menu->addAction(QStringLiteral("&Change shortcut"), this, [this, item] { changeShortcut(item); });
        menu->addAction(QStringLiteral("&Rename ") + level, this, [this, item] { rename(item); });
    }
    if (m_saving == Saving::InMenu)
        menu->addAction(QStringLiteral("&Save class model"), this, &ClassTreeEditor::saveModel);
    return menu;
}

void ClassTreeEditor::saveModel()
{
    QFileDialog dialog(&m_tree, QStringLiteral("Save Model File"), QString(),
                       QStringLiteral("TXT Files (*.txt)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("txt"));
    if (dialog.exec() == QDialog::Accepted && !writeClassModel(dialog.selectedFiles().value(0), classTree()))
        m_prompts.fail(QStringLiteral("Error"), QStringLiteral("Could not write to file."));
}

void ClassTreeEditor::addClass(QTreeWidgetItem* below)
{
    ClassTree::Entry entry;
    if (!askForEntry(false, entry))
        return;
    // The row for files without a class stays the last one.
    const int row = below ? m_tree.indexOfTopLevelItem(below) : -1;
    insert(entry, nullptr, below && below == unassignedItem() ? row : row + 1);
}

void ClassTreeEditor::addSubclass(QTreeWidgetItem* parent)
{
    ClassTree::Entry entry;
    if (askForEntry(true, entry))
        insert(entry, parent, -1);
}

void ClassTreeEditor::rename(QTreeWidgetItem* item)
{
    RenameDialog dialog(isSubclass(item), m_prompts, &m_tree);
    if (dialog.exec() == QDialog::Accepted && isNew(dialog.name()))
        emit renamingWanted(item, dialog.name());
}

void ClassTreeEditor::changeShortcut(QTreeWidgetItem* item)
{
    ChangeShortcutDialog dialog(classTree().freeShortcuts(), &m_tree);
    if (dialog.exec() == QDialog::Accepted)
        item->setText(m_shortcutColumn, dialog.shortcut());
}

bool ClassTreeEditor::askForEntry(bool subclass, ClassTree::Entry& entry)
{
    InsertItemDialog dialog(subclass, classTree().freeShortcuts(), m_prompts, &m_tree);
    if (dialog.exec() != QDialog::Accepted || !isNew(dialog.name()))
        return false;
    entry = {dialog.name(), dialog.shortcut(), subclass};
    return true;
}

void ClassTreeEditor::insert(const ClassTree::Entry& entry, QTreeWidgetItem* parent, int index)
{
    auto* item = new QTreeWidgetItem;
    item->setText(nameColumn, entry.name);
    item->setText(m_shortcutColumn, entry.shortcut);
    if (parent)
        parent->addChild(item);
    else
        m_tree.insertTopLevelItem(index, item);
    (parent ? parent : item)->setExpanded(true);
    emit classAdded(item);
}

QTreeWidgetItem* ClassTreeEditor::unassignedItem() const
{
    QTreeWidgetItem* last = m_tree.topLevelItem(m_tree.topLevelItemCount() - 1);
    return last && !isClass(last) ? last : nullptr;
}

bool ClassTreeEditor::isNew(const QString& name)
{
    const bool exists = classTree().problemOf(name) == ClassTree::NameProblem::Exists;
    if (exists)
        m_prompts.warn(QStringLiteral("Warning"), QStringLiteral("Name already exists."));
    return !exists;
}
