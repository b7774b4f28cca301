#include "recordings/RecorderResult.h"

#include "recordings/RecordingsLog.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QTextCodec>

#include <algorithm>
#include <limits>

namespace {

constexpr qint64 largestFile = 256 << 20; ///< a line for each of a million recordings
constexpr int longestName = 1024;         ///< bytes; no file system has longer ones

QString groupClass(const QString& group)
{
    if (group == QLatin1String("Pipistrelloid"))
        return QStringLiteral("Pip");
    if (group == QLatin1String("Nyctaloid"))
        return QStringLiteral("Nyc");
    return group;
}

/// Also where nothing stands before it.
QString further(const QString& name)
{
    return name.isEmpty() ? name : QStringLiteral(", ") + name;
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
    if (mode == RecorderResult::Mode::Groups)
        return groupClass(fields.at(4)) + further(groupClass(fields.at(6)));
    return fields.value(8) + further(fields.value(10)) + further(fields.value(12));
}

/// In UTF-8. A file in which that makes no sense comes from a computer that writes Latin-1.
QByteArray inUtf8(const QByteArray& bytes)
{
    QTextCodec::ConverterState state;
    QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
    return state.invalidChars == 0 ? bytes : QString::fromLatin1(bytes).toUtf8();
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
/// Negative, 0 or positive like strcmp(); a text that the other ends with comes first. What is further back
/// than a name is long makes no difference.
int compareBackwards(const QByteArray& a, int aEnd, const QByteArray& b, int bEnd)
{
    const auto byteBefore = [](const QByteArray& bytes, int end) {
        return end == 0 || bytes.at(end - 1) == '\n' ? -1 : static_cast<uchar>(bytes.at(end - 1));
    };
    for (int i = 0; i < longestName; ++i) {
        const int aByte = byteBefore(a, aEnd - i);
        const int bByte = byteBefore(b, bEnd - i);
        if (aByte != bByte || aByte < 0)
            return aByte - bByte;
    }
    return 0;
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
        m_bytes = inUtf8(file.readAll());
    else
        qCDebug(lcRecordings, "Cannot read the recorder's results");
    m_nameEnds = nameEnds(m_bytes);
    std::sort(m_nameEnds.begin(), m_nameEnds.end(),
              [this](int a, int b) { return compareBackwards(m_bytes, a, m_bytes, b) < 0; });
}

QByteArray RecorderResult::lineContaining(const QByteArray& name) const
{
    if (name.isEmpty() || name.size() > longestName || name.contains('\n'))
        return {};
    const auto below = [this, &name](int end, int) {
        return compareBackwards(m_bytes, end, name, name.size()) < 0;
    };
    int first = std::numeric_limits<int>::max();
    for (auto it = std::lower_bound(m_nameEnds.cbegin(), m_nameEnds.cend(), 0, below);
         it != m_nameEnds.cend() && endsWith(m_bytes, *it, name); ++it)
        first = std::min(first, *it);
    if (first == std::numeric_limits<int>::max())
        return {};
    const int start = first == 0 ? 0 : m_bytes.lastIndexOf('\n', first - 1) + 1;
    int end = m_bytes.indexOf('\n', first);
    end = end < 0 ? m_bytes.size() : end;
    while (end > start && m_bytes.at(end - 1) == '\r')
        --end;
    return m_bytes.mid(start, end - start);
}
