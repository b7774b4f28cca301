#ifndef SONAVIA_EVALUATION_CLASSCHOICETREE_H
#define SONAVIA_EVALUATION_CLASSCHOICETREE_H

#include <QString>
#include <QStringList>
#include <QVector>

class QCheckBox;
class QObject;
class QTreeWidget;
class QTreeWidgetItem;

/// The list of classes in a dialog, with the columns "class", "count" and "export", the last with a check box
/// in each row. "Unassigned" is red, "Detected No Call" blue. Works on the tree of the dialog's form and owns
/// nothing. GUI thread.
class ClassChoiceTree
{
public:
    explicit ClassChoiceTree(QTreeWidget& tree) : m_tree(tree) {}

    /// Makes the rows of a text as ClassChoice::lines() reads it, all checked; the space key changes the
    /// current one. Returns their check boxes, whose changes the dialog is to pass on to setChecked().
    QVector<QCheckBox*> fill(const QString& classText);

    /// Takes over the state of a check box.
    void setChecked(const QObject* checkBox, int state);
    /// As if the row's check box had been clicked.
    void toggle(QTreeWidgetItem* row);

    /// The names of the checked rows, from top to bottom.
    QStringList checkedNames() const;

private:
    QTreeWidget& m_tree;
};

#endif
