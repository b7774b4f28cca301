#ifndef SONAVIA_EVALUATION_CORE_NEWFILE_H
#define SONAVIA_EVALUATION_CORE_NEWFILE_H

#include <QFile>
#include <QString>

/// A file that comes into being complete or not at all: it is written under a short name of its own in the
/// folder of its target and takes the target's place when it is complete. Until then an existing target stays
/// as it is; a file that has not taken its place is removed. No power failure is thought of, see
/// synchronize().
class NewFile
{
public:
    /// Creates the file, open for writing without a buffer; look at file().isOpen().
    explicit NewFile(const QString& target);
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    QFile& file() { return m_file; }
    const QString& target() const { return m_target; }

    /// Waits until what was written is on the disk, where the system offers that.
    bool synchronize();

    /// Closes the file and moves it to the target's name, over a file that is there. False, with the target
    /// as it was, when that fails.
    bool takePlace();

private:
    QString m_target;
    QFile m_file;
    bool m_created = false;
    bool m_tookPlace = false;
};

#endif
