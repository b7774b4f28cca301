#include "dsp/SpectrogramEngine.h"

#include "dsp/FrameTransformer.h"
#include "dsp/FreshMemory.h"
#include "dsp/WindowShapes.h"

#include <QDebug>

#include <algorithm>
#include <limits>
#include <memory>
#include <system_error>
#include <thread>
#include <vector>

namespace {

/// Room for `cells` doubles, not touched yet: filling them with anything first would cost as much as
/// computing them. False where the vector or the memory cannot hold them.
bool allocate(qint64 cells, QVector<double>& matrix)
{
    constexpr qint64 header = 64; // of a vector, generously
    constexpr qint64 most = (std::numeric_limits<int>::max() - header) / qint64{sizeof(double)};
    if (cells == 0)
        return true;
    if (cells > most)
        return false;
    using Data = QTypedArrayData<double>;
    Data* data = Data::allocate(static_cast<std::size_t>(cells));
    if (!data)
        return false;
    data->size = static_cast<int>(cells);
    matrix = QVector<double>(QArrayDataPointerRef<double>{data});
    return true;
}

bool allocate(const SpectrogramGeometry& geometry, AmplitudeImage& image)
{
    image = AmplitudeImage(static_cast<int>(geometry.frames), geometry.bins);
    return !image.isNull() || image.cells() == 0;
}

bool allocate(const SpectrogramGeometry& geometry, SpectrogramEngine::Output outputs, Spectrogram& result)
{
    constexpr int largestWindow = 1 << 20;
    if (geometry.frames > std::numeric_limits<int>::max() || geometry.windowSize > largestWindow)
        return false;
    result.frames = static_cast<int>(geometry.frames);
    if ((outputs & SpectrogramEngine::Decibels) && !allocate(geometry.cells(), result.decibels))
        return false;
    return !(outputs & SpectrogramEngine::Image) || allocate(geometry, result.image);
}

/// Emits the progress of frames in their order, whatever order they are computed in.
class ProgressSteps
{
public:
    ProgressSteps(const std::function<void(int)>& report, qint64 frames)
        : m_report(report), m_frames(frames), m_step(frames / 100)
    {}

    void advanceTo(qint64 doneFrames)
    {
        if (!m_report || m_step == 0)
            return;
        for (; m_next < doneFrames; m_next += m_step)
            m_report(static_cast<int>(m_next * 100 / m_frames));
    }

private:
    const std::function<void(int)>& m_report;
    qint64 m_frames;
    qint64 m_step;
    qint64 m_next = 0;
};

/// The frames of one computation, handed out in portions to whichever thread is free.
class FrameQueue
{
public:
    FrameQueue(const SpectrogramGeometry& geometry, Spectrogram& result, const std::atomic<bool>* stop)
        : m_frames(geometry.frames),
          m_cells(geometry.cells()),
          m_decibels(result.decibels.isEmpty() ? nullptr : result.decibels.data()),
          m_image(result.image.isNull() ? nullptr : &result.image),
          m_stop(stop)
    {}

    /// Computes portions until none is left or the stop flag is set; each thread calls it once.
    template <typename AfterTile>
    void work(FrameTransformer& transformer, AfterTile afterTile)
    {
        supplyMemory();
        for (;;) {
            const qint64 first = m_next.fetch_add(portion);
            const qint64 end = std::min(first + portion, m_frames);
            for (qint64 frame = first; frame < end; frame += FrameTransformer::tileFrames) {
                if (stopped())
                    return;
                const auto count =
                    static_cast<int>(std::min<qint64>(end - frame, FrameTransformer::tileFrames));
                transformer.transform(frame, count, m_decibels, m_image);
                afterTile(m_done += count);
            }
            if (first >= m_frames)
                return;
        }
    }

    bool stopped() const { return m_stop && m_stop->load(std::memory_order_relaxed); }

private:
    /// Has the memory of the matrix made ready, the threads in turn.
    void supplyMemory()
    {
        while (m_decibels && !stopped()) {
            const qint64 first = m_nextCell.fetch_add(block);
            if (first >= m_cells)
                return;
            supplyPages(m_decibels + first, std::min(block, m_cells - first) * sizeof(double));
        }
    }

    static constexpr qint64 portion = qint64{4} * FrameTransformer::tileFrames;
    static constexpr qint64 block = qint64{1} << 21; // cells, 16 MB

    const qint64 m_frames;
    const qint64 m_cells;
    double* const m_decibels;
    AmplitudeImage* const m_image;
    const std::atomic<bool>* const m_stop;
    std::atomic<qint64> m_nextCell{0};
    std::atomic<qint64> m_next{0};
    std::atomic<qint64> m_done{0};
};

using Transformers = std::vector<std::unique_ptr<FrameTransformer>>;

Transformers makeTransformers(const SpectrogramInput& input, const std::vector<double>& window,
                              int threadCount)
{
    if (threadCount < 1)
        threadCount = static_cast<int>(std::max(std::thread::hardware_concurrency(), 1U));
    const qint64 tiles =
        (input.geometry.frames + FrameTransformer::tileFrames - 1) / FrameTransformer::tileFrames;
    Transformers transformers;
    for (qint64 i = 0; i < std::min<qint64>(threadCount, tiles); ++i)
        transformers.push_back(std::make_unique<FrameTransformer>(input, window));
    return transformers;
}

void logSizeAnswer(int answer)
{
    if (answer == 0)
        qDebug("This size is not a default fixed size of QRealFourier. Using a variable size instead.\n");
    else if (answer == 2)
        qDebug("Invalid FFT size.\n");
}

/// All frames of the queue on as many threads as there are transformers, the calling one among them.
void computeFrames(FrameQueue& queue, const Transformers& transformers, ProgressSteps& progress)
{
    std::vector<std::thread> helpers;
    for (std::size_t i = 1; i < transformers.size(); ++i) {
        try {
            helpers.emplace_back(
                [&queue, &transformer = *transformers[i]] { queue.work(transformer, [](qint64) {}); });
        } catch (const std::system_error&) {
            break; // no more threads to be had: the others do the work
        }
    }
    queue.work(*transformers.front(), [&progress](qint64 done) { progress.advanceTo(done); });
    for (std::thread& helper : helpers)
        helper.join();
}

} // namespace

SpectrogramEngine::Outcome SpectrogramEngine::compute(const SpectrogramInput& input, Output outputs,
                                                      Spectrogram& result) const
{
    result = Spectrogram();
    const SpectrogramGeometry& geometry = input.geometry;
    if (!allocate(geometry, outputs, result)) {
        result = Spectrogram();
        return Outcome::TooLarge;
    }
    const std::vector<double> window = windowShape(input.window, geometry.framed);
    const Transformers transformers = makeTransformers(input, window, m_threadCount);
    if (transformers.empty())
        return Outcome::Complete; // no frames
    DecibelRange range;
    logSizeAnswer(transformers.front()->sizeAnswer());
    FrameQueue queue(geometry, result, m_stop);
    ProgressSteps progress(m_progress, geometry.frames);
    computeFrames(queue, transformers, progress);
    if (queue.stopped()) {
        result = Spectrogram();
        return Outcome::Stopped;
    }
    progress.advanceTo(geometry.frames);
    for (const auto& transformer : transformers) {
        range.minimum = std::min(range.minimum, transformer->range().minimum);
        range.maximum = std::max(range.maximum, transformer->range().maximum);
    }
    result.minimum = std::max(range.minimum, -100.0);
    result.maximum = range.maximum;
    return Outcome::Complete;
}
