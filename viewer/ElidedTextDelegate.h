#ifndef SONAVIA_VIEWER_ELIDEDTEXTDELEGATE_H
#define SONAVIA_VIEWER_ELIDEDTEXTDELEGATE_H

#include <QStyledItemDelegate>

/// Shows the whole text of a cell as its tool tip where the column is too narrow for it and the item has no
/// tool tip of its own.
class ElidedTextDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
};

#endif
