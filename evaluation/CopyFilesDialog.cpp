#include "evaluation/CopyFilesDialog.h"

#include "ui_CopyFilesDialog.h"

#include <QCheckBox>

CopyFilesDialog::CopyFilesDialog(QWidget* parent, const QString& classText)
    : QDialog(parent), m_ui(std::make_unique<Ui::CopyFilesDialog>())
{
    m_ui->setupUi(this);
    m_classes = std::make_unique<ClassChoiceTree>(*m_ui->treeWidget);
    const QVector<QCheckBox*> boxes = m_classes->fill(classText);
    for (QCheckBox* box : boxes)
        connect(box, &QCheckBox::stateChanged, this, &CopyFilesDialog::checkBox);
}

CopyFilesDialog::~CopyFilesDialog() = default;

QStringList CopyFilesDialog::checkedClasses() const
{
    return m_classes->checkedNames();
}

void CopyFilesDialog::checkBox(int state)
{
    m_classes->setChecked(sender(), state);
}

void CopyFilesDialog::on_treeWidget_itemDoubleClicked(QTreeWidgetItem* item, int /*column*/)
{
    m_classes->toggle(item);
}
