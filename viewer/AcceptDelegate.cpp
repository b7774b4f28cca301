#include "viewer/AcceptDelegate.h"

#include "recordings/rows/RowItem.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QToolTip>

namespace {

QRect boxIn(const QStyleOptionViewItem& option)
{
    const QStyle* style = option.widget ? option.widget->style() : QApplication::style();
    const int side = qMin(style->pixelMetric(QStyle::PM_IndicatorWidth, &option, option.widget),
                          qMin(option.rect.width(), option.rect.height()));
    return QStyle::alignedRect(option.direction, Qt::AlignCenter, QSize(side, side), option.rect);
}

} // namespace

bool AcceptDelegate::hasBox(const QModelIndex& index) const
{
    const auto text = [&](int column) { return index.sibling(index.row(), column).data().toString(); };
    return m_boxes && !text(RowItem::Date).isEmpty() && text(RowItem::Proposal) != QLatin1String("No call");
}

bool AcceptDelegate::isChecked(const QModelIndex& index)
{
    return index.data().toString() == QLatin1String("1");
}

void AcceptDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const
{
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    cell.text.clear();
    const QStyle* style = cell.widget ? cell.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);
    if (!hasBox(index))
        return;
    cell.rect = boxIn(option);
    cell.state &= ~QStyle::State_HasFocus;
    cell.state |= isChecked(index) ? QStyle::State_On : QStyle::State_Off;
    style->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &cell, painter, cell.widget);
}

bool AcceptDelegate::editorEvent(QEvent* event, QAbstractItemModel* /*model*/,
                                 const QStyleOptionViewItem& option, const QModelIndex& index)
{
    const bool press =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    if ((!press && event->type() != QEvent::MouseButtonRelease) || !hasBox(index))
        return false;
    const auto* mouse = static_cast<QMouseEvent*>(event);
    if (mouse->button() != Qt::LeftButton || !option.rect.contains(mouse->pos()))
        return false;
    if (press) {
        m_pressed = index;
        return true;
    }
    if (m_pressed == index)
        emit clicked(index);
    m_pressed = QModelIndex();
    return true;
}

bool AcceptDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                               const QModelIndex& index)
{
    if (event->type() != QEvent::ToolTip || !hasBox(index))
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    QToolTip::showText(event->globalPos(), tr("Accept proposal"), view);
    return true;
}
