#ifndef SONAVIA_TESTS_VIEWER_BAREFILELIST_H
#define SONAVIA_TESTS_VIEWER_BAREFILELIST_H

#include "recordings/RecordingSession.h"
#include "recordings/rows/RowItem.h"
#include "viewer/FileListPane.h"

#include <QLabel>
#include <QMetaType>
#include <QProgressBar>
#include <QTreeWidget>

Q_DECLARE_METATYPE(FileListPane::Purpose)

/// A file list without a window around it.
struct BareFileList
{
    explicit BareFileList(FileListPane::Purpose purpose, const RecordingSession& session)
        : pane({list, progress, count}, purpose, session, nullptr)
    {
        // As the window's slots do.
        QObject::connect(&list, &QTreeWidget::itemChanged, &pane, &FileListPane::itemChanged);
        QObject::connect(&list, &QTreeWidget::itemSelectionChanged, &pane, &FileListPane::selectionChanged);
    }

    QStringList texts(int column) const
    {
        QStringList texts;
        for (int i = 0; i < list.topLevelItemCount(); ++i)
            texts.append(list.topLevelItem(i)->text(column));
        return texts;
    }

    QTreeWidget list;
    QProgressBar progress;
    QLabel count;
    FileListPane pane;
};

/// A row as the header worker describes it.
inline RecordingRow headerRow(const QString& description, const QString& date = "14/05/24",
                              const QString& time = "22:10:00", const QString& length = "5.000")
{
    return {{}, date, time, length, ClassRecord::parse(description)};
}

#endif
