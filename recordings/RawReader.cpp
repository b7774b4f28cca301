#include "recordings/RawReader.h"

#include "recordings/RecordingsLog.h"
#include "recordings/SampleConversion.h"

#include <QFile>
#include <QFileInfo>

#include <limits>

void RawReader::load(const QString& path, bool headerOnly)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        clear();
        errorText = QStringLiteral("Cannot open file '") + path + QLatin1Char('\'');
        qCDebug(lcRecordings, "%s", qUtf8Printable(errorText));
        return;
    }
    load(file, path, headerOnly);
}

void RawReader::load(QIODevice& device, const QString& path, bool headerOnly)
{
    clear();
    const qint64 size = device.size();
    const bool countable = size <= std::numeric_limits<quint32>::max();
    if (countable)
        fileSize = static_cast<quint32>(size);
    const bool readable =
        countable && (headerOnly || (readSamples(device, size, static_cast<int>(bytesPerSample), &samples) &&
                                     !samples.empty()));
    if (!readable) {
        errorText = QStringLiteral("Cannot read data from '") + path + QLatin1Char('\'');
        qCDebug(lcRecordings, "%s", qUtf8Printable(errorText));
    }
}

void RawReader::clear()
{
    fileSize = 0;
    samples = {};
    errorText.clear();
}
