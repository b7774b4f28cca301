#include "viewer/SpectrogramSettingsDialog.h"

#include "base/SettingsStore.h"
#include "ui_SpectrogramSettingsDialog.h"
#include "viewer/core/ResolutionText.h"
#include "viewer/core/ScaleBounds.h"

#include <QSignalBlocker>

#include <utility>
#include <vector>

namespace {

/// Keeps every control in the dialog from announcing changes, for as long as it lives.
class QuietControls
{
public:
    explicit QuietControls(const QWidget* dialog)
    {
        const QList<QWidget*> widgets = dialog->findChildren<QWidget*>();
        m_blockers.reserve(static_cast<std::size_t>(widgets.size()));
        for (QWidget* widget : widgets)
            m_blockers.emplace_back(widget);
    }

private:
    std::vector<QSignalBlocker> m_blockers;
};

/// Selects an entry; for an index outside the list the one whose effect such an index has.
void select(QComboBox* box, int index, int effective)
{
    box->setCurrentIndex(index >= 0 && index < box->count() ? index : effective);
}

void selectOrFirst(QComboBox* box, int index)
{
    select(box, index, 0);
}

void selectOrLast(QComboBox* box, int index)
{
    select(box, index, box->count() - 1);
}

void showLimits(QSpinBox* lowerBox, QSpinBox* upperBox, const ScaleLimits& limits, int minimum, int maximum)
{
    // The ranges first, as wide as both values need, so that neither value meets a bound of the previous
    // ones.
    lowerBox->setRange(minimum, limits.upper - 1);
    upperBox->setRange(limits.lower + 1, maximum);
    lowerBox->setValue(limits.lower);
    upperBox->setValue(limits.upper);
}

} // namespace

SpectrogramSettingsDialog::SpectrogramSettingsDialog(SettingsStore& store, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::SpectrogramSettingsDialog>()), m_store(store)
{
    m_ui->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    const QuietControls quiet(this);
    fillLists();
    refresh();
}

SpectrogramSettingsDialog::~SpectrogramSettingsDialog() = default;

void SpectrogramSettingsDialog::fillLists()
{
    // The texts in the form are shortened; these are the percentages meant.
    const double overlaps[] = {98.4375, 96.875, 93.75, 87.5, 75.0, 50.0, 0.0};
    for (int i = 0; i < m_ui->comboBox_overlap->count(); ++i)
        m_ui->comboBox_overlap->setItemData(i, overlaps[i]);
    m_ui->comboBox_undersampling->addItem(QStringLiteral("1:1"));
    for (int factor = 2; factor <= 30; factor += 2)
        m_ui->comboBox_undersampling->addItem(QStringLiteral("%1:1").arg(factor));
}

void SpectrogramSettingsDialog::setOutputDeviceName(std::function<QString()> read)
{
    m_outputDeviceName = std::move(read);
}

void SpectrogramSettingsDialog::setSampleRate(int sampleRate)
{
    m_sampleRate = sampleRate;
    showResolution();
    const QuietControls quiet(this);
    showFrequencyLimits();
}

void SpectrogramSettingsDialog::showTab(Tab tab)
{
    m_ui->tabWidget->setCurrentIndex(static_cast<int>(tab));
    show();
    raise();
    activateWindow();
}

void SpectrogramSettingsDialog::showEvent(QShowEvent* event)
{
    on_tabWidget_currentChanged(m_ui->tabWidget->currentIndex());
    QDialog::showEvent(event);
}

void SpectrogramSettingsDialog::on_tabWidget_currentChanged(int index)
{
    // Asking the system for its devices takes a while, so nobody waits for it who does not look.
    if (isVisible() && index == static_cast<int>(Tab::Audio))
        showOutputDevice();
}

// From the store to the controls

void SpectrogramSettingsDialog::refresh()
{
    const QuietControls quiet(this);
    showCalculation();
    showView();
    showAxisPlots();
    showAudio();
}

void SpectrogramSettingsDialog::showCalculation()
{
    selectOrLast(m_ui->comboBox_windowSize, m_store.value(SettingKeys::windowSize));
    selectOrLast(m_ui->comboBox_window, m_store.value(SettingKeys::window));
    selectOrLast(m_ui->comboBox_overlap, m_store.value(SettingKeys::overlap));
    selectOrLast(m_ui->comboBox_frameSize, m_store.value(SettingKeys::frameSize));
    m_ui->checkBox_autoOverlap->setChecked(m_store.value(SettingKeys::autoReduceOverlap));
    showResolution();
}

void SpectrogramSettingsDialog::showView()
{
    selectOrFirst(m_ui->comboBox_colormap, m_store.value(SettingKeys::colormap));
    selectOrLast(m_ui->comboBox_smoothing, m_store.value(SettingKeys::smoothing));
    const bool fixedFrequencies = m_store.value(SettingKeys::fixedYScale);
    (fixedFrequencies ? m_ui->radioButton_fixedFreq : m_ui->radioButton_autoFreq)->setChecked(true);
    const bool fixedLevels = m_store.value(SettingKeys::fixedZScale);
    (fixedLevels ? m_ui->radioButton_fixed : m_ui->radioButton_auto)->setChecked(true);
    showFrequencyLimits();
    showAmplitudeLimits();
    enableLimits();
    showColours();
}

void SpectrogramSettingsDialog::showFrequencyLimits()
{
    const int highest = ScaleBounds::highestFrequency(m_sampleRate);
    const ScaleLimits limits =
        ScaleBounds::shown(m_store.value(SettingKeys::lowerFrequencyLimit),
                           m_store.value(SettingKeys::upperFrequencyLimitOfChange), 0, highest);
    showLimits(m_ui->spinBox_lowerFreq, m_ui->spinBox_upperFreq, limits, 0, highest);
}

void SpectrogramSettingsDialog::showAmplitudeLimits()
{
    const int lowest = ScaleBounds::lowestLevel;
    const int highest = ScaleBounds::highestLevel;
    const ScaleLimits limits =
        ScaleBounds::shown(m_store.value(SettingKeys::lowerScaleLimit),
                           m_store.value(SettingKeys::upperScaleLimitOfChange), lowest, highest);
    showLimits(m_ui->spinBox_lower, m_ui->spinBox_upper, limits, lowest, highest);
}

void SpectrogramSettingsDialog::showAxisPlots()
{
    selectOrFirst(m_ui->comboBox_timePlotMode, m_store.value(SettingKeys::timePlotMode));
    const bool zoom = m_store.value(SettingKeys::timePlotZoom);
    (zoom ? m_ui->radioButton_enableZoomTime : m_ui->radioButton_disableZoomTime)->setChecked(true);
}

void SpectrogramSettingsDialog::showAudio()
{
    selectOrFirst(m_ui->comboBox_undersampling, m_store.value(SettingKeys::undersampling));
    selectOrFirst(m_ui->comboBox_playbackrate, m_store.value(SettingKeys::playbackRate));
    m_ui->checkBox_autoplay->setChecked(m_store.value(SettingKeys::autoplay));
    m_ui->checkBox_loop->setChecked(m_store.value(SettingKeys::loop));
}

void SpectrogramSettingsDialog::enableLimits()
{
    const bool fixedFrequencies = m_ui->radioButton_fixedFreq->isChecked();
    m_ui->spinBox_lowerFreq->setEnabled(fixedFrequencies);
    m_ui->spinBox_upperFreq->setEnabled(fixedFrequencies);
    const bool fixedLevels = m_ui->radioButton_fixed->isChecked();
    m_ui->spinBox_lower->setEnabled(fixedLevels);
    m_ui->spinBox_upper->setEnabled(fixedLevels);
}

void SpectrogramSettingsDialog::showResolution()
{
    const int windowSize = m_ui->comboBox_windowSize->currentText().toInt();
    const double overlap = m_ui->comboBox_overlap->currentData().toDouble();
    m_ui->label_tempRes->setText(ResolutionText::temporal(windowSize, overlap, m_sampleRate));
    m_ui->label_freqRes->setText(ResolutionText::frequency(windowSize, m_sampleRate));
}

void SpectrogramSettingsDialog::showColours()
{
    m_ui->colourPreview->setScheme(m_ui->comboBox_colormap->currentIndex());
    m_ui->colourPreview->setLimits(m_ui->spinBox_lower->value(), m_ui->spinBox_upper->value());
}

void SpectrogramSettingsDialog::showOutputDevice()
{
    const QString name = m_outputDeviceName ? m_outputDeviceName() : QString();
    m_ui->label_audioDevice->setText(name.isEmpty() ? QStringLiteral("No audio output device found") : name);
}

// "Calculation"

void SpectrogramSettingsDialog::on_comboBox_windowSize_currentTextChanged(const QString& /*text*/)
{
    showResolution();
}

void SpectrogramSettingsDialog::on_comboBox_overlap_currentIndexChanged(int /*index*/)
{
    showResolution();
}

void SpectrogramSettingsDialog::on_checkBox_autoOverlap_stateChanged(int state)
{
    m_store.setValue(SettingKeys::autoReduceOverlapState, state);
}

void SpectrogramSettingsDialog::on_pushButton_apply_clicked()
{
    m_store.setValue(SettingKeys::windowSize, m_ui->comboBox_windowSize->currentIndex());
    m_store.setValue(SettingKeys::overlap, m_ui->comboBox_overlap->currentIndex());
    m_store.setValue(SettingKeys::frameSize, m_ui->comboBox_frameSize->currentIndex());
    m_store.setValue(SettingKeys::window, m_ui->comboBox_window->currentIndex());
    emit apply();
}

// "View"

void SpectrogramSettingsDialog::on_comboBox_colormap_currentIndexChanged(int index)
{
    m_store.setValue(SettingKeys::colormap, index);
    showColours();
    emit colormapChanged();
}

void SpectrogramSettingsDialog::on_comboBox_smoothing_currentIndexChanged(int index)
{
    m_store.setValue(SettingKeys::smoothing, index);
    emit colormapChanged();
}

void SpectrogramSettingsDialog::on_radioButton_autoFreq_toggled(bool checked)
{
    m_store.setValue(SettingKeys::fixedYScale, !checked);
    storeFrequencyLimits();
    enableLimits();
    emit scaleFrequencyChanged();
}

void SpectrogramSettingsDialog::on_spinBox_lowerFreq_valueChanged(int value)
{
    m_store.setValue(SettingKeys::lowerFrequencyLimit, static_cast<double>(value));
    m_ui->spinBox_upperFreq->setMinimum(value + 1);
    emit scaleFrequencyChanged();
}

void SpectrogramSettingsDialog::on_spinBox_upperFreq_valueChanged(int value)
{
    m_store.setValue(SettingKeys::upperFrequencyLimitOfChange, static_cast<double>(value));
    m_ui->spinBox_lowerFreq->setMaximum(value - 1);
    emit scaleFrequencyChanged();
}

void SpectrogramSettingsDialog::storeFrequencyLimits()
{
    m_store.setValue(SettingKeys::lowerFrequencyLimit, static_cast<double>(m_ui->spinBox_lowerFreq->value()));
    m_store.setValue(SettingKeys::upperFrequencyLimitOfChange,
                     static_cast<double>(m_ui->spinBox_upperFreq->value()));
}

void SpectrogramSettingsDialog::on_radioButton_auto_toggled(bool checked)
{
    m_store.setValue(SettingKeys::fixedZScale, !checked);
    storeAmplitudeLimits();
    enableLimits();
    emit scaleAmplitudeChanged();
}

void SpectrogramSettingsDialog::on_spinBox_lower_valueChanged(int value)
{
    m_store.setValue(SettingKeys::lowerScaleLimit, static_cast<double>(value));
    m_ui->spinBox_upper->setMinimum(value + 1);
    showColours();
    emit scaleAmplitudeChanged();
}

void SpectrogramSettingsDialog::on_spinBox_upper_valueChanged(int value)
{
    m_store.setValue(SettingKeys::upperScaleLimitOfChange, static_cast<double>(value));
    m_ui->spinBox_lower->setMaximum(value - 1);
    showColours();
    emit scaleAmplitudeChanged();
}

void SpectrogramSettingsDialog::storeAmplitudeLimits()
{
    m_store.setValue(SettingKeys::lowerScaleLimit, static_cast<double>(m_ui->spinBox_lower->value()));
    m_store.setValue(SettingKeys::upperScaleLimitOfChange, static_cast<double>(m_ui->spinBox_upper->value()));
}

// "Axis Plots"

void SpectrogramSettingsDialog::on_comboBox_timePlotMode_currentIndexChanged(int index)
{
    m_store.setValue(SettingKeys::timePlotMode, index);
    m_store.setValue(SettingKeys::frequencyPlotMode, index);
    announceAxisPlots();
}

void SpectrogramSettingsDialog::on_radioButton_disableZoomTime_toggled(bool checked)
{
    m_store.setValue(SettingKeys::timePlotZoom, !checked);
    m_store.setValue(SettingKeys::frequencyPlotZoom, !checked);
    announceAxisPlots();
}

void SpectrogramSettingsDialog::announceAxisPlots()
{
    emit timePlotChanged();
    emit frequencyPlotChanged();
}

// "Audio"

void SpectrogramSettingsDialog::on_pushButton_refreshAudioDevice_clicked()
{
    showOutputDevice();
}

void SpectrogramSettingsDialog::on_comboBox_undersampling_currentIndexChanged(int index)
{
    m_store.setValue(SettingKeys::undersampling, index);
    emit signalAudioControlsChanged();
}

void SpectrogramSettingsDialog::on_comboBox_playbackrate_currentIndexChanged(int index)
{
    m_store.setValue(SettingKeys::playbackRate, index);
    emit signalAudioControlsChanged();
}

void SpectrogramSettingsDialog::on_checkBox_autoplay_clicked(bool checked)
{
    m_store.setValue(SettingKeys::autoplay, checked);
}

void SpectrogramSettingsDialog::on_checkBox_loop_clicked(bool checked)
{
    m_store.setValue(SettingKeys::loop, checked);
}

// Below the tabs

void SpectrogramSettingsDialog::on_pushButton_default_clicked()
{
    m_ui->comboBox_windowSize->setCurrentIndex(SettingKeys::windowSize.fallback);
    m_ui->comboBox_frameSize->setCurrentIndex(SettingKeys::frameSize.fallback);
    m_ui->comboBox_overlap->setCurrentIndex(SettingKeys::overlap.fallback);
    m_ui->comboBox_window->setCurrentIndex(SettingKeys::window.fallback);
    on_pushButton_apply_clicked();
    m_ui->radioButton_autoFreq->setChecked(true);
    m_ui->radioButton_auto->setChecked(true);
    m_ui->comboBox_colormap->setCurrentIndex(SettingKeys::colormap.fallback);
    m_ui->comboBox_smoothing->setCurrentIndex(SettingKeys::smoothing.fallback);
    m_ui->comboBox_timePlotMode->setCurrentIndex(SettingKeys::timePlotMode.fallback);
    m_ui->radioButton_disableZoomTime->setChecked(true);
    refresh();
    emit signalAudioControlsChanged();
    // Only clicks of the user store this one.
    m_ui->checkBox_autoplay->setChecked(false);
    on_checkBox_autoplay_clicked(false);
    m_ui->comboBox_undersampling->setCurrentIndex(SettingKeys::undersampling.fallback);
    m_ui->comboBox_playbackrate->setCurrentIndex(SettingKeys::playbackRate.fallback);
}
