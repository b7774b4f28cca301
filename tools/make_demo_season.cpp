// Writes a folder of made-up, classified recordings of a season, with the weather, to try the activity plots
// on.
#include "tools/DemoSeason.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTextStream>

namespace {

/// Thousands of files: each by itself safe on the disk would take minutes.
bool writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush())
        return true;
    QTextStream(stderr) << "Cannot write '" << path << "': " << file.errorString() << '\n';
    return false;
}

/// Writes into folders that are made if need be.
class SeasonWriter
{
public:
    SeasonWriter(const DemoSeason& season, bool onlyMissing) : m_season(season), m_onlyMissing(onlyMissing) {}

    int writtenFiles() const { return m_writtenFiles; }

    bool writeRecordings(const QDir& folder)
    {
        if (!make(folder))
            return false;
        for (const DemoSeason::Recording& recording : m_season.recordings())
            if (!write(folder.filePath(recording.fileName()), recording.bytes()))
                return false;
        return true;
    }

    bool writeWeather(const QDir& folder)
    {
        return make(folder) &&
               write(folder.filePath(QStringLiteral("temperature-and-precipitation.csv")),
                     m_season.temperatureFile()) &&
               write(folder.filePath(QStringLiteral("wind-speed.csv")), m_season.windFile());
    }

private:
    static bool make(const QDir& folder)
    {
        if (folder.mkpath(QStringLiteral(".")))
            return true;
        QTextStream(stderr) << "Cannot make the folder '" << folder.path() << "'.\n";
        return false;
    }

    /// Files may have grown since by a class record.
    bool write(const QString& path, const QByteArray& bytes)
    {
        if (m_onlyMissing && QFileInfo(path).size() >= bytes.size())
            return true;
        ++m_writtenFiles;
        return writeFile(path, bytes);
    }

    const DemoSeason& m_season;
    bool m_onlyMissing;
    int m_writtenFiles = 0;
};

struct Options
{
    QCommandLineOption year{QStringLiteral("year"), QStringLiteral("Year of the season."),
                            QStringLiteral("YEAR"), QStringLiteral("2026")};
    QCommandLineOption weather{QStringLiteral("weather"),
                               QStringLiteral("Where the weather files go, if not with the recordings."),
                               QStringLiteral("FOLDER")};
    QCommandLineOption ifMissing{QStringLiteral("if-missing"),
                                 QStringLiteral("Leave files alone that are there already.")};

    void addTo(QCommandLineParser& parser) const
    {
        parser.setApplicationDescription(QStringLiteral(
            "Writes the recordings and the weather of a made-up season of bats into a folder.\n"
            "temperature-and-precipitation.csv is a temperature and precipitation file; wind-speed.csv is a\n"
            "wind speed file with dates dd.mm.yyyy, a space, times hh:mm:ss at the end of their interval, a\n"
            "semicolon and decimal commas."));
        parser.addHelpOption();
        parser.addOptions({year, weather, ifMissing});
        parser.addPositionalArgument(QStringLiteral("OUTPUT_FOLDER"),
                                     QStringLiteral("Where the files go; made if it does not exist."));
    }
};

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    const Options options;
    options.addTo(parser);
    parser.process(application);
    const int year = parser.value(options.year).toInt();
    if (parser.positionalArguments().size() != 1 || year < 2000 || year > 2099) {
        QTextStream(stderr) << parser.helpText();
        return 2;
    }
    const QDir folder(parser.positionalArguments().constFirst());
    const QDir weather = parser.isSet(options.weather) ? QDir(parser.value(options.weather)) : folder;
    const DemoSeason season(year);
    SeasonWriter writer(season, parser.isSet(options.ifMissing));
    if (!writer.writeRecordings(folder) || !writer.writeWeather(weather))
        return 1;
    QTextStream(stdout) << season.recordings().size() << " recordings in " << folder.path()
                        << " and two weather files in " << weather.path() << " (" << writer.writtenFiles()
                        << " files written now)\n";
    return 0;
}
