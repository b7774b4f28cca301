#include "app/MainWindow.h"
#include "app/QueuedTypes.h"
#include "base/SettingsStore.h"
#include "recordings/rows/RowItem.h"
#include "tests/app/ScriptedUser.h"
#include "tests/support/TemporarySettings.h"
#include "tests/support/waitUntil.h"
#include "tools/WavBytes.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QtTest>

#include <memory>

/// A night is classified like a user does it: by menus, dialogs, keys and mouse. After each step the rows are
/// compared with the bytes on disk and with the counts of the class tree.
class tst_ClassifyFolder : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup() { m_window.reset(); }

    void classifies();
    void acceptsProposals();
    void commentsInAnOpenedFolder();
    void cancelledModelLeavesEverything();

private:
    struct Step
    {
        const char* name;
        std::function<void()> act;
        QStringList script; ///< for the dialogs and menus that come up
        QString rows;       ///< afterwards
    };

    void walk(const QVector<Step>& steps);
    bool open(const char* action, const QStringList& script);
    QTreeWidget* tree(const char* name) const
    {
        return m_window->findChild<QTreeWidget*>(QLatin1String(name));
    }
    QTreeWidget* list() const { return tree("treeWidget_fileView"); }
    QTreeWidget* classes() const { return tree("treeWidget"); }
    QTreeWidgetItem* classItem(const char* name) const
    {
        return classes()->findItems(QLatin1String(name), Qt::MatchExactly | Qt::MatchRecursive).value(0);
    }
    QString path(const QString& name) const { return m_folder->filePath(name); }

    void select(int first, int last);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    void keyOn(int row, Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    void menuOn(QTreeWidgetItem* item);
    void clickCell(int row, int column);

    QByteArray description(const QString& name) const;
    QString shown() const;
    QString faults() const;

    std::unique_ptr<TemporarySettings> m_settings;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<ScriptedUser> m_user;
    std::unique_ptr<MainWindow> m_window;
};

namespace {

constexpr int patience = 20000; // ms

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
    const auto write = [this](const char* name, const QByteArray& bytes) {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    };
    const std::vector<std::int16_t> silence(3000);
    WavBytes::Bext bext;
    bext.originationDate = "2026-06-12";
    write("a.wav", WavBytes().fmt(250000).data(silence).bytes());
    bext.description = "Nyc|old";
    write("b.wav", WavBytes().fmt(250000).bext(bext).data(silence).bytes());
    bext.description = "|Pip, Nyc|0|";
    write("c.WAV", WavBytes().fmt(250000).data(silence).bext(bext).bytes());
    write("d.raw", QByteArray(6000, '\0'));
    SettingsStore().setGeometry({0, 0, 1300, 760});
    m_user = std::make_unique<ScriptedUser>();
    m_window = std::make_unique<MainWindow>();
    m_window->show();
    m_window->activateWindow();
}

bool tst_ClassifyFolder::open(const char* action, const QStringList& script)
{
    m_user->will(script);
    m_window->findChild<QAction*>(QLatin1String(action))->trigger();
    const auto* exporting = m_window->findChild<QAction*>(QStringLiteral("actionExport_CSV_File"));
    return waitUntil([&] { return exporting->isEnabled() && m_window->windowTitle().contains("a.wav"); },
                     patience);
}

void tst_ClassifyFolder::select(int first, int last)
{
    m_window->activateWindow();
    list()->setFocus();
    const auto click = [this](int row, Qt::KeyboardModifiers modifiers) {
        const QRect cell = list()->visualItemRect(list()->topLevelItem(row));
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, modifiers, cell.topLeft() + QPoint(9, 5));
    };
    click(first, {});
    click(last, Qt::ShiftModifier);
}

void tst_ClassifyFolder::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(m_window->windowHandle(), key, modifiers);
}

void tst_ClassifyFolder::keyOn(int row, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    select(row, row);
    press(key, modifiers);
}

void tst_ClassifyFolder::menuOn(QTreeWidgetItem* item)
{
    QTreeWidget* tree = item->treeWidget();
    tree->scrollToItem(item);
    const QPoint at = tree->visualItemRect(item).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, tree->viewport()->mapToGlobal(at));
    QApplication::sendEvent(tree->viewport(), &event);
}

/// At one place of the window, whatever moves in between.
void tst_ClassifyFolder::clickCell(int row, int column)
{
    const QModelIndex index = list()->model()->index(row, column);
    const QPoint at = list()->viewport()->mapTo(m_window.get(), list()->visualRect(index).center());
    QTest::mousePress(m_window->windowHandle(), Qt::LeftButton, {}, at);
    QTest::qWait(50);
    QTest::mouseRelease(m_window->windowHandle(), Qt::LeftButton, {}, at);
}

QByteArray tst_ClassifyFolder::description(const QString& name) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::ReadOnly))
        return "missing";
    const QByteArray bytes = file.readAll();
    const int chunk = bytes.indexOf("bext");
    return chunk < 0 ? QByteArray() : QByteArray(bytes.mid(chunk + 8, 256).constData());
}

/// The records of all rows.
QString tst_ClassifyFolder::shown() const
{
    QStringList records;
    for (int row = 0; row < list()->topLevelItemCount(); ++row)
        records.append(RowItem::read(*list()->topLevelItem(row)).record.text());
    return records.join(QStringLiteral(" / "));
}

/// What differs from the rows: files and counts.
QString tst_ClassifyFolder::faults() const
{
    QStringList faults;
    QHash<QString, int> counts;
    for (int number = 0; number < list()->topLevelItemCount(); ++number) {
        const RecordingRow row = RowItem::read(*list()->topLevelItem(number));
        if (row.isWav() && ClassRecord::parse(description(row.name)) != row.record)
            faults.append(row.name + ": " + description(row.name));
        for (const QString& name : row.record.classes)
            ++counts[name];
        counts[QStringLiteral("Unassigned")] += row.record.isUnassigned() ? 1 : 0;
    }
    for (QTreeWidgetItemIterator it(classes()); *it; ++it)
        if ((*it)->text(1).toInt() != counts.value((*it)->text(0)))
            faults.append((*it)->text(0) + ": " + (*it)->text(1));
    return faults.join(' ');
}

void tst_ClassifyFolder::walk(const QVector<Step>& steps)
{
    for (const Step& step : steps) {
        m_user->will(step.script);
        step.act();
        const bool reached = waitUntil([&] { return m_user->isDone() && shown() == step.rows; }, patience);
        const auto state = [&](const QString& text) { return step.name + (": " + text); };
        QVERIFY2(reached, qPrintable(state(shown() + ' ' + m_user->takeFaults())));
        QTRY_COMPARE(state(faults()), state({}));
        QCOMPARE(state(m_user->takeFaults()), state({}));
    }
}

void tst_ClassifyFolder::classifies()
{
    QVERIFY(open("actionEvaluate_Folder", {"path " + m_folder->path(), "click OK", // RAW files are there
                                           "click use advanced\ndefault tree;click OK", "click Yes"}));
    QCOMPARE(shown(), QStringLiteral("| / Nyc|old / |Pip, Nyc|0| / |"));
    const qint64 sizeBefore = QFileInfo(path("a.wav")).size();
    const auto cell = [this](int row) { return list()->topLevelItem(row); };
    const auto onClass = [this](const char* name) { return [=] { menuOn(classItem(name)); }; };
    const auto onRow = [=](int row) {
        return [=] {
            select(row, row);
            menuOn(cell(row));
        };
    };
    const QString noComment = "Nyc + Noise| / Nyc + Pnat|old / Pnat|Pip, Nyc|0| / Pnat|";
    const QString old = "Nyc + Noise| / Nyc + Pnat|new / Pnat|Pip, Nyc|0|two / Pnat|";
    const QString renamed = "Nyc + Noise| / Nyc + Nath|new / Nath|Pip, Nyc|0|two / Nath|";
    const QString deleted = "Nyc + Noise| / Nyc|new / |Pip, Nyc|0|two / |";
    const QString added = "Nyc + Noise| / Nyc|new / |Pip, Nyc|0|two / Myo|";
    const QString none = "| / |new / |Pip, Nyc|0|two / |";
    walk({
        {"key", [this] { keyOn(0, Qt::Key_A); }, {}, "Pip| / Nyc|old / |Pip, Nyc|0| / |"},
        {"all, but no key",
         [this] { keyOn(0, Qt::Key_A, Qt::ControlModifier); },
         {},
         "Pip| / Nyc|old / |Pip, Nyc|0| / |"},
        {"button",
         [this] {
             select(1, 3);
             QTest::mouseClick(classes()->itemWidget(classItem("Pnat"), 3), Qt::LeftButton);
         },
         {},
         "Pip| / Nyc + Pnat|old / Pnat|Pip, Nyc|0| / Pnat|"},
        {"menu",
         onRow(0),
         {"choose Assign class/Test"},
         "Pip + Test| / Nyc + Pnat|old / Pnat|Pip, Nyc|0| / Pnat|"},
        {"additional",
         onRow(0),
         {"choose Assign additional class", "Noise\n"},
         "Pip + Test + Noise| / Nyc + Pnat|old / Pnat|Pip, Nyc|0| / Pnat|"},
        {"reassign",
         onRow(0),
         {"choose Reassign/class 2", "Nyc\n"},
         "Pip + Nyc + Noise| / Nyc + Pnat|old / Pnat|Pip, Nyc|0| / Pnat|"},
        {"unassign one", onRow(0), {"choose Unassign/class 1"}, noComment},
        {"comment by key",
         [this] {
             keyOn(2, Qt::Key_F2);
             ScriptedUser::type(*m_window, "t|wo\n"); // the bar is not taken, and letters assign nothing
         },
         {},
         "Nyc + Noise| / Nyc + Pnat|old / Pnat|Pip, Nyc|0|two / Pnat|"},
        {"comment by double-click",
         [=] {
             const QModelIndex comment = list()->model()->index(1, RowItem::Comment);
             list()->scrollTo(comment);
             const QPoint at = list()->visualRect(comment).center();
             QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, at);
             QTest::mouseDClick(list()->viewport(), Qt::LeftButton, {}, at); // the second click only
             ScriptedUser::type(*m_window, "new\n");
         },
         {},
         old},
        {"rename, no", onClass("Pnat"), {"choose Rename subclass", "Nath\n", "click No"}, old},
        {"rename", onClass("Pnat"), {"choose Rename subclass", "Nath\n", "click Yes"}, renamed},
        {"rename to what exists", onClass("Nath"), {"choose Rename subclass", "Pip\n", "click OK"}, renamed},
        {"delete class",
         [this] {
             classes()->setCurrentItem(classItem("Nath"));
             classes()->setFocus();
             press(Qt::Key_Delete);
         },
         {"click Yes"},
         deleted},
        {"add class", onClass("Test"), {"choose Add class", "Myo\t<m\n"}, deleted},
        {"add subclass", onClass("Myo"), {"choose Add subclass", "Mdau\n"}, deleted},
        {"its key", [this] { keyOn(3, Qt::Key_M); }, {}, added},
        {"change shortcut", onClass("Myo"), {"choose Change shortcut", "<z\n"}, added},
        {"new key",
         [this] { keyOn(2, Qt::Key_Z); },
         {},
         "Nyc + Noise| / Nyc|new / Myo|Pip, Nyc|0|two / Myo|"},
        {"unassign all",
         [=] {
             select(0, 3);
             menuOn(cell(0));
         },
         {"choose Unassign all classes"},
         none},
        {"reset, cancel", onRow(0), {"choose Reset all files", "click Cancel"}, none},
    });
    QCOMPARE(QFileInfo(path("a.wav")).size(), sizeBefore + 866);

    if (QTest::currentTestFailed())
        return;
    // The list is read anew, without RAW files; silence has no proposal.
    const auto* opening = m_window->findChild<QAction*>(QStringLiteral("actionOpen_Folder"));
    int openedEarly = 0;
    connect(m_window.get(), &MainWindow::signalGetFileHeaderInfo, this,
            [&] { openedEarly += opening->isEnabled() ? 1 : 0; });
    walk({{"reset", onRow(0), {"choose Reset all files", "click OK"}, "| / |new / |two"},
          {"delete file", [this] { keyOn(0, Qt::Key_Delete); }, {"click OK"}, "|new / |two"}});
    QVERIFY(classItem("No Call") && !classItem("Noise"));
    QVERIFY(openedEarly == 0 && opening->isEnabled());
    QVERIFY(!QFile::exists(path("a.wav")));
}

void tst_ClassifyFolder::acceptsProposals()
{
    QVERIFY(open("actionVantor_Folder_Evaluation", {"click OK", "path " + m_folder->path(), "click OK"}));
    const QString before = "| / Nyc|old / |Pip, Nyc|0| / |";
    const QString accepted = "| / Nyc|old / Pip + Nyc|Pip, Nyc|1| / |";
    // Acts on the current row.
    const auto call = [this](int state) {
        return
            [=] { QVERIFY(QMetaObject::invokeMethod(m_window.get(), "acceptProposal", Q_ARG(int, state))); };
    };
    walk({{"click in another row", [this] { clickCell(2, RowItem::Accepted); }, {}, accepted},
          {"click again", [this] { clickCell(2, RowItem::Accepted); }, {}, before},
          {"key", [this] { keyOn(2, Qt::Key_Return, Qt::ControlModifier); }, {}, accepted},
          {"slot, off", call(Qt::Unchecked), {}, before},
          {"slot, on", call(Qt::Checked), {}, accepted}});
    QVERIFY(QFile::remove(path("c.WAV")));
    m_user->takeTold();
    m_user->will({"click OK"});
    clickCell(2, RowItem::Accepted);
    QCOMPARE(shown(), accepted);
    QCOMPARE(m_user->takeTold(),
             QStringList("Could not write file c.WAV\nClass assignment is not saved to wav file."));
}

void tst_ClassifyFolder::commentsInAnOpenedFolder()
{
    m_window->open(m_folder->path());
    QTreeWidget* folderList = tree("treeWidget_2");
    QTRY_COMPARE_WITH_TIMEOUT(folderList->topLevelItemCount(), 4, patience);
    QTreeWidgetItem* row = folderList->topLevelItem(1);
    QTRY_COMPARE_WITH_TIMEOUT(row->text(RowItem::Comment), QStringLiteral("old"), patience);
    QCOMPARE(row->text(RowItem::Date), QStringLiteral("12/06/26"));
    QTRY_VERIFY_WITH_TIMEOUT(m_window->windowTitle().contains("a.wav"), patience);
    folderList->setCurrentItem(row);
    folderList->setFocus();
    press(Qt::Key_F2);
    ScriptedUser::type(*m_window, "new\n");
    QTRY_COMPARE(row->text(RowItem::Comment), QStringLiteral("new"));
    QCOMPARE(description("b.wav"), QByteArray("Nyc|new"));
}

void tst_ClassifyFolder::cancelledModelLeavesEverything()
{
    m_user->will({"path " + m_folder->path(), "click OK", "click clear;click Cancel"});
    m_window->findChild<QAction*>(QStringLiteral("actionEvaluate_Folder"))->trigger();
    QCOMPARE(list()->topLevelItemCount(), 0);
    QVERIFY(classItem("Bat"));
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Sonavia"));
    QVERIFY(m_window->findChild<QAction*>(QStringLiteral("actionOpen_Folder"))->isEnabled());
}

QTEST_MAIN(tst_ClassifyFolder)
#include "tst_ClassifyFolder.moc"
