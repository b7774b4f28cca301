// cmake --preset fuzz && cmake --build --preset fuzz --target fuzz_BextDescription
// Any bytes as a file into which a Description is written: it is either refused, with the file as it was, or
// nothing but the Description changes. See fuzz/README.md; the corpus is replayed by tests/recordings.

#include "fuzz/require.h"
#include "recordings/writeBextDescription.h"

#include <QTemporaryFile>
#include <QtEndian>

#include <cstring>

namespace {

/// Where the payload of the first "bext" chunk starts, by a walk of its own; -1 where there is none.
qint64 bextPayload(const QByteArray& bytes)
{
    qint64 position = 12;
    while (position + 8 <= bytes.size()) {
        const char* header = bytes.constData() + position;
        if (std::memcmp(header, "bext", 4) == 0)
            return position + 8;
        position += 8 + qint64(qFromLittleEndian<quint32>(header + 4));
    }
    return -1;
}

/// `after` with what may have changed put back to `before`.
void checkChange(const QByteArray& before, QByteArray after, const QByteArray& text)
{
    const auto payload = static_cast<int>(bextPayload(after));
    const QByteArray description = text.leftJustified(bextDescriptionSize, '\0');
    require(payload >= 0 && after.mid(payload, description.size()) == description, "the text is there");
    if (after.size() == before.size()) {
        require(payload == bextPayload(before), "in place");
        const quint32 size = qFromLittleEndian<quint32>(before.constData() + payload - 4);
        require(quint32(description.size()) <= size, "within the chunk");
        after.replace(payload, description.size(), before.mid(payload, description.size()));
    } else {
        require(bextPayload(before) < 0 && payload == before.size() + 8, "a new chunk stands at the end");
        require(after.size() == payload + 858, "and is as large as a new chunk is");
        require(qFromLittleEndian<quint32>(after.constData() + 4) == quint32(after.size() - 8), "RIFF size");
        after.truncate(before.size());
        after.replace(4, 4, before.mid(4, 4));
    }
    require(after == before, "nothing else changes");
}

} // namespace

/// The first line of the input is the text, what follows the file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray input(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const int lineEnd = input.indexOf('\n');
    if (lineEnd < 0)
        return -1;
    const QString text = QString::fromUtf8(input.left(lineEnd));
    const QByteArray before = input.mid(lineEnd + 1);

    static QTemporaryFile file; // one for all inputs: making one takes longer than everything else
    if (!file.isOpen())
        require(file.open(), "a temporary file can be made");
    require(file.resize(0) && file.seek(0) && file.write(before) == before.size() && file.flush(), "stored");
    const bool written = writeBextDescription(file.fileName(), text);
    file.seek(0);
    const QByteArray after = file.readAll();
    if (written)
        checkChange(before, after, text.toUtf8());
    else
        require(after == before, "a refused file is untouched");
    return 0;
}
