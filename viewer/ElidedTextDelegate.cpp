#include "viewer/ElidedTextDelegate.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QToolTip>

bool ElidedTextDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                   const QStyleOptionViewItem& option, const QModelIndex& index)
{
    const QRect cell = view->visualRect(index);
    if (event->type() != QEvent::ToolTip || index.data(Qt::ToolTipRole).isValid() ||
        sizeHint(option, index).width() <= cell.width())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    // A class may be called "<b>".
    const QString text = index.data().toString().toHtmlEscaped();
    QToolTip::showText(event->globalPos(), QStringLiteral("<span>%1</span>").arg(text), view, cell);
    return true;
}
