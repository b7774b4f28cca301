#ifndef SONAVIA_APP_COMMANDLINE_H
#define SONAVIA_APP_COMMANDLINE_H

#include <QStringList>

/// What the program was asked to do when it was started.
struct CommandLine
{
    QString path;          ///< file or folder to open; empty: none
    QString screenshot;    ///< save a picture of the window here once a recording is drawn, then quit
    QStringList benchmark; ///< recordings to time from loading to the painted spectrogram, then quit
    bool automaticClassification = false; ///< show the actions of the automatic classification in this run

    QString text; ///< not empty: print this and quit with `exitCode`
    int exitCode = 0;
};

/// Reads the command line; arguments[0] is the program. Needs no application object, so that help and version
/// also work without a display.
CommandLine parseCommandLine(const QStringList& arguments);

#endif
