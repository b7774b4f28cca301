#include "recordings/SampleConversion.h"

#include <QtEndian>

#include <algorithm>
#include <limits>
#include <memory>
#include <new>

namespace {

/// Bytes per read: a multiple of every sample size, small enough for bytes and values to stay in the cache.
constexpr qint64 blockBytes = 3 * 32768;

void convert8(const uchar* bytes, int* values, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        values[i] = static_cast<qint8>(bytes[i]);
}

void convert16(const uchar* bytes, int* values, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        values[i] = qFromLittleEndian<qint16>(bytes + 2 * i);
}

void convert24(const uchar* bytes, int* values, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        const uchar* stored = bytes + 3 * i;
        values[i] = static_cast<qint8>(stored[2]) * 65536 + (stored[1] << 8 | stored[0]);
    }
}

void convert32(const uchar* bytes, int* values, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        values[i] = qFromLittleEndian<qint32>(bytes + 4 * i);
}

using Converter = void (*)(const uchar*, int*, std::size_t);

Converter converterFor(int bytesPerSample)
{
    switch (bytesPerSample) {
    case 1:
        return convert8;
    case 2:
        return convert16;
    case 3:
        return convert24;
    case 4:
        return convert32;
    default:
        return nullptr;
    }
}

bool readExactly(QIODevice& device, char* bytes, qint64 count)
{
    while (count > 0) {
        const qint64 got = device.read(bytes, count);
        if (got <= 0)
            return false;
        bytes += got;
        count -= got;
    }
    return true;
}

/// Appends the converted bytes, block by block, to a vector that has the room.
bool appendBlocks(QIODevice& device, qint64 byteCount, int bytesPerSample, std::vector<int>* samples)
{
    const Converter convert = converterFor(bytesPerSample);
    const std::unique_ptr<char[]> block(new char[static_cast<std::size_t>(std::min(byteCount, blockBytes))]);
    while (byteCount > 0) {
        const qint64 bytes = std::min(byteCount, blockBytes);
        if (!readExactly(device, block.get(), bytes))
            return false;
        const auto count = static_cast<std::size_t>(bytes / bytesPerSample);
        const std::size_t done = samples->size();
        samples->resize(done + count);
        convert(reinterpret_cast<const uchar*>(block.get()), samples->data() + done, count);
        byteCount -= bytes;
    }
    return true;
}

} // namespace

bool readSamples(QIODevice& device, qint64 byteCount, int bytesPerSample, std::vector<int>* samples)
{
    samples->clear();
    Q_ASSERT(converterFor(bytesPerSample));
    const qint64 frames = byteCount / bytesPerSample;
    if (frames == 0)
        return true;
    if (frames > std::numeric_limits<int>::max())
        return false;
    try {
        samples->reserve(static_cast<std::size_t>(frames));
    } catch (const std::bad_alloc&) {
        return false;
    }
    if (!device.seek(device.pos() + bytesPerSample) ||
        !appendBlocks(device, (frames - 1) * bytesPerSample, bytesPerSample, samples)) {
        *samples = {};
        return false;
    }
    samples->push_back(0);
    return true;
}
