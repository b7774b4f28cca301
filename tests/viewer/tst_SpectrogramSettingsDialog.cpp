#include "base/SettingsStore.h"
#include "tests/support/Table.h"
#include "tests/support/TemporarySettings.h"
#include "viewer/SpectrogramSettingsDialog.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QSpinBox>
#include <QtTest>

#include <memory>

/// Store and controls are compared as lists of entries "name=value", written as one text with blanks between.
class tst_SpectrogramSettingsDialog : public QObject
{
    Q_OBJECT

    using ListsRow = Table<QString>;           // texts
    using ChangeRow = Table<QString, QString>; // all that a fresh store holds after the change; signals

private slots:
    void init()
    {
        m_temporary.clear();
        m_dialog = std::make_unique<SpectrogramSettingsDialog>(m_store);
        m_signals.clear();
        using Dialog = SpectrogramSettingsDialog;
        const QVector<QPair<const char*, void (Dialog::*)()>> all = {
            {"colormapChanged", &Dialog::colormapChanged},
            {"scaleAmplitudeChanged", &Dialog::scaleAmplitudeChanged},
            {"scaleFrequencyChanged", &Dialog::scaleFrequencyChanged},
            {"apply", &Dialog::apply},
            {"signalAudioControlsChanged", &Dialog::signalAudioControlsChanged},
            {"timePlotChanged", &Dialog::timePlotChanged},
            {"frequencyPlotChanged", &Dialog::frequencyPlotChanged}};
        for (const auto& [name, signal] : all)
            connect(m_dialog.get(), signal, this, [this, text = QString(name)] {
                m_signals.append(text);
                m_storedAtSignal = stored();
            });
    }

    void cleanup() { m_dialog.reset(); }
    void freshStoreShowsDefaults()
    {
        const QString defaults =
            "comboBox_windowSize=1 comboBox_window=1 comboBox_overlap=5 comboBox_frameSize=0 "
            "checkBox_autoOverlap=true comboBox_colormap=0 comboBox_smoothing=0 radioButton_autoFreq=true "
            "radioButton_fixedFreq=false spinBox_lowerFreq=0 spinBox_upperFreq=150 radioButton_auto=true "
            "radioButton_fixed=false spinBox_lower=-100 spinBox_upper=-33 comboBox_timePlotMode=0 "
            "radioButton_enableZoomTime=false radioButton_disableZoomTime=true comboBox_undersampling=0 "
            "comboBox_playbackrate=0 checkBox_autoplay=false checkBox_loop=false";
        QCOMPARE(shown(defaults), defaults);
        QCOMPARE(stored(), QStringList());
        QCOMPARE(control<QSpinBox>("spinBox_upper")->text(), QStringLiteral("-33 dBFS"));
        QCOMPARE(control<QSpinBox>("spinBox_upperFreq")->text(), QStringLiteral("150 kHz"));
    }

    void listsHoldTheGivenTexts_data()
    {
        ListsRow row;
        row("comboBox_windowSize", "2048|1024|512|256|128|64");
        row("comboBox_window", "Rectangular|Hamming|Hann|Blackman|Bartlett|Flattop|Blackman-Harris");
        row("comboBox_overlap", "98.43|96.87|93.75|87.5|75|50|0");
        row("comboBox_frameSize", "100|75|50|25|12,5");
        // The last one ends with a blank.
        row("comboBox_timePlotMode",
            "Amplitude Envelope + Power Spectral Density|Spectral Amplitudes of current Cursor Position|"
            "Maximum Spectral Amplitudes ");
        row("comboBox_undersampling",
            "1:1|2:1|4:1|6:1|8:1|10:1|12:1|14:1|16:1|18:1|20:1|22:1|24:1|26:1|28:1|30:1");
        row("comboBox_playbackrate", "100%|50%|25%|20%|10%|5%|1%");
    }
    void listsHoldTheGivenTexts()
    {
        const auto& [texts] = ListsRow::row();
        const auto* box = control<QComboBox>(QTest::currentDataTag());
        QStringList found;
        for (int i = 0; i < box->count(); ++i)
            found.append(box->itemText(i));
        QCOMPARE(found.join('|'), texts);
    }

    void changeIsStoredAndAnnounced_data()
    {
        ChangeRow row;
        const QString plots = "timePlotChanged frequencyPlotChanged";
        row("comboBox_colormap=2", "colormap=2", "colormapChanged");
        row("comboBox_smoothing=1", "smoothing=1", "colormapChanged");
        row("radioButton_fixedFreq", "fixedYScale=true lowerFrequencyLimit=0 upperFrequencyLimit=150",
            "scaleFrequencyChanged");
        row("spinBox_lowerFreq=20", "lowerFrequencyLimit=20", "scaleFrequencyChanged");
        row("spinBox_upperFreq=120", "upperFrequencyLimit=120", "scaleFrequencyChanged");
        row("radioButton_fixed", "fixedZScale=true lowerScaleLimit=-100 upperScaleLimit=-33",
            "scaleAmplitudeChanged");
        row("spinBox_lower=-40", "lowerScaleLimit=-40", "scaleAmplitudeChanged");
        row("spinBox_upper=-20", "upperScaleLimit=-20", "scaleAmplitudeChanged");
        row("comboBox_timePlotMode=2", "timePlotMode=2 frequencyPlotMode=2", plots);
        row("radioButton_enableZoomTime", "timePlotZoom=true frequencyPlotZoom=true", plots);
        row("comboBox_undersampling=15", "undersampling=15", "signalAudioControlsChanged");
        row("comboBox_playbackrate=6", "playbackRate=6", "signalAudioControlsChanged");
        row("checkBox_autoplay", "autoplay=true", "");
        row("checkBox_loop", "loop=true", "");
        row("checkBox_autoOverlap", "autoReduceOverlap=0", "");
    }
    void changeIsStoredAndAnnounced()
    {
        const auto& [keys, signalNames] = ChangeRow::row();
        change(QTest::currentDataTag());
        QCOMPARE(m_signals.join(' '), signalNames);
        QCOMPARE(stored(), entries(keys));
        QVERIFY(m_signals.isEmpty() || m_storedAtSignal == stored()); // who reacts finds the change there
    }

    void limitsAreOpenOnFixedScalesOnly()
    {
        const auto open = [this] {
            QString names;
            for (const char* name : {"lowerFreq", "upperFreq", "lower", "upper"})
                if (control(QStringLiteral("spinBox_") + name)->isEnabled())
                    names += QLatin1String(name) + ' ';
            return names;
        };
        QCOMPARE(open(), QString());
        change("radioButton_fixedFreq radioButton_fixed");
        QCOMPARE(open(), QStringLiteral("lowerFreq upperFreq lower upper "));
        change("radioButton_autoFreq");
        QCOMPARE(open(), QStringLiteral("lower upper "));
        store("fixedZScale=false");
        m_dialog->refresh();
        QCOMPARE(open(), QString());
    }

    void calculationWaitsForApply()
    {
        change("comboBox_windowSize=2 comboBox_window=3 comboBox_overlap=4 comboBox_frameSize=1");
        QCOMPARE(stored(), QStringList());
        change("pushButton_apply");
        QCOMPARE(stored(), entries("windowSize=2 window=3 overlap=4 frameSize=1"));
        QCOMPARE(m_signals, QStringList("apply"));
    }

    void refreshShowsTheStoreQuietly()
    {
        const QString keys =
            "windowSize=5 window=6 overlap=6 frameSize=4 colormap=2 autoReduceOverlap=0 smoothing=1 "
            "fixedYScale=true lowerFrequencyLimit=180 upperFrequencyLimit=220 fixedZScale=true "
            "lowerScaleLimit=-30 upperScaleLimit=-10 timePlotMode=2 timePlotZoom=true undersampling=15 "
            "playbackRate=6 autoplay=true loop=true";
        const QString expected =
            "comboBox_windowSize=5 comboBox_window=6 comboBox_overlap=6 comboBox_frameSize=4 "
            "checkBox_autoOverlap=false comboBox_colormap=2 comboBox_smoothing=1 radioButton_fixedFreq=true "
            "spinBox_lowerFreq=180 spinBox_upperFreq=220 radioButton_fixed=true spinBox_lower=-30 "
            "spinBox_upper=-10 comboBox_timePlotMode=2 radioButton_enableZoomTime=true "
            "comboBox_undersampling=15 comboBox_playbackrate=6 checkBox_autoplay=true checkBox_loop=true";
        store(keys);
        m_dialog->setSampleRate(500000);
        m_dialog->refresh();
        QCOMPARE(shown(expected), expected);
        QCOMPARE(stored(), entries(keys));
        m_temporary.clear(); // and back, across the bounds that the limits above have set
        m_dialog->refresh();
        const QString limits =
            "spinBox_lower=-100 spinBox_upper=-33 spinBox_lowerFreq=0 spinBox_upperFreq=150";
        QCOMPARE(shown(limits), limits);
        QCOMPARE(stored(), QStringList());
        QCOMPARE(m_signals, QStringList());
    }

    void showingRoundedLimitsStoresNothing()
    {
        const QString keys =
            "lowerScaleLimit=-87.23 upperScaleLimit=1.7 lowerFrequencyLimit=300 upperFrequencyLimit=400";
        store(keys);
        m_dialog->refresh();
        m_dialog->setSampleRate(250000);
        const QString limits =
            "spinBox_lower=-87 spinBox_upper=0 spinBox_lowerFreq=124 spinBox_upperFreq=125";
        QCOMPARE(shown(limits), limits);
        QCOMPARE(stored(), entries(keys));
        QCOMPARE(m_signals, QStringList());
        change("spinBox_upper=-12"); // leaves the other limit as exact as it was
        QCOMPARE(m_store.value(SettingKeys::lowerScaleLimit), -87.23);
        m_dialog->setSampleRate(1000000);
        QCOMPARE(valueOf("spinBox_upperFreq"), QStringLiteral("400"));
    }

    void limitsKeepTheirDistance()
    {
        const auto* lower = control<QSpinBox>("spinBox_lower");
        const auto* upper = control<QSpinBox>("spinBox_upper");
        QCOMPARE(lower->minimum(), -200);
        QCOMPARE(upper->maximum(), 0);
        change("spinBox_lower=-40");
        QCOMPARE(upper->minimum(), -39);
        change("spinBox_upper=-90");
        QCOMPARE(upper->value(), -39);
        QCOMPARE(lower->maximum(), -40);
        change("spinBox_lower=-150 spinBox_upper=-120");
        m_dialog->refresh();
        QCOMPARE(lower->value(), -150);
        QCOMPARE(upper->value(), -120);
        change("spinBox_lowerFreq=30 spinBox_upperFreq=60");
        QCOMPARE(control<QSpinBox>("spinBox_upperFreq")->minimum(), 31);
        QCOMPARE(control<QSpinBox>("spinBox_lowerFreq")->maximum(), 59);
    }

    void indexesOutsideTheLists()
    {
        const QString expected =
            "comboBox_windowSize=5 comboBox_window=6 comboBox_overlap=6 comboBox_frameSize=4 "
            "comboBox_smoothing=1 comboBox_colormap=0 comboBox_timePlotMode=0 comboBox_undersampling=0 "
            "comboBox_playbackrate=0";
        for (const char* index : {"-1", "16", "1000000"}) {
            const QString keys =
                QStringLiteral("windowSize=%1 window=%1 overlap=%1 frameSize=%1 smoothing=%1 "
                               "colormap=%1 timePlotMode=%1 undersampling=%1 playbackRate=%1")
                    .arg(index);
            store(keys);
            m_dialog->refresh();
            QCOMPARE(shown(expected), expected);
            QCOMPARE(stored(), entries(keys));
        }
    }

    void choicesChangeTheResolutionAtOnce()
    {
        const auto resolutions = [this] { return label("label_tempRes") + ", " + label("label_freqRes"); };
        const QString form = "Temporal Resolution: %1 ms, Frequency Resolution: %2 Hz";
        m_dialog->setSampleRate(500000);
        QCOMPARE(resolutions(), form.arg("1.024", "244.1"));
        change("comboBox_windowSize=2");
        QCOMPARE(resolutions(), form.arg("0.512", "488.3"));
        change("comboBox_overlap=0");
        QCOMPARE(resolutions(), form.arg("0.016", "488.3"));
        store("overlap=6");
        m_dialog->refresh();
        QCOMPARE(resolutions(), form.arg("2.048", "244.1"));
    }

    void defaultRestores()
    {
        change("comboBox_windowSize=3 comboBox_window=3 comboBox_overlap=3 comboBox_frameSize=3 "
               "pushButton_apply "
               "comboBox_colormap=2 comboBox_smoothing=1 radioButton_fixedFreq radioButton_fixed "
               "comboBox_timePlotMode=1 radioButton_enableZoomTime comboBox_undersampling=5 "
               "comboBox_playbackrate=4 checkBox_autoplay");
        m_signals.clear();
        change("pushButton_default");
        QCOMPARE(stored(),
                 entries("windowSize=1 window=1 overlap=5 frameSize=0 colormap=0 smoothing=0 "
                         "fixedYScale=false lowerFrequencyLimit=0 upperFrequencyLimit=150 "
                         "fixedZScale=false lowerScaleLimit=-100 upperScaleLimit=-33 timePlotMode=0 "
                         "frequencyPlotMode=0 timePlotZoom=false frequencyPlotZoom=false "
                         "undersampling=0 playbackRate=0 autoplay=false"));
        QCOMPARE(valueOf("checkBox_autoplay"), QStringLiteral("false"));
        QCOMPARE(m_signals.first(), QStringLiteral("apply"));
        QCOMPARE(QSet<QString>(m_signals.begin(), m_signals.end()).size(), 7); // all of them
    }

    void returnInAnEditorPressesNoButton()
    {
        store("fixedYScale=true");
        m_dialog->refresh();
        m_dialog->showTab(SpectrogramSettingsDialog::Tab::Calculation);
        QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
        QTest::keyClick(control("comboBox_windowSize"), Qt::Key_Return);
        QCOMPARE(m_signals, QStringList());
        m_dialog->showTab(SpectrogramSettingsDialog::Tab::View);
        auto* upper = control<QSpinBox>("spinBox_upperFreq");
        upper->setFocus();
        upper->selectAll();
        QTest::keyClicks(upper, QStringLiteral("120"));
        QCOMPARE(m_signals, QStringList()); // a number half typed is no limit
        QTest::keyClick(upper, Qt::Key_Return);
        QCOMPARE(m_signals, QStringList("scaleFrequencyChanged"));
        QCOMPARE(m_store.value(SettingKeys::upperFrequencyLimitOfChange), 120.0);
        QVERIFY(m_dialog->isVisible());
    }

    void outputDeviceIsReadWhenSeen()
    {
        QStringList devices = {"Headphones", "Loudspeaker", ""};
        m_dialog->setOutputDeviceName([&devices] { return devices.takeFirst(); });
        m_dialog->showTab(SpectrogramSettingsDialog::Tab::Calculation);
        QCOMPARE(devices.size(), 3);
        m_dialog->showTab(SpectrogramSettingsDialog::Tab::Audio);
        QCOMPARE(label("label_audioDevice"), QStringLiteral("Headphones"));
        m_dialog->hide();
        m_dialog->showTab(SpectrogramSettingsDialog::Tab::Audio);
        QCOMPARE(label("label_audioDevice"), QStringLiteral("Loudspeaker"));
        change("pushButton_refreshAudioDevice");
        QCOMPARE(label("label_audioDevice"), QStringLiteral("No audio output device found"));
    }

    void previewFollowsSchemeAndLimits()
    {
        auto* preview = control("colourPreview");
        preview->resize(440, preview->sizeHint().height());
        const auto grey = [preview] { // at -100 dBFS, the middle of the scale
            const QImage picture = preview->grab().toImage();
            return picture.pixelColor(picture.width() / 2, 3).red();
        };
        QCOMPARE(grey(), 0); // black is the scheme's colour for the lower limit
        change("comboBox_colormap=1");
        QCOMPARE(grey(), 255);
        change("spinBox_lower=-160"); // 60 of 127 dB from white to black
        QVERIFY2(grey() > 120 && grey() < 150, qPrintable(QString::number(grey())));
        store("upperScaleLimit=-110");
        m_dialog->refresh();
        QCOMPARE(grey(), 0);
    }

private:
    static QStringList entries(const QString& text)
    {
        QStringList list = text.split(' ', Qt::SkipEmptyParts);
        list.sort();
        return list;
    }

    static QStringList stored()
    {
        const QSettings settings;
        QStringList list;
        for (const QString& key : settings.allKeys())
            list.append(key + '=' + settings.value(key).toString());
        return list;
    }

    void store(const QString& text)
    {
        QSettings settings;
        for (const QString& entry : entries(text))
            settings.setValue(entry.section('=', 0, 0), entry.section('=', 1));
    }

    template <typename Control = QWidget>
    Control* control(const QString& name) const
    {
        auto* found = m_dialog->findChild<Control*>(name);
        if (found == nullptr)
            qFatal("no control %s", qPrintable(name));
        return found;
    }

    QString valueOf(const QString& name) const
    {
        const auto* widget = control(name);
        if (const auto* box = qobject_cast<const QComboBox*>(widget))
            return QString::number(box->currentIndex());
        if (const auto* box = qobject_cast<const QSpinBox*>(widget))
            return QString::number(box->value());
        return QVariant(qobject_cast<const QAbstractButton*>(widget)->isChecked()).toString();
    }

    /// What the controls named in a list of entries show, in the form of that list.
    QString shown(const QString& text) const
    {
        QStringList list = text.split(' ');
        for (QString& entry : list)
            entry = entry.section('=', 0, 0) + '=' + valueOf(entry.section('=', 0, 0));
        return list.join(' ');
    }

    /// Changes controls as the user does; a button is clicked whatever its value.
    void change(const QString& text)
    {
        for (const QString& entry : text.split(' ')) {
            auto* widget = control(entry.section('=', 0, 0));
            const int value = entry.section('=', 1).toInt();
            if (auto* comboBox = qobject_cast<QComboBox*>(widget))
                comboBox->setCurrentIndex(value);
            else if (auto* spinBox = qobject_cast<QSpinBox*>(widget))
                spinBox->setValue(value);
            else
                qobject_cast<QAbstractButton*>(widget)->click();
        }
    }

    QString label(const char* name) const { return control<QLabel>(name)->text(); }

    TemporarySettings m_temporary;
    SettingsStore m_store;
    std::unique_ptr<SpectrogramSettingsDialog> m_dialog;
    QStringList m_signals;        ///< names of the signals emitted so far
    QStringList m_storedAtSignal; ///< at the last of them
};

QTEST_MAIN(tst_SpectrogramSettingsDialog)
#include "tst_SpectrogramSettingsDialog.moc"
