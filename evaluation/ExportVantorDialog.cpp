#include "evaluation/ExportVantorDialog.h"

#include "evaluation/zoneBox.h"
#include "ui_ExportVantorDialog.h"

#include <QCheckBox>
#include <QPushButton>

ExportVantorDialog::ExportVantorDialog(QWidget* parent, const QString& classText)
    : QDialog(parent), m_ui(std::make_unique<Ui::ExportVantorDialog>())
{
    m_ui->setupUi(this);
    m_ui->buttonBox->button(QDialogButtonBox::Ok)->setText(QStringLiteral("Export"));
    m_classes = std::make_unique<ClassChoiceTree>(*m_ui->treeWidget);
    const QVector<QCheckBox*> boxes = m_classes->fill(classText);
    for (QCheckBox* box : boxes)
        connect(box, &QCheckBox::stateChanged, this, &ExportVantorDialog::checkBox);
    fillZoneBox(*m_ui->comboBox);
}

ExportVantorDialog::~ExportVantorDialog() = default;

QStringList ExportVantorDialog::checkedClasses() const
{
    return m_classes->checkedNames();
}

TimeZoneChoice ExportVantorDialog::time() const
{
    return {selectedZone(*m_ui->comboBox), m_ui->checkBox_daylightSaving->isChecked()};
}

void ExportVantorDialog::checkBox(int state)
{
    m_classes->setChecked(sender(), state);
}

void ExportVantorDialog::on_treeWidget_itemDoubleClicked(QTreeWidgetItem* item, int /*column*/)
{
    m_classes->toggle(item);
}
