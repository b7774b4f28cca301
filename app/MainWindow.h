#ifndef SONAVIA_APP_MAINWINDOW_H
#define SONAVIA_APP_MAINWINDOW_H

#include "dsp/Blob.h"
#include "dsp/MyBatCall.h"

#include <QMainWindow>
#include <QStringList>
#include <QVector>

#include <memory>
#include <unordered_map>
#include <vector>

namespace Ui {
class MainWindow;
}

class FileActions;
class FileOpener;
class MessageBoxPrompts;
class PaintWatch;
class PlotPanes;
class RecordingFile;
class RecordingLoader;
class SettingsStore;
class SpectrogramSettingsDialog;
class SpectrogramView;
class ViewerPresenter;
class WindowGeometry;
class WorkerThreads;
class calcSpectrogramThread;
struct RecordingSession;

/// The window: a switchboard. It builds the panes and the objects that know what to do, connects them, starts
/// the workers and restores the settings; every named slot forwards in one statement (MainWindowSlots.cpp).
/// Set up the queued types (registerQueuedTypes()) before the event loop runs. GUI thread.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);
    /// Stores the geometry, then stops the workers: a running computation sees its stop flag and is waited
    /// for briefly.
    ~MainWindow() override;

    /// Opens a file or folder as if it had been chosen in a dialog.
    void open(const QString& path);
    /// Loads a recording and requests its spectrogram.
    void plot_Data(const QString& path);
    /// Leaves the actions of the automatic classification visible in this run.
    void showAutomaticClassification();

signals:
    void signalProgress(int value);
    void signalCalcSpektrogramm(int sampleSize, int bitsPerSample, int windowSize, float frameSize,
                                QString window, double overlap, std::vector<int>* timedata, int sampleRate,
                                bool categorize);
    /// The spectrogram of a loaded recording has been painted on the screen.
    void spectrogramPainted();
    /// A recording was asked for and cannot be shown.
    void recordingUnreadable();

public slots:
    // Viewer
    void spectrogramCalculated(const QVector<double>& matrix, int numberOfFfts, double minValue,
                               double maxValue, const std::unordered_map<int, Blob>& blobs,
                               const QStringList& classes, const QList<MyBatCall>& calls);
    void slotColormapChanged();
    void slotAmplitudeScaleChanged();
    void slotFrequencyScaleChanged();
    void slotApplySpectroSettings();
    void spectroPanned(int x, int y);

    // Files
    void on_actionOpen_File_triggered();
    void on_actionOpen_Folder_triggered();

    // Settings
    void on_actionSpectrogram_Settings_triggered();
    void on_actionAxis_Plots_Settings_triggered();
    void on_actionAudio_Settings_triggered();

    // View
    void on_actionAmplitude_Plot_triggered(bool checked);
    void on_actionFrequency_Axis_Plot_triggered(bool checked);
    void on_actionGrid_triggered(bool checked);
    void on_splitter_3_splitterMoved(int pos, int index);

    // Help
    void on_actionAbout_triggered();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void setUpFrame();
    void setUpPlots();
    void setUpPresenters();
    void setUpWorkers();
    void connectLoading();
    void connectSettings();
    void restoreSettings();

    std::unique_ptr<Ui::MainWindow> m_ui;
    std::unique_ptr<SettingsStore> m_settings;
    std::unique_ptr<MessageBoxPrompts> m_prompts;
    std::unique_ptr<RecordingSession> m_session;
    std::unique_ptr<RecordingFile> m_file; // both recording readers
    std::unique_ptr<FileActions> m_fileActions;
    std::unique_ptr<WindowGeometry> m_geometry;
    std::unique_ptr<WorkerThreads> m_workers;

    // Owned by the window as its children.
    SpectrogramView* m_spectrogram = nullptr;
    PaintWatch* m_paintWatch = nullptr;
    SpectrogramSettingsDialog* m_settingsDialog = nullptr;
    PlotPanes* m_panes = nullptr;
    FileOpener* m_opener = nullptr;
    RecordingLoader* m_loader = nullptr;
    ViewerPresenter* m_presenter = nullptr;

    calcSpectrogramThread* m_spectrogramWorker = nullptr; // owned by m_workers
};

#endif
