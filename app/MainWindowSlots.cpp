// The switchboard: every slot is one statement that calls the object which knows.

#include "app/AboutBox.h"
#include "app/MainWindow.h"
#include "app/PlotPanes.h"
#include "base/SettingsStore.h"
#include "recordings/RecordingSession.h"
#include "ui_MainWindow.h"
#include "viewer/AxisPlotsPresenter.h"
#include "viewer/FileOpener.h"
#include "viewer/FrequencyAxisView.h"
#include "viewer/FrequencyMarkers.h"
#include "viewer/PlaybackController.h"
#include "viewer/PlotExporter.h"
#include "viewer/RecordingLoader.h"
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
    m_opener->drop(event->mimeData()->urls());
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
