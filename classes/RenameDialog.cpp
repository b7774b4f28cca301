#include "classes/RenameDialog.h"

#include "ui_RenameDialog.h"

RenameDialog::RenameDialog(bool subclass, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::RenameDialog>()), m_prompts(prompts)
{
    m_ui->setupUi(this);
    if (subclass)
        setWindowTitle(QStringLiteral("Rename subclass"));
    m_ui->lineEdit->setFocus();
}

RenameDialog::~RenameDialog() = default;

QString RenameDialog::name() const
{
    return m_ui->lineEdit->name();
}

void RenameDialog::done(int result)
{
    if (result != Accepted || m_ui->lineEdit->confirm(m_prompts))
        QDialog::done(result);
}
