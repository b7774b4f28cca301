#include "app/MainWindow.h"
#include "app/QueuedTypes.h"
#include "recordings/WavReader.h"
#include "recordings/rows/RowItem.h"
#include "tests/support/MessageBoxWatch.h"
#include "tests/support/TemporarySettings.h"
#include "tools/WavBytes.h"

#include <QAction>
#include <QFileDialog>
#include <QLineEdit>
#include <QTreeWidget>
#include <QWindow>
#include <QtTest>

#include <memory>

/// A night is classified like a user does it: by menu, dialogs and keys; what counts are the bytes on disk.
class tst_ClassifyFolder : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void opensAFolder();
    void assignsByKeyAndWalksOn();
    void writesATypedComment();
    void cancelledModelLeavesEverything();

private:
    bool evaluate(bool acceptModel = true);
    bool focusRow(int row);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    QTreeWidget* list() const
    {
        return m_window->findChild<QTreeWidget*>(QStringLiteral("treeWidget_fileView"));
    }
    QString cell(int row, int column) const { return list()->topLevelItem(row)->text(column); }
    QString record(const char* name) const;

    std::unique_ptr<TemporarySettings> m_settings;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<MessageBoxWatch> m_boxes;
    std::unique_ptr<MainWindow> m_window;
};

namespace {

constexpr int patience = 20000; // ms

const std::vector<std::int16_t> silence(3000);

} // namespace

void tst_ClassifyFolder::initTestCase()
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    registerQueuedTypes();
}

void tst_ClassifyFolder::init()
{
    m_settings = std::make_unique<TemporarySettings>();
    m_folder = std::make_unique<QTemporaryDir>();
    WavBytes::Bext bext;
    bext.originationDate = "2026-06-12";
    const auto write = [this](const char* name, const QByteArray& bytes) {
        QFile file(m_folder->filePath(QLatin1String(name)));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    };
    write("a.wav", WavBytes().fmt(250000).data(silence).bytes());
    bext.description = "Nyc|old comment";
    write("b.wav", WavBytes().fmt(250000).bext(bext).data(silence).bytes());
    bext.description = "Pip|Pip|1|";
    write("c.wav", WavBytes().fmt(250000).data(silence).bext(bext).bytes());
    m_boxes = std::make_unique<MessageBoxWatch>();
    m_window = std::make_unique<MainWindow>();
    m_window->show();
    m_window->activateWindow();
}

void tst_ClassifyFolder::cleanup()
{
    m_window.reset();
    m_boxes.reset();
}

bool tst_ClassifyFolder::evaluate(bool acceptModel)
{
    QTimer answering;
    connect(&answering, &QTimer::timeout, m_window.get(), [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (auto* files = qobject_cast<QFileDialog*>(dialog)) {
            files->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(m_folder->path());
            QMetaObject::invokeMethod(files, "accept");
        } else if (dialog && dialog->inherits("OpenModelDialog")) {
            QMetaObject::invokeMethod(dialog, acceptModel ? "accept" : "reject");
        }
    });
    answering.start(100);
    auto* exportAction = m_window->findChild<QAction*>(QStringLiteral("actionExport_CSV_File"));
    m_window->findChild<QAction*>(QStringLiteral("actionEvaluate_Folder"))->trigger();
    const auto title = [this] { return m_window->windowTitle(); };
    return !acceptModel ||
           (QTest::qWaitFor([&] { return exportAction->isEnabled(); }, patience) &&
            QTest::qWaitFor([&] { return title().contains(QStringLiteral("a.wav")); }, patience));
}

bool tst_ClassifyFolder::focusRow(int row)
{
    m_window->activateWindow();
    list()->setFocus();
    list()->setCurrentItem(list()->topLevelItem(row));
    return QTest::qWaitFor([this] { return list()->hasFocus(); }, patience);
}

void tst_ClassifyFolder::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(m_window->windowHandle(), key, modifiers);
}

QString tst_ClassifyFolder::record(const char* name) const
{
    WavReader reader;
    reader.load(m_folder->filePath(QLatin1String(name)), true);
    return reader.bextDescription;
}

void tst_ClassifyFolder::opensAFolder()
{
    QSignalSpy painted(m_window.get(), &MainWindow::spectrogramPainted);
    m_window->open(m_folder->path());
    auto* folderList = m_window->findChild<QTreeWidget*>(QStringLiteral("treeWidget_2"));
    QTRY_COMPARE_WITH_TIMEOUT(folderList->topLevelItemCount(), 3, patience);
    QTRY_COMPARE_WITH_TIMEOUT(folderList->topLevelItem(2)->text(RowItem::Class1), QStringLiteral("Pip"),
                              patience);
    QCOMPARE(folderList->topLevelItem(1)->text(RowItem::Comment), QStringLiteral("old comment"));
    QCOMPARE(folderList->topLevelItem(1)->text(RowItem::Date), QStringLiteral("12/06/26"));
    QVERIFY(!painted.isEmpty() || painted.wait(patience));
}

void tst_ClassifyFolder::assignsByKeyAndWalksOn()
{
    QVERIFY(evaluate());
    QCOMPARE(cell(1, RowItem::Class1), QStringLiteral("Nyc"));
    const qint64 sizeBefore = QFileInfo(m_folder->filePath(QStringLiteral("a.wav"))).size();
    QVERIFY(focusRow(0));

    press(Qt::Key_A); // "Bat" of the tree that the program begins with
    QTRY_COMPARE_WITH_TIMEOUT(cell(0, RowItem::Class1), QStringLiteral("Bat"), patience);
    QCOMPARE(record("a.wav"), QStringLiteral("Bat|"));
    QCOMPARE(QFileInfo(m_folder->filePath(QStringLiteral("a.wav"))).size(), sizeBefore + 866);

    press(Qt::Key_A, Qt::ControlModifier); // selects all rows, assigns nothing
    press(Qt::Key_Right);
    QTRY_VERIFY_WITH_TIMEOUT(m_window->windowTitle().contains(QStringLiteral("b.wav")), patience);
    press(Qt::Key_D);
    QTRY_COMPARE_WITH_TIMEOUT(cell(1, RowItem::Class2), QStringLiteral("No call"), patience);
    QCOMPARE(record("b.wav"), QStringLiteral("Nyc + No call|old comment"));
    QCOMPARE(record("c.wav"), QStringLiteral("Pip|Pip|1|"));

    auto* classes = m_window->findChild<QTreeWidget*>(QStringLiteral("treeWidget"));
    QTRY_COMPARE(classes->topLevelItem(0)->text(1), QStringLiteral("1"));
}

void tst_ClassifyFolder::writesATypedComment()
{
    QVERIFY(evaluate());
    QVERIFY(focusRow(2));
    press(Qt::Key_F2);
    QWidget* editor = QApplication::focusWidget();
    QVERIFY(qobject_cast<QLineEdit*>(editor));
    QTest::keyClicks(editor, QStringLiteral("two a|d more")); // "|" is not taken, and letters assign nothing
    press(Qt::Key_Return);
    QTRY_COMPARE_WITH_TIMEOUT(cell(2, RowItem::Comment), QStringLiteral("two ad more"), patience);
    QCOMPARE(record("c.wav"), QStringLiteral("Pip|Pip|1|two ad more"));
}

void tst_ClassifyFolder::cancelledModelLeavesEverything()
{
    QVERIFY(evaluate(false));
    QCOMPARE(list()->topLevelItemCount(), 0);
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Sonavia"));
    QVERIFY(m_window->findChild<QAction*>(QStringLiteral("actionOpen_Folder"))->isEnabled());
}

QTEST_MAIN(tst_ClassifyFolder)
#include "tst_ClassifyFolder.moc"
