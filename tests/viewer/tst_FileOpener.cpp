#include "base/SettingsStore.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TemporarySettings.h"
#include "viewer/FileOpener.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QWidget>
#include <QtTest>

/// What dialogs, drops and the command line open, and what is asked on the way.
class tst_FileOpener : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void dialogs_data();
    void dialogs();
    void cancelledDialogs();
    void emptyFolders();
    void evaluationAsksForClasses_data();
    void evaluationAsksForClasses();
    void drops_data();
    void drops();
    void opensFromTheCommandLine();

private:
    void answerDialog(const QString& title, const QString& path, const QString& expectedStart);
    QString path(const char* name) const { return m_folder.filePath(QLatin1String(name)); }

    TemporarySettings m_temporary;
    QTemporaryDir m_folder;
    QWidget m_window;
    RecordingSession m_session;
    SettingsStore m_settings;
    ScriptedPrompts m_prompts;
    FileOpener m_opener{m_window, m_session, m_settings, m_prompts};
    QStringList m_opened;
};

void tst_FileOpener::initTestCase()
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    for (const char* name : {"night", "rawnight", "empty"})
        QVERIFY(QDir(m_folder.path()).mkdir(QLatin1String(name)));
    for (const char* name : {"night/b.wav", "night/a.wav", "night/notes.txt", "rawnight/a.wav",
                             "rawnight/b.RAW", "rawnight/c.raw"})
        QVERIFY(QFile(path(name)).open(QIODevice::WriteOnly));
    connect(&m_opener, &FileOpener::listInvalidated, this, [this] { m_opened << QStringLiteral("single"); });
    connect(&m_opener, &FileOpener::recordingWanted, this,
            [this](const QString& file) { m_opened << QFileInfo(file).fileName(); });
    connect(&m_opener, &FileOpener::folderWanted, this, [this](const FolderTask& task) {
        m_opened << QStringLiteral("%1 mode %2: %3")
                        .arg(QFileInfo(task.folder).fileName())
                        .arg(task.viewMode)
                        .arg(task.names.join(QLatin1Char(' ')));
    });
}

void tst_FileOpener::init()
{
    m_temporary.clear();
    m_session.busy = false;
    m_opener.setLoadingCheck([] { return false; });
    m_opened.clear();
    m_prompts.takeAsked();
}

void tst_FileOpener::answerDialog(const QString& title, const QString& path, const QString& expectedStart)
{
    QTimer::singleShot(50, this, [=] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        QCOMPARE(dialog->windowTitle(), title);
        if (!expectedStart.isEmpty())
            QCOMPARE(dialog->directory().path(), expectedStart);
        if (path.isEmpty()) {
            dialog->reject();
            return;
        }
        dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(path);
        QMetaObject::invokeMethod(dialog, "accept");
    });
}

void tst_FileOpener::dialogs_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QString>("opened");

    QTest::newRow("file") << "Open Bat Call File"
                          << "filePath" << path("night/b.wav") << "single, b.wav";
    QTest::newRow("folder") << "Open Directory"
                            << "folderPath" << path("night") << "night mode 1: a.wav b.wav";
    QTest::newRow("evaluation") << "Open Evaluation Folder"
                                << "evaluationFolderPath" << path("night") << "night mode 2: a.wav b.wav";
}

void tst_FileOpener::dialogs()
{
    QFETCH(QString, title);
    QFETCH(QString, key);
    QFETCH(QString, chosen);
    QFETCH(QString, opened);
    const auto trigger = [&] {
        if (key == QLatin1String("filePath"))
            m_opener.openFile();
        else if (key == QLatin1String("folderPath"))
            m_opener.openFolder();
        else
            m_opener.openFolderForEvaluation([] { return true; });
    };
    m_session.busy = true;
    trigger(); // would not return if a dialog came up
    QCOMPARE(m_opened, QStringList());

    m_session.busy = false;
    answerDialog(title, chosen, {});
    trigger();
    QCOMPARE(m_opened.join(QLatin1String(", ")), opened);
    QCOMPARE(QSettings().value(key).toString(), chosen);

    // The next time, the dialog begins where this one ended.
    answerDialog(title, {}, path("night"));
    trigger();
    QCOMPARE(m_opened.join(QLatin1String(", ")), opened);
    QCOMPARE(m_prompts.takeAsked(), QStringList());
}

void tst_FileOpener::cancelledDialogs()
{
    answerDialog(QStringLiteral("Open Directory"), {}, {});
    m_opener.openFolder();
    QVERIFY(!m_settings.contains("folderPath"));
}

void tst_FileOpener::emptyFolders()
{
    const QStringList warning{QStringLiteral("warning|Warning|No Bat Call Files in Folder")};
    answerDialog(QStringLiteral("Open Directory"), path("empty"), {});
    m_opener.openFolder();
    QCOMPARE(m_prompts.takeAsked(), warning);
    answerDialog(QStringLiteral("Open Evaluation Folder"), path("empty"), {});
    m_opener.openFolderForEvaluation([]() -> bool { qFatal("nothing to evaluate"); });
    QCOMPARE(m_prompts.takeAsked(), warning);
    QCOMPARE(m_opened, QStringList());
    QVERIFY(!m_settings.contains("folderPath") && !m_settings.contains("evaluationFolderPath"));
}

void tst_FileOpener::evaluationAsksForClasses_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<bool>("chosen");
    QTest::addColumn<int>("warnings");
    QTest::addColumn<QString>("opened");

    QTest::newRow("chosen") << "night" << true << 0 << "night mode 2: a.wav b.wav";
    QTest::newRow("cancelled") << "night" << false << 0 << "";
    QTest::newRow("raw files warn once") << "rawnight" << true << 1 << "rawnight mode 2: a.wav b.RAW c.raw";
}

void tst_FileOpener::evaluationAsksForClasses()
{
    QFETCH(QString, folder);
    QFETCH(bool, chosen);
    QFETCH(int, warnings);
    int asked = 0;
    answerDialog(QStringLiteral("Open Evaluation Folder"), m_folder.filePath(folder), {});
    m_opener.openFolderForEvaluation([&] {
        ++asked;
        return chosen;
    });
    QCOMPARE(asked, 1);
    QTEST(m_opened.join(QLatin1String(", ")), "opened");
    const QStringList texts = m_prompts.takeAsked();
    QCOMPARE(texts.size(), warnings);
    if (warnings)
        QVERIFY(texts.first().startsWith(
            QStringLiteral("warning|Warning|You are evaluating a folder which contains raw-files. Please")));
}

void tst_FileOpener::drops_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<bool>("loading");
    QTest::addColumn<bool>("yes");
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QString>("opened");

    const QString one =
        QStringLiteral("warning|Warning|Do you really want to abort current evaluation and load "
                       "new file?");
    const QString several =
        QStringLiteral("warning|Warning|Do you really want to abort current evaluation and load new files?");
    const QString unsupported = QStringLiteral("information|Information|File type not supported.");
    const QString mixture = QStringLiteral(
        "information|Information|Do not load multiple folders or a mixture of files and folders.");
    const QStringList a{QStringLiteral("night/a.wav")};
    const QStringList ba{QStringLiteral("night/b.wav"), QStringLiteral("night/a.wav")};
    const QString both = QStringLiteral("night mode 1: a.wav b.wav");

    QTest::newRow("file") << a << false << false << ""
                          << "single, a.wav";
    QTest::newRow("file, loading") << a << true << true << one << "single, a.wav";
    QTest::newRow("file, refused") << a << true << false << one << "";
    QTest::newRow("files") << ba << false << false << "" << both;
    QTest::newRow("files, loading") << ba << true << true << several << both;
    QTest::newRow("files, refused") << ba << true << false << several << "";
    QTest::newRow("folder, loading") << QStringList{QStringLiteral("night")} << true << false << "" << both;
    QTest::newRow("empty folder") << QStringList{QStringLiteral("empty")} << false << false
                                  << "warning|Warning|No Bat Call Files in Folder"
                                  << "";
    QTest::newRow("other file") << QStringList{QStringLiteral("night/notes.txt")} << false << false
                                << unsupported << "";
    QTest::newRow("mixture, loading")
        << a + QStringList{QStringLiteral("empty")} << true << true << mixture << "";
    QTest::newRow("some other files") << ba + QStringList{QStringLiteral("night/notes.txt")} << false << false
                                      << QStringLiteral("information|Information|Only the recordings of the "
                                                        "folder %1 are listed.")
                                             .arg(path("night"))
                                      << both;
}

void tst_FileOpener::drops()
{
    QFETCH(QStringList, names);
    QFETCH(bool, loading);
    QFETCH(bool, yes);
    QFETCH(QString, asked);
    QList<QUrl> urls;
    for (const QString& name : names)
        urls.append(QUrl::fromLocalFile(m_folder.filePath(name)));
    m_opener.setLoadingCheck([=] { return loading; });

    m_session.busy = true;
    m_opener.drop(urls);
    QCOMPARE(m_opened, QStringList());
    m_session.busy = false;
    if (yes && asked.startsWith(QLatin1String("warning")))
        m_prompts.willAnswer(UserPrompts::Answer::Yes);
    m_opener.drop(urls);
    QCOMPARE(m_prompts.takeAsked().join(QLatin1Char('\n')), asked);
    QTEST(m_opened.join(QLatin1String(", ")), "opened");
}

void tst_FileOpener::opensFromTheCommandLine()
{
    m_opener.open(path("night/"));
    m_opener.open(path("night/b.wav"));
    QCOMPARE(m_opened.join(QLatin1String(", ")), QStringLiteral("night mode 1: a.wav b.wav, single, b.wav"));
}

QTEST_MAIN(tst_FileOpener)
#include "tst_FileOpener.moc"
