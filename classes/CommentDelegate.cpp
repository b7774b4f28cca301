#include "classes/CommentDelegate.h"

#include "recordings/classRecordEdit.h"
#include "recordings/rows/RowItem.h"
#include "recordings/writeBextDescription.h"

#include <QLineEdit>
#include <QToolTip>
#include <QTreeWidget>
#include <QValidator>

#include <algorithm>
#include <utility>

namespace {

/// Characters that no record can hold, left by some other program.
int foreignCharacters(const QString& text)
{
    return static_cast<int>(std::count_if(text.cbegin(), text.cend(), [](QChar character) {
        return !ClassRecord::acceptsComment(QString(character));
    }));
}

/// Takes every text that a record can hold, and any that shortens what cannot be held.
class CommentValidator : public QValidator
{
public:
    CommentValidator(RecordingRow row, QObject* parent)
        : QValidator(parent), m_row(std::move(row)), m_accepted(m_row.record.comment)
    {}

    State validate(QString& input, int& /*position*/) const override
    {
        const bool shortens =
            input.size() < m_accepted.size() && foreignCharacters(input) <= foreignCharacters(m_accepted);
        const bool accepts = input == m_accepted || shortens ||
                             (ClassRecord::acceptsComment(input) && setComment(input).fits());
        if (!accepts)
            return Invalid;
        m_accepted = input;
        return Acceptable;
    }

private:
    RecordEdit setComment(const QString& comment) const
    {
        return classRecordEdit::setComment(m_row, comment);
    }

    RecordingRow m_row;
    mutable QString m_accepted; ///< what the editor holds
};

} // namespace

CommentDelegate::CommentDelegate(QTreeWidget& list) : QStyledItemDelegate(&list), m_list(list)
{
    list.setItemDelegateForColumn(RowItem::Comment, this);
}

QWidget* CommentDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                                       const QModelIndex& index) const
{
    auto* editor = new QLineEdit(parent);
    editor->setFrame(false);
    if (const QTreeWidgetItem* row = m_list.topLevelItem(index.row()))
        editor->setValidator(new CommentValidator(RowItem::read(*row), editor));
    connect(editor, &QLineEdit::inputRejected, editor, [editor] {
        QToolTip::showText(
            editor->mapToGlobal(QPoint(0, editor->height() / 2)),
            QStringLiteral("A comment takes letters, digits and signs of the ASCII character set,\n"
                           "but no \"|\". With the classes it has to fit into %1 characters.")
                .arg(bextDescriptionSize),
            editor);
    });
    return editor;
}

void CommentDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const
{
    m_previousComment = index.data(Qt::EditRole).toString();
    m_committing = true;
    QStyledItemDelegate::setModelData(editor, model, index);
    m_committing = false;
}
