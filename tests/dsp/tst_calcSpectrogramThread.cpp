#include "dsp/CallDetector.h"
#include "dsp/SignalTypes.h"
#include "dsp/calcSpectrogramThread.h"
#include "tests/support/ScriptedPrompts.h"

#include <QThread>
#include <QtTest>

#include <cmath>

namespace {

constexpr int rate = 300000;

/// Half a second of faint noise with four calls of 8 ms that fall from 60 to 45 kHz.
std::vector<int> nightWithCalls()
{
    std::vector<int> samples(rate / 2);
    unsigned noise = 1;
    for (int i = 0; i < static_cast<int>(samples.size()); ++i) {
        noise = noise * 1664525U + 1013904223U;
        samples[i] = static_cast<int>(noise >> 28) - 8;
        const double t = i % (rate / 8) / static_cast<double>(rate);
        if (t < 0.008)
            samples[i] += static_cast<int>(8000 * std::sin(M_PI * t / 0.008) *
                                           std::sin(2 * M_PI * (60000 * t - 15000 / 0.016 * t * t)));
    }
    return samples;
}

/// What arrives on the GUI thread.
struct Answer
{
    QVector<double> data;
    int numberOfFfts = -1;
    double minValue = 0;
    double maxValue = 0;
    std::unordered_map<int, Blob> blobs;
    QStringList classes;
    QList<MyBatCall> calls;
};

struct Parameters
{
    int windowSize = 1024;
    double overlap = 50;
    bool categorize = false;
};

} // namespace

/// The worker on a thread of its own, asked by queued calls as in the program.
class tst_calcSpectrogramThread : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { registerSignalTypes(); }

    void init()
    {
        m_recordings.clear();
        m_worker = new calcSpectrogramThread(m_prompts, [this](const QString& path) {
            return LoadedSamples{m_recordings.value(path), 16, rate};
        });
        m_worker->moveToThread(&m_thread);
        connect(&m_thread, &QThread::finished, m_worker, &QObject::deleteLater);
        m_thread.start();
        m_finished.clear();
        m_progress.clear();
        m_vantorFinished.clear();
        m_errors.clear();
        connect(m_worker, &calcSpectrogramThread::finished, this,
                [this](const QVector<double>& data, int numberOfFfts, double minValue, double maxValue,
                       const std::unordered_map<int, Blob>& blobs, const QStringList& classes,
                       const QList<MyBatCall>& calls) {
                    m_finished.append({data, numberOfFfts, minValue, maxValue, blobs, classes, calls});
                });
        connect(m_worker, &calcSpectrogramThread::signalProgressBar, this,
                [this](int k) { m_progress.append(k); });
        connect(m_worker, &calcSpectrogramThread::vantorFinished, this,
                [this](int index, const QStringList& classes) {
                    m_vantorFinished.append({index, classes});
                });
        connect(m_worker, &calcSpectrogramThread::error, this,
                [this](const QString& text) { m_errors.append(text); });
    }

    void cleanup()
    {
        m_thread.quit();
        QVERIFY(m_thread.wait(20000));
        QCOMPARE(m_prompts.takeAsked(), QStringList());
    }

    void computes()
    {
        std::vector<int> samples = nightWithCalls();
        request(samples, {});
        const Answer answer = takeAnswer();
        const auto geometry = SpectrogramGeometry::of(rate / 2, 1024, 100, 50);
        Spectrogram expected;
        SpectrogramEngine().compute({samples.data(), 16, geometry, "Hann"}, SpectrogramEngine::Decibels,
                                    expected);
        QCOMPARE(answer.data, expected.decibels);
        QCOMPARE(answer.numberOfFfts, 291);
        QCOMPARE(answer.minValue, expected.minimum);
        QCOMPARE(answer.maxValue, expected.maximum);
        QVERIFY(answer.blobs.empty() && answer.classes.isEmpty() && answer.calls.isEmpty());
        QCOMPARE(m_progress.size(), 146); // every other frame
        QCOMPARE(m_progress.last(), 99);
    }

    void detectsCallsWhenAsked()
    {
        std::vector<int> samples = nightWithCalls();
        request(samples, {1024, 87.5, false});
        const Answer plain = takeAnswer();
        request(samples, {1024, 87.5, true});
        const Answer answer = takeAnswer();
        QCOMPARE(answer.classes,
                 classesOf(samples, SpectrogramGeometry::of(rate / 2, 1024, 100, 87.5), "Hann"));
        QVERIFY(answer.classes.contains("PipNat"));
        QCOMPARE(answer.calls.size(), answer.classes.size());
        QCOMPARE(static_cast<int>(answer.blobs.size()), answer.classes.size());
        // The matrix is that of the recording, not of what the detection leaves.
        QCOMPARE(answer.data, plain.data);
    }

    void answersToNothing()
    {
        for (const int length : {1023, 0}) { // shorter than the window
            for (const bool categorize : {false, true}) {
                std::vector<int> samples(length, 7);
                request(samples, {1024, 50, categorize}, 5000); // more than there are
                const Answer answer = takeAnswer();
                QCOMPARE(answer.numberOfFfts, 0);
                QVERIFY(answer.data.isEmpty() && answer.classes.isEmpty());
                QCOMPARE(answer.minValue, 0.0);
                QCOMPARE(answer.maxValue, -5000.0);
                QVERIFY(m_progress.isEmpty() && m_errors.isEmpty());
            }
        }
        std::vector<int> samples(5000, 7);
        request(samples, {}, 1023);
        QCOMPARE(takeAnswer().numberOfFfts, 0);
    }

    void saysThatAMatrixIsTooLarge()
    {
        std::vector<int> samples(8'700'000);
        request(samples, {2048, 98.4375, true});
        std::vector<int> next = nightWithCalls();
        request(next, {});
        QCOMPARE(takeAnswer().numberOfFfts, 291);
        QCOMPARE(m_errors.size(), 1);
        QVERIFY2(m_errors[0].contains("271812 x 1023"), qPrintable(m_errors[0]));
    }

    void stopsWithoutAnAnswer()
    {
        std::vector<int> samples(60'000'000);
        connect(m_worker, &calcSpectrogramThread::signalProgressBar, m_worker,
                &calcSpectrogramThread::requestStop, Qt::DirectConnection);
        request(samples, {64, 0, false});
        request(samples, {});
        QMetaObject::invokeMethod(m_worker, "processVantor", Q_ARG(int, 1), Q_ARG(QString, "/gone.wav"));
        m_thread.quit();
        QVERIFY(m_thread.wait(20000));
        QCoreApplication::processEvents();
        QVERIFY(m_finished.isEmpty() && m_vantorFinished.isEmpty() && m_errors.isEmpty());
        QVERIFY(!m_progress.isEmpty());
    }

    void classifiesForTheEvaluationTool()
    {
        m_recordings["/night/calls.wav"] = nightWithCalls();
        m_recordings["/night/silent.wav"] = std::vector<int>(rate);
        m_recordings["/night/short.wav"] = std::vector<int>(100);
        int index = 4;
        for (const char* path : {"/night/calls.wav", "/night/silent.wav", "/night/short.wav"}) {
            QMetaObject::invokeMethod(m_worker, "processVantor", Q_ARG(int, index), Q_ARG(QString, path));
            QTRY_COMPARE_WITH_TIMEOUT(m_vantorFinished.size(), 1, 20000);
            const auto [answeredIndex, classes] = m_vantorFinished.takeFirst();
            QCOMPARE(answeredIndex, index);
            QCOMPARE(classes, vantorClasses(m_recordings.value(path)));
            QCOMPARE(classes.isEmpty(), index > 4);
            ++index;
        }
        QVERIFY(m_progress.isEmpty() && m_finished.isEmpty());
    }

    void tellsOfAFileThatCannotBeLoaded()
    {
        QMetaObject::invokeMethod(m_worker, "processVantor", Q_ARG(int, 0), Q_ARG(QString, "/gone.wav"));
        std::vector<int> samples = nightWithCalls();
        request(samples, {}); // answered after the other request is done
        takeAnswer();
        QVERIFY(m_vantorFinished.isEmpty());
        QCOMPARE(
            m_prompts.takeAsked(),
            QStringList("warning|Warning|The file /gone.wav could not be loaded.\nCategorization aborted!"));
    }

private:
    void request(std::vector<int>& samples, const Parameters& parameters, int sampleSize = -1)
    {
        QMetaObject::invokeMethod(m_worker, "process", Qt::QueuedConnection,
                                  Q_ARG(int, sampleSize < 0 ? static_cast<int>(samples.size()) : sampleSize),
                                  Q_ARG(int, 16), Q_ARG(int, parameters.windowSize), Q_ARG(float, 100.0F),
                                  Q_ARG(QString, "Hann"), Q_ARG(double, parameters.overlap),
                                  Q_ARG(std::vector<int>*, &samples), Q_ARG(int, rate),
                                  Q_ARG(bool, parameters.categorize));
    }

    Answer takeAnswer()
    {
        if (!QTest::qWaitFor([this] { return !m_finished.isEmpty(); }, 20000)) {
            QTest::qFail("no answer", __FILE__, __LINE__);
            return {};
        }
        return m_finished.takeFirst();
    }

    /// With the fixed parameters: 512 samples, Hamming, and a hop of 65 that counts as 87.5 %.
    static QStringList vantorClasses(const std::vector<int>& samples)
    {
        SpectrogramGeometry geometry;
        geometry.windowSize = geometry.framed = 512;
        geometry.hop = 65;
        geometry.bins = 255;
        geometry.frames = samples.size() < 512 ? 0 : static_cast<qint64>(samples.size() - 512) / 65 + 1;
        return classesOf(samples, geometry, "Hamming");
    }

    static QStringList classesOf(const std::vector<int>& samples, const SpectrogramGeometry& geometry,
                                 const QString& window)
    {
        Spectrogram spectrogram;
        SpectrogramEngine().compute({samples.data(), 16, geometry, window}, SpectrogramEngine::Image,
                                    spectrogram);
        std::unordered_map<int, Blob> blobs;
        QStringList classes;
        QList<MyBatCall> calls;
        CallDetector::detect(spectrogram.image, 87.5F, rate, static_cast<int>(samples.size()), blobs, classes,
                             calls);
        return classes;
    }

    ScriptedPrompts m_prompts;
    QHash<QString, std::vector<int>> m_recordings;
    QThread m_thread;
    calcSpectrogramThread* m_worker = nullptr;
    QList<Answer> m_finished;
    QVector<int> m_progress;
    QList<std::pair<int, QStringList>> m_vantorFinished;
    QStringList m_errors;
};

QTEST_GUILESS_MAIN(tst_calcSpectrogramThread)
#include "tst_calcSpectrogramThread.moc"
