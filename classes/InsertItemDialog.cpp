#include "classes/InsertItemDialog.h"

#include "classes/shortcutChoice.h"
#include "ui_InsertItemDialog.h"

InsertItemDialog::InsertItemDialog(bool subclass, const QStringList& freeShortcuts, UserPrompts& prompts,
                                   QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::InsertItemDialog>()), m_prompts(prompts)
{
    m_ui->setupUi(this);
    if (subclass) {
        setWindowTitle(QStringLiteral("Set new subclass parameter"));
        m_ui->label->setText(QStringLiteral("Subclass name"));
    }
    offerShortcuts(*m_ui->comboBox, freeShortcuts);
    m_ui->lineEdit->setFocus();
}

InsertItemDialog::~InsertItemDialog() = default;

QString InsertItemDialog::name() const
{
    return m_ui->lineEdit->name();
}

QString InsertItemDialog::shortcut() const
{
    return chosenShortcut(*m_ui->comboBox);
}

void InsertItemDialog::done(int result)
{
    if (result != Accepted || m_ui->lineEdit->confirm(m_prompts))
        QDialog::done(result);
}
