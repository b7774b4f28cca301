#ifndef SONAVIA_VIEWER_ACCEPTDELEGATE_H
#define SONAVIA_VIEWER_ACCEPTDELEGATE_H

#include <QPersistentModelIndex>
#include <QStyledItemDelegate>

/// Draws the column that says whether a row's proposal was accepted: a check box instead of the flag's text,
/// so that ten thousands of rows need no widgets. What the box shows is the flag; a click only asks for the
/// other state.
class AcceptDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// Without `boxes` the column stays empty.
    AcceptDelegate(bool boxes, QObject* parent) : QStyledItemDelegate(parent), m_boxes(boxes) {}

    /// Rows whose header is read have a box, unless the proposal reads "No call".
    bool hasBox(const QModelIndex& index) const;
    static bool isChecked(const QModelIndex& index);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

signals:
    void clicked(const QModelIndex& index);

private:
    bool m_boxes;
    QPersistentModelIndex m_pressed;
};

#endif
