#ifndef SONAVIA_CLASSES_CLASSTREEEDITOR_H
#define SONAVIA_CLASSES_CLASSTREEEDITOR_H

#include "classes/core/ClassTree.h"

#include <QObject>

#include <memory>

class QMenu;
class QTreeWidget;
class QTreeWidgetItem;
class UserPrompts;

/// A class tree in a tree widget, and its context menu with the dialogs for changing it: what the main window
/// and the model dialog have in common. Names stand in column 0, shortcuts in a column given. A row named
/// ClassTree::unassigned() may stand at the end; it belongs to the widget's owner and is no class.
///
/// Adding a class and changing a shortcut happen here; removing and renaming are left to the owner, who may
/// have files to change first. GUI thread.
class ClassTreeEditor : public QObject
{
    Q_OBJECT

public:
    enum class Saving { InMenu, Elsewhere };

    /// Owns nothing; becomes a child of `tree`.
    ClassTreeEditor(QTreeWidget& tree, int shortcutColumn, Saving saving, UserPrompts& prompts);

    /// Replaces the classes, all expanded. Other rows stay.
    void show(const ClassTree& classes);
    ClassTree classTree() const;

    /// The row of a class or subclass, nullptr when there is none.
    QTreeWidgetItem* itemOf(const QString& name) const;
    /// The first row in tree order with this shortcut, which is not empty.
    QTreeWidgetItem* itemOfShortcut(const QString& shortcut) const;
    bool isClass(const QTreeWidgetItem* item) const; ///< or a subclass
    static bool isSubclass(const QTreeWidgetItem* item);

    /// The menu at a position of the tree's viewport.
    void showMenu(const QPoint& pos);
    /// What the menu holds for the row under the pointer, or for nullptr where there is none.
    std::unique_ptr<QMenu> menuFor(QTreeWidgetItem* item);

    /// Asks for a file and writes the classes into it.
    void saveModel();

signals:
    /// A row for a class has come, by show() or by the user.
    void classAdded(QTreeWidgetItem* item);
    void removalWanted(QTreeWidgetItem* item);
    /// `newName` is a name that the tree does not hold yet.
    void renamingWanted(QTreeWidgetItem* item, const QString& newName);

private:
    void addClass(QTreeWidgetItem* below);
    void addSubclass(QTreeWidgetItem* parent);
    void rename(QTreeWidgetItem* item);
    void changeShortcut(QTreeWidgetItem* item);
    bool askForEntry(bool subclass, ClassTree::Entry& entry);
    void insert(const ClassTree::Entry& entry, QTreeWidgetItem* parent, int index);
    QTreeWidgetItem* unassignedItem() const;
    bool isNew(const QString& name);

    QTreeWidget& m_tree;
    int m_shortcutColumn;
    Saving m_saving;
    UserPrompts& m_prompts;
};

#endif
