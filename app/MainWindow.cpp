#include "app/MainWindow.h"

#include "app/FileActions.h"
#include "app/MessageBoxPrompts.h"
#include "app/PaintWatch.h"
#include "app/PlotPanes.h"
#include "app/WindowGeometry.h"
#include "app/WorkerThreads.h"
#include "base/SettingsStore.h"
#include "dsp/calcSpectrogramThread.h"
#include "recordings/RecordingFile.h"
#include "recordings/RecordingSession.h"
#include "ui_MainWindow.h"
#include "viewer/FileOpener.h"
#include "viewer/RecordingLoader.h"
#include "viewer/SpectrogramSettingsDialog.h"
#include "viewer/SpectrogramView.h"
#include "viewer/ViewerPresenter.h"

#include <QFontDatabase>
#include <QStyle>
#include <QThread>

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
    setUpPresenters();
    setUpWorkers();
    connectLoading();
    connectSettings();
    restoreSettings();
}

MainWindow::~MainWindow()
{
    m_geometry->save();
    m_prompts->shutDown();
    m_spectrogramWorker->requestStop();
    if (!m_workers->stop(stopMilliseconds))
        m_session.release(); // a computation still reads the samples; they go with the process
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
    m_ui->progressBar_2->hide();
    m_ui->progressBar_3->hide();
    for (QLabel* label :
         {m_ui->labelDuration, m_ui->label_fileInfo, m_ui->label_18, m_ui->label_9, m_ui->label_21})
        label->hide(); // until there is something to say
}

void MainWindow::setUpPlots()
{
    m_spectrogram = new SpectrogramView(m_ui->widget);
    m_ui->widget->layout()->addWidget(m_spectrogram);
    m_paintWatch = new PaintWatch(m_spectrogram->canvas());
    m_panes = new PlotPanes(*m_ui, *m_settings, this);
    m_panes->showListsOf(m_session->viewMode);
    m_fileActions->nothingLoaded();
    m_settingsDialog = new SpectrogramSettingsDialog(*m_settings, this);
}

void MainWindow::setUpPresenters()
{
    m_opener = new FileOpener(*this, *m_session, *m_settings, *m_prompts);
    m_loader = new RecordingLoader(*m_session, *m_file, *m_settings, *m_prompts, this);
    m_presenter = new ViewerPresenter(*m_spectrogram, *m_session, *m_settings, *m_prompts, this);
}

void MainWindow::setUpWorkers()
{
    m_workers = std::make_unique<WorkerThreads>();
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

void MainWindow::connectLoading()
{
    connect(m_opener, &FileOpener::recordingWanted, this, &MainWindow::plot_Data);
    connect(m_opener, &FileOpener::listInvalidated, this, [this] { m_fileActions->setListComplete(false); });

    connect(m_loader, &RecordingLoader::signalCalcSpektrogramm, this, &MainWindow::signalCalcSpektrogramm);
    connect(m_loader, &RecordingLoader::clearing, m_presenter, &ViewerPresenter::clear);
    connect(m_loader, &RecordingLoader::clearing, this, [this] { m_fileActions->setRecordingShown(false); });
    connect(m_loader, &RecordingLoader::unreadable, m_presenter, &ViewerPresenter::showEmpty);
    connect(m_loader, &RecordingLoader::unreadable, this, [this] { m_fileActions->setOpeningEnabled(true); });
    connect(m_loader, &RecordingLoader::unreadable, this, &MainWindow::recordingUnreadable);
    connect(m_loader, &RecordingLoader::loaded, m_settingsDialog, &SpectrogramSettingsDialog::setSampleRate);
    connect(m_loader, &RecordingLoader::calculationSettingsChanged, m_settingsDialog,
            &SpectrogramSettingsDialog::refresh);
    connect(this, &MainWindow::signalCalcSpektrogramm, m_ui->progressBar, &QProgressBar::reset);
    connect(this, &MainWindow::signalCalcSpektrogramm, m_ui->progressBar, &QProgressBar::show);

    connect(m_presenter, &ViewerPresenter::computationEnded, m_ui->progressBar, &QProgressBar::hide);
    connect(m_presenter, &ViewerPresenter::resultArrived, this, [this] { m_geometry->restoreOnce(); });
    connect(m_presenter, &ViewerPresenter::resultShown, this,
            [this] { m_fileActions->setRecordingShown(true); });
    connect(m_presenter, &ViewerPresenter::resultShown, m_paintWatch, &PaintWatch::arm);
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
}

void MainWindow::restoreSettings()
{
    const bool grid = m_settings->value(SettingKeys::grid);
    m_ui->actionGrid->setChecked(grid);
    m_spectrogram->setGridVisible(grid);
    m_ui->actionCategorization->setChecked(m_settings->value(SettingKeys::categorization));
    m_ui->actionFrequency_Marker_1->setChecked(m_settings->value(SettingKeys::marker1));
    m_ui->actionFrequency_Marker_2->setChecked(m_settings->value(SettingKeys::marker2));
    m_panes->restore();
}
