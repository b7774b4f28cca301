#ifndef SONAVIA_EVALUATION_CORE_EXPORTFILE_H
#define SONAVIA_EVALUATION_CORE_EXPORTFILE_H

#include <QString>

namespace ExportFile {

/// Writes `text` in UTF-8 to the file `path`, whole or not at all: an existing file stays as it is until the
/// new one is complete beside it, and also when that fails. A file in a folder that takes no new ones is
/// overwritten in place, and gets its old bytes back when that fails. False when it cannot be written.
bool write(const QString& path, const QString& text);
/// The same with bytes as they are.
bool writeBytes(const QString& path, const QByteArray& bytes);

/// What the user is told then.
QString failureText();

} // namespace ExportFile

#endif
