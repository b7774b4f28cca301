#ifndef SONAVIA_EVALUATION_LOADWINDDIALOG_H
#define SONAVIA_EVALUATION_LOADWINDDIALOG_H

#include <QDialog>
#include <QTimeZone>

#include <memory>

class ActivitySettings;
struct WindFormat;

namespace Ui {
class LoadWindDialog;
}

/// Asks how a wind file is written, with a preview of its first entries that follows every choice. The
/// choices are stored on OK. GUI thread only.
class LoadWindDialog : public QDialog
{
    Q_OBJECT

public:
    /// `settings` has to outlive the dialog.
    LoadWindDialog(QWidget* parent, const QString& fileName, ActivitySettings& settings);
    ~LoadWindDialog() override;

    void createPreview();

public slots:
    void on_comboBox_currentTextChanged(const QString& dateFormat);
    void on_comboBox_2_currentIndexChanged(int zone);
    void on_comboBox_3_currentTextChanged(const QString& timeFormat);
    void on_comboBox_4_currentTextChanged(const QString& decimalSeparator);
    void on_comboBox_5_currentTextChanged(const QString& separator1);
    void on_comboBox_6_currentTextChanged(const QString& separator2);
    void on_checkBox_clicked(bool daylightSaving);
    void on_radioButton_toggled(bool beginning);
    void on_radioButton_2_toggled(bool end);
    void on_radioButton_3_toggled(bool round);
    void on_buttonBox_accepted();

private:
    void showSettings();
    WindFormat format() const;

    std::unique_ptr<Ui::LoadWindDialog> m_ui;
    QString m_fileName;
    ActivitySettings& m_settings;
    QTimeZone m_zone;       ///< the box has one zone of each name, which may be another until it is used
    bool m_isReady = false; ///< the settings are shown and changes are the user's
};

#endif
