#include "classes/ChangeShortcutDialog.h"

#include "classes/shortcutChoice.h"
#include "ui_ChangeShortcutDialog.h"

ChangeShortcutDialog::ChangeShortcutDialog(const QStringList& freeShortcuts, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::ChangeShortcutDialog>())
{
    m_ui->setupUi(this);
    offerShortcuts(*m_ui->comboBox, freeShortcuts);
    m_ui->comboBox->setFocus();
}

ChangeShortcutDialog::~ChangeShortcutDialog() = default;

QString ChangeShortcutDialog::shortcut() const
{
    return chosenShortcut(*m_ui->comboBox);
}

void ChangeShortcutDialog::on_buttonBox_accepted()
{
    accept();
}

void ChangeShortcutDialog::on_buttonBox_rejected()
{
    reject();
}
