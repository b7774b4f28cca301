#ifndef SONAVIA_RECORDINGS_RECORDERRESULT_H
#define SONAVIA_RECORDINGS_RECORDERRESULT_H

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <vector>

/// What a field recorder's own analysis says about the recordings of a folder: the lines of the result file
/// that it leaves there, "calls_ch1_files.txt".
///
/// A line has fields with tabs between them. Of those (counted from 0) are read: 3 the kind of event, 4 and 6
/// the groups, 8, 10 and 12 the species; what is missing counts as empty. A recording's line is the first
/// that contains its file name, be it as part of another's. Lines end in LF or CR LF; the text is UTF-8, or
/// else Latin-1.
///
/// Keeps the last file and reads it again when it has changed, so that asking for each recording of a folder
/// stays fast. Not thread-safe.
class RecorderResult
{
public:
    enum class Mode { Groups, Species };

    /// The class proposal for a WAV file, several joined by ", "; "No Call" for noise and tests. It begins
    /// with ", " where only a later class is given. Empty where there is no result file, no line, a line with
    /// fewer than 7 fields or another kind of event.
    QString proposal(const QString& resultFileName, const QString& wavFileName, Mode mode);

private:
    void load(const QString& resultFileName);
    QByteArray lineContaining(const QByteArray& name) const;

    QString m_fileName;
    QDateTime m_modified;
    qint64 m_size = -1;
    QByteArray m_bytes;
    /// Where the names in m_bytes end: offsets behind each ".wav", sorted by the text before them, read
    /// backwards. Names that end alike are neighbours.
    std::vector<int> m_nameEnds;
};

#endif
