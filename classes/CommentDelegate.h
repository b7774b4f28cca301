#ifndef SONAVIA_CLASSES_COMMENTDELEGATE_H
#define SONAVIA_CLASSES_COMMENTDELEGATE_H

#include <QStyledItemDelegate>

class QTreeWidget;

/// The editor of a recording's comment, in a file list. It takes what a class record can hold; where it
/// refuses something, a tool tip says what that is. A comment that some other program wrote is shown as it is
/// and can be shortened.
class CommentDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// Becomes a child of `list`, which gets it for its comments.
    explicit CommentDelegate(QTreeWidget& list);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

    /// The list's present change comes from the user.
    bool isCommitting() const { return m_committing; }
    /// The comment before that change.
    const QString& previousComment() const { return m_previousComment; }

private:
    QTreeWidget& m_list;
    mutable bool m_committing = false;
    mutable QString m_previousComment;
};

#endif
