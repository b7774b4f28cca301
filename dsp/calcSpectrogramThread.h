#ifndef SONAVIA_DSP_CALCSPECTROGRAMTHREAD_H
#define SONAVIA_DSP_CALCSPECTROGRAMTHREAD_H

#include "base/UserPrompts.h"
#include "dsp/Blob.h"
#include "dsp/MyBatCall.h"
#include "dsp/SpectrogramEngine.h"

#include <QList>
#include <QObject>
#include <QStringList>
#include <QVector>

#include <atomic>
#include <functional>
#include <unordered_map>
#include <vector>

/// The samples of a recording and what is needed to read them. No samples: the recording could not be loaded.
struct LoadedSamples
{
    std::vector<int> samples;
    int bitsPerSample = 16;
    int sampleRate = 0; ///< Hz
};

/// The worker that computes spectrograms and detects calls, off the GUI thread.
///
/// Made on the GUI thread, without parent, and moved to a thread of its own, which is to end (quit and wait)
/// before the worker is deleted. Requests are queued signals connected to the slots; there is one answer to
/// each, and nothing is kept from one to the next. registerSignalTypes() comes first.
class calcSpectrogramThread : public QObject
{
    Q_OBJECT

public:
    /// Reads a recording (*.wav or *.raw) by its full path; called on the worker's thread.
    using Loader = std::function<LoadedSamples(const QString& path)>;

    /// `prompts` outlives the worker.
    calcSpectrogramThread(UserPrompts& prompts, Loader loader);

    /// For closing the program: a running computation returns within a few milliseconds without an answer,
    /// and requests that are still queued are dropped. For good. Callable from any thread.
    void requestStop() { m_stop = true; }

public slots:
    /// Computes the spectrogram of `sampleSize` samples in *timedata, which stay the sender's and must
    /// neither change nor go before the answer. `frameSize` and `overlap` in percent, see
    /// SpectrogramParameters. With `categorize` calls are detected as well. Answers with signalProgressBar()
    /// and finished(), or with error() when the matrix does not fit into memory.
    void process(int sampleSize, int bitsPerSample, int windowSize, float frameSize, const QString& window,
                 double overlap, std::vector<int>* timedata, int sampleRate, bool categorize);

    /// Classifies the recording whose full path is `wavDirectory`, with fixed parameters. Answers with
    /// vantorFinished(); tells the user where the recording cannot be loaded, without a signal then.
    void processVantor(int index, const QString& wavDirectory);

signals:
    /// The matrix as in Spectrogram::decibels, with `numberOfFfts` columns, and the detected regions, class
    /// texts and calls as CallDetector gives them. A recording shorter than the window has 0 columns, an
    /// empty matrix, and the inverted range 0 .. -5000.
    void finished(const QVector<double>& data, int numberOfFfts, double minValue, double maxValue,
                  const std::unordered_map<int, Blob>& blobs, const QStringList& classes,
                  const QList<MyBatCall>& calls);
    void signalProgressBar(int k); ///< percent
    void vantorFinished(int index, const QStringList& classes);
    void error(const QString& err);

private:
    /// False where there is no result to go on with; what is to be said about it has been said.
    bool compute(const SpectrogramInput& input, SpectrogramEngine::Output outputs, Spectrogram& result);

    UserPrompts& m_prompts;
    Loader m_loader;
    std::atomic<bool> m_stop{false};
};

#endif
