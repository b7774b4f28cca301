#include "viewer/ViewerPresenter.h"

#include "base/SettingsStore.h"
#include "base/UserPrompts.h"
#include "recordings/FileInfoText.h"
#include "recordings/RecordingSession.h"
#include "viewer/SpectrogramView.h"

#include <QCoreApplication>
#include <QLocale>

ViewerPresenter::ViewerPresenter(SpectrogramView& spectrogram, RecordingSession& session,
                                 SettingsStore& settings, UserPrompts& prompts, QObject* parent)
    : QObject(parent),
      m_spectrogram(spectrogram),
      m_session(session),
      m_settings(settings),
      m_prompts(prompts)
{}

void ViewerPresenter::clear()
{
    m_matrix = {};
    m_columns = 0;
    m_levels = {};
    m_spectrogram.removePicture();
}

void ViewerPresenter::showEmpty(const AxisLimits& frequency)
{
    m_spectrogram.clear(frequency);
    emit fileInfoChanged(QStringLiteral("N/A"));
    emit durationChanged(QString());
}

void ViewerPresenter::spectrogramCalculated(const QVector<double>& data, int numberOfFfts, double minValue,
                                            double maxValue, const std::unordered_map<int, Blob>& /*blobs*/,
                                            const QStringList& classes, const QList<MyBatCall>& calls)
{
    m_session.busy = false;
    emit resultArrived();

    m_matrix = data;
    m_columns = numberOfFfts;
    m_levels = {minValue, maxValue};
    m_spectrogram.showResult(m_matrix, m_columns, m_session.duration(), m_session.nyquistKHz());
    m_spectrogram.setSmoothing(m_settings.value(SettingKeys::smoothing) != 0);
    m_spectrogram.setFrequencyLimits(
        frequencyLimits(m_settings.value(SettingKeys::upperFrequencyLimitOfResult)));
    m_spectrogram.setAmplitudeLimits(amplitudeLimits(m_settings.value(SettingKeys::upperScaleLimitOfResult)));
    m_spectrogram.applyColourScheme(m_settings.value(SettingKeys::colormap));
    describeRecording();

    emit resultShown();
    emit callsDetected(classes, calls);
    emit computationEnded();
}

void ViewerPresenter::computationFailed(const QString& text)
{
    m_session.busy = false;
    showEmpty(AxisLimits::emptyFrequency());
    m_prompts.fail(QStringLiteral("Error"), text);
    emit computationEnded();
}

void ViewerPresenter::setGridVisible(bool visible)
{
    m_settings.setValue(SettingKeys::grid, visible);
    m_spectrogram.setGridVisible(visible);
    emit gridShown(visible);
}

void ViewerPresenter::setDetectionShown(bool shown)
{
    m_settings.setValue(SettingKeys::categorization, shown);
    emit detectionShown(shown);
}

void ViewerPresenter::slotColormapChanged()
{
    m_spectrogram.setSmoothing(m_settings.value(SettingKeys::smoothing) != 0);
    m_spectrogram.applyColourScheme(m_settings.value(SettingKeys::colormap));
}

void ViewerPresenter::slotAmplitudeScaleChanged()
{
    m_spectrogram.setAmplitudeLimits(amplitudeLimits(m_settings.value(SettingKeys::upperScaleLimitOfChange)));
    emit amplitudeScaleChanged();
}

void ViewerPresenter::slotFrequencyScaleChanged()
{
    if (m_matrix.isEmpty())
        return;
    m_spectrogram.setFrequencyLimits(
        frequencyLimits(m_settings.value(SettingKeys::upperFrequencyLimitOfChange)));
    emit frequencyScaleChanged();
}

AxisLimits ViewerPresenter::frequencyLimits(double storedUpper) const
{
    return AxisLimits::frequency(m_settings.value(SettingKeys::fixedYScale),
                                 m_settings.value(SettingKeys::lowerFrequencyLimit), storedUpper,
                                 m_session.nyquistKHz());
}

AxisLimits ViewerPresenter::amplitudeLimits(double storedUpper)
{
    const bool fixed = m_settings.value(SettingKeys::fixedZScale);
    const AxisLimits stored{m_settings.value(SettingKeys::lowerScaleLimit), storedUpper};
    const AxisLimits limits = AxisLimits::amplitude(fixed, stored, m_levels);
    if (!fixed && limits.isValid()) {
        m_settings.setValue(SettingKeys::lowerScaleLimit, limits.lower);
        m_settings.setValue(SettingKeys::upperScaleLimitOfResult, limits.upper);
        emit scaleLimitsStored();
    }
    return limits;
}

void ViewerPresenter::describeRecording()
{
    emit fileInfoChanged(fileInfoText(m_session.bitsPerSample, m_session.sampleRate, m_session.sampleSize,
                                      m_session.date, m_session.time));
    emit durationChanged(QLocale::system().toString(m_session.duration(), 'f', 3) + QStringLiteral(" s"));
    emit windowTitleChanged(m_session.path + QStringLiteral(" - ") + QCoreApplication::applicationName());
}
