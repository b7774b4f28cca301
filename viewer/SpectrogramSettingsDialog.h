#ifndef SONAVIA_VIEWER_SPECTROGRAMSETTINGSDIALOG_H
#define SONAVIA_VIEWER_SPECTROGRAMSETTINGSDIALOG_H

#include <QDialog>

#include <functional>
#include <memory>

class SettingsStore;

namespace Ui {
class SpectrogramSettingsDialog;
}

/// The dialog "Settings": spectrogram calculation, spectrogram view, axis plots and audio playback.
///
/// It couples controls with keys of the settings store. A change by the user is stored at once and announced
/// by a signal without arguments; who reacts reads the store. Only the four choices of the calculation wait
/// for "Apply". The dialog computes and plays nothing, and it is not modal: changes act on the plots behind
/// it.
///
/// Limits of scales are shown as whole kHz and dBFS, although the store also holds fractions (the levels
/// found in a recording). Showing a rounded or bounded value never writes it; a limit reaches the store when
/// the user changes it, and both limits of a scale when he switches that scale between "Auto Scale" and
/// "Fixed Scale".
///
/// An index outside its list shows as the entry it has the effect of: the last one for smoothing and the
/// calculation, the first one elsewhere.
///
/// GUI thread only.
class SpectrogramSettingsDialog : public QDialog
{
    Q_OBJECT

public:
    enum class Tab { Calculation, View, AxisPlots, Audio };

    /// Shows what is in `store`, which must outlive the dialog.
    explicit SpectrogramSettingsDialog(SettingsStore& store, QWidget* parent = nullptr);
    ~SpectrogramSettingsDialog() override;

    /// Shows what is in the store now. Writes nothing and emits nothing.
    void refresh();

    /// The sample rate in Hz of the current recording, 0 for none: for the resolution labels and as bound of
    /// the frequency limits. Writes nothing and emits nothing.
    void setSampleRate(int sampleRate);

    /// `read` returns the name of the device that plays the sound, empty for none. It is called whenever the
    /// tab "Audio" comes to sight and on "Refresh".
    void setOutputDeviceName(std::function<QString()> read);

    /// Opens the dialog, or brings it to the front, with the given tab.
    void showTab(Tab tab);

signals:
    void colormapChanged();            ///< colour scheme or smoothing
    void scaleAmplitudeChanged();      ///< mode or limits of the amplitude (colour) scale
    void scaleFrequencyChanged();      ///< mode or limits of the frequency scale
    void apply();                      ///< the calculation: compute anew
    void signalAudioControlsChanged(); ///< undersampling or playback rate
    void timePlotChanged();            ///< mode or zoom of the time axis plot
    void frequencyPlotChanged();       ///< mode or zoom of the frequency axis plot

protected:
    void showEvent(QShowEvent* event) override;

private slots:
    void on_tabWidget_currentChanged(int index);
    void on_comboBox_windowSize_currentTextChanged(const QString& text);
    void on_comboBox_overlap_currentIndexChanged(int index);
    void on_checkBox_autoOverlap_stateChanged(int state);
    void on_pushButton_apply_clicked();
    void on_comboBox_colormap_currentIndexChanged(int index);
    void on_comboBox_smoothing_currentIndexChanged(int index);
    void on_radioButton_autoFreq_toggled(bool checked);
    void on_spinBox_lowerFreq_valueChanged(int value);
    void on_spinBox_upperFreq_valueChanged(int value);
    void on_radioButton_auto_toggled(bool checked);
    void on_spinBox_lower_valueChanged(int value);
    void on_spinBox_upper_valueChanged(int value);
    void on_comboBox_timePlotMode_currentIndexChanged(int index);
    void on_radioButton_disableZoomTime_toggled(bool checked);
    void on_pushButton_refreshAudioDevice_clicked();
    void on_comboBox_undersampling_currentIndexChanged(int index);
    void on_comboBox_playbackrate_currentIndexChanged(int index);
    void on_checkBox_autoplay_clicked(bool checked);
    void on_checkBox_loop_clicked(bool checked);
    void on_pushButton_default_clicked();

private:
    void fillLists();
    void showCalculation();
    void showView();
    void showFrequencyLimits();
    void showAmplitudeLimits();
    void showAxisPlots();
    void showAudio();
    void enableLimits();
    void showResolution();
    void showColours();
    void showOutputDevice();
    void storeFrequencyLimits();
    void storeAmplitudeLimits();
    void announceAxisPlots();

    std::unique_ptr<Ui::SpectrogramSettingsDialog> m_ui;
    SettingsStore& m_store;
    std::function<QString()> m_outputDeviceName;
    int m_sampleRate = 0; ///< Hz
};

#endif
