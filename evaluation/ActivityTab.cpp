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
    : QWidget(parent), m_kind(kind), m_plot(new ActivityPlot(kind)), m_controls(new QWidget)
{
    const QString suffix = suffixOf(kind);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_plot, 1);
    layout->addWidget(m_controls);
    auto* row = new QHBoxLayout(m_controls);
    row->setContentsMargins(0, 0, 0, 0);
    m_begin = addDateEdit(QStringLiteral("Begin:"), QStringLiteral("dateEditStart") + suffix);
    m_end = addDateEdit(QStringLiteral("End:"), QStringLiteral("dateEditStop") + suffix);
    addAxisBox();
    if (kind == ActivityKind::Days)
        addQuantityBox();
    row->addStretch(1);
    QPushButton* exportPlot =
        makeButton(QStringLiteral("Export Plot"), QStringLiteral("exportPlot") + suffix);
    QPushButton* exportData =
        makeButton(QStringLiteral("Export Plot Data"), QStringLiteral("exportPlotData") + suffix);
    row->addWidget(exportPlot);
    row->addWidget(exportData);
    connect(exportPlot, &QPushButton::clicked, this, &ActivityTab::exportPlotClicked);
    connect(exportData, &QPushButton::clicked, this, &ActivityTab::exportDataClicked);
}

QDateEdit* ActivityTab::addDateEdit(const QString& label, const QString& name)
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
    m_controls->layout()->addWidget(text);
    m_controls->layout()->addWidget(edit);
    return edit;
}

void ActivityTab::addAxisBox()
{
    auto* box = new QComboBox;
    box->setObjectName(QStringLiteral("comboBoxAxis") + suffixOf(m_kind));
    box->addItems({QStringLiteral("linear"), QStringLiteral("logarithmic")});
    connect(box, qOverload<int>(&QComboBox::currentIndexChanged), this,
            [this](int index) { m_plot->setLogarithmic(index == 1); });
    m_controls->layout()->addWidget(new QLabel(QStringLiteral("Left y-Axis:")));
    m_controls->layout()->addWidget(box);
}

void ActivityTab::addQuantityBox()
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
    m_controls->layout()->addWidget(m_quantity);
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
