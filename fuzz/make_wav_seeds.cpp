// make_wav_seeds FOLDER: writes the named seeds of the WAV corpus, one file per thing worth starting from.

#include "tools/WavBytes.h"

#include <QDir>
#include <QFile>

#include <cstdio>

namespace {

bool write(const QDir& folder, const char* name, const QByteArray& bytes)
{
    QFile file(folder.filePath(QString::fromLatin1(name)));
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

bool writeSeeds(const QDir& folder)
{
    const WavBytes format = WavBytes().fmt(384000);
    const WavBytes mono = WavBytes(format).data({1, -2, 3, -4});
    const WavBytes rich = WavBytes(mono)
                              .time(WavBytes::Time::ofRecorder())
                              .bext(WavBytes::Bext::ofRecorder("Pip + Ppyg|Pip|0|two calls"))
                              .wamd("2024-05-01", "22:10:30", "x")
                              .spl(" 94 ");
    WavBytes::Format extended;
    extended.extension = QByteArray(2, '\0');
    return write(folder, "mono16.wav", mono.bytes()) &&
           write(folder, "mono8.wav", WavBytes().fmt(384000, 8).dataBytes("abcde").bytes()) &&
           write(folder, "mono24.wav", WavBytes().fmt(384000, 24).dataBytes("abcdefgh").bytes()) &&
           write(folder, "mono32.wav", WavBytes().fmt(384000, 32).dataBytes("abcdefghij").bytes()) &&
           write(folder, "twelve-bit.wav", WavBytes().fmt(384000, 12).dataBytes("abcdef").bytes()) &&
           write(folder, "stereo.wav", WavBytes().fmt(384000, 16, 2).data({1, 2, 3, 4}).bytes()) &&
           write(folder, "format-of-18-bytes.wav", WavBytes().fmt(extended).data({1, 2}).bytes()) &&
           write(folder, "all-chunks.wav", rich.bytes()) &&
           write(folder, "all-chunks-cut.wav", rich.bytes().chopped(90)) &&
           write(folder, "data-before-format.wav", WavBytes().data({1, 2}).fmt(384000).bytes()) &&
           write(folder, "data-twice.wav", WavBytes(mono).data({5}).bytes()) &&
           write(folder, "data-claims-4-gb.wav",
                 WavBytes(format).chunkClaiming("data", 0xFFFFFFFF, "abcd").bytes()) &&
           write(folder, "unknown-claims-2-gb.wav",
                 WavBytes(mono).chunkClaiming("junk", 0x7FFFFFFF, "abcd").bytes()) &&
           write(folder, "bext-too-short.wav", WavBytes(mono).chunk("bext", QByteArray(300, 'b')).bytes()) &&
           write(folder, "time-too-short.wav", WavBytes(mono).chunk("TIME", QByteArray(55, '0')).bytes()) &&
           write(folder, "wamd-too-short.wav", WavBytes(mono).chunk("wamd", QByteArray(80, 'w')).bytes()) &&
           write(folder, "odd-chunk-padded.wav",
                 WavBytes(format).chunk("junk", "abc").raw(QByteArray(1, '\0')).data({1}).bytes()) &&
           write(folder, "stray-byte-at-end.wav", WavBytes(mono).raw("x").bytes()) &&
           write(folder, "half-chunk-header.wav", WavBytes(mono).raw("bextab").bytes()) &&
           write(folder, "zero-filled.wav", WavBytes(format).raw(QByteArray(200, '\0')).bytes());
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2 || !QDir().mkpath(QString::fromLocal8Bit(argv[1])) ||
        !writeSeeds(QDir(QString::fromLocal8Bit(argv[1])))) {
        std::fprintf(stderr, "usage: make_wav_seeds FOLDER (which must be writable)\n");
        return 1;
    }
    return 0;
}
