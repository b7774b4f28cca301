#include "evaluation/ChangeYearsDialog.h"

#include "ui_ChangeYearsDialog.h"

ChangeYearsDialog::ChangeYearsDialog(QWidget* parent, const QVector<int>& years)
    : QDialog(parent), m_ui(std::make_unique<Ui::ChangeYearsDialog>())
{
    m_ui->setupUi(this);
    for (const int year : years)
        m_ui->comboBox->addItem(QString::number(year), year);
}

ChangeYearsDialog::~ChangeYearsDialog() = default;

int ChangeYearsDialog::year() const
{
    return m_ui->comboBox->currentData().toInt();
}
