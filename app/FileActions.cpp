#include "app/FileActions.h"

#include "ui_MainWindow.h"

namespace {

void setAllEnabled(const QList<QAction*>& actions, bool enabled)
{
    for (QAction* action : actions)
        action->setEnabled(enabled);
}

} // namespace

FileActions::FileActions(const Ui::MainWindow& form)
    : m_plotExports{form.actionExport_Amplitude_Plot, form.actionExport_Frequency_Plot,
                    form.actionExport_Spectrogram},
      m_listActions{form.actionActivity_Plot, form.actionExport_CSV_File, form.actionExport_Vantor_File,
                    form.actionCopy_Files_to_other_Folder},
      m_openings{form.actionOpen_File, form.actionOpen_Folder, form.actionEvaluate_Folder,
                 form.actionManual_Review_of_RECORDER_WEA_Offline_Analysis,
                 form.actionVantor_Folder_Evaluation}
{}

void FileActions::nothingLoaded()
{
    setRecordingShown(false);
    setListComplete(false);
}

void FileActions::setRecordingShown(bool shown)
{
    setAllEnabled(m_plotExports, shown);
}

void FileActions::setListComplete(bool complete)
{
    setAllEnabled(m_listActions, complete);
}

void FileActions::setOpeningEnabled(bool enabled)
{
    m_openingEnabled = enabled;
    updateOpenings();
}

void FileActions::setRowsInUse(bool inUse)
{
    m_rowsInUse = inUse;
    updateOpenings();
}

void FileActions::updateOpenings()
{
    setAllEnabled(m_openings, m_openingEnabled && !m_rowsInUse);
}
