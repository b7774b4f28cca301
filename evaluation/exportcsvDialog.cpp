#include "evaluation/exportcsvDialog.h"

#include "evaluation/zoneBox.h"
#include "ui_exportcsvDialog.h"

#include <QCheckBox>
#include <QPushButton>

#include <algorithm>

exportcsvDialog::exportcsvDialog(QWidget* parent, const QString& classText)
    : QDialog(parent), m_ui(std::make_unique<Ui::exportcsvDialog>())
{
    m_ui->setupUi(this);
    m_ui->buttonBox->button(QDialogButtonBox::Ok)->setText(QStringLiteral("Export"));
    m_classes = std::make_unique<ClassChoiceTree>(*m_ui->treeWidget);
    const QVector<QCheckBox*> boxes = m_classes->fill(classText);
    for (QCheckBox* box : boxes)
        connect(box, &QCheckBox::stateChanged, this, &exportcsvDialog::checkBox);
    fillZoneBox(*m_ui->comboBox);
}

exportcsvDialog::~exportcsvDialog() = default;

CsvExport exportcsvDialog::choice() const
{
    CsvExport choice;
    choice.classes = m_classes->checkedNames();
    choice.intervals = m_intervals;
    choice.mode = m_mode;
    choice.time = {selectedZone(*m_ui->comboBox), m_ui->checkBox_4->isChecked()};
    return choice;
}

void exportcsvDialog::checkBox(int state)
{
    m_classes->setChecked(sender(), state);
}

void exportcsvDialog::on_treeWidget_itemDoubleClicked(QTreeWidgetItem* item, int /*column*/)
{
    m_classes->toggle(item);
}

void exportcsvDialog::on_radioButton_clicked()
{
    m_mode = ClassEvents::Mode::Dynamic;
}

void exportcsvDialog::on_radioButton_2_clicked()
{
    m_mode = ClassEvents::Mode::Static;
}

void exportcsvDialog::on_checkBox_clicked(bool checked)
{
    setInterval(1, checked);
}

void exportcsvDialog::on_checkBox_2_clicked(bool checked)
{
    setInterval(5, checked);
}

void exportcsvDialog::on_checkBox_3_clicked(bool checked)
{
    setInterval(10, checked);
}

void exportcsvDialog::setInterval(int minutes, bool wanted)
{
    m_intervals.removeAll(minutes);
    if (wanted)
        m_intervals.insert(std::lower_bound(m_intervals.begin(), m_intervals.end(), minutes), minutes);
}
