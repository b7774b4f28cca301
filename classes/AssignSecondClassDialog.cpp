#include "classes/AssignSecondClassDialog.h"

#include "ui_AssignSecondClassDialog.h"

#include <QPushButton>

AssignSecondClassDialog::AssignSecondClassDialog(const QString& title, const QStringList& classNames,
                                                 QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::AssignSecondClassDialog>())
{
    m_ui->setupUi(this);
    setWindowTitle(title);
    m_ui->comboBox->addItems(classNames);
    m_ui->comboBox->setFocus();
    m_ui->buttonBox->button(QDialogButtonBox::Ok)->setEnabled(!classNames.isEmpty());
}

AssignSecondClassDialog::~AssignSecondClassDialog() = default;

QString AssignSecondClassDialog::className() const
{
    return m_ui->comboBox->currentText();
}
