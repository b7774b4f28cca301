#include "recordings/rows/RowItem.h"

#include <QBrush>
#include <QTreeWidget>

namespace {

constexpr QRgb acceptedColour = qRgb(122, 184, 0);
constexpr QRgb assignedColour = qRgb(255, 69, 0);
constexpr QRgb plainColour = qRgb(0, 0, 0);

/// Each text that is set lets the view look up its cell; most stay as they are.
void setText(QTreeWidgetItem& item, int column, const QString& text)
{
    if (item.text(column) != text)
        item.setText(column, text);
}

} // namespace

QStringList RowItem::headerTexts()
{
    return {QStringLiteral("name"),        QStringLiteral("date"),     QStringLiteral("time"),
            QStringLiteral("length in s"), QStringLiteral("proposal"), QString(),
            QStringLiteral("class 1"),     QStringLiteral("class 2"),  QStringLiteral("class 3"),
            QStringLiteral("class 4"),     QStringLiteral("comment")};
}

RecordingRow RowItem::read(const QTreeWidgetItem& item)
{
    RecordingRow row;
    row.name = item.text(Name);
    row.date = item.text(Date);
    row.time = item.text(Time);
    row.length = item.text(Length);
    row.record.autoClass = item.text(Proposal);
    row.record.accepted = item.text(Accepted);
    for (int slot = 0; slot < ClassRecord::slotCount; ++slot)
        row.record.classes[static_cast<std::size_t>(slot)] = item.text(Class1 + slot);
    row.record.comment = item.text(Comment);
    const QTreeWidget* list = item.treeWidget();
    row.showsProposals = list && !list->isColumnHidden(Accepted);
    return row;
}

void RowItem::write(QTreeWidgetItem& item, const RecordingRow& row)
{
    setText(item, Date, row.date);
    setText(item, Time, row.time);
    setText(item, Length, row.length);
    if (item.textAlignment(Length) != Qt::AlignCenter)
        item.setTextAlignment(Length, Qt::AlignCenter);
    writeRecord(item, row.record);
}

void RowItem::writeRecord(QTreeWidgetItem& item, const ClassRecord& record)
{
    setText(item, Proposal, record.autoClass);
    setText(item, Accepted, record.accepted);
    for (int slot = 0; slot < ClassRecord::slotCount; ++slot)
        setText(item, Class1 + slot, record.classes[static_cast<std::size_t>(slot)]);
    setText(item, Comment, record.comment);
}

std::optional<QColor> RowItem::colour(const ClassRecord& record)
{
    if (record.accepted == QLatin1String("1"))
        return QColor(acceptedColour);
    const bool notAccepted = record.accepted.isEmpty() || record.accepted == QLatin1String("0");
    if (notAccepted && !record.isUnassigned())
        return QColor(assignedColour);
    if (record.accepted.isEmpty())
        return QColor(plainColour);
    return std::nullopt;
}

void RowItem::repaint(QTreeWidget& list, const QModelIndex& index)
{
    const QRect visible = list.viewport()->rect();
    const QRect row = list.visualRect(index);
    if (row.bottom() >= visible.top() && row.top() <= visible.bottom())
        list.viewport()->update(visible.left(), row.top(), visible.width(), row.height());
}

void RowItem::applyColour(QTreeWidgetItem& item)
{
    const std::optional<QColor> colour = RowItem::colour(read(item).record);
    if (!colour)
        return;
    const QBrush brush(*colour);
    for (int column = Name; column <= Class4; ++column)
        if (item.foreground(column) != brush)
            item.setForeground(column, brush);
}
