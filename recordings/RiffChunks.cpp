#include "recordings/RiffChunks.h"

#include <algorithm>
#include <cstring>

RiffChunks::RiffChunks(QIODevice& device) : m_device(device), m_fileSize(device.size())
{}

RiffChunks::Opening RiffChunks::readOpening()
{
    Opening opening;
    quint32 size = 0;
    m_end = m_fileSize;
    if (!readNumber(&opening.riffTag))
        opening.riffTag = 0;
    else if (readNumber(&size)) {
        opening.riffSize = size;
        if (!readNumber(&opening.formTag))
            opening.formTag = 0;
    }
    m_end = m_position;
    return opening;
}

RiffChunks::Step RiffChunks::next()
{
    if (m_end > m_fileSize)
        return Step::CutShort;
    m_position = m_end;
    if (m_position == m_fileSize)
        return Step::End;
    if (++m_count > maxChunks)
        return Step::TooMany;
    m_end = m_fileSize; // the chunk header is read with the whole rest of the file at hand
    if (!readNumber(&m_id))
        return Step::PartialId;
    if (!readNumber(&m_size))
        return Step::PartialSize;
    m_end = m_position + m_size;
    return Step::Chunk;
}

bool RiffChunks::skip(qint64 count)
{
    if (count > available())
        return false;
    m_position += count;
    return true;
}

bool RiffChunks::fetch(char* bytes, qint64 count)
{
    while (count > 0) { // the walk never turns back, so a byte outside the window lies behind it
        const qint64 offset = m_position - m_windowStart;
        if (offset >= m_windowSize) {
            if (!fillWindow())
                return false;
            continue;
        }
        const qint64 taken = std::min(count, m_windowSize - offset);
        std::memcpy(bytes, m_window.data() + offset, static_cast<std::size_t>(taken));
        bytes += taken;
        count -= taken;
        m_position += taken;
    }
    return true;
}

bool RiffChunks::fillWindow()
{
    const qint64 wanted = std::min<qint64>(static_cast<qint64>(m_window.size()), m_fileSize - m_position);
    m_windowSize = 0;
    m_windowStart = m_position;
    if (m_device.seek(m_position))
        m_windowSize = std::max<qint64>(0, m_device.read(m_window.data(), wanted));
    return m_windowSize > 0;
}
