// Writes a folder of made-up, classified recordings of a season, with the weather, to try the activity plots
// on.
#include "tools/DemoSeason.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QSaveFile>
#include <QTextStream>

namespace {

bool writeFile(const QString& path, const QByteArray& bytes)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes); // commit() knows of a failure
    if (file.commit())
        return true;
    QTextStream(stderr) << "Cannot write '" << path << "': " << file.errorString() << '\n';
    return false;
}

bool writeSeason(const DemoSeason& season, const QDir& folder)
{
    for (const DemoSeason::Recording& recording : season.recordings())
        if (!writeFile(folder.filePath(recording.fileName()), recording.bytes()))
            return false;
    return writeFile(folder.filePath(QStringLiteral("temperature.csv")), season.temperatureFile()) &&
           writeFile(folder.filePath(QStringLiteral("wind.csv")), season.windFile());
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Writes the recordings and the weather of a made-up season of bats into a folder.\n"
        "temperature.csv is a temperature and precipitation file; wind.csv is a wind speed file with dates "
        "dd.mm.yyyy, a space, times hh:mm:ss at the end of their interval, a semicolon and decimal commas."));
    parser.addHelpOption();
    const QCommandLineOption yearOption(QStringLiteral("year"), QStringLiteral("Year of the season."),
                                        QStringLiteral("YEAR"), QStringLiteral("2026"));
    parser.addOption(yearOption);
    parser.addPositionalArgument(QStringLiteral("OUTPUT_FOLDER"),
                                 QStringLiteral("Where the files go; made if it does not exist."));
    parser.process(application);
    const int year = parser.value(yearOption).toInt();
    if (parser.positionalArguments().size() != 1 || year < 2000 || year > 2099) {
        QTextStream(stderr) << parser.helpText();
        return 2;
    }
    const QDir folder(parser.positionalArguments().constFirst());
    if (!folder.mkpath(QStringLiteral("."))) {
        QTextStream(stderr) << "Cannot make the folder '" << folder.path() << "'.\n";
        return 1;
    }
    const DemoSeason season(year);
    if (!writeSeason(season, folder))
        return 1;
    QTextStream(stdout) << season.recordings().size() << " recordings and two weather files in "
                        << folder.path() << '\n';
    return 0;
}
