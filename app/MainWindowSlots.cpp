// The switchboard: every slot is one statement that calls the object which knows.

#include "app/AboutBox.h"
#include "app/MainWindow.h"
#include "app/PlotPanes.h"
#include "base/SettingsStore.h"
#include "recordings/RecordingSession.h"
#include "ui_MainWindow.h"
#include "viewer/FileOpener.h"
#include "viewer/RecordingLoader.h"
#include "viewer/SpectrogramSettingsDialog.h"
#include "viewer/SpectrogramView.h"
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
