#ifndef SONAVIA_VIEWER_CORE_DROPPLAN_H
#define SONAVIA_VIEWER_CORE_DROPPLAN_H

#include <QList>
#include <QStringList>
#include <QUrl>

/// What is to be done with things dropped on the window.
struct DropPlan
{
    enum class Kind {
        Nothing,      ///< nothing local was dropped
        OneFile,      ///< open path
        OneFolder,    ///< open the folder path
        SeveralFiles, ///< list `names` of the folder path
        Mixture,      ///< several things, a folder among them
        Unsupported   ///< files, but no recording
    };
    Kind kind = Kind::Nothing;
    QString path;
    QStringList names;
    /// More than one file was dropped, whatever they are.
    bool several = false;
    /// Files that cannot stand in one list with the first recording: no recordings, or of other folders.
    int leftOut = 0;
};

/// Looks at the file system to tell files from folders.
DropPlan planDrop(const QList<QUrl>& urls);

#endif
