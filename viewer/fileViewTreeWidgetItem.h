#ifndef SONAVIA_VIEWER_FILEVIEWTREEWIDGETITEM_H
#define SONAVIA_VIEWER_FILEVIEWTREEWIDGETITEM_H

#include <QBrush>
#include <QTreeWidget>

/// One recording in a file list. Its texts are RowItem's business; it adds how rows are sorted: by date and
/// time together in the date column, as times and numbers in their columns, as plain strings in all others.
///
/// GUI thread; belongs to the list as soon as it has been added to one.
class fileViewTreeWidgetItem : public QTreeWidgetItem
{
public:
    /// Remembers `tree`, whose sort column counts, but is not added to it: many rows are added at once. Can
    /// be selected and edited.
    explicit fileViewTreeWidgetItem(QTreeWidget* tree) : m_tree(tree)
    {
        setFlags(Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemIsEnabled);
    }

    bool operator<(const QTreeWidgetItem& other) const override;

    // A row has one colour for its texts up to class 4, however many of its cells are painted, and a centred
    // length. Kept here once, since a brush for each cell would make up half of a large list's memory.
    QVariant data(int column, int role) const override;
    void setData(int column, int role, const QVariant& value) override;

private:
    double sortKey(int column) const;

    QTreeWidget* m_tree;
    QBrush m_foreground = Qt::NoBrush; // Qt::NoBrush: that of the list
    // A sort compares each row about twenty times; its texts are parsed once.
    mutable int m_keyColumn = -1;
    mutable double m_key = 0.0;
};

#endif
