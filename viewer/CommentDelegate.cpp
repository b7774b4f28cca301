#include "viewer/CommentDelegate.h"

#include "recordings/rows/RowItem.h"
#include "viewer/core/CommentValidator.h"

#include <QLineEdit>
#include <QScopedValueRollback>
#include <QToolTip>

namespace {

ClassRecord recordAt(const QModelIndex& index)
{
    const auto text = [&](int column) { return index.sibling(index.row(), column).data().toString(); };
    ClassRecord record;
    for (int slot = 0; slot < ClassRecord::slotCount; ++slot)
        record.classes[static_cast<std::size_t>(slot)] = text(RowItem::Class1 + slot);
    record.autoClass = text(RowItem::Proposal);
    record.accepted = text(RowItem::Accepted);
    record.comment = text(RowItem::Comment);
    return record;
}

void showRule(const QWidget& editor, const QString& rule)
{
    QToolTip::showText(editor.mapToGlobal(editor.rect().bottomLeft()), rule);
}

} // namespace

QWidget* CommentDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                                       const QModelIndex& index) const
{
    auto* editor = new QLineEdit(parent);
    editor->setFrame(false);
    auto* validator = new CommentValidator(recordAt(index), editor);
    editor->setValidator(validator);
    connect(editor, &QLineEdit::inputRejected, editor,
            [editor, validator] { showRule(*editor, validator->rule()); });
    return editor;
}

void CommentDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const
{
    const auto* line = static_cast<const QLineEdit*>(editor);
    m_previous = index.data().toString();
    if (line->text() == m_previous)
        return;
    if (!line->hasAcceptableInput()) { // the focus went elsewhere in the middle of a repair
        showRule(*editor, static_cast<const CommentValidator*>(line->validator())->rule());
        return;
    }
    const QScopedValueRollback<bool> committing(m_committing, true);
    model->setData(index, line->text());
}
