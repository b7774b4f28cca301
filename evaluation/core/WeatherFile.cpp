#include "evaluation/core/WeatherFile.h"

#include "evaluation/core/RecorderClock.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>

namespace {

using Text = std::string_view;

constexpr std::size_t longestLine = 4096;
constexpr qint64 pieceSize = qint64(512) * 1024;
constexpr double readingShare = 0.9; ///< of the work; bringing in order is the rest

bool isIgnored(char c)
{
    return c == '"' || c == '\n' || c == '\r';
}

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

/// `field` without quotes, line ends and blanks around; what stands within goes to `buffer`.
Text cleaned(Text field, std::string& buffer)
{
    if (std::any_of(field.begin(), field.end(), isIgnored)) {
        buffer.clear();
        std::copy_if(field.begin(), field.end(), std::back_inserter(buffer),
                     [](char c) { return !isIgnored(c); });
        field = buffer;
    }
    while (!field.empty() && isBlank(field.front()))
        field.remove_prefix(1);
    while (!field.empty() && isBlank(field.back()))
        field.remove_suffix(1);
    return field;
}

/// The number that fills `digits`; -1 when it is none.
int wholeNumber(Text digits)
{
    int value = 0;
    for (const char c : digits) {
        if (c < '0' || c > '9')
            return -1;
        value = 10 * value + (c - '0');
    }
    return digits.empty() ? -1 : value;
}

/// With a "." as decimal point. What is not finite is no value.
std::optional<float> finiteNumber(Text text)
{
    if (text.size() > 1 && text.front() == '+' && text[1] != '-')
        text.remove_prefix(1);
    float value = 0.0F;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

/// Where year, month and day stand in a date of ten characters, and what is between them.
struct DateLayout
{
    std::size_t year = 0;
    std::size_t month = 5;
    std::size_t day = 8;
    std::size_t gap1 = 4;
    std::size_t gap2 = 7;
    char gap = '-';

    /// From a format such as "dd.mm.yyyy".
    static DateLayout of(const QString& format)
    {
        DateLayout layout;
        layout.year = static_cast<std::size_t>(format.indexOf(QLatin1Char('y')));
        layout.month = static_cast<std::size_t>(format.indexOf(QLatin1Char('m')));
        layout.day = static_cast<std::size_t>(format.indexOf(QLatin1Char('d')));
        layout.gap1 = layout.year == 0 ? 4 : 2;
        layout.gap2 = layout.year == 0 ? 7 : 5;
        layout.gap = format.at(static_cast<int>(layout.gap1)).toLatin1();
        return layout;
    }

    QDate read(Text text) const
    {
        if (text.size() != 10 || text[gap1] != gap || text[gap2] != gap)
            return {};
        const int years = wholeNumber(text.substr(year, 4));
        return years < 0 ? QDate()
                         : QDate(years, wholeNumber(text.substr(month, 2)), wholeNumber(text.substr(day, 2)));
    }
};

QTime timeOf(Text text, char gap)
{
    if (text.size() != 8 || text[2] != gap || text[5] != gap)
        return {};
    return {wholeNumber(text.substr(0, 2)), wholeNumber(text.substr(3, 2)), wholeNumber(text.substr(6, 2))};
}

/// Hands the lines of a file on, one at a time; those that are too long are counted only.
class LineReader
{
public:
    explicit LineReader(const QString& filePath) : m_file(filePath) {}

    /// `take` returns false for a line of no use and `isEnough` true to stop.
    template <typename Take, typename Enough>
    void read(WeatherRead& result, const Take& take, const Enough& isEnough,
              const WeatherFile::Progress& progress)
    {
        // Devices and pipes have no end.
        result.isOpened =
            QFileInfo(m_file).isFile() && m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
        if (!result.isOpened)
            return;
        QByteArray piece(static_cast<int>(pieceSize), Qt::Uninitialized);
        qint64 position = 0;
        for (;;) {
            const qint64 count = m_file.read(piece.data(), pieceSize);
            if (count < 0)
                return;
            if (count == 0)
                break;
            Text bytes(piece.constData(), static_cast<std::size_t>(count));
            if (position == 0 && bytes.substr(0, 3) == "\xEF\xBB\xBF")
                bytes.remove_prefix(3);
            if (!splitLines(bytes, result, take, isEnough))
                return;
            position += count;
            const double total = static_cast<double>(std::max(m_file.size(), position));
            if (progress && !progress(readingShare * static_cast<double>(position) / total))
                return;
        }
        if (!m_rest.empty() || m_isTooLong)
            finishLine(m_rest, result, take);
        result.isComplete = true;
    }

private:
    template <typename Take, typename Enough>
    bool splitLines(Text bytes, WeatherRead& result, const Take& take, const Enough& isEnough)
    {
        for (std::size_t end = bytes.find('\n'); end != Text::npos; end = bytes.find('\n')) {
            if (m_rest.empty() && !m_isTooLong) {
                finishLine(bytes.substr(0, end), result, take);
            } else {
                keep(bytes.substr(0, end));
                finishLine(m_rest, result, take);
            }
            if (isEnough())
                return false;
            bytes.remove_prefix(end + 1);
        }
        keep(bytes);
        return true;
    }

    void keep(Text bytes)
    {
        m_isTooLong = m_isTooLong || m_rest.size() + bytes.size() > longestLine;
        if (m_isTooLong)
            m_rest.clear();
        else
            m_rest.append(bytes);
    }

    template <typename Take>
    void finishLine(Text line, WeatherRead& result, const Take& take)
    {
        const bool isUsed = !m_isTooLong && line.size() <= longestLine && take(line);
        ++(isUsed ? result.usedLines : result.skippedLines);
        m_rest.clear();
        m_isTooLong = false;
    }

    QFile m_file;
    std::string m_rest; ///< the begin of a line that goes on in the next piece
    bool m_isTooLong = false;
};

/// Reads the lines of the temperature and precipitation file.
class TemperatureLines
{
public:
    bool take(Text line, WeatherRead& result)
    {
        const char separator = line.find('\t') != Text::npos ? '\t' : ',';
        std::array<Text, 3> fields;
        for (std::size_t i = 0; i < fields.size(); ++i) {
            const std::size_t end = line.find(separator);
            const bool isLast = i + 1 == fields.size();
            if (isLast != (end == Text::npos))
                return false; // not three fields
            fields[i] = cleaned(line.substr(0, end), m_buffers[i]);
            line.remove_prefix(isLast ? line.size() : end + 1);
        }
        const Text stamp = fields[0];
        if (stamp.size() < 18)
            return false;
        const QDate date = m_layout.read(stamp.substr(0, 10));
        const QTime time = timeOf(stamp.substr(stamp.size() - 8), ':');
        if (!date.isValid() || !time.isValid())
            return false;
        return add(result, RecorderClock::wall(date, time), finiteNumber(fields[1]), finiteNumber(fields[2]));
    }

private:
    static bool add(WeatherRead& result, qint64 time, std::optional<float> temperature,
                    std::optional<float> precipitation)
    {
        if (temperature)
            result.temperature.push_back({time, *temperature});
        if (precipitation)
            result.precipitation.push_back({time, *precipitation});
        return temperature || precipitation;
    }

    DateLayout m_layout;
    std::array<std::string, 3> m_buffers;
};

/// Reads the lines of a wind file.
class WindLines
{
public:
    explicit WindLines(const WindFormat& format)
        : m_format(format),
          m_layout(DateLayout::of(format.dateFormat)),
          m_timeGap(format.timeFormat == QLatin1String("hh-mm-ss") ? '-' : ':')
    {}

    bool take(Text line, WeatherRead& result)
    {
        const std::size_t first = line.find(m_format.separator1);
        if (first == Text::npos)
            return false;
        const std::size_t second = line.find(m_format.separator2, first + 1);
        if (second == Text::npos)
            return false;
        const QDate date = m_layout.read(cleaned(line.substr(0, first), m_buffer));
        const QTime time = timeOf(cleaned(line.substr(first + 1, second - first - 1), m_buffer), m_timeGap);
        if (!date.isValid() || !time.isValid())
            return false;
        std::string number(cleaned(line.substr(second + 1), m_buffer));
        std::replace(number.begin(), number.end(), m_format.decimalSeparator, '.');
        const std::optional<float> value = finiteNumber(number);
        if (value)
            result.windSpeed.push_back({m_format.begin(RecorderClock::wall(date, time)), *value});
        return value.has_value();
    }

private:
    WindFormat m_format;
    DateLayout m_layout;
    char m_timeGap;
    std::string m_buffer;
};

bool isEarlier(const WeatherSample& a, const WeatherSample& b)
{
    return a.time < b.time;
}

/// Keeps the first of several samples of a time. Returns how many others there were.
qint64 makeUnique(WeatherSamples& samples)
{
    const auto end = std::unique(samples.begin(), samples.end(),
                                 [](const auto& a, const auto& b) { return a.time == b.time; });
    const qint64 others = samples.end() - end;
    samples.erase(end, samples.end());
    if (samples.size() < samples.capacity() / 2)
        samples.shrink_to_fit();
    return others;
}

/// A stable merge sort that calls `step` with the number of samples moved, every few milliseconds: millions
/// of samples take seconds.
template <typename Step>
void sortInSteps(WeatherSamples& samples, const Step& step)
{
    if (std::is_sorted(samples.begin(), samples.end(), isEarlier))
        return;
    const auto at = [&](std::size_t i) {
        return samples.begin() + static_cast<std::ptrdiff_t>(std::min(i, samples.size()));
    };
    std::size_t run = 65536;
    double levels = 1.0;
    for (std::size_t i = run; i < samples.size(); i *= 2)
        levels += 1.0;
    for (std::size_t i = 0; i < samples.size(); i += run) {
        std::stable_sort(at(i), at(i + run), isEarlier);
        step(static_cast<double>(run) / levels);
    }
    for (; run < samples.size(); run *= 2) {
        for (std::size_t i = 0; i + run < samples.size(); i += 2 * run) {
            std::inplace_merge(at(i), at(i + run), at(i + 2 * run), isEarlier);
            step(2.0 * static_cast<double>(run) / levels);
        }
    }
}

void bringInOrder(WeatherRead& result, const WeatherFile::Progress& progress)
{
    const double share = (1.0 - readingShare) / static_cast<double>(std::max(qint64(1), result.samples()));
    double done = readingShare;
    const auto step = [&](double samples) {
        done = std::min(done + samples * share, 0.99);
        if (progress && result.isComplete)
            progress(done);
    };
    for (WeatherSamples* samples : {&result.temperature, &result.precipitation, &result.windSpeed}) {
        sortInSteps(*samples, step);
        result.repeated += makeUnique(*samples);
    }
    if (progress && result.isComplete)
        progress(1.0);
}

} // namespace

QString WeatherRead::text() const
{
    QString text = QStringLiteral("%1 samples read, %2 %3 skipped.")
                       .arg(samples())
                       .arg(skippedLines)
                       .arg(skippedLines == 1 ? QStringLiteral("line") : QStringLiteral("lines"));
    if (repeated > 0)
        text += QStringLiteral(" %1 more had the time of an earlier one.").arg(repeated);
    return text;
}

const QStringList& WindFormat::dateFormats()
{
    static const QStringList formats{QStringLiteral("dd.mm.yyyy"), QStringLiteral("dd-mm-yyyy"),
                                     QStringLiteral("yyyy-mm-dd"), QStringLiteral("dd/mm/yyyy"),
                                     QStringLiteral("mm/dd/yyyy"), QStringLiteral("yyyy/mm/dd")};
    return formats;
}

const QStringList& WindFormat::timeFormats()
{
    static const QStringList formats{QStringLiteral("hh:mm:ss"), QStringLiteral("hh-mm-ss")};
    return formats;
}

qint64 WindFormat::begin(qint64 time) const
{
    constexpr qint64 interval = 600;
    const qint64 beyond = ((time % interval) + interval) % interval;
    if (definition == Definition::End && beyond == 0)
        return time - interval;
    if (definition == Definition::Round)
        return time - beyond;
    return time;
}

WeatherRead WeatherFile::readTemperature(const QString& filePath, const Progress& progress)
{
    WeatherRead result;
    TemperatureLines lines;
    LineReader(filePath).read(
        result, [&](Text line) { return lines.take(line, result); }, [] { return false; }, progress);
    bringInOrder(result, progress);
    return result;
}

WeatherRead WeatherFile::readWind(const QString& filePath, const WindFormat& format, const Progress& progress)
{
    WeatherRead result;
    WindLines lines(format);
    LineReader(filePath).read(
        result, [&](Text line) { return lines.take(line, result); }, [] { return false; }, progress);
    bringInOrder(result, progress);
    return result;
}

WeatherRead WeatherFile::previewWind(const QString& filePath, const WindFormat& format, qint64 wanted)
{
    WeatherRead result;
    WindLines lines(format);
    LineReader(filePath).read(
        result, [&](Text line) { return lines.take(line, result); },
        [&] { return result.samples() >= wanted; }, [](double) { return false; });
    return result;
}

WeatherSamples WeatherFile::inYear(const WeatherSamples& samples, const RecorderClock& station,
                                   const RecorderClock& recorder, int year)
{
    const qint64 begin = RecorderClock::wall(QDate(year, 1, 1));
    const qint64 end = RecorderClock::wall(QDate(year + 1, 1, 1));
    WeatherSamples result;
    for (const WeatherSample& sample : samples) {
        const qint64 utc = station.toUtc(sample.time);
        const qint64 wall = recorder.toWall(utc);
        if (wall >= begin && wall < end && station.toWall(utc) == sample.time)
            result.push_back({utc, sample.value});
    }
    return result;
}
