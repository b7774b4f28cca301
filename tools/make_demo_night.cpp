// Writes a folder of made-up bat recordings to try the program on.
#include "tools/DemoFolder.h"
#include "tools/DemoNight.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextStream>

namespace {

void addArguments(QCommandLineParser& parser, const QCommandLineOption& ifMissing)
{
    parser.setApplicationDescription(QStringLiteral(
        "Writes the recordings of a made-up bat night into a folder, with what the recorder's own analysis "
        "found in them. Other files in it stay."));
    parser.addHelpOption();
    parser.addOption(ifMissing);
    parser.addPositionalArgument(QStringLiteral("OUTPUT_FOLDER"),
                                 QStringLiteral("Where the recordings go; made if it does not exist."));
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QCommandLineOption ifMissing(QStringLiteral("if-missing"),
                                       QStringLiteral("Leave files alone that are there already."));
    QCommandLineParser parser;
    addArguments(parser, ifMissing);
    parser.process(application);
    QTextStream errors(stderr);
    if (parser.positionalArguments().size() != 1) {
        errors << parser.helpText();
        return 2;
    }

    const QString path = parser.positionalArguments().constFirst();
    const std::vector<DemoRecording> night = demoNight();
    DemoFolder folder(path);
    if (!folder.write(night,
                      parser.isSet(ifMissing) ? DemoFolder::Existing::Keep : DemoFolder::Existing::Replace)) {
        errors << folder.errorText() << '\n';
        return 1;
    }
    QTextStream(stdout) << night.size() << " recordings in " << path << " (" << folder.writtenFiles()
                        << " written now)\n";
    return 0;
}
