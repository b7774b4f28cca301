#include "evaluation/LoadWindDialog.h"

#include "evaluation/core/ActivitySettings.h"
#include "evaluation/core/RecorderClock.h"
#include "evaluation/core/TimeZoneChoice.h"
#include "evaluation/zoneBox.h"
#include "ui_LoadWindDialog.h"

#include <QLocale>

namespace {

constexpr qint64 previewedEntries = 20;
constexpr char separators[] = {' ', ';', '\t'}; // in the order of their boxes

int indexOfSeparator(char separator)
{
    for (int i = 0; i < 3; ++i)
        if (separators[i] == separator)
            return i;
    return 0;
}

} // namespace

LoadWindDialog::LoadWindDialog(QWidget* parent, const QString& fileName, ActivitySettings& settings)
    : QDialog(parent),
      m_ui(std::make_unique<Ui::LoadWindDialog>()),
      m_fileName(fileName),
      m_settings(settings),
      m_zone(settings.windZone())
{
    m_ui->setupUi(this);
    m_ui->treeWidget->setHeaderLabels(
        {QStringLiteral("Begin Date"), QStringLiteral("Begin Time"), QStringLiteral("Wind Speed")});
    m_ui->comboBox->addItems(WindFormat::dateFormats());
    m_ui->comboBox_3->addItems(WindFormat::timeFormats());
    fillZoneBox(*m_ui->comboBox_2);
    showSettings();
    m_isReady = true;
    createPreview();
}

LoadWindDialog::~LoadWindDialog() = default;

void LoadWindDialog::showSettings()
{
    const WindFormat format = m_settings.windFormat();
    m_ui->comboBox->setCurrentText(format.dateFormat);
    m_ui->comboBox_3->setCurrentText(format.timeFormat);
    m_ui->comboBox_4->setCurrentText(QString(QLatin1Char(format.decimalSeparator)));
    m_ui->comboBox_5->setCurrentIndex(indexOfSeparator(format.separator1));
    m_ui->comboBox_6->setCurrentIndex(indexOfSeparator(format.separator2));
    m_ui->comboBox_2->setCurrentIndex(TimeZoneChoice::indexOf(m_zone));
    m_ui->checkBox->setChecked(m_settings.windDaylightSaving());
    m_ui->radioButton->setChecked(format.definition == WindFormat::Definition::Beginning);
    m_ui->radioButton_2->setChecked(format.definition == WindFormat::Definition::End);
    m_ui->radioButton_3->setChecked(format.definition == WindFormat::Definition::Round);
}

WindFormat LoadWindDialog::format() const
{
    WindFormat format;
    format.dateFormat = m_ui->comboBox->currentText();
    format.timeFormat = m_ui->comboBox_3->currentText();
    format.decimalSeparator = m_ui->comboBox_4->currentText() == QLatin1String(".") ? '.' : ',';
    format.separator1 = separators[qMax(0, m_ui->comboBox_5->currentIndex())];
    format.separator2 = separators[qMax(0, m_ui->comboBox_6->currentIndex())];
    if (m_ui->radioButton_2->isChecked())
        format.definition = WindFormat::Definition::End;
    else if (m_ui->radioButton_3->isChecked())
        format.definition = WindFormat::Definition::Round;
    return format;
}

void LoadWindDialog::createPreview()
{
    if (!m_isReady)
        return;
    const WindFormat chosen = format();
    const WeatherRead read = WeatherFile::previewWind(m_fileName, chosen, previewedEntries);
    const QString dateFormat = QString(chosen.dateFormat).replace(QStringLiteral("mm"), QStringLiteral("MM"));
    const QLocale c = QLocale::c();
    m_ui->treeWidget->clear();
    for (const WeatherSample& sample : read.windSpeed)
        new QTreeWidgetItem(m_ui->treeWidget,
                            {c.toString(RecorderClock::dateOfWall(sample.time), dateFormat),
                             c.toString(RecorderClock::timeOfWall(sample.time), chosen.timeFormat),
                             QString::number(static_cast<double>(sample.value), 'g', 6)});
    m_ui->labelRead->setText(read.isOpened ? QStringLiteral("Begin of the file: ") + read.text()
                                           : QStringLiteral("The file cannot be opened."));
}

void LoadWindDialog::on_comboBox_currentTextChanged(const QString& /*dateFormat*/)
{
    createPreview();
}

void LoadWindDialog::on_comboBox_2_currentIndexChanged(int /*zone*/)
{
    if (m_isReady)
        m_zone = selectedZone(*m_ui->comboBox_2);
    createPreview();
}

void LoadWindDialog::on_comboBox_3_currentTextChanged(const QString& /*timeFormat*/)
{
    createPreview();
}

void LoadWindDialog::on_comboBox_4_currentTextChanged(const QString& /*decimalSeparator*/)
{
    createPreview();
}

void LoadWindDialog::on_comboBox_5_currentTextChanged(const QString& /*separator1*/)
{
    createPreview();
}

void LoadWindDialog::on_comboBox_6_currentTextChanged(const QString& /*separator2*/)
{
    createPreview();
}

void LoadWindDialog::on_checkBox_clicked(bool /*daylightSaving*/)
{
    createPreview();
}

void LoadWindDialog::on_radioButton_toggled(bool beginning)
{
    if (beginning)
        createPreview();
}

void LoadWindDialog::on_radioButton_2_toggled(bool end)
{
    if (end)
        createPreview();
}

void LoadWindDialog::on_radioButton_3_toggled(bool round)
{
    if (round)
        createPreview();
}

void LoadWindDialog::on_buttonBox_accepted()
{
    m_settings.setWind(format(), m_zone, m_ui->checkBox->isChecked());
    accept();
}
