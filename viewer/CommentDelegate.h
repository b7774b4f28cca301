#ifndef SONAVIA_VIEWER_COMMENTDELEGATE_H
#define SONAVIA_VIEWER_COMMENTDELEGATE_H

#include "viewer/ElidedTextDelegate.h"

/// The editor of the comment column: takes what a class record can hold and says so where it refuses. Made
/// for the columns of a file list (RowItem).
class CommentDelegate : public ElidedTextDelegate
{
    Q_OBJECT

public:
    using ElidedTextDelegate::ElidedTextDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

    /// The text being put into the model right now was typed by the user; see previous().
    bool isCommitting() const { return m_committing; }
    /// The change under way has been dealt with; what follows from it is not the user's typing.
    void endCommit() { m_committing = false; }
    /// What stood there before.
    const QString& previous() const { return m_previous; }

private:
    mutable bool m_committing = false;
    mutable QString m_previous;
};

#endif
