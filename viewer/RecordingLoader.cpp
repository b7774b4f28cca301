#include "viewer/RecordingLoader.h"

#include "base/SettingsStore.h"
#include "base/UserPrompts.h"
#include "dsp/MatrixLimit.h"
#include "dsp/SpectrogramParameters.h"
#include "recordings/RecordingFile.h"
#include "recordings/RecordingSession.h"

#include <utility>

RecordingLoader::RecordingLoader(RecordingSession& session, RecordingFile& file, SettingsStore& settings,
                                 UserPrompts& prompts, QObject* parent)
    : QObject(parent), m_session(session), m_file(file), m_settings(settings), m_prompts(prompts)
{}

void RecordingLoader::load(const QString& path)
{
    if (m_session.busy) {
        // The worker reads the samples. Other settings for the same recording are caught up with later.
        if (path == m_session.path && m_waitingPath.isEmpty())
            m_waitingPath = path;
        return;
    }
    m_session.path = path;
    emit clearing();
    m_session.clearRecording();
    if (readRecording(path))
        requestSpectrogram();
}

void RecordingLoader::loadWhenIdle(const QString& path)
{
    if (m_session.busy)
        m_waitingPath = path;
    else
        load(path);
}

void RecordingLoader::reload()
{
    if (!m_session.path.isEmpty())
        load(m_session.path);
}

void RecordingLoader::computationEnded()
{
    if (!m_waitingPath.isEmpty())
        load(std::exchange(m_waitingPath, {}));
}

bool RecordingLoader::readRecording(const QString& path)
{
    switch (RecordingFile::kindOf(path)) {
    case RecordingFile::Kind::Wav:
        return readWav(path);
    case RecordingFile::Kind::Raw:
        return readRaw(path);
    case RecordingFile::Kind::Unsupported:
        break;
    }
    m_prompts.inform(QString(), QStringLiteral("File format not supported"));
    emit unreadable(AxisLimits::emptyFrequency());
    return false;
}

bool RecordingLoader::readWav(const QString& path)
{
    m_file.load(path);
    if (m_file.samples().empty()) {
        m_prompts.fail(QStringLiteral("Error"), QStringLiteral("The wav file could not be loaded"));
        emit unreadable(AxisLimits::emptyFrequency());
        return false;
    }
    if (!m_file.errorText().isEmpty())
        m_prompts.warn(QStringLiteral("Warning"), m_file.errorText());
    takeRecording();
    return true;
}

bool RecordingLoader::readRaw(const QString& path)
{
    m_file.load(path);
    if (m_file.samples().empty()) {
        m_prompts.fail(QStringLiteral("Error"), m_file.errorText());
        emit unreadable(AxisLimits::emptyRawFrequency());
        return false;
    }
    takeRecording();
    return true;
}

void RecordingLoader::takeRecording()
{
    m_session.sampleSize = m_file.sampleSize();
    m_session.bitsPerSample = m_file.bitsPerSample();
    m_session.sampleRate = m_file.sampleRate();
    m_session.date = m_file.date();
    m_session.time = m_file.time();
    m_session.timedata = m_file.takeSamples();
    emit loaded(m_session.sampleRate);
}

void RecordingLoader::requestSpectrogram()
{
    m_session.busy = true;
    SpectrogramParameters parameters = SpectrogramParameters::fromIndexes(
        m_settings.value(SettingKeys::window), m_settings.value(SettingKeys::frameSize),
        m_settings.value(SettingKeys::overlap), m_settings.value(SettingKeys::windowSize));
    if (m_settings.value(SettingKeys::autoReduceOverlap)) {
        const MatrixLimit::Overlap overlap =
            MatrixLimit::reduced(m_session.sampleSize, parameters.windowSize, parameters.overlap);
        if (overlap.reduced) {
            m_prompts.inform(QStringLiteral("Information"), MatrixLimit::message(overlap.percent));
            m_settings.setValue(SettingKeys::overlap,
                                MatrixLimit::nextIndex(m_settings.value(SettingKeys::overlap)));
            emit calculationSettingsChanged();
        }
        parameters.overlap = overlap.percent;
    }
    emit signalCalcSpektrogramm(m_session.sampleSize, m_session.bitsPerSample, parameters.windowSize,
                                parameters.frameSize, parameters.window, parameters.overlap,
                                &m_session.timedata, m_session.sampleRate,
                                m_settings.value(SettingKeys::categorization));
}
