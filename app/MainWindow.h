#ifndef SONAVIA_APP_MAINWINDOW_H
#define SONAVIA_APP_MAINWINDOW_H

#include "dsp/Blob.h"
#include "dsp/MyBatCall.h"

#include <QMainWindow>
#include <QMediaPlayer>
#include <QStringList>
#include <QVector>

#include <memory>
#include <unordered_map>
#include <vector>

class QTreeWidgetItem;

namespace Ui {
class MainWindow;
}

class AssignmentController;
class AxisPlotsPresenter;
class ActivityPlotsOpener;
class ClassTreePane;
class CopyController;
class CopyFilesThread;
class DetectionOverlay;
class ExportController;
class FileActions;
class FileListPane;
class FileOpener;
class FolderEvaluationController;
class FrequencyAxisView;
class FrequencyMarkers;
class GetFileInfoThread;
class HeaderChain;
class KeyRouter;
class MessageBoxPrompts;
class PaintWatch;
class QThread;
class PlayCursor;
class PlaybackController;
class PlayerControls;
class PlotPanes;
class RecordingFile;
class RecordingLoader;
class RecordingNavigator;
class SelectionTool;
class SettingsStore;
class SpectrogramSettingsDialog;
class SpectrogramView;
class TimeAxisView;
class ViewerPresenter;
class WindowGeometry;
class WorkerThreads;
class WriteFileBextThread;
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
    void copyFiles(int index, const QString& newDirectory, const QString& oldDirectory,
                   const QStringList& fileNames, bool overwrite);
    void signalGetFileHeaderInfo(int index, const QString& filePath, bool calcClasses,
                                 const QString& recorderResultFileName, int reviewMode);
    void signalWriteFileBextExtended(int index, const QString& wavDirectory, QTreeWidgetItem* classItem,
                                     const QList<QTreeWidgetItem*>& selectedFileItems);
    void signalRenameClassFile(int index, const QString& wavDirectory, const QString& oldClassName,
                               const QString& newClassName, const QList<QTreeWidgetItem*>& selectedFileItems);
    void signalDeleteClassFile(int index, const QString& wavDirectory, const QString& deleteClassName,
                               const QList<QTreeWidgetItem*>& selectedFileItems);
    void signalUnassignFile(int index, const QString& wavDirectory,
                            const QList<QTreeWidgetItem*>& selectedFileItems);
    void signalResetFile(int index, const QString& wavDirectory,
                         const QList<QTreeWidgetItem*>& selectedFileItems);
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

    // Axis plots, markers, zoom and selection
    void mouseMoved(const QPointF& point);
    void deactivateZoomer(bool on);
    void plotSelectionRect(const QPolygon& polygon);
    void moveSelectorLeft(const QPoint& point);
    void moveSelectorRight(const QPoint& point);
    void moveSelectorTop(const QPoint& point);
    void moveSelectorBottom(const QPoint& point);
    void moveMarker1(const QPointF& point);
    void moveMarker2(const QPointF& point);
    void spectroZoomed(const QRectF& rect);
    void slotTimePlotChanged();
    void slotFrequencyPlotChanged();
    void on_toolButton_pressed();
    void on_toolButton_2_pressed();

    // Playback
    void audioControlsChanged();
    void positionChanged(qint64 progress);
    void setAudioPlayerState(QMediaPlayer::State state);

    // Export of plots
    void on_actionExport_Spectrogram_triggered();
    void on_actionExport_Amplitude_Plot_triggered();
    void on_actionExport_Frequency_Plot_triggered();

    // Files
    void on_actionOpen_File_triggered();
    void on_actionOpen_Folder_triggered();

    // File lists
    void fileInfoHeaderFinished(int index, const QString& batClass, const QString& batClass2,
                                const QString& batClass3, const QString& batClass4, const QString& autoClass,
                                const QString& accepted, const QString& length, const QString& date,
                                const QString& time, const QString& comment);
    void restartFileHeaderLoading();
    void on_treeWidget_fileView_itemDoubleClicked(QTreeWidgetItem* item, int column);
    void on_treeWidget_fileView_itemChanged(QTreeWidgetItem* item, int column);
    void on_treeWidget_fileView_itemSelectionChanged();
    void on_treeWidget_2_itemDoubleClicked(QTreeWidgetItem* item, int column);
    void on_treeWidget_2_itemChanged(QTreeWidgetItem* item, int column);
    void on_treeWidget_2_itemSelectionChanged();
    void on_pushButton_3_clicked();
    void on_pushButton_4_clicked();
    void on_pushButton_7_clicked();
    void on_pushButton_8_clicked();

    // Classes
    void on_actionEvaluate_Folder_triggered();
    void on_treeWidget_itemDoubleClicked(QTreeWidgetItem* item, int column);
    void rightClickMenu(const QPoint& pos);
    void rightClickMenu_fileView(const QPoint& pos);
    void rightClickMenu_2(const QPoint& pos);
    void assignFileToClass();
    void acceptProposal(int state); ///< of the current row; a clicked check box knows its own
    void reassign1triggered();
    void reassign2triggered();
    void reassign3triggered();
    void reassign4triggered();
    void unassign1triggered();
    void unassign2triggered();
    void unassign3triggered();
    void unassign4triggered();
    void fileBextFinishedExtended(int index, const QString& wavDirectory, QTreeWidgetItem* classItem,
                                  const QList<QTreeWidgetItem*>& selectedFileItems, bool success);
    void renameClassFileFinished(int index, const QString& wavDirectory, const QString& oldClassName,
                                 const QString& newClassName,
                                 const QList<QTreeWidgetItem*>& selectedFileItems, bool success);
    void deleteClassFileFinished(int index, const QString& wavDirectory, const QString& deleteClassName,
                                 const QList<QTreeWidgetItem*>& selectedFileItems, bool success);
    void unassignFileFinished(int index, const QString& wavDirectory,
                              const QList<QTreeWidgetItem*>& selectedFileItems, bool success);
    void resetFileFinished(int index, const QString& wavDirectory,
                           const QList<QTreeWidgetItem*>& selectedFileItems, bool success);

    // Evaluation
    void on_actionVantor_Folder_Evaluation_triggered();
    void on_actionManual_Review_of_RECORDER_WEA_Offline_Analysis_triggered();
    void on_actionExport_CSV_File_triggered();
    void on_actionExport_Vantor_File_triggered();
    void exportCSVFileFromAction(const QList<QTreeWidgetItem*>& selectedItems);
    void exportVantorFileFromAction(const QList<QTreeWidgetItem*>& selectedItems);
    void on_actionCopy_Files_to_other_Folder_triggered();
    void copyingFinished(int index, const QString& newDirectory, const QString& oldDirectory,
                         const QStringList& fileNames, bool overwrite);
    void on_actionActivity_Plot_triggered();

    // Settings
    void on_actionSpectrogram_Settings_triggered();
    void on_actionAxis_Plots_Settings_triggered();
    void on_actionAudio_Settings_triggered();

    // View
    void on_actionAmplitude_Plot_triggered(bool checked);
    void on_actionFrequency_Axis_Plot_triggered(bool checked);
    void on_actionFrequency_Marker_1_triggered(bool checked);
    void on_actionFrequency_Marker_2_triggered(bool checked);
    void on_actionGrid_triggered(bool checked);
    void on_actionCategorization_triggered(bool checked);
    void on_splitter_3_splitterMoved(int pos, int index);

    // Help
    void on_actionAbout_triggered();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setUpFrame();
    void setUpPlots();
    void setUpPointer();
    void setUpPlayback();
    void setUpPresenters();
    void setUpLists();
    void setUpClasses();
    void setUpEvaluation();
    void setUpKeys();
    void setUpWorkers();
    bool chooseClasses();
    void setUpSpectrogramWorker();
    void setUpHeaderWorker();
    void setUpWritingWorker();
    void setUpCopyWorker();
    void connectLoading();
    void connectResult();
    void connectLists();
    void connectClasses();
    void connectMenus();
    void connectEvaluation();
    void setRowsInUse(bool inUse);
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
    TimeAxisView* m_timePlot = nullptr;
    FrequencyAxisView* m_frequencyPlot = nullptr;
    FrequencyMarkers* m_markers = nullptr;
    SelectionTool* m_selection = nullptr;
    DetectionOverlay* m_detection = nullptr;
    PlayCursor* m_playCursor = nullptr;
    PlayerControls* m_playerControls = nullptr;
    PlaybackController* m_playback = nullptr;
    PaintWatch* m_paintWatch = nullptr;
    SpectrogramSettingsDialog* m_settingsDialog = nullptr;
    PlotPanes* m_panes = nullptr;
    FileOpener* m_opener = nullptr;
    FileListPane* m_folderList = nullptr;
    FileListPane* m_evaluationList = nullptr;
    RecordingNavigator* m_folderNavigator = nullptr;
    RecordingNavigator* m_evaluationNavigator = nullptr;
    HeaderChain* m_headers = nullptr;
    ClassTreePane* m_classTree = nullptr;
    AssignmentController* m_assigning = nullptr;
    FolderEvaluationController* m_folderEvaluation = nullptr;
    ExportController* m_exports = nullptr;
    CopyController* m_copying = nullptr;
    ActivityPlotsOpener* m_activityPlots = nullptr;
    KeyRouter* m_keys = nullptr;
    RecordingLoader* m_loader = nullptr;
    ViewerPresenter* m_presenter = nullptr;
    AxisPlotsPresenter* m_axisPlots = nullptr;

    // Owned by m_workers.
    calcSpectrogramThread* m_spectrogramWorker = nullptr;
    GetFileInfoThread* m_headerWorker = nullptr;
    QThread* m_headerThread = nullptr; // runs only while headers are read
    WriteFileBextThread* m_writingWorker = nullptr;
    CopyFilesThread* m_copyWorker = nullptr;
};

#endif
