#ifndef SONAVIA_CLASSES_CLASSTREEPANE_H
#define SONAVIA_CLASSES_CLASSTREEPANE_H

#include "classes/core/ClassCounts.h"
#include "classes/core/ClassTree.h"
#include "recordings/RecordingRow.h"

#include <QObject>
#include <QTimer>

class ClassTreeEditor;
class QTreeWidget;
class QTreeWidgetItem;
class UserPrompts;

/// The class tree of the main window, in the form's tree widget: name, count of files, shortcut and a button
/// that assigns the selected files. The last row, "Unassigned", stands for the files without a class and is
/// no class itself.
///
/// The pane changes no file: what concerns files is a signal. GUI thread.
class ClassTreePane : public QObject
{
    Q_OBJECT

public:
    enum Column { Name, Count, Shortcut, AssignButton, ColumnCount };

    /// Owns nothing; becomes a child of `tree`.
    ClassTreePane(QTreeWidget& tree, UserPrompts& prompts);

    /// Replaces all classes; all counts are 0 afterwards. Not while a run is active.
    void setClassTree(const ClassTree& classes);
    ClassTree classTree() const;

    /// The first class in tree order with this shortcut ("<A>"); nullptr when there is none.
    QTreeWidgetItem* itemOfShortcut(const QString& shortcut) const;
    /// nullptr when there is none.
    QTreeWidgetItem* itemOf(const QString& name) const;
    /// The class whose button sent assignButtonClicked() last.
    QTreeWidgetItem* clickedClass() const { return m_clickedClass; }

    // What becomes of a class after its files have been changed.
    void rename(QTreeWidgetItem* item, const QString& newName);
    void remove(QTreeWidgetItem* item); ///< and its subclasses

    // Counts. A row of the file list counts from the time its header has been read.
    void clearCounts(); ///< the list is made anew
    void countAdded(const RecordingRow& row);
    void countRemoved(const RecordingRow& row);
    void countChanged(const ClassRecord& before, const ClassRecord& after);

    /// While held, counts are shown by showCounts() only: the worker reads the row of a class while a request
    /// is on its way, so that row must not change then.
    void holdCounts();
    void showCounts();
    void releaseCounts();

    /// The context menu at a position of the tree's viewport.
    void showMenu(const QPoint& pos);
    /// What a double-click on a row does.
    void activate(const QTreeWidgetItem* item);

    // Keys, for the current row.
    void assignCurrent();   ///< Return: what the row's button does; on "Unassigned" as a double-click
    void activateCurrent(); ///< Ctrl with Return: as a double-click
    void deleteCurrent();   ///< Delete

signals:
    /// Assign the selected files to clickedClass().
    void assignButtonClicked();
    void deletionWanted(QTreeWidgetItem* item);
    /// `newName` is a name that the tree does not hold yet.
    void renamingWanted(QTreeWidgetItem* item, const QString& newName);
    /// The first file of a class is wanted; the name is empty for files without a class.
    void fileWanted(const QString& className);

private:
    void setUpColumns();
    void addButton(QTreeWidgetItem* item);
    void describe(QTreeWidgetItem* item);
    void assign(QTreeWidgetItem* item);
    void countsChanged();

    QTreeWidget& m_tree;
    ClassTreeEditor* m_editor; // a child of the tree
    QTreeWidgetItem* m_unassigned = nullptr;
    QTreeWidgetItem* m_clickedClass = nullptr;
    ClassCounts m_counts;
    QTimer m_countTimer; // runs for a short while after counts have been shown
    bool m_countsHeld = false;
    bool m_countsOutdated = false;
};

#endif
