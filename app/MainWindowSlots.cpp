// The switchboard: every slot is one statement that calls the object which knows.

#include "app/AboutBox.h"
#include "app/ActivityPlotsOpener.h"
#include "app/KeyRouter.h"
#include "app/MainWindow.h"
#include "app/PlotPanes.h"
#include "classes/AssignmentController.h"
#include "classes/ClassTreePane.h"
#include "classes/DirectEdits.h"
#include "classes/FileListMenus.h"
#include "evaluation/CopyController.h"
#include "evaluation/ExportController.h"
#include "evaluation/FolderEvaluationController.h"
#include "ui_MainWindow.h"
#include "viewer/AxisPlotsPresenter.h"
#include "viewer/FileListPane.h"
#include "viewer/FileOpener.h"
#include "viewer/FrequencyAxisView.h"
#include "viewer/FrequencyMarkers.h"
#include "viewer/HeaderChain.h"
#include "viewer/PlaybackController.h"
#include "viewer/PlotExporter.h"
#include "viewer/RecordingLoader.h"
#include "viewer/RecordingNavigator.h"
#include "viewer/SelectionTool.h"
#include "viewer/SpectrogramSettingsDialog.h"
#include "viewer/SpectrogramView.h"
#include "viewer/TimeAxisView.h"
#include "viewer/ViewerPresenter.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>

// Viewer

void MainWindow::open(const QString& path)
{
    m_opener->open(path);
}

void MainWindow::plot_Data(const QString& path)
{
    m_loader->load(path);
}

void MainWindow::spectrogramCalculated(const QVector<double>& matrix, int numberOfFfts, double minValue,
                                       double maxValue, const std::unordered_map<int, Blob>& blobs,
                                       const QStringList& classes, const QList<MyBatCall>& calls)
{
    m_presenter->spectrogramCalculated(matrix, numberOfFfts, minValue, maxValue, blobs, classes, calls);
}

void MainWindow::slotColormapChanged()
{
    m_presenter->slotColormapChanged();
}

void MainWindow::slotAmplitudeScaleChanged()
{
    m_presenter->slotAmplitudeScaleChanged();
}

void MainWindow::slotFrequencyScaleChanged()
{
    m_presenter->slotFrequencyScaleChanged();
}

void MainWindow::slotApplySpectroSettings()
{
    m_loader->reload();
}

void MainWindow::spectroPanned(int x, int y)
{
    m_spectrogram->logPanned(x, y);
}

// Axis plots, markers, zoom and selection

void MainWindow::mouseMoved(const QPointF& point)
{
    m_selection->mouseMoved(point);
}

void MainWindow::deactivateZoomer(bool on)
{
    m_selection->deactivateZoomer(on);
}

void MainWindow::plotSelectionRect(const QPolygon& polygon)
{
    m_selection->plotSelectionRect(polygon);
}

void MainWindow::moveSelectorLeft(const QPoint& point)
{
    m_selection->moveSelectorLeft(point);
}

void MainWindow::moveSelectorRight(const QPoint& point)
{
    m_selection->moveSelectorRight(point);
}

void MainWindow::moveSelectorTop(const QPoint& point)
{
    m_selection->moveSelectorTop(point);
}

void MainWindow::moveSelectorBottom(const QPoint& point)
{
    m_selection->moveSelectorBottom(point);
}

void MainWindow::moveMarker1(const QPointF& point)
{
    m_markers->moveMarker1(point);
}

void MainWindow::moveMarker2(const QPointF& point)
{
    m_markers->moveMarker2(point);
}

void MainWindow::spectroZoomed(const QRectF& rect)
{
    m_axisPlots->spectroZoomed(rect);
}

void MainWindow::slotTimePlotChanged()
{
    m_axisPlots->slotTimePlotChanged();
}

void MainWindow::slotFrequencyPlotChanged()
{
    m_axisPlots->slotFrequencyPlotChanged();
}

void MainWindow::on_toolButton_pressed()
{
    m_selection->setMode(SelectionTool::Mode::Zoom);
}

void MainWindow::on_toolButton_2_pressed()
{
    m_selection->setMode(SelectionTool::Mode::Selection);
}

// Playback

void MainWindow::audioControlsChanged()
{
    m_playback->audioControlsChanged();
}

void MainWindow::positionChanged(qint64 progress)
{
    m_playback->positionChanged(progress);
}

void MainWindow::setAudioPlayerState(QMediaPlayer::State state)
{
    m_playback->setAudioPlayerState(state);
}

// Export of plots

void MainWindow::on_actionExport_Spectrogram_triggered()
{
    PlotExporter::exportTo(*m_spectrogram, QStringLiteral("Spectrogram.pdf"));
}

void MainWindow::on_actionExport_Amplitude_Plot_triggered()
{
    PlotExporter::exportTo(*m_timePlot, QStringLiteral("TimeAxisPlot.pdf"));
}

void MainWindow::on_actionExport_Frequency_Plot_triggered()
{
    PlotExporter::exportTo(*m_frequencyPlot, QStringLiteral("FrequencyAxisPlot.pdf"));
}

// Files

void MainWindow::on_actionOpen_File_triggered()
{
    m_opener->openFile();
}

void MainWindow::on_actionOpen_Folder_triggered()
{
    m_opener->openFolder();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    event->setAccepted(event->mimeData()->hasUrls());
}

void MainWindow::dropEvent(QDropEvent* event)
{
    event->setDropAction(Qt::CopyAction); // else a source that proposed to move may delete its files
    m_opener->drop(event->mimeData()->urls());
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event)
{
    return m_keys->handle(watched, event) || QMainWindow::eventFilter(watched, event);
}

// File lists

void MainWindow::fileInfoHeaderFinished(int index, const QString& batClass, const QString& batClass2,
                                        const QString& batClass3, const QString& batClass4,
                                        const QString& autoClass, const QString& accepted,
                                        const QString& length, const QString& date, const QString& time,
                                        const QString& comment)
{
    m_headers->fileInfoHeaderFinished(index, batClass, batClass2, batClass3, batClass4, autoClass, accepted,
                                      length, date, time, comment);
}

void MainWindow::restartFileHeaderLoading()
{
    m_headers->restartFileHeaderLoading();
}

void MainWindow::on_treeWidget_fileView_itemDoubleClicked(QTreeWidgetItem* item, int column)
{
    m_evaluationNavigator->itemDoubleClicked(item, column);
}

void MainWindow::on_treeWidget_fileView_itemChanged(QTreeWidgetItem* item, int column)
{
    m_evaluationList->itemChanged(item, column);
}

void MainWindow::on_treeWidget_fileView_itemSelectionChanged()
{
    m_evaluationList->selectionChanged();
}

void MainWindow::on_treeWidget_2_itemDoubleClicked(QTreeWidgetItem* item, int column)
{
    m_folderNavigator->itemDoubleClicked(item, column);
}

void MainWindow::on_treeWidget_2_itemChanged(QTreeWidgetItem* item, int column)
{
    m_folderList->itemChanged(item, column);
}

void MainWindow::on_treeWidget_2_itemSelectionChanged()
{
    m_folderList->selectionChanged();
}

void MainWindow::on_pushButton_3_clicked()
{
    m_folderNavigator->previous();
}

void MainWindow::on_pushButton_4_clicked()
{
    m_folderNavigator->next();
}

void MainWindow::on_pushButton_7_clicked()
{
    m_evaluationNavigator->previous();
}

void MainWindow::on_pushButton_8_clicked()
{
    m_evaluationNavigator->next();
}

// Classes

void MainWindow::on_actionEvaluate_Folder_triggered()
{
    m_opener->openFolderForEvaluation([this] { return chooseClasses(); });
}

void MainWindow::on_treeWidget_itemDoubleClicked(QTreeWidgetItem* item, int /*column*/)
{
    m_classTree->activate(item);
}

void MainWindow::rightClickMenu(const QPoint& pos)
{
    m_classTree->showMenu(pos);
}

void MainWindow::rightClickMenu_fileView(const QPoint& pos)
{
    m_assigning->menus().showEvaluationMenu(pos);
}

void MainWindow::rightClickMenu_2(const QPoint& pos)
{
    m_assigning->menus().showFolderMenu(pos);
}

void MainWindow::assignFileToClass()
{
    m_assigning->assignFileToClass();
}

void MainWindow::acceptProposal(int state)
{
    m_assigning->acceptProposal(state == Qt::Checked);
}

void MainWindow::reassign1triggered()
{
    m_assigning->directEdits().reassign(0);
}

void MainWindow::reassign2triggered()
{
    m_assigning->directEdits().reassign(1);
}

void MainWindow::reassign3triggered()
{
    m_assigning->directEdits().reassign(2);
}

void MainWindow::reassign4triggered()
{
    m_assigning->directEdits().reassign(3);
}

void MainWindow::unassign1triggered()
{
    m_assigning->directEdits().unassign(0);
}

void MainWindow::unassign2triggered()
{
    m_assigning->directEdits().unassign(1);
}

void MainWindow::unassign3triggered()
{
    m_assigning->directEdits().unassign(2);
}

void MainWindow::unassign4triggered()
{
    m_assigning->directEdits().unassign(3);
}

void MainWindow::fileBextFinishedExtended(int index, const QString& wavDirectory, QTreeWidgetItem* classItem,
                                          const QList<QTreeWidgetItem*>& selectedFileItems, bool success)
{
    m_assigning->fileBextFinishedExtended(index, wavDirectory, classItem, selectedFileItems, success);
}

void MainWindow::renameClassFileFinished(int index, const QString& wavDirectory, const QString& oldClassName,
                                         const QString& newClassName,
                                         const QList<QTreeWidgetItem*>& selectedFileItems, bool success)
{
    m_assigning->renameClassFileFinished(index, wavDirectory, oldClassName, newClassName, selectedFileItems,
                                         success);
}

void MainWindow::deleteClassFileFinished(int index, const QString& wavDirectory,
                                         const QString& deleteClassName,
                                         const QList<QTreeWidgetItem*>& selectedFileItems, bool success)
{
    m_assigning->deleteClassFileFinished(index, wavDirectory, deleteClassName, selectedFileItems, success);
}

void MainWindow::unassignFileFinished(int index, const QString& wavDirectory,
                                      const QList<QTreeWidgetItem*>& selectedFileItems, bool success)
{
    m_assigning->unassignFileFinished(index, wavDirectory, selectedFileItems, success);
}

void MainWindow::resetFileFinished(int index, const QString& wavDirectory,
                                   const QList<QTreeWidgetItem*>& selectedFileItems, bool success)
{
    m_assigning->resetFileFinished(index, wavDirectory, selectedFileItems, success);
}

// Evaluation

void MainWindow::on_actionVantor_Folder_Evaluation_triggered()
{
    m_folderEvaluation->startVantorEvaluation();
}

void MainWindow::on_actionManual_Review_of_RECORDER_WEA_Offline_Analysis_triggered()
{
    m_folderEvaluation->startReview();
}

void MainWindow::on_actionExport_CSV_File_triggered()
{
    m_exports->exportCSVFile();
}

void MainWindow::on_actionExport_Vantor_File_triggered()
{
    m_exports->exportVantorFile();
}

void MainWindow::exportCSVFileFromAction(const QList<QTreeWidgetItem*>& selectedItems)
{
    m_exports->exportCSVFileFromAction(selectedItems);
}

void MainWindow::exportVantorFileFromAction(const QList<QTreeWidgetItem*>& selectedItems)
{
    m_exports->exportVantorFileFromAction(selectedItems);
}

void MainWindow::on_actionCopy_Files_to_other_Folder_triggered()
{
    m_copying->copyFilesToOtherFolder();
}

void MainWindow::copyingFinished(int index, const QString& newDirectory, const QString& oldDirectory,
                                 const QStringList& fileNames, bool overwrite)
{
    m_copying->copyingFinished(index, newDirectory, oldDirectory, fileNames, overwrite);
}

void MainWindow::on_actionActivity_Plot_triggered()
{
    m_activityPlots->open();
}

// Settings

void MainWindow::on_actionSpectrogram_Settings_triggered()
{
    m_settingsDialog->showTab(SpectrogramSettingsDialog::Tab::Calculation);
}

void MainWindow::on_actionAxis_Plots_Settings_triggered()
{
    m_settingsDialog->showTab(SpectrogramSettingsDialog::Tab::AxisPlots);
}

void MainWindow::on_actionAudio_Settings_triggered()
{
    m_settingsDialog->showTab(SpectrogramSettingsDialog::Tab::Audio);
}

// View

void MainWindow::showAutomaticClassification()
{
    for (QAction* action : {m_ui->actionCategorization, m_ui->actionVantor_Folder_Evaluation})
        action->setVisible(true);
}

void MainWindow::on_actionAmplitude_Plot_triggered(bool checked)
{
    m_panes->setTimePlotShown(checked);
}

void MainWindow::on_actionFrequency_Axis_Plot_triggered(bool checked)
{
    m_panes->setFrequencyPlotShown(checked);
}

void MainWindow::on_actionFrequency_Marker_1_triggered(bool checked)
{
    m_markers->setMarker1Shown(checked);
}

void MainWindow::on_actionFrequency_Marker_2_triggered(bool checked)
{
    m_markers->setMarker2Shown(checked);
}

void MainWindow::on_actionCategorization_triggered(bool checked)
{
    m_presenter->setDetectionShown(checked);
}

void MainWindow::on_actionGrid_triggered(bool checked)
{
    m_presenter->setGridVisible(checked);
}

void MainWindow::on_splitter_3_splitterMoved(int /*pos*/, int /*index*/)
{
    m_panes->align();
}

void MainWindow::resizeEvent(QResizeEvent* event)
{
    m_panes->align();
    QMainWindow::resizeEvent(event);
}

// Help

void MainWindow::on_actionAbout_triggered()
{
    showAboutBox(this);
}
