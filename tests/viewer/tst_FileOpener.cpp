#include "base/SettingsStore.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TemporarySettings.h"
#include "tests/support/TestFolder.h"
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
    void evaluationAsksForClasses();
    void drops_data();
    void drops();
    void opensFromTheCommandLine();

private:
    /// Answers the next dialog; an empty path cancels it.
    void answerDialog(const QString& title, const QString& path, const QString& expectedStart = {});
    QString path(const QString& name) const { return m_folder.path(name); }
    QString takeOpened() { return std::exchange(m_opened, {}).join(", "); }

    TemporarySettings m_temporary;
    TestFolder m_folder;
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
        QVERIFY(QDir(m_folder.path()).mkdir(name));
    for (const char* name : {"night/b.wav", "night/a.wav", "night/notes.txt", "rawnight/b.RAW"})
        m_folder.write(name);
    connect(&m_opener, &FileOpener::listInvalidated, this, [this] { m_opened << "single"; });
    connect(&m_opener, &FileOpener::recordingWanted, this,
            [this](const QString& file) { m_opened << QFileInfo(file).fileName(); });
    connect(&m_opener, &FileOpener::folderWanted, this, [this](const FolderTask& task) {
        m_opened << QFileInfo(task.folder).fileName() + QString(" mode %1: ").arg(task.viewMode) +
                        task.names.join(' ');
    });
}

void tst_FileOpener::init()
{
    m_temporary.clear();
    m_session.busy = false;
    m_opener.setLoadingCheck([] { return false; });
    takeOpened();
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
        dialog->findChild<QLineEdit*>("fileNameEdit")->setText(path);
        QMetaObject::invokeMethod(dialog, path.isEmpty() ? "reject" : "accept");
    });
}

void tst_FileOpener::dialogs_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QString>("opened");

    const auto row = [](const char* name, const char* title, const char* key, const char* chosen,
                        const char* opened) { QTest::newRow(name) << title << key << chosen << opened; };
    row("file", "Open Bat Call File", "filePath", "night/b.wav", "single, b.wav");
    row("folder", "Open Directory", "folderPath", "night", "night mode 1: a.wav b.wav");
    row("empty folder", "Open Directory", "folderPath", "empty", "");
    row("evaluation", "Open Evaluation Folder", "evaluationFolderPath", "night", "night mode 2: a.wav b.wav");
    row("empty evaluation", "Open Evaluation Folder", "evaluationFolderPath", "empty", "");
}

void tst_FileOpener::dialogs()
{
    QFETCH(QString, title);
    QFETCH(QString, key);
    QFETCH(QString, chosen);
    QFETCH(QString, opened);
    const auto trigger = [&] {
        if (key == "filePath")
            m_opener.openFile();
        else if (key == "folderPath")
            m_opener.openFolder();
        else
            m_opener.openFolderForEvaluation([] { return true; });
    };
    m_session.busy = true;
    trigger(); // would not return if a dialog came up
    m_session.busy = false;
    answerDialog(title, {});
    trigger();
    QVERIFY(m_opened.isEmpty() && !QSettings().contains(key));

    answerDialog(title, path(chosen));
    trigger();
    QCOMPARE(takeOpened(), opened);
    QCOMPARE(m_prompts.takeAsked().join('\n'),
             QString(opened.isEmpty() ? "warning|Warning|No Bat Call Files in Folder" : ""));
    QCOMPARE(QSettings().value(key).toString(), opened.isEmpty() ? QString() : path(chosen));
    if (opened.isEmpty())
        return;
    answerDialog(title, {}, path("night")); // the next dialog begins where this one ended
    trigger();
}

void tst_FileOpener::evaluationAsksForClasses()
{
    const auto evaluated = [this](const QString& folder, bool goOn) {
        answerDialog("Open Evaluation Folder", path(folder));
        m_opener.openFolderForEvaluation([goOn] { return goOn; });
        return takeOpened();
    };
    QCOMPARE(evaluated("night", false), QString());
    QVERIFY(m_prompts.takeAsked().isEmpty());
    QCOMPARE(evaluated("rawnight", true), QString("rawnight mode 2: b.RAW"));
    const QStringList asked = m_prompts.takeAsked();
    QVERIFY(asked.size() == 1 && asked.first().startsWith("warning|Warning|You are evaluating a folder "
                                                          "which contains raw-files. Please be aware"));
}

void tst_FileOpener::drops_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("loading"); // what is answered while headers are read, empty: they are not
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QString>("opened");

    const auto row = [](const char* name, const QString& names, const char* loading, const QString& asked,
                        const QString& opened) {
        QTest::newRow(name) << names.split(' ') << loading << asked << opened;
    };
    const QString one = "warning|Warning|Do you really want to abort current evaluation and load new file?";
    const QString several = QString(one).replace("file?", "files?");
    const QString noFiles = "warning|Warning|No Bat Call Files in Folder";
    const QString mixture =
        "information|Information|Do not load multiple folders or a mixture of files and folders.";
    const QString a = "night/a.wav";
    const QString ba = "night/b.wav night/a.wav";
    const QString both = "night mode 1: a.wav b.wav";
    row("file", a, "", "", "single, a.wav");
    row("file, loading", a, "yes", one, "single, a.wav");
    row("file, refused", a, "no", one, "");
    row("files", ba, "", "", both);
    row("files, loading", ba, "yes", several, both);
    row("files, refused", ba, "no", several, "");
    row("folder", "night", "", "", both);
    row("folder, refused", "night", "no", several, "");
    row("empty folder, loading", "empty", "yes", several + '\n' + noFiles, "");
    row("other file", "night/notes.txt", "", "information|Information|File type not supported.", "");
    row("mixture, loading", "night/a.wav empty", "yes", mixture, "");
}

void tst_FileOpener::drops()
{
    QFETCH(QStringList, names);
    QFETCH(QString, loading);
    QList<QUrl> urls;
    for (const QString& name : names)
        urls.append(QUrl::fromLocalFile(path(name)));
    m_opener.setLoadingCheck([=] { return !loading.isEmpty(); });
    m_session.busy = true;
    m_opener.drop(urls);
    QVERIFY(m_opened.isEmpty());
    m_session.busy = false;
    QFETCH(QString, asked);
    if (loading == "yes" && asked.contains("really"))
        m_prompts.willAnswer(UserPrompts::Answer::Yes);
    m_opener.drop(urls);
    QCOMPARE(m_prompts.takeAsked().join('\n'), asked);
    QTEST(takeOpened(), "opened");
}

void tst_FileOpener::opensFromTheCommandLine()
{
    m_opener.open(path("night/"));
    m_opener.open(path("night/b.wav"));
    QCOMPARE(takeOpened(), QString("night mode 1: a.wav b.wav, single, b.wav"));
}

QTEST_MAIN(tst_FileOpener)
#include "tst_FileOpener.moc"
