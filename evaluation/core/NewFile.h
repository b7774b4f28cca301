#ifndef SONAVIA_EVALUATION_CORE_NEWFILE_H
#define SONAVIA_EVALUATION_CORE_NEWFILE_H

#include <QFile>
#include <QString>

/// A file that comes into being complete or not at all: it is written in the folder of its target and takes
/// the target's place when it is complete. Until then an existing target stays as it is; a file that has not
/// taken its place is removed. No power failure is thought of, see synchronize().
///
/// Until then it has no name, so that nothing is left of it however the program ends; where the system does
/// not offer that, a short hidden one.
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
    void openWithoutName(const QString& folder);
    void openUnderHiddenName();
    /// Gives a file without name the target's, where that is free, else a hidden one. False when it has none.
    bool takeName();
    void chooseHiddenName();

    QString m_target;
    QString m_hiddenName; ///< path
    QFile m_file;
    bool m_hasHiddenName = false;
};

#endif
