#include "app/MainWindow.h"

#include "app/ActivityPlotsOpener.h"
#include "app/FileActions.h"
#include "app/KeyRouter.h"
#include "app/MessageBoxPrompts.h"
#include "app/PaintWatch.h"
#include "app/PlotPanes.h"
#include "app/WindowGeometry.h"
#include "app/WorkerThreads.h"
#include "base/SettingsStore.h"
#include "classes/AssignmentController.h"
#include "classes/ClassTreePane.h"
#include "classes/DirectEdits.h"
#include "classes/FileDeletion.h"
#include "classes/FileListMenus.h"
#include "classes/OpenModelDialog.h"
#include "dsp/calcSpectrogramThread.h"
#include "evaluation/CopyController.h"
#include "evaluation/ExportController.h"
#include "evaluation/FolderEvaluationController.h"
#include "evaluation/ListedRows.h"
#include "evaluation/core/CopyFilesThread.h"
#include "recordings/ClassRecord.h"
#include "recordings/GetFileInfoThread.h"
#include "recordings/RecordingFile.h"
#include "recordings/RecordingSession.h"
#include "recordings/rows/WriteFileBextThread.h"
#include "ui_MainWindow.h"
#include "viewer/AudioOutputName.h"
#include "viewer/AxisPlotsPresenter.h"
#include "viewer/DetectionOverlay.h"
#include "viewer/FileListPane.h"
#include "viewer/FileOpener.h"
#include "viewer/FrequencyAxisView.h"
#include "viewer/FrequencyMarkers.h"
#include "viewer/HeaderChain.h"
#include "viewer/MyQwtZoomer.h"
#include "viewer/PlayCursor.h"
#include "viewer/PlaybackController.h"
#include "viewer/PlayerControls.h"
#include "viewer/PlotAlignment.h"
#include "viewer/RecordingLoader.h"
#include "viewer/RecordingNavigator.h"
#include "viewer/SelectionTool.h"
#include "viewer/SpectrogramSettingsDialog.h"
#include "viewer/SpectrogramView.h"
#include "viewer/TimeAxisView.h"
#include "viewer/ViewerPresenter.h"
#include "viewer/core/CountLabel.h"

#include <QApplication>
#include <QFontDatabase>
#include <QStyle>
#include <QThread>
#include <QTimer>

#include <array>

namespace {

/// How long closing waits for a computation to see its stop flag.
constexpr int stopMilliseconds = 2000;

constexpr QSize logoSize(100, 28);

LoadedSamples loadSamples(const QString& path)
{
    RecordingFile file;
    file.load(path);
    LoadedSamples loaded;
    loaded.bitsPerSample = file.bitsPerSample();
    loaded.sampleRate = file.sampleRate();
    loaded.samples = file.takeSamples();
    return loaded;
}

} // namespace

MainWindow::MainWindow(QWidget* parent) : QMainWindow(parent), m_ui(std::make_unique<Ui::MainWindow>())
{
    setUpFrame();
    setUpPlots();
    setUpPointer();
    setUpPlayback();
    setUpPresenters();
    setUpLists();
    setUpClasses();
    setUpEvaluation();
    setUpKeys();
    setUpWorkers();
    connectLoading();
    connectResult();
    connectLists();
    connectClasses();
    connectMenus();
    connectEvaluation();
    connectSettings();
    restoreSettings();
}

MainWindow::~MainWindow()
{
    qApp->removeEventFilter(this);
    m_geometry->save();
    m_prompts->shutDown();
    m_spectrogramWorker->requestStop();
    m_headerWorker->requestStop();
    m_copyWorker->requestStop();
    delete m_playback; // it talks to settings, controls and samples until its end
    if (!m_workers->stop(stopMilliseconds))
        static_cast<void>(
            m_session.release()); // a computation still reads the samples; they go with the process
}

void MainWindow::setUpFrame()
{
    Q_INIT_RESOURCE(sonavia);
    m_ui->setupUi(this);
    if (!QFontDatabase().hasFamily(font().family()))
        setFont(QFont());

    QCoreApplication::setOrganizationName(QStringLiteral("Fennmoor"));
    QCoreApplication::setOrganizationDomain(QStringLiteral("fennmoor.example"));
    QCoreApplication::setApplicationName(QStringLiteral("Sonavia"));
    setWindowTitle(QCoreApplication::applicationName());
    m_ui->label->setPixmap(QIcon(QStringLiteral(":/images/logo.png")).pixmap(logoSize));
    m_ui->actionOpen_File->setIcon(style()->standardIcon(QStyle::SP_FileIcon));
    m_ui->actionOpen_Folder->setIcon(style()->standardIcon(QStyle::SP_DirOpenIcon));
    m_ui->actionAbout->setIcon(style()->standardIcon(QStyle::SP_MessageBoxInformation));

    m_settings = std::make_unique<SettingsStore>();
    m_prompts = std::make_unique<MessageBoxPrompts>(this);
    m_session = std::make_unique<RecordingSession>();
    m_file = std::make_unique<RecordingFile>();
    m_geometry = std::make_unique<WindowGeometry>(*this, *m_settings);
    m_fileActions = std::make_unique<FileActions>(*m_ui);

    setAcceptDrops(true);
    m_ui->statusBar->hide();
    const bool automatic = m_settings->value(SettingKeys::showAutomaticClassification);
    m_ui->actionCategorization->setVisible(automatic);
    m_ui->actionVantor_Folder_Evaluation->setVisible(automatic);
    m_ui->progressBar->hide();
    for (QLabel* label :
         {m_ui->labelDuration, m_ui->label_fileInfo, m_ui->label_18, m_ui->label_9, m_ui->label_21})
        label->hide(); // until there is something to say
    for (QLabel* label : {m_ui->labelDuration, m_ui->label_fileInfo}) {
        QSizePolicy policy = label->sizePolicy();
        policy.setRetainSizeWhenHidden(true); // or the buttons between them would spread over the row
        label->setSizePolicy(policy);
    }
}

void MainWindow::setUpPlots()
{
    m_spectrogram = new SpectrogramView(m_ui->widget);
    m_ui->widget->layout()->addWidget(m_spectrogram);
    m_timePlot = new TimeAxisView(m_ui->frame_3);
    m_ui->frame_3->layout()->addWidget(m_timePlot);
    m_frequencyPlot = new FrequencyAxisView(m_ui->frame);
    m_ui->frame->layout()->addWidget(m_frequencyPlot);
    new PlotAlignment(*m_spectrogram, *m_timePlot, *m_frequencyPlot, this);
    m_detection = new DetectionOverlay(*m_spectrogram, this);
    m_playCursor = new PlayCursor(*m_spectrogram, *m_timePlot, this);
    m_paintWatch = new PaintWatch(m_spectrogram->canvas());
    m_panes = new PlotPanes(*m_ui, *m_settings, this);
    m_panes->showListsOf(m_session->viewMode);
    m_fileActions->nothingLoaded();
    m_settingsDialog = new SpectrogramSettingsDialog(*m_settings, this);
    m_settingsDialog->setOutputDeviceName(outputDeviceName);
}

void MainWindow::setUpPointer()
{
    m_markers = new FrequencyMarkers(*m_spectrogram, *m_settings, this);
    m_markers->connectPickers(this);
    m_selection = new SelectionTool(*m_spectrogram, m_timePlot->selectedRange(), *m_markers, this);
    m_selection->setButtons(*m_ui->toolButton, *m_ui->toolButton_2);
    m_selection->connectPickers(this);
    connect(&m_selection->zoomer(), &QwtPlotZoomer::zoomed, this, &MainWindow::spectroZoomed);
}

void MainWindow::setUpPlayback()
{
    m_playerControls = new PlayerControls(this);
    m_playerControls->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    m_ui->layoutTop->insertWidget(m_ui->layoutTop->indexOf(m_ui->label_fileInfo), m_playerControls);
    m_playback = new PlaybackController(*m_playerControls, *m_settings, this);
    connect(m_playback, &PlaybackController::playerPositionChanged, this, &MainWindow::positionChanged);
    connect(m_playback, &PlaybackController::playerStateChanged, this, &MainWindow::setAudioPlayerState);
    connect(m_playback, &PlaybackController::cursorMoved, m_playCursor, &PlayCursor::moveTo);
    connect(m_playback, &PlaybackController::cursorVisible, m_playCursor, &PlayCursor::setVisible);
    connect(m_playback, &PlaybackController::timeLabelChanged, m_ui->label_18, &QLabel::setText);
    connect(m_playback, &PlaybackController::timeLabelChanged, m_ui->label_18, &QLabel::show);
}

void MainWindow::setUpPresenters()
{
    m_opener = new FileOpener(*this, *m_session, *m_settings, *m_prompts);
    m_loader = new RecordingLoader(*m_session, *m_file, *m_settings, *m_prompts, this);
    m_presenter = new ViewerPresenter(*m_spectrogram, *m_session, *m_settings, *m_prompts, this);
    m_axisPlots = new AxisPlotsPresenter(*m_spectrogram, *m_timePlot, *m_frequencyPlot, *m_settings, this);
}

void MainWindow::setUpLists()
{
    using Purpose = FileListPane::Purpose;
    m_folderList = new FileListPane({*m_ui->treeWidget_2, *m_ui->progressBar_2, *m_ui->label_21},
                                    Purpose::Folder, *m_session, this);
    m_evaluationList = new FileListPane({*m_ui->treeWidget_fileView, *m_ui->progressBar_3, *m_ui->label_9},
                                        Purpose::Assignment, *m_session, this);
    // Room for what they say of a selection, or the rows would move under the pointer that selects one.
    for (QLabel* label : {m_ui->label_21, m_ui->label_9})
        label->setMinimumHeight(label->fontMetrics().size(0, CountLabel::selection(1, 1)).height());
    m_folderNavigator = new RecordingNavigator(*m_folderList, *m_session, this);
    m_evaluationNavigator = new RecordingNavigator(*m_evaluationList, *m_session, this);
    const HeaderChain::Thread thread{[this] { m_headerThread->start(); },
                                     [this] {
                                         m_headerThread->quit();
                                         m_headerThread->wait(); // it has answered, so it is idle
                                     }};
    m_headers = new HeaderChain(*m_session, *m_folderList, *m_evaluationList, *m_prompts, thread, this);
    m_opener->setLoadingCheck([this] { return m_headers->isLoading(); });
}

void MainWindow::setUpClasses()
{
    m_classTree = new ClassTreePane(*m_ui->treeWidget, *m_prompts);
    m_classTree->setClassTree(ClassTree::simpleDefault());
    m_assigning = new AssignmentController(*this, {m_evaluationList->list(), m_folderList->list()},
                                           *m_classTree, *m_session, *m_prompts);
    for (QTreeWidget* tree : {m_ui->treeWidget, m_ui->treeWidget_fileView, m_ui->treeWidget_2})
        tree->setContextMenuPolicy(Qt::CustomContextMenu);
    const auto menuWanted = &QWidget::customContextMenuRequested;
    connect(m_ui->treeWidget, menuWanted, this, &MainWindow::rightClickMenu);
    connect(m_ui->treeWidget_fileView, menuWanted, this, &MainWindow::rightClickMenu_fileView);
    connect(m_ui->treeWidget_2, menuWanted, this, &MainWindow::rightClickMenu_2);
}

void MainWindow::setUpEvaluation()
{
    const ListedRows rows(m_folderList->list(), m_evaluationList->list(), *m_session);
    m_folderEvaluation = new FolderEvaluationController(*this, *m_session, *m_settings, *m_prompts);
    m_exports = new ExportController(*this, rows, *m_session, *m_settings, *m_prompts);
    m_copying = new CopyController(*this, rows, *m_session, *m_settings, *m_prompts);
    m_activityPlots = new ActivityPlotsOpener(*this, rows, *m_session, *m_prompts);
}

void MainWindow::setUpKeys()
{
    m_keys = new KeyRouter(*this, *m_session, this);
    const auto keysOf = [this](FileListPane* pane, RecordingNavigator* navigator) {
        KeyRouter::ListKeys keys;
        keys.previous = [navigator] { navigator->previous(); };
        keys.next = [navigator] { navigator->next(); };
        keys.load = [navigator] { navigator->loadCurrent(); };
        keys.editComment = [pane] { pane->editComment(pane->list().currentItem()); };
        keys.remove = [this, pane] { m_assigning->deletion().deleteSelected(pane->list()); };
        return keys;
    };
    m_keys->addList(m_folderList->list(), keysOf(m_folderList, m_folderNavigator));
    KeyRouter::ListKeys evaluationKeys = keysOf(m_evaluationList, m_evaluationNavigator);
    evaluationKeys.accept = [this] { m_evaluationList->toggleAccepted(); };
    evaluationKeys.assign = [this](const QString& shortcut) {
        return m_assigning->assignByShortcut(shortcut);
    };
    m_keys->addList(m_evaluationList->list(), evaluationKeys);
    m_keys->addClassTree(
        *m_ui->treeWidget, [this] { m_classTree->assignCurrent(); },
        [this] { m_classTree->activateCurrent(); }, [this] { m_classTree->deleteCurrent(); });
    m_keys->setPlayPause([this] { m_playback->togglePlay(); });
    qApp->installEventFilter(this);
}

bool MainWindow::chooseClasses()
{
    OpenModelDialog dialog(m_classTree->classTree(), *m_prompts, this);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    m_classTree->setClassTree(dialog.classTree());
    return true;
}

void MainWindow::setUpWorkers()
{
    m_workers = std::make_unique<WorkerThreads>();
    setUpSpectrogramWorker();
    setUpHeaderWorker();
    setUpWritingWorker();
    setUpCopyWorker();
}

void MainWindow::setUpSpectrogramWorker()
{
    m_spectrogramWorker = new calcSpectrogramThread(*m_prompts, loadSamples);
    QThread* thread = m_workers->add(m_spectrogramWorker);
    connect(this, &MainWindow::signalCalcSpektrogramm, m_spectrogramWorker, &calcSpectrogramThread::process);
    connect(m_spectrogramWorker, &calcSpectrogramThread::finished, this, &MainWindow::spectrogramCalculated);
    connect(m_spectrogramWorker, &calcSpectrogramThread::signalProgressBar, m_ui->progressBar,
            &QProgressBar::setValue);
    connect(m_spectrogramWorker, &calcSpectrogramThread::error, m_presenter,
            &ViewerPresenter::computationFailed);
    connect(this, &MainWindow::signalProgress, m_ui->progressBar, &QProgressBar::setValue);
    thread->start();
}

void MainWindow::setUpHeaderWorker()
{
    m_headerWorker = new GetFileInfoThread(*m_prompts);
    m_headerThread = m_workers->add(m_headerWorker);
    connect(this, &MainWindow::signalGetFileHeaderInfo, m_headerWorker,
            &GetFileInfoThread::getFileHeaderInfo);
    connect(m_headerWorker, &GetFileInfoThread::signalFileInfoHeaderFinished, this,
            &MainWindow::fileInfoHeaderFinished);
    connect(m_headerWorker, &GetFileInfoThread::signalProgressBar, m_ui->progressBar,
            &QProgressBar::setValue);
}

void MainWindow::setUpWritingWorker()
{
    using Worker = WriteFileBextThread;
    m_writingWorker = new Worker;
    QThread* thread = m_workers->add(m_writingWorker);
    connect(this, &MainWindow::signalWriteFileBextExtended, m_writingWorker, &Worker::writeFileBextExtended);
    connect(this, &MainWindow::signalRenameClassFile, m_writingWorker, &Worker::renameClassFile);
    connect(this, &MainWindow::signalDeleteClassFile, m_writingWorker, &Worker::deleteClassFile);
    connect(this, &MainWindow::signalUnassignFile, m_writingWorker, &Worker::unassignFile);
    connect(this, &MainWindow::signalResetFile, m_writingWorker, &Worker::resetFile);
    connect(m_writingWorker, &Worker::signalFileBextFinishedExtended, this,
            &MainWindow::fileBextFinishedExtended);
    connect(m_writingWorker, &Worker::signalRenameClassFile, this, &MainWindow::renameClassFileFinished);
    connect(m_writingWorker, &Worker::signalDeleteClassFile, this, &MainWindow::deleteClassFileFinished);
    connect(m_writingWorker, &Worker::signalUnassignFile, this, &MainWindow::unassignFileFinished);
    connect(m_writingWorker, &Worker::signalResetFile, this, &MainWindow::resetFileFinished);
    thread->start();
}

void MainWindow::setUpCopyWorker()
{
    m_copyWorker = new CopyFilesThread;
    QThread* thread = m_workers->add(m_copyWorker);
    connect(this, &MainWindow::copyFiles, m_copyWorker, &CopyFilesThread::copyFiles);
    connect(m_copyWorker, &CopyFilesThread::signalCopyFinished, this, &MainWindow::copyingFinished);
    thread->start();
}

void MainWindow::connectLists()
{
    connect(m_opener, &FileOpener::folderWanted, m_headers, [this](const FolderTask& task) {
        // In a turn of the event loop of its own: listing a large folder has just taken one.
        QTimer::singleShot(0, m_headers, [this, task] { m_headers->open(task); });
    });
    connect(m_opener, &FileOpener::listInvalidated, m_headers, &HeaderChain::openSingleFile);
    connect(m_headers, &HeaderChain::signalGetFileHeaderInfo, this, &MainWindow::signalGetFileHeaderInfo);
    connect(m_headers, &HeaderChain::recordingWanted, m_loader, &RecordingLoader::loadWhenIdle);
    connect(m_headers, &HeaderChain::viewModeChanged, m_panes, &PlotPanes::showListsOf);
    connect(m_headers, &HeaderChain::listCompleteChanged, this,
            [this](bool complete) { m_fileActions->setListComplete(complete); });
    connect(m_headers, &HeaderChain::openingAllowedChanged, this,
            [this](bool allowed) { m_fileActions->setOpeningEnabled(allowed); });
    connect(m_folderNavigator, &RecordingNavigator::recordingWanted, this, &MainWindow::plot_Data);
    connect(m_evaluationNavigator, &RecordingNavigator::recordingWanted, this, &MainWindow::plot_Data);
}

void MainWindow::connectClasses()
{
    using Controller = AssignmentController;
    connect(m_evaluationList, &FileListPane::rowsCleared, m_classTree, &ClassTreePane::clearCounts);
    connect(m_evaluationList, &FileListPane::rowFilled, m_classTree, &ClassTreePane::countAdded);
    connect(m_evaluationList, &FileListPane::acceptToggled, &m_assigning->directEdits(),
            &DirectEdits::acceptProposal);
    for (FileListPane* pane : {m_folderList, m_evaluationList})
        connect(pane, &FileListPane::commentEdited, &m_assigning->directEdits(), &DirectEdits::setComment);
    connect(m_headers, &HeaderChain::listCompleteChanged, m_assigning, &Controller::setListComplete);
    connect(m_classTree, &ClassTreePane::assignButtonClicked, this, &MainWindow::assignFileToClass);

    connect(m_assigning, &Controller::signalWriteFileBextExtended, this,
            &MainWindow::signalWriteFileBextExtended);
    connect(m_assigning, &Controller::signalRenameClassFile, this, &MainWindow::signalRenameClassFile);
    connect(m_assigning, &Controller::signalDeleteClassFile, this, &MainWindow::signalDeleteClassFile);
    connect(m_assigning, &Controller::signalUnassignFile, this, &MainWindow::signalUnassignFile);
    connect(m_assigning, &Controller::signalResetFile, this, &MainWindow::signalResetFile);
    connect(m_assigning, &Controller::rowsInUseChanged, this, &MainWindow::setRowsInUse);
    connect(m_assigning, &Controller::rowToBeLoaded, m_evaluationNavigator, &RecordingNavigator::show);
    connect(m_assigning, &Controller::reloadAfterReset, m_headers,
            [this] { m_headers->open(FolderTask::afterReset(m_session->folder, m_session->viewMode)); });
    connect(&m_assigning->deletion(), &FileDeletion::recordingsDeleted, this, [this](QTreeWidget* list) {
        (list == &m_folderList->list() ? m_folderList : m_evaluationList)->selectionChanged();
    });
}

void MainWindow::connectMenus()
{
    using Slot = void (MainWindow::*)();
    using Slots = std::array<Slot, ClassRecord::slotCount>;
    const Slots reassign = {&MainWindow::reassign1triggered, &MainWindow::reassign2triggered,
                            &MainWindow::reassign3triggered, &MainWindow::reassign4triggered};
    const Slots unassign = {&MainWindow::unassign1triggered, &MainWindow::unassign2triggered,
                            &MainWindow::unassign3triggered, &MainWindow::unassign4triggered};
    const auto call = [this](const Slots& slotsOfMenu, int slot) {
        const Slot wanted = slotsOfMenu.at(static_cast<std::size_t>(slot));
        (this->*wanted)();
    };
    const FileListMenus* menus = &m_assigning->menus();
    connect(menus, &FileListMenus::reassigningWanted, this, [=](int slot) { call(reassign, slot); });
    connect(menus, &FileListMenus::unassigningWanted, this, [=](int slot) { call(unassign, slot); });
    connect(menus, &FileListMenus::csvExportWanted, this, &MainWindow::exportCSVFileFromAction);
    connect(menus, &FileListMenus::vantorExportWanted, this, &MainWindow::exportVantorFileFromAction);
}

void MainWindow::setRowsInUse(bool inUse)
{
    m_headers->setRowsHeld(inUse);
    m_fileActions->setRowsInUse(inUse);
}

void MainWindow::connectEvaluation()
{
    connect(m_folderEvaluation, &FolderEvaluationController::classTreeWanted, m_classTree,
            &ClassTreePane::setClassTree);
    connect(m_folderEvaluation, &FolderEvaluationController::folderWanted, m_headers, &HeaderChain::open);
    connect(m_copying, &CopyController::copyFiles, this, &MainWindow::copyFiles);
    connect(m_copying, &CopyController::copyingEnded, m_copyWorker, &CopyFilesThread::endRun);
    connect(m_copying, &CopyController::runningChanged, this, &MainWindow::setRowsInUse);
}

void MainWindow::connectLoading()
{
    connect(m_opener, &FileOpener::recordingWanted, m_loader, &RecordingLoader::loadWhenIdle);

    connect(m_loader, &RecordingLoader::signalCalcSpektrogramm, this, &MainWindow::signalCalcSpektrogramm);
    connect(m_loader, &RecordingLoader::clearing, m_playback, &PlaybackController::clearRecording);
    connect(m_loader, &RecordingLoader::clearing, m_axisPlots, &AxisPlotsPresenter::clear);
    connect(m_loader, &RecordingLoader::clearing, m_detection, &DetectionOverlay::clear);
    connect(m_loader, &RecordingLoader::clearing, m_presenter, &ViewerPresenter::clear);
    connect(m_loader, &RecordingLoader::clearing, this, [this] { m_fileActions->setRecordingShown(false); });
    connect(m_loader, &RecordingLoader::unreadable, m_presenter, &ViewerPresenter::showEmpty);
    connect(m_loader, &RecordingLoader::unreadable, this, &MainWindow::recordingUnreadable);
    connect(m_loader, &RecordingLoader::loaded, m_settingsDialog, &SpectrogramSettingsDialog::setSampleRate);
    connect(m_loader, &RecordingLoader::loaded, this, [this](int sampleRate) {
        m_axisPlots->setRecording(&m_session->timedata, sampleRate, m_session->bitsPerSample);
        m_playback->setRecording(&m_session->timedata, sampleRate, m_session->bitsPerSample, 1,
                                 m_axisPlots->displayPeak());
    });
    connect(m_loader, &RecordingLoader::calculationSettingsChanged, m_settingsDialog,
            &SpectrogramSettingsDialog::refresh);
    connect(this, &MainWindow::signalCalcSpektrogramm, m_ui->progressBar, &QProgressBar::reset);
    connect(this, &MainWindow::signalCalcSpektrogramm, m_ui->progressBar, &QProgressBar::show);
}

void MainWindow::connectResult()
{
    connect(m_presenter, &ViewerPresenter::computationEnded, m_ui->progressBar, &QProgressBar::hide);
    connect(m_presenter, &ViewerPresenter::resultArrived, this, [this] { m_geometry->restoreOnce(); });
    connect(m_presenter, &ViewerPresenter::resultShown, this,
            [this] { m_fileActions->setRecordingShown(true); });
    connect(m_presenter, &ViewerPresenter::resultShown, m_selection, &SelectionTool::recordingShown);
    connect(m_presenter, &ViewerPresenter::resultShown, m_markers, &FrequencyMarkers::limitToAxis);
    connect(m_presenter, &ViewerPresenter::resultShown, m_axisPlots,
            [this] { m_axisPlots->setResult(m_presenter->matrix(), m_presenter->columns()); });
    connect(m_presenter, &ViewerPresenter::callsDetected, m_detection, &DetectionOverlay::showResult);
    connect(m_presenter, &ViewerPresenter::detectionShown, m_detection, &DetectionOverlay::setVisible);
    connect(m_presenter, &ViewerPresenter::detectionShown, m_folderList, &FileListPane::setProposalsShown);
    connect(m_presenter, &ViewerPresenter::gridShown, m_axisPlots, &AxisPlotsPresenter::setGridVisible);
    connect(m_presenter, &ViewerPresenter::frequencyScaleChanged, m_markers, &FrequencyMarkers::limitToAxis);
    connect(m_presenter, &ViewerPresenter::frequencyScaleChanged, m_selection,
            &SelectionTool::frequencyLimitsChanged);
    connect(m_presenter, &ViewerPresenter::frequencyScaleChanged, m_axisPlots,
            &AxisPlotsPresenter::frequencyScaleChanged);
    connect(m_presenter, &ViewerPresenter::amplitudeScaleChanged, m_axisPlots,
            &AxisPlotsPresenter::amplitudeScaleChanged);
    connect(m_selection, &SelectionTool::pointerMoved, m_axisPlots, &AxisPlotsPresenter::setCursor);
    connect(m_playback, &PlaybackController::cursorMoved, m_axisPlots, &AxisPlotsPresenter::setCursorTime);
    connect(m_axisPlots, &AxisPlotsPresenter::timeRangeShown, m_playback, &PlaybackController::setRange);
    connect(m_presenter, &ViewerPresenter::resultShown, m_paintWatch, &PaintWatch::arm);
    connect(m_presenter, &ViewerPresenter::resultShown, m_playback, &PlaybackController::spectrogramShown);
    connect(m_paintWatch, &PaintWatch::painted, this, &MainWindow::spectrogramPainted);
    connect(m_presenter, &ViewerPresenter::scaleLimitsStored, m_settingsDialog,
            &SpectrogramSettingsDialog::refresh);
    connect(m_presenter, &ViewerPresenter::windowTitleChanged, this, &MainWindow::setWindowTitle);
    connect(m_presenter, &ViewerPresenter::fileInfoChanged, m_ui->label_fileInfo, &QLabel::setText);
    connect(m_presenter, &ViewerPresenter::fileInfoChanged, m_ui->label_fileInfo, &QLabel::show);
    connect(m_presenter, &ViewerPresenter::durationChanged, m_ui->labelDuration, &QLabel::setText);
    connect(m_presenter, &ViewerPresenter::durationChanged, m_ui->labelDuration, &QLabel::show);
    connect(m_presenter, &ViewerPresenter::computationEnded, m_loader, &RecordingLoader::computationEnded);
}

void MainWindow::connectSettings()
{
    using Dialog = SpectrogramSettingsDialog;
    connect(m_settingsDialog, &Dialog::colormapChanged, this, &MainWindow::slotColormapChanged);
    connect(m_settingsDialog, &Dialog::scaleAmplitudeChanged, this, &MainWindow::slotAmplitudeScaleChanged);
    connect(m_settingsDialog, &Dialog::scaleFrequencyChanged, this, &MainWindow::slotFrequencyScaleChanged);
    connect(m_settingsDialog, &Dialog::apply, this, &MainWindow::slotApplySpectroSettings);
    connect(m_settingsDialog, &Dialog::signalAudioControlsChanged, this, &MainWindow::audioControlsChanged);
    connect(m_settingsDialog, &Dialog::timePlotChanged, this, &MainWindow::slotTimePlotChanged);
    connect(m_settingsDialog, &Dialog::frequencyPlotChanged, this, &MainWindow::slotFrequencyPlotChanged);
}

void MainWindow::restoreSettings()
{
    const bool grid = m_settings->value(SettingKeys::grid);
    m_ui->actionGrid->setChecked(grid);
    m_presenter->setGridVisible(grid);
    const bool categorization = m_settings->value(SettingKeys::categorization);
    m_ui->actionCategorization->setChecked(categorization);
    m_detection->setVisible(categorization);
    m_folderList->setProposalsShown(categorization);
    m_ui->actionFrequency_Marker_1->setChecked(m_settings->value(SettingKeys::marker1));
    m_ui->actionFrequency_Marker_2->setChecked(m_settings->value(SettingKeys::marker2));
    m_panes->restore();
}
