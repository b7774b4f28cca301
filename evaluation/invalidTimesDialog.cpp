#include "evaluation/invalidTimesDialog.h"

#include "evaluation/core/MonitoringCalendar.h"
#include "ui_invalidTimesDialog.h"

#include <QDateTimeEdit>
#include <QHeaderView>
#include <QKeyEvent>

namespace {

constexpr int beginColumn = 1;
constexpr int endColumn = 2;

} // namespace

invalidTimesDialog::invalidTimesDialog(QWidget* parent, const QString& invalidTimes)
    : QDialog(parent), m_ui(std::make_unique<Ui::invalidTimesDialog>()), m_invalidTimes(invalidTimes)
{
    m_ui->setupUi(this);
    m_ui->treeWidget->setHeaderLabels(
        {QStringLiteral("number"), QStringLiteral("Begin"), QStringLiteral("End")});
    m_ui->treeWidget->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    m_ui->treeWidget->setColumnWidth(beginColumn, 170);
    for (const InvalidPeriod& period : invalidPeriods(invalidTimes))
        addRow(period);
}

invalidTimesDialog::~invalidTimesDialog() = default;

void invalidTimesDialog::addRow(const InvalidPeriod& period)
{
    QTreeWidget* tree = m_ui->treeWidget;
    auto* item = new QTreeWidgetItem(tree, {QString::number(tree->topLevelItemCount() + 1)});
    QDateTimeEdit* begin = makeEditor(period.begin);
    tree->setItemWidget(item, beginColumn, begin);
    tree->setItemWidget(item, endColumn, makeEditor(period.end));
    connect(begin, &QDateTimeEdit::editingFinished, this, &invalidTimesDialog::beginTimeChanged);
}

QDateTimeEdit* invalidTimesDialog::makeEditor(const QDateTime& time)
{
    auto* editor = new QDateTimeEdit;
    editor->setTimeSpec(Qt::UTC); // no hour is left out on the way
    editor->setDisplayFormat(QStringLiteral("dd.MM.yyyy hh:mm"));
    editor->setCalendarPopup(true);
    editor->setDateTime(time);
    return editor;
}

QDateTimeEdit* invalidTimesDialog::editorOf(QTreeWidgetItem* item, int column) const
{
    return qobject_cast<QDateTimeEdit*>(m_ui->treeWidget->itemWidget(item, column));
}

void invalidTimesDialog::on_pushButton_clicked()
{
    const QDateTime newYear(QDate(QDate::currentDate().year(), 1, 1), QTime(0, 0), Qt::UTC);
    addRow({newYear, newYear});
    QTreeWidget* tree = m_ui->treeWidget;
    tree->setCurrentItem(tree->topLevelItem(tree->topLevelItemCount() - 1));
}

void invalidTimesDialog::on_pushButton_2_clicked()
{
    QTreeWidget* tree = m_ui->treeWidget;
    qDeleteAll(tree->selectedItems());
    for (int i = 0; i < tree->topLevelItemCount(); ++i)
        tree->topLevelItem(i)->setText(0, QString::number(i + 1));
}

void invalidTimesDialog::on_pushButton_3_clicked()
{
    m_ui->treeWidget->clear();
}

void invalidTimesDialog::on_buttonBox_accepted()
{
    std::vector<InvalidPeriod> periods;
    for (int i = 0; i < m_ui->treeWidget->topLevelItemCount(); ++i) {
        QTreeWidgetItem* item = m_ui->treeWidget->topLevelItem(i);
        periods.push_back({editorOf(item, beginColumn)->dateTime(), editorOf(item, endColumn)->dateTime()});
    }
    m_invalidTimes = invalidPeriodsText(periods);
    accept();
}

/// Return ends the time that is typed and not the dialog, too.
void invalidTimesDialog::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isReturn || qobject_cast<QDateTimeEdit*>(focusWidget()) == nullptr)
        QDialog::keyPressEvent(event);
}

void invalidTimesDialog::beginTimeChanged()
{
    for (int i = 0; i < m_ui->treeWidget->topLevelItemCount(); ++i) {
        QTreeWidgetItem* item = m_ui->treeWidget->topLevelItem(i);
        QDateTimeEdit* begin = editorOf(item, beginColumn);
        QDateTimeEdit* end = editorOf(item, endColumn);
        if (begin == sender() && end->dateTime() < begin->dateTime())
            end->setDateTime(begin->dateTime());
    }
}
