#include "dsp/calcSpectrogramThread.h"

#include "dsp/CallDetector.h"
#include "dsp/FileClassification.h"

#include <QDebug>

#include <algorithm>
#include <utility>

namespace {

void logParameters(const SpectrogramInput& input, float frameSize, int sampleRate)
{
    qDebug() << "Number of ffts " << input.geometry.frames;
    qDebug() << "Window Size" << input.geometry.windowSize;
    qDebug() << "Frame Size" << frameSize;
    qDebug() << "Framed Window" << input.geometry.framed;
    qDebug() << "Overlap Samples" << input.geometry.overlapSamples;
    qDebug() << "Window" << input.window;
    qDebug() << "SampleRate" << sampleRate;
}

QString tooLargeText(const SpectrogramGeometry& geometry)
{
    return QStringLiteral(
               "The spectrogram would have %1 x %2 values, more than fit into memory.\nPlease choose a "
               "smaller overlap, or let the overlap be reduced automatically.")
        .arg(geometry.frames)
        .arg(geometry.bins);
}

} // namespace

calcSpectrogramThread::calcSpectrogramThread(UserPrompts& prompts, Loader loader)
    : m_prompts(prompts), m_loader(std::move(loader))
{}

void calcSpectrogramThread::process(int sampleSize, int bitsPerSample, int windowSize, float frameSize,
                                    const QString& window, double overlap, std::vector<int>* timedata,
                                    int sampleRate, bool categorize)
{
    const auto loaded = timedata ? static_cast<qint64>(timedata->size()) : 0;
    const auto sampleCount = static_cast<int>(std::min<qint64>(sampleSize, loaded));
    SpectrogramInput input;
    input.samples = timedata ? timedata->data() : nullptr;
    input.bitsPerSample = bitsPerSample;
    input.window = window;
    input.geometry = SpectrogramGeometry::of(sampleCount, windowSize, frameSize, overlap);
    logParameters(input, frameSize, sampleRate);

    Spectrogram result;
    const auto outputs = categorize ? SpectrogramEngine::Both : SpectrogramEngine::Decibels;
    if (!compute(input, outputs, result))
        return;
    std::unordered_map<int, Blob> blobs;
    QStringList classes;
    QList<MyBatCall> calls;
    if (categorize) {
        CallDetector::detect(result.image, static_cast<float>(overlap), sampleRate, sampleCount, blobs,
                             classes, calls);
        result.image = AmplitudeImage();
    }
    if (!m_stop)
        emit finished(result.decibels, result.frames, result.minimum, result.maximum, blobs, classes, calls);
}

void calcSpectrogramThread::processVantor(int index, const QString& wavDirectory)
{
    if (m_stop)
        return;
    const LoadedSamples recording = m_loader(wavDirectory);
    if (m_stop)
        return;
    if (recording.samples.empty()) {
        m_prompts.warn(QStringLiteral("Warning"), QStringLiteral("The file ") + wavDirectory +
                                                      QStringLiteral(" could not be loaded.\nCategorization "
                                                                     "aborted!"));
        return;
    }
    QStringList classes;
    const auto outcome =
        detectFileClasses(recording.samples, recording.bitsPerSample, recording.sampleRate, m_stop, &classes);
    if (outcome == SpectrogramEngine::Outcome::TooLarge)
        emit error(tooLargeText(fileClassGeometry(static_cast<qint64>(recording.samples.size()))));
    else if (outcome == SpectrogramEngine::Outcome::Complete && !m_stop)
        emit vantorFinished(index, classes);
}

bool calcSpectrogramThread::compute(const SpectrogramInput& input, SpectrogramEngine::Output outputs,
                                    Spectrogram& result)
{
    SpectrogramEngine engine;
    engine.setStopFlag(&m_stop);
    engine.setProgress([this](int percent) { emit signalProgressBar(percent); });
    const auto outcome = engine.compute(input, outputs, result);
    if (outcome == SpectrogramEngine::Outcome::TooLarge)
        emit error(tooLargeText(input.geometry));
    return outcome == SpectrogramEngine::Outcome::Complete;
}
