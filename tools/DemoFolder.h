#ifndef SONAVIA_TOOLS_DEMOFOLDER_H
#define SONAVIA_TOOLS_DEMOFOLDER_H

#include "tools/DemoRecording.h"

#include <QString>

#include <vector>

/// A folder on disk that holds the recordings of a demo night and, where there are any, the results of the
/// recorder's own analysis, beside whatever else lies there.
class DemoFolder
{
public:
    enum class Existing {
        Replace, ///< write every recording anew
        Keep     ///< leave files alone that are complete, also those that grew since by a class record
    };

    explicit DemoFolder(const QString& path) : m_path(path) {}

    /// Makes the folder if need be and writes the recordings, each with its recording time as modification
    /// time, and the result file. A file is replaced only by a whole one. Stops at the first file that cannot
    /// be written.
    bool write(const std::vector<DemoRecording>& night, Existing existing);

    /// Recordings.
    int writtenFiles() const { return m_writtenFiles; }
    /// What went wrong, for the user; empty when nothing did.
    QString errorText() const { return m_errorText; }

private:
    bool writeRecording(const DemoRecording& recording, const QString& filePath);
    bool writeResults(const std::vector<DemoRecording>& night, Existing existing);
    bool writeBytes(const QByteArray& bytes, const QString& filePath);

    QString m_path;
    int m_writtenFiles = 0;
    QString m_errorText;
};

#endif
