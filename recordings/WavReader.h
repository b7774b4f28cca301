#ifndef SONAVIA_RECORDINGS_WAVREADER_H
#define SONAVIA_RECORDINGS_WAVREADER_H

#include "recordings/WavFields.h"

#include <QFile>

class RiffChunks;

/// Reads single-channel PCM WAV files of 8, 16, 24 or 32 bits, with the chunks in which bat recorders keep
/// date, time and notes. The result stands in the inherited fields; take the samples with std::move().
///
/// Never throws. What went wrong stands in `errorText`:
/// - samples and no text: all is well;
/// - samples and a text: a warning, either about the file's size or about a chunk behind the samples;
/// - no samples: the file could not be loaded, for the reason in the text (no text: it holds no samples).
/// A broken file costs no more memory than it has bytes (times four at 8 bits, as a value is an int).
///
/// One reader may load any number of files, one after the other. Not thread-safe: one reader per thread.
class WavReader : public WavFields
{
public:
    /// Loads the file at `path`, which is closed again before this returns. With `headerOnly` the samples are
    /// passed over unread: `samples` stays empty, `valid` false, and a sample format that could not be
    /// converted is no error.
    void load(const QString& path, bool headerOnly);

    /// The same from a random-access device that is open for reading. Its position is moved.
    void load(QIODevice& device, bool headerOnly);

    /// Forgets everything, as before the first load.
    void clear();

private:
    void parse(QIODevice& device, bool headerOnly);
    void readDescriptionBehind(RiffChunks& chunks);
    bool readOpening(RiffChunks& chunks);
    // Each reads one chunk and returns whether to go on behind it.
    bool readChunk(RiffChunks& chunks, QIODevice& device, bool headerOnly);
    bool readFmt(RiffChunks& chunk);
    bool readData(RiffChunks& chunk, QIODevice& device, bool headerOnly);
    bool readTime(RiffChunks& chunk);
    bool readBext(RiffChunks& chunk);
    bool readSpl(RiffChunks& chunk);
    bool readWamd(RiffChunks& chunk);
    bool convertible() const;
    bool fail(const QString& text);

    QFile file;
};

#endif
