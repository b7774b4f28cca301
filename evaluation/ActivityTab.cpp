#include "evaluation/ActivityTab.h"

#include "evaluation/ActivityPlot.h"

#include <QComboBox>
#include <QDateEdit>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace {

/// What the names of a tab's controls end in.
QString suffixOf(ActivityKind kind)
{
    static const char* const suffixes[] = {"", "Days", "Month", "Night", "Temp", "Prec", "Wind"};
    return QLatin1String(suffixes[static_cast<int>(kind)]);
}

QPushButton* makeButton(const QString& text, const QString& name)
{
    auto* button = new QPushButton(text);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
}

} // namespace

ActivityTab::ActivityTab(ActivityKind kind, QWidget* parent)
    : QWidget(parent), m_kind(kind), m_plot(new ActivityPlot(kind))
{
    (new QVBoxLayout(this))->addWidget(m_plot, 1);
    m_plot->setMinimumSize(16 * fontMetrics().height(), 10 * fontMetrics().height()); // not for all labels
    QBoxLayout& axes = *addRow();
    m_begin = addDateEdit(axes, QStringLiteral("Begin:"), QStringLiteral("dateEditStart") + suffixOf(kind));
    m_end = addDateEdit(axes, QStringLiteral("End:"), QStringLiteral("dateEditStop") + suffixOf(kind));
    addAxisBox(axes);
    axes.addStretch(1);
    if (kind >= ActivityKind::Temperature)
        addFileButton(*addRow());
    QBoxLayout& below = *addRow();
    if (kind == ActivityKind::Days)
        addQuantityBox(below);
    else
        below.addStretch(1);
    addExportButtons(below);
}

QBoxLayout* ActivityTab::addRow()
{
    auto* row = new QHBoxLayout;
    static_cast<QBoxLayout*>(layout())->addLayout(row);
    return row;
}

QDateEdit* ActivityTab::addDateEdit(QBoxLayout& row, const QString& label, const QString& name)
{
    auto* edit = new QDateEdit;
    edit->setObjectName(name);
    edit->setDisplayFormat(QStringLiteral("dd.MM.yy"));
    edit->setDateRange(QDate(2000, 1, 1), QDate(2099, 12, 31));
    edit->setCalendarPopup(true);
    edit->setKeyboardTracking(false);
    connect(edit, &QDateEdit::dateChanged, this,
            [this] { emit datesChanged(m_begin->date(), m_end->date()); });
    auto* text = new QLabel(label);
    text->setBuddy(edit);
    row.addWidget(text);
    row.addWidget(edit);
    return edit;
}

void ActivityTab::addAxisBox(QBoxLayout& row)
{
    auto* box = new QComboBox;
    box->setObjectName(QStringLiteral("comboBoxAxis") + suffixOf(m_kind));
    box->addItems({QStringLiteral("linear"), QStringLiteral("logarithmic")});
    connect(box, qOverload<int>(&QComboBox::currentIndexChanged), this,
            [this](int index) { m_plot->setLogarithmic(index == 1); });
    row.addWidget(new QLabel(QStringLiteral("Left y-Axis:")));
    row.addWidget(box);
}

void ActivityTab::addExportButtons(QBoxLayout& row)
{
    QPushButton* exportPlot =
        makeButton(QStringLiteral("Export Plot"), QStringLiteral("exportPlot") + suffixOf(m_kind));
    QPushButton* exportData =
        makeButton(QStringLiteral("Export Plot Data"), QStringLiteral("exportPlotData") + suffixOf(m_kind));
    row.addWidget(exportPlot);
    row.addWidget(exportData);
    connect(exportPlot, &QPushButton::clicked, this, &ActivityTab::exportPlotClicked);
    connect(exportData, &QPushButton::clicked, this, &ActivityTab::exportDataClicked);
}

void ActivityTab::addQuantityBox(QBoxLayout& row)
{
    m_quantity = new QComboBox;
    m_quantity->setObjectName(QStringLiteral("comboBoxQuantityDays"));
    m_quantity->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_quantity->setMinimumContentsLength(24);
    for (const ActivityQuantity& choice : ActivityQuantity::choices()) {
        m_quantity->addItem(choice.text());
        m_quantity->setItemData(m_quantity->count() - 1, choice.text(), Qt::ToolTipRole);
    }
    connect(m_quantity, qOverload<int>(&QComboBox::currentIndexChanged), this, &ActivityTab::quantityChanged);
    row.addWidget(m_quantity, 1);
}

void ActivityTab::addFileButton(QBoxLayout& row)
{
    const QString text = m_kind == ActivityKind::WindSpeed
                             ? QStringLiteral("Define Wind Speed Data File")
                             : QStringLiteral("Define Temperature and Precipitation Data File");
    QPushButton* button = makeButton(text, QStringLiteral("defineFile") + suffixOf(m_kind));
    connect(button, &QPushButton::clicked, this, &ActivityTab::defineFileClicked);
    m_fileText = new QLabel;
    m_fileText->setObjectName(QStringLiteral("labelFile") + suffixOf(m_kind));
    m_fileText->setTextFormat(Qt::PlainText);
    m_fileText->setWordWrap(true);
    row.addWidget(button);
    row.addWidget(m_fileText, 1);
}

void ActivityTab::setDates(const QDate& begin, const QDate& end)
{
    const QSignalBlocker beginBlocker(m_begin);
    const QSignalBlocker endBlocker(m_end);
    m_begin->setDate(begin);
    m_end->setDate(end);
}

void ActivityTab::setQuantity(int index)
{
    if (m_quantity == nullptr)
        return;
    const QSignalBlocker blocker(m_quantity);
    m_quantity->setCurrentIndex(index);
}

void ActivityTab::setFileText(const QString& text)
{
    if (m_fileText != nullptr)
        m_fileText->setText(text);
}

void ActivityTab::leaveRoom(int width)
{
    QMargins margins = layout()->contentsMargins();
    margins.setRight(margins.right() + width);
    layout()->setContentsMargins(margins);
}
