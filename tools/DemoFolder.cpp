#include "tools/DemoFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

bool DemoFolder::write(const std::vector<DemoRecording>& night, Existing existing)
{
    m_writtenFiles = 0;
    m_errorText.clear();
    const QDir folder(m_path);
    if (!folder.mkpath(QStringLiteral("."))) {
        m_errorText = QStringLiteral("Cannot make the folder '%1'.").arg(m_path);
        return false;
    }
    for (const DemoRecording& recording : night) {
        const QString filePath = folder.filePath(recording.fileName());
        if (existing == Existing::Keep && QFileInfo(filePath).size() >= recording.size()) {
            continue;
        }
        if (!writeRecording(recording, filePath)) {
            return false;
        }
        ++m_writtenFiles;
    }
    return writeResults(night, existing);
}

bool DemoFolder::writeResults(const std::vector<DemoRecording>& night, Existing existing)
{
    QByteArray lines;
    for (const DemoRecording& recording : night) {
        lines += recording.resultLine();
    }
    const QString filePath = QDir(m_path).filePath(QStringLiteral("calls_ch1_files.txt"));
    const bool isKept = existing == Existing::Keep && QFileInfo::exists(filePath);
    return lines.isEmpty() || isKept || writeBytes(lines, filePath);
}

bool DemoFolder::writeBytes(const QByteArray& bytes, const QString& filePath)
{
    QSaveFile saved(filePath);
    if (saved.open(QIODevice::WriteOnly)) {
        saved.write(bytes); // commit() knows of a failure
    }
    if (saved.commit()) {
        return true;
    }
    m_errorText = QStringLiteral("Cannot write '%1': %2").arg(filePath, saved.errorString());
    return false;
}

bool DemoFolder::writeRecording(const DemoRecording& recording, const QString& filePath)
{
    if (!writeBytes(recording.bytes(), filePath)) {
        return false;
    }
    QFile file(filePath);
    if (!file.open(QIODevice::ReadWrite) ||
        !file.setFileTime(recording.start, QFileDevice::FileModificationTime)) {
        m_errorText = QStringLiteral("Cannot set the time of '%1': %2").arg(filePath, file.errorString());
        return false;
    }
    return true;
}
