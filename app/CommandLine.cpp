#include "app/CommandLine.h"

#include "app/ProgramVersion.h"

#include <QCommandLineParser>
#include <QFileInfo>

namespace {

const char usage[] =
    "Usage: sonavia [options] [FILE or FOLDER]\n"
    "Review and classify bat echolocation recordings.\n"
    "\n"
    "  FILE                 a recording (.wav or .raw) to open\n"
    "  FOLDER               a folder of recordings to open\n"
    "\n"
    "Options:\n"
    "  -h, --help                   show this help\n"
    "  -v, --version                show the version\n"
    "  --automatic-classification   show the actions of the automatic classification in this run\n"
    "  --screenshot PICTURE         save a picture of the window when the recording is drawn, then quit\n"
    "  --benchmark FILE...          measure the time from loading to the painted spectrogram, then quit\n";

CommandLine sayAndQuit(const QString& text, int exitCode)
{
    CommandLine line;
    line.text = text;
    line.exitCode = exitCode;
    return line;
}

} // namespace

CommandLine parseCommandLine(const QStringList& arguments)
{
    QCommandLineParser parser;
    const QCommandLineOption help(QStringList{QStringLiteral("h"), QStringLiteral("help")});
    const QCommandLineOption version(QStringList{QStringLiteral("v"), QStringLiteral("version")});
    const QCommandLineOption automatic(QStringLiteral("automatic-classification"));
    const QCommandLineOption screenshot(QStringLiteral("screenshot"), QString(), QStringLiteral("picture"));
    const QCommandLineOption benchmark(QStringLiteral("benchmark"));
    parser.addOptions({help, version, automatic, screenshot, benchmark});

    const bool understood = parser.parse(arguments);
    if (parser.isSet(help))
        return sayAndQuit(QString::fromLatin1(usage), 0);
    if (parser.isSet(version))
        return sayAndQuit(QStringLiteral("Sonavia %1\n").arg(QLatin1String(programVersion)), 0);
    if (!understood)
        return sayAndQuit(parser.errorText() + QLatin1Char('\n') + QString::fromLatin1(usage), 2);

    CommandLine line;
    line.automaticClassification = parser.isSet(automatic);
    line.screenshot = parser.value(screenshot);
    const QStringList files = parser.positionalArguments();
    if (parser.isSet(benchmark) && files.isEmpty())
        return sayAndQuit(QStringLiteral("--benchmark needs at least one recording\n"), 2);
    if (!parser.isSet(benchmark) && files.size() > 1)
        return sayAndQuit(QStringLiteral("Open one file or one folder at a time.\n"), 2);
    for (const QString& file : files)
        if (!QFileInfo::exists(file))
            return sayAndQuit(QStringLiteral("There is no file or folder '%1'.\n").arg(file), 1);
    if (parser.isSet(benchmark)) {
        line.benchmark = files;
        return line;
    }
    if (files.isEmpty())
        return line;
    line.path = QFileInfo(files.first()).absoluteFilePath();
    return line;
}
