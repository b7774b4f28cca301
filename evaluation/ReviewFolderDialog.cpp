#include "evaluation/ReviewFolderDialog.h"

#include "ui_ReviewFolderDialog.h"

ReviewFolderDialog::ReviewFolderDialog(QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::ReviewFolderDialog>())
{
    m_ui->setupUi(this);
}

ReviewFolderDialog::~ReviewFolderDialog() = default;

bool ReviewFolderDialog::isSimpleTree() const
{
    return m_ui->radioButton_simpleTree->isChecked();
}
