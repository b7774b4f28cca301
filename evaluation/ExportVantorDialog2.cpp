#include "evaluation/ExportVantorDialog2.h"

#include "evaluation/zoneBox.h"
#include "ui_ExportVantorDialog2.h"

#include <QPushButton>

ExportVantorDialog2::ExportVantorDialog2(QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::ExportVantorDialog2>())
{
    m_ui->setupUi(this);
    m_ui->buttonBox->button(QDialogButtonBox::Ok)->setText(QStringLiteral("Export"));
    fillZoneBox(*m_ui->comboBox);
}

ExportVantorDialog2::~ExportVantorDialog2() = default;

TimeZoneChoice ExportVantorDialog2::time() const
{
    return {selectedZone(*m_ui->comboBox), m_ui->checkBox_daylightSaving->isChecked()};
}
