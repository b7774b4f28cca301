// cmake --preset fuzz && cmake --build --preset fuzz --target fuzz_WavReader
// Any bytes as a WAV file: neither way of loading may crash, wait or ask for more memory than the bytes
// warrant, and what they say must fit together. See fuzz/README.md; the corpus is replayed by
// tests/recordings.

#include "fuzz/require.h"
#include "recordings/WavReader.h"

#include <QBuffer>

#include <tuple>

namespace {

/// Everything that does not depend on whether samples were read.
auto header(const WavFields& f)
{
    return std::tie(f.riffFound, f.riffSize, f.fmtFound, f.fmtSize, f.compressionCode, f.channels,
                    f.sampleRate, f.bytesPerSecond, f.blockAlign, f.bitsPerSample, f.bytesPerSample,
                    f.dataFound, f.dataSize, f.dataOffset, f.timeFound, f.timeSize, f.timeChar1,
                    f.timeNumber1, f.timeRecDate, f.timeDate, f.timeChar2, f.timeNumber2, f.timeSecDate,
                    f.timeSecTime, f.timeChar3, f.bextFound, f.bextSize, f.bextDescription, f.bextOriginator,
                    f.bextReference, f.bextDate, f.bextTime, f.bextCodingHistory, f.wamdFound, f.wamdSize,
                    f.wamdDate, f.wamdTime, f.splFound, f.splSize, f.splValue, f.errorText);
}

void checkSamples(const WavFields& full, qint64 fileSize)
{
    if (!full.fmtFound || !full.dataFound) {
        require(full.samples.empty() && !full.valid, "no samples without format and data");
        return;
    }
    require(full.dataSize <= fileSize, "a data chunk that was read lies within the file");
    if (full.samples.empty())
        return;
    require(full.samples.size() == full.frameCount(), "one value per frame");
    require(qint64(full.samples.size()) * full.bytesPerSample <= fileSize, "no more samples than bytes");
    require(full.samples.back() == 0, "the last value is zero");
    const qint64 limit = 1LL << (full.bitsPerSample - 1);
    for (const int value : full.samples)
        require(value >= -limit && value < limit, "values are within the bit depth");
}

void checkTexts(const WavFields& fields, qint64 fileSize)
{
    const qint64 characters = fields.bextDescription.size() + fields.bextCodingHistory.size() +
                              fields.timeChar3.size() + fields.splValue.size() + fields.wamdDate.size();
    require(characters <= fileSize, "no more text than bytes");
    require(fields.bextDescription.size() <= 256 && fields.splValue.size() <= 8, "fields keep their width");
    require(fields.timeRecDate.isEmpty() || fields.timeRecDate.size() == 8, "a date or none");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);

    WavReader full;
    full.load(buffer, false);
    checkSamples(full, bytes.size());
    checkTexts(full, bytes.size());

    static WavReader used; // carries whatever the input before left behind
    used.load(buffer, true);
    require(used.samples.empty() && !used.valid, "a header-only load makes no samples");
    checkTexts(used, bytes.size());
    if (full.errorText != QStringLiteral("Data format not supported."))
        require(header(full) == header(used), "both ways of loading read the same header");
    used.load(buffer, false);
    require(header(full) == header(used) && full.samples == used.samples && full.valid == used.valid,
            "a used reader reads what a fresh one does");
    return 0;
}
