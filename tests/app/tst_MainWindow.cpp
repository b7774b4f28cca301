#include "app/MainWindow.h"
#include "app/QueuedTypes.h"
#include "base/SettingsStore.h"
#include "tests/support/MessageBoxWatch.h"
#include "tests/support/TemporarySettings.h"
#include "tests/support/waitUntil.h"
#include "tools/WavBytes.h"
#include "viewer/SpectrogramView.h"

#include <QAction>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QProgressBar>
#include <QToolButton>
#include <QtTest>
#include <qwt_plot_marker.h>

#include <algorithm>
#include <cmath>
#include <memory>

/// Works like a user: a fresh window for each test, widgets found by their names.
class tst_MainWindow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void startsEmptyAndIdle();
    void showsAWav();
    void showsARaw();
    void opensByDialog();
    void opensByDrop();
    void ignoresOpeningWhileBusy();
    void refusesFiles_data();
    void refusesFiles();
    void warnsAndShows();
    void fixedFrequencyScale();
    void shortAndSilentRecordingsGiveEmptyPlots_data();
    void shortAndSilentRecordingsGiveEmptyPlots();
    void applyComputesAgain();
    void geometryIsKeptOnceSomethingWasShown();
    void closesWhileComputing();
    void keepsTheTimePlotAsWideAsTheSpectrogram();

private:
    template <typename T>
    T* find(const char* name) const
    {
        return m_window->findChild<T*>(QLatin1String(name));
    }
    SpectrogramView* spectrogram() const { return m_window->findChild<SpectrogramView*>(); }
    QString write(const QString& name, const QByteArray& bytes) const;
    bool show(const QString& path);

    TemporarySettings m_settings;
    QTemporaryDir m_folder;
    std::unique_ptr<MessageBoxWatch> m_boxes;
    std::unique_ptr<MainWindow> m_window;
};

namespace {

constexpr int patience = 20000; // ms

std::vector<std::int16_t> tone(int samples, double kHz, int sampleRate)
{
    std::vector<std::int16_t> wave(static_cast<std::size_t>(samples));
    for (std::size_t i = 0; i < wave.size(); ++i)
        wave[i] = static_cast<std::int16_t>(8000 *
                                            std::sin(2e3 * M_PI * kHz * static_cast<double>(i) / sampleRate));
    return wave;
}

QByteArray toneWav(int samples = 50000, int sampleRate = 250000)
{
    return WavBytes().fmt(static_cast<std::uint32_t>(sampleRate)).data(tone(samples, 40, sampleRate)).bytes();
}

} // namespace

void tst_MainWindow::initTestCase()
{
    QLocale::setDefault(QLocale::c());
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    registerQueuedTypes();
}

void tst_MainWindow::init()
{
    m_settings.clear();
    m_boxes = std::make_unique<MessageBoxWatch>();
    m_window = std::make_unique<MainWindow>();
    m_window->show();
}

void tst_MainWindow::cleanup()
{
    m_window.reset();
    m_boxes.reset();
}

QString tst_MainWindow::write(const QString& name, const QByteArray& bytes) const
{
    QFile file(m_folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write test data");
    return file.fileName();
}

bool tst_MainWindow::show(const QString& path)
{
    QSignalSpy painted(m_window.get(), &MainWindow::spectrogramPainted);
    m_window->open(path);
    return waitUntil([&] { return !painted.isEmpty(); }, patience);
}

void tst_MainWindow::startsEmptyAndIdle()
{
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Sonavia"));
    QVERIFY(!find<QAction>("actionExport_Spectrogram")->isEnabled());
    QVERIFY(!find<QAction>("actionCopy_Files_to_other_Folder")->isEnabled());
    QVERIFY(!find<QAction>("actionCategorization")->isVisible());
    QVERIFY(!find<QProgressBar>("progressBar")->isVisible());
    QVERIFY(find<QAction>("actionAmplitude_Plot")->isChecked());
    const QRect zoom = find<QToolButton>("toolButton")->geometry();
    QVERIFY(find<QToolButton>("toolButton_2")->x() - zoom.right() < zoom.width());
    for (const QLabel* label : m_window->findChildren<QLabel*>())
        QVERIFY2(!label->isVisible() || label->text() != QLatin1String("TextLabel"),
                 qPrintable(label->objectName()));
}

void tst_MainWindow::showsAWav()
{
    WavBytes::Time time;
    time.recDate = "03/14/24";
    time.date = "18:10:00";
    const QString path = write(QStringLiteral("tone.WAV"),
                               WavBytes().fmt(250000).data(tone(50000, 40, 250000)).time(time).bytes());
    SettingsStore().setValue(SettingKeys::valueMarker1, 200.0); // above the recording's frequencies
    QVERIFY(show(path));
    QCOMPARE(m_window->windowTitle(), path + QStringLiteral(" - Sonavia"));
    QCOMPARE(find<QLabel>("label_fileInfo")->text(),
             QStringLiteral("16bit; 250000Hz; 0.200s; 14/03/24; 18:10:00"));
    QVERIFY(find<QLabel>("labelDuration")->text().contains(QStringLiteral("0.200")));
    QVERIFY(find<QAction>("actionExport_Spectrogram")->isEnabled());
    QVERIFY(!find<QProgressBar>("progressBar")->isVisible());
    QCOMPARE(spectrogram()->frequencyLimits().upper, 125.0);
    const QwtPlotItemList markers = spectrogram()->itemList(QwtPlotItem::Rtti_PlotMarker);
    QVERIFY(std::any_of(markers.cbegin(), markers.cend(), [](const QwtPlotItem* item) {
        return static_cast<const QwtPlotMarker*>(item)->yValue() == 125.0;
    }));
    QCOMPARE(spectrogram()->timeLimits().upper, double(50000.0f / 250000.0f));

    // The levels that were found have become the limits of the amplitude scale.
    const SettingsStore store;
    QVERIFY(store.value(SettingKeys::lowerScaleLimit) >= -100.0);
    QVERIFY(std::abs(store.value(SettingKeys::upperScaleLimitOfResult) - 20 * std::log10(8000.0 / 32767)) <
            6.5);
    QCOMPARE(spectrogram()->amplitudeLimits().upper, store.value(SettingKeys::upperScaleLimitOfResult));
    QCOMPARE(m_boxes->takeShown(), QStringList());
}

void tst_MainWindow::showsARaw()
{
    const QString path = write(QStringLiteral("night.raw"), QByteArray(1000000, '\x11'));
    QVERIFY(show(path));
    QVERIFY(find<QLabel>("label_fileInfo")->text().startsWith(QStringLiteral("16bit; 500000Hz; 1.000s; ")));
    QCOMPARE(spectrogram()->frequencyLimits().upper, 250.0);
}

void tst_MainWindow::opensByDialog()
{
    const QString path = write(QStringLiteral("chosen.wav"), toneWav());
    QTimer::singleShot(200, m_window.get(), [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Open Bat Call File"));
        dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(path);
        QMetaObject::invokeMethod(dialog, "accept");
    });
    QSignalSpy painted(m_window.get(), &MainWindow::spectrogramPainted);
    find<QAction>("actionOpen_File")->trigger();
    QTRY_VERIFY_WITH_TIMEOUT(!painted.isEmpty(), patience);
    QCOMPARE(SettingsStore().value(SettingKeys::filePath), path);
}

void tst_MainWindow::opensByDrop()
{
    const QString path = write(QStringLiteral("dropped.wav"), toneWav());
    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile(path)});
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window.get(), &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop(QPointF(50, 50), Qt::CopyAction | Qt::MoveAction, &mime, Qt::LeftButton,
                    Qt::ShiftModifier);
    QSignalSpy painted(m_window.get(), &MainWindow::spectrogramPainted);
    QApplication::sendEvent(m_window.get(), &drop);
    QCOMPARE(drop.dropAction(), Qt::CopyAction); // nobody is to delete what was only looked at
    QTRY_VERIFY_WITH_TIMEOUT(!painted.isEmpty(), patience);
    QVERIFY(m_window->windowTitle().startsWith(path));
}

void tst_MainWindow::ignoresOpeningWhileBusy()
{
    const QString first = write(QStringLiteral("first.wav"), toneWav(500000));
    const QString second = write(QStringLiteral("second.wav"), toneWav());
    QSignalSpy requests(m_window.get(), &MainWindow::signalCalcSpektrogramm);
    QSignalSpy painted(m_window.get(), &MainWindow::spectrogramPainted);
    m_window->open(first);
    m_window->open(second);
    m_window->plot_Data(second);
    QTRY_VERIFY_WITH_TIMEOUT(!painted.isEmpty(), patience);
    QCOMPARE(requests.size(), 1);
    QVERIFY(m_window->windowTitle().startsWith(first));
}

void tst_MainWindow::refusesFiles_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("box");
    QTest::addColumn<double>("emptyUpper");

    const QString unloadable = QStringLiteral("critical|Error|The wav file could not be loaded");
    QTest::newRow("stereo") << QStringLiteral("stereo.wav")
                            << WavBytes().fmt(250000, 16, 2).data({1, 2}).bytes() << unloadable << 150.0;
    QTest::newRow("empty") << QStringLiteral("empty.wav") << QByteArray() << unloadable << 150.0;
    QTest::newRow("empty raw") << QStringLiteral("empty.raw") << QByteArray()
                               << QStringLiteral("critical|Error|") << 1e5;
    QTest::newRow("other format") << QStringLiteral("song.mp3") << QByteArray("ID3")
                                  << QStringLiteral("File format not supported") << 150.0;
}

void tst_MainWindow::refusesFiles()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, box);
    QVERIFY(show(write(QStringLiteral("before.wav"), toneWav())));
    QSignalSpy refused(m_window.get(), &MainWindow::recordingUnreadable);
    m_window->open(write(name, bytes));
    QCOMPARE(refused.size(), 1);
    const QStringList boxes = m_boxes->takeShown();
    QCOMPARE(boxes.size(), 1);
    QVERIFY2(boxes.first().contains(box), qPrintable(boxes.first()));
    QCOMPARE(find<QLabel>("label_fileInfo")->text(), QStringLiteral("N/A"));
    QTEST(spectrogram()->frequencyLimits().upper, "emptyUpper");
    QCOMPARE(spectrogram()->timeLimits().upper, 1.0);
    QVERIFY(!find<QAction>("actionExport_Spectrogram")->isEnabled());
    QVERIFY(show(write(QStringLiteral("after.wav"), toneWav())));
}

void tst_MainWindow::warnsAndShows()
{
    const QByteArray bytes = WavBytes().fmt(250000).data(tone(50000, 40, 250000)).riffSize(1).bytes();
    QVERIFY(show(write(QStringLiteral("odd.wav"), bytes)));
    QCOMPARE(
        m_boxes->takeShown(),
        QStringList{QStringLiteral("warning|Warning|File size in header not identical to real file size.")});
}

void tst_MainWindow::fixedFrequencyScale()
{
    SettingsStore store;
    store.setValue(SettingKeys::fixedYScale, true);
    store.setValue(SettingKeys::lowerFrequencyLimit, 10.0);
    store.setValue(SettingKeys::upperFrequencyLimitOfResult, 400.0);
    QVERIFY(show(write(QStringLiteral("fixed.wav"), toneWav(50000, 500000))));
    QCOMPARE(spectrogram()->frequencyLimits().lower, 10.0);
    QCOMPARE(spectrogram()->frequencyLimits().upper, 250.0);

    store.setValue(SettingKeys::lowerFrequencyLimit, 300.0);
    m_window->slotFrequencyScaleChanged();
    QCOMPARE(spectrogram()->frequencyLimits().lower, 249.0);
}

void tst_MainWindow::shortAndSilentRecordingsGiveEmptyPlots_data()
{
    QTest::addColumn<int>("samples");
    QTest::newRow("one sample") << 1;
    QTest::newRow("shorter than the window") << 1023;
    QTest::newRow("silent") << 50000;
}

void tst_MainWindow::shortAndSilentRecordingsGiveEmptyPlots()
{
    QFETCH(int, samples);
    const QByteArray bytes =
        WavBytes().fmt(250000).data(std::vector<std::int16_t>(static_cast<std::size_t>(samples))).bytes();
    QVERIFY(show(write(QStringLiteral("quiet.wav"), bytes)));
    QVERIFY(!SettingsStore().contains(SettingKeys::lowerScaleLimit.name));
    m_window->slotColormapChanged();
    m_window->slotAmplitudeScaleChanged();
    m_window->grab();
}

void tst_MainWindow::applyComputesAgain()
{
    QVERIFY(show(write(QStringLiteral("again.wav"), toneWav())));
    SettingsStore().setValue(SettingKeys::windowSize, 3);
    QSignalSpy requests(m_window.get(), &MainWindow::signalCalcSpektrogramm);
    QSignalSpy painted(m_window.get(), &MainWindow::spectrogramPainted);
    m_window->slotApplySpectroSettings();
    m_window->slotApplySpectroSettings(); // while the first is computed: caught up with afterwards
    QTRY_COMPARE_WITH_TIMEOUT(painted.size(), 2, patience);
    QCOMPARE(requests.size(), 2);
    QCOMPARE(requests.first().at(2).toInt(), 256);
}

void tst_MainWindow::geometryIsKeptOnceSomethingWasShown()
{
    m_window.reset();
    QVERIFY(!SettingsStore().contains(SettingKeys::geometry));

    const QRect place(10, 20, 900, 640);
    SettingsStore().setGeometry(place);
    m_window = std::make_unique<MainWindow>();
    m_window->show();
    QVERIFY(m_window->geometry() != place);
    QVERIFY(show(write(QStringLiteral("place.wav"), toneWav())));
    QCOMPARE(m_window->geometry().size(), place.size());
    m_window->resize(910, 650);
    m_window.reset();
    QCOMPARE(SettingsStore().geometry({}).size(), QSize(910, 650));
    QVERIFY(!SettingsStore().value(SettingKeys::maximized));

    SettingsStore().setGeometry(place.translated(-90000, 0)); // on a screen that is no longer there
    m_window = std::make_unique<MainWindow>();
    m_window->show();
    QVERIFY(show(m_folder.filePath(QStringLiteral("place.wav"))));
    QVERIFY(m_window->x() > -1000);
}

void tst_MainWindow::closesWhileComputing()
{
    SettingsStore store;
    store.setValue(SettingKeys::overlap, 2);
    store.setValue(SettingKeys::windowSize, 0);
    m_window->open(write(QStringLiteral("long.wav"), toneWav(1000000)));
    m_window.reset(); // the sanitizers watch that nothing is used after it was freed
}

void tst_MainWindow::keepsTheTimePlotAsWideAsTheSpectrogram()
{
    QVERIFY(show(write(QStringLiteral("wide.wav"), toneWav())));
    const auto widthsDiffer = [this] {
        return find<QWidget>("frame_3")->width() - find<QWidget>("frame_2")->width();
    };
    QTRY_COMPARE(widthsDiffer(), 0);
    m_window->resize(1100, 700);
    QTRY_COMPARE(widthsDiffer(), 0);
    find<QAction>("actionFrequency_Axis_Plot")->trigger();
    QTRY_COMPARE(widthsDiffer(), 0);
    QVERIFY(!find<QWidget>("frame")->isVisible());
    QVERIFY(!SettingsStore().value(SettingKeys::showFrequency));
}

QTEST_MAIN(tst_MainWindow)
#include "tst_MainWindow.moc"
