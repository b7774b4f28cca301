#ifndef SONAVIA_TESTS_EVALUATION_EVALUATIONWINDOW_H
#define SONAVIA_TESTS_EVALUATION_EVALUATIONWINDOW_H

#include "base/SettingsStore.h"
#include "evaluation/ListedRows.h"
#include "recordings/RecordingSession.h"
#include "recordings/rows/RowItem.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TemporarySettings.h"

#include <QTreeWidget>

/// What the evaluations need of the main window: both lists, the session, settings and scripted answers.
struct EvaluationWindow
{
    EvaluationWindow()
    {
        for (QTreeWidget* list : {&folderList, &evaluationList})
            list->setColumnCount(RowItem::ColumnCount);
    }

    static QTreeWidgetItem* add(QTreeWidget& list, const RecordingRow& row)
    {
        auto* item = new QTreeWidgetItem(&list);
        item->setText(RowItem::Name, row.name);
        RowItem::write(*item, row);
        return item;
    }

    ListedRows rows() const { return {folderList, evaluationList, session}; }

    TemporarySettings isolation;
    SettingsStore settings;
    ScriptedPrompts prompts;
    RecordingSession session;
    QWidget window;
    QTreeWidget folderList;
    QTreeWidget evaluationList;
};

#endif
