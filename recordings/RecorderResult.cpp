#include "recordings/RecorderResult.h"

#include "recordings/RecordingsLog.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <algorithm>
#include <limits>

namespace {

constexpr qint64 largestFile = 256 << 20; ///< a line for each of a million recordings

QString groupClass(const QString& group)
{
    if (group == QLatin1String("Pipistrelloid"))
        return QStringLiteral("Pip");
    if (group == QLatin1String("Nyctaloid"))
        return QStringLiteral("Nyc");
    return group;
}

QString proposalOf(const QString& line, RecorderResult::Mode mode)
{
    const QStringList fields = line.split(QLatin1Char('\t'));
    if (fields.size() < 7)
        return {};
    const QString& kind = fields.at(3);
    if (kind == QLatin1String("noise") || kind == QLatin1String("test"))
        return QStringLiteral("No Call");
    if (kind != QLatin1String("bat"))
        return {};
    QStringList classes;
    if (mode == RecorderResult::Mode::Groups)
        classes = QStringList{groupClass(fields.at(4)), groupClass(fields.at(6))};
    else
        classes = QStringList{fields.value(8), fields.value(10), fields.value(12)};
    classes.removeAll(QString());
    return classes.join(QStringLiteral(", "));
}

/// Offsets behind every ".wav", in any case, in ascending order.
std::vector<int> nameEnds(const QByteArray& bytes)
{
    std::vector<int> ends;
    for (int dot = bytes.indexOf('.'); dot >= 0; dot = bytes.indexOf('.', dot + 1))
        if (qstrnicmp(bytes.constData() + dot, ".wav", 4) == 0)
            ends.push_back(dot + 4);
    return ends;
}

/// The bytes before `end`, back to the start of the line, compared from the last to the first.
/// Negative, 0 or positive like strcmp(); a text that the other ends with comes first.
int compareBackwards(const QByteArray& a, int aEnd, const QByteArray& b, int bEnd)
{
    const auto byteBefore = [](const QByteArray& bytes, int end) {
        return end == 0 || bytes.at(end - 1) == '\n' ? -1 : static_cast<uchar>(bytes.at(end - 1));
    };
    for (;; --aEnd, --bEnd) {
        const int aByte = byteBefore(a, aEnd);
        const int bByte = byteBefore(b, bEnd);
        if (aByte != bByte || aByte < 0)
            return aByte - bByte;
    }
}

bool endsWith(const QByteArray& bytes, int end, const QByteArray& name)
{
    return end >= name.size() && std::equal(name.cbegin(), name.cend(), bytes.cbegin() + (end - name.size()));
}

} // namespace

QString RecorderResult::proposal(const QString& resultFileName, const QString& wavFileName, Mode mode)
{
    load(resultFileName);
    const QByteArray name = wavFileName.mid(wavFileName.lastIndexOf(QLatin1Char('/')) + 1).toUtf8();
    return proposalOf(QString::fromUtf8(lineContaining(name)), mode);
}

void RecorderResult::load(const QString& resultFileName)
{
    const QFileInfo info(resultFileName);
    if (info.filePath() == m_fileName && info.lastModified() == m_modified && info.size() == m_size)
        return;
    m_fileName = info.filePath();
    m_modified = info.lastModified();
    m_size = info.size();
    m_bytes.clear();
    m_nameEnds.clear();
    QFile file(resultFileName);
    if (info.isFile() && m_size <= largestFile && file.open(QIODevice::ReadOnly))
        m_bytes = file.readAll();
    else
        qCDebug(lcRecordings, "Cannot read the recorder's results");
    m_nameEnds = nameEnds(m_bytes);
    std::sort(m_nameEnds.begin(), m_nameEnds.end(),
              [this](int a, int b) { return compareBackwards(m_bytes, a, m_bytes, b) < 0; });
}

QByteArray RecorderResult::lineContaining(const QByteArray& name) const
{
    const auto below = [this, &name](int end, int) {
        return compareBackwards(m_bytes, end, name, name.size()) < 0;
    };
    int first = std::numeric_limits<int>::max();
    for (auto it = std::lower_bound(m_nameEnds.cbegin(), m_nameEnds.cend(), 0, below);
         it != m_nameEnds.cend() && endsWith(m_bytes, *it, name); ++it)
        first = std::min(first, *it);
    if (name.isEmpty() || first == std::numeric_limits<int>::max())
        return {};
    const int start = first == 0 ? 0 : m_bytes.lastIndexOf('\n', first - 1) + 1;
    int end = m_bytes.indexOf('\n', first);
    end = end < 0 ? m_bytes.size() : end;
    if (end > start && m_bytes.at(end - 1) == '\r')
        --end;
    return m_bytes.mid(start, end - start);
}
