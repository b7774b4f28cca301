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
        if (!writeFile(recording, filePath)) {
            return false;
        }
        ++m_writtenFiles;
    }
    return true;
}

bool DemoFolder::writeFile(const DemoRecording& recording, const QString& filePath)
{
    QSaveFile saved(filePath);
    if (saved.open(QIODevice::WriteOnly)) {
        saved.write(recording.bytes()); // commit() knows of a failure
    }
    if (!saved.commit()) {
        m_errorText = QStringLiteral("Cannot write '%1': %2").arg(filePath, saved.errorString());
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
