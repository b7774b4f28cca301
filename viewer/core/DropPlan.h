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
        OneFile,      ///< open paths[0]
        OneFolder,    ///< open the folder paths[0]
        SeveralFiles, ///< list the paths, all in one folder or not
        Mixture,      ///< several things, a folder among them
        Unsupported   ///< a single file that is no recording
    };
    Kind kind = Kind::Nothing;
    QStringList paths;
};

/// Looks at the file system to tell files from folders.
DropPlan planDrop(const QList<QUrl>& urls);

#endif
