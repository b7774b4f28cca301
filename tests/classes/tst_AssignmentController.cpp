#include "classes/AssignSecondClassDialog.h"
#include "classes/DirectEdits.h"
#include "classes/FileDeletion.h"
#include "classes/FileListMenus.h"
#include "recordings/rows/RowItem.h"
#include "tests/classes/ClassDesk.h"

#include <QComboBox>
#include <QHeaderView>
#include <QMenu>
#include <QProgressDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QThread>
#include <QtTest>

using Answer = UserPrompts::Answer;

namespace {

const QString classes = QStringLiteral("Pip<A> .Pnat<Q> Nyc<S> Myo");

/// The actions of a menu; those of its submenus as "submenu/action", greyed ones in brackets.
QStringList entries(const QMenu& menu, const QString& prefix = {})
{
    QStringList texts;
    for (const QAction* action : menu.actions()) {
        if (action->menu())
            texts += entries(*action->menu(), prefix + action->text() + '/');
        else if (!action->isSeparator())
            texts.append(action->isEnabled() ? prefix + action->text() : '[' + prefix + action->text() + ']');
    }
    return texts;
}

QAction* entry(const QMenu& menu, const QString& path)
{
    const QString first = path.section('/', 0, 0);
    for (QAction* action : menu.actions())
        if (action->text() == first)
            return action->menu() ? entry(*action->menu(), path.section('/', 1)) : action;
    return nullptr;
}

} // namespace

class tst_AssignmentController : public QObject
{
    Q_OBJECT

private slots:
    void gesturesOnSelectedFiles_data();
    void gesturesOnSelectedFiles();
    void gesturesOnClasses_data();
    void gesturesOnClasses();
    void failedFiles_data();
    void failedFiles();
    void cancelledRunLeavesTheRestAlone();
    void shortcutsThatAssignNothing();
    void acceptingAProposal_data();
    void acceptingAProposal();
    void failedDirectEdits_data();
    void failedDirectEdits();
    void comments_data();
    void comments();
    void reset();
    void cancelledResetDoesNotReload();
    void deletesFiles();
    void deletesFilesOfTheFolderList();
    void deletesManyScatteredRows();
    void firstFileOfAClass_data();
    void firstFileOfAClass();
    void menuOfTheEvaluationList();
    void menusWithoutSelection();
    void gesturesThatNeedTheWholeList();
    void runInASortedList();
    void runInAnotherThread();

private:
    static void perform(ClassDesk& desk, const QString& gesture);
};

/// "key a", "button Pip", or the path of an entry of the context menu.
void tst_AssignmentController::perform(ClassDesk& desk, const QString& gesture)
{
    if (gesture.startsWith("key ")) {
        desk.controller->assignByShortcut(ClassTree::shortcutOf(gesture.at(4)));
    } else if (gesture.startsWith("button ")) {
        QTreeWidgetItem* item = desk.pane.itemOf(gesture.mid(7));
        qobject_cast<QPushButton*>(desk.tree.itemWidget(item, ClassTreePane::AssignButton))->click();
    } else {
        const std::unique_ptr<QMenu> menu = desk.controller->menus().evaluationMenu();
        QAction* action = entry(*menu, gesture);
        QVERIFY2(action, qPrintable(gesture));
        action->trigger();
    }
    QVERIFY(desk.waitForEnd());
}

void tst_AssignmentController::gesturesOnSelectedFiles_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QString>("gesture"); // "-> name" chooses it in the dialog that comes up
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("counts");

    const auto row = [](const char* before, const char* selected, const char* gesture, const char* after,
                        const char* counts) {
        QTest::addRow("%s on %s of %s", gesture, selected, before)
            << before << selected << gesture << after << counts;
    };
    row("| / | / |x", "0 1 2", "key a", "Pip| / Pip| / Pip|x", "Pip=3");
    row("| / |", "1", "key q", "| / Pnat|", "Pnat=1 Unassigned=1");
    row("Pip|x", "0", "key s", "Pip + Nyc|x", "Pip=1 Nyc=1");
    row("Pip|x", "0", "key a", "Pip|x", "Pip=1");
    row("a + b + c + Pip|", "0", "key s", "a + b + c + Nyc|", "Nyc=1");
    row("|Pip, Nyc|0|x", "0", "key a", "Pip|Pip, Nyc|0|x", "Pip=1");
    row("Nyc|Pip, Nyc|0|x", "0", "key a", "Nyc + Pip|Pip, Nyc|1|x", "Pip=1 Nyc=1");
    row("raw:| / |", "0 1", "key a", "Pip| / Pip|", "Pip=2");
    row("| / |", "0 1", "button Myo", "Myo| / Myo|", "Myo=2");
    row("| / |", "0", "Assign class/Pnat", "Pnat| / |", "Pnat=1 Unassigned=1");
    row("Pip| / Nyc|", "0 1", "&Assign additional class -> Myo", "Pip + Myo| / Nyc + Myo|",
        "Pip=1 Nyc=1 Myo=2");
    row("Pip + Nyc| / Myo|x", "0 1", "&Unassign all classes", "| / |x", "Unassigned=2");
    row("Pip|Pip|1|x / |", "0", "Unassign/&All classes", "|Pip|1|x / |", "Unassigned=2");
    row("Pip + Nyc|x / Pip|", "0", "Unassign/class 1", "Nyc|x / Pip|", "Pip=1 Nyc=1");
    row("Pip + Nyc|Nyc|0| / |", "0 1", "Unassign/class 1", "Nyc|Nyc|1| / |", "Nyc=1 Unassigned=1");
    row("Pip| / Nyc + Myo|", "0 1", "Unassign/class 2", "Pip| / Nyc|", "Pip=1 Nyc=1");
    row("Pip + Nyc|x", "0", "Reassign/class 1 -> Myo", "Myo + Nyc|x", "Nyc=1 Myo=1");
    row("Pip + Nyc| / Pip|", "0 1", "Reassign/class 2 -> Myo", "Pip + Myo| / Pip|", "Pip=2 Myo=1");
    row("Pip + Nyc|Pip, Myo|0|", "0", "Reassign/class 2 -> Myo", "Pip + Myo|Pip, Myo|1|", "Pip=1 Myo=1");
    row("raw:Pip|", "0", "Reassign/class 1 -> Nyc", "Nyc|", "Nyc=1");
}

void tst_AssignmentController::gesturesOnSelectedFiles()
{
    QFETCH(QString, before);
    QFETCH(QString, selected);
    QFETCH(QString, gesture);

    ClassDesk desk(classes, before.split(" / "));
    desk.select(selected);
    const QString choice = gesture.section(" -> ", 1);
    const NextModal<AssignSecondClassDialog> dialog([&](AssignSecondClassDialog& shown) {
        shown.findChild<QComboBox*>("comboBox")->setCurrentText(choice);
        shown.accept();
    });
    perform(desk, gesture.section(" -> ", 0, 0));

    QCOMPARE(dialog.happened(), !choice.isEmpty());
    QTEST(desk.rows(), "after");
    QTEST(desk.counts(), "counts");
    QCOMPARE(desk.differingFiles(), QString());
    QCOMPARE(desk.prompts.takeAsked(), QStringList());
}

void tst_AssignmentController::gesturesOnClasses_data()
{
    QTest::addColumn<QString>("gesture");
    QTest::addColumn<bool>("confirmed");
    QTest::addColumn<QString>("tree");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("asked");

    const QString before = "Pip|x / Nyc + Pip|Nyc|0| / Pnat| / raw:Pip|";
    const QString warning = "warning|Warning|";
    QTest::newRow("delete") << "delete Pip" << true << "Nyc<S> Myo"
                            << "|x / Nyc|Nyc|0| / Pnat| / |"
                            << warning + "Do you really want to delete class Pip?\n"
                                         "Class Pip will be unassigned in all files!";
    QTest::newRow("delete subclass") << "delete Pnat" << true << "Pip<A> Nyc<S> Myo"
                                     << "Pip|x / Nyc + Pip|Nyc|0| / | / Pip|"
                                     << warning + "Do you really want to delete subclass Pnat?\n"
                                                  "Subclass Pnat will be unassigned in all files!";
    QTest::newRow("delete, no") << "delete Pip" << false << classes
                                << "Pip|x / Nyc + Pip|Nyc|0| / Pnat| / Pip|"
                                << "";
    QTest::newRow("delete what no file has") << "delete Myo" << true << "Pip<A> .Pnat<Q> Nyc<S>"
                                             << "Pip|x / Nyc + Pip|Nyc|0| / Pnat| / Pip|"
                                             << "";
    QTest::newRow("rename") << "rename Pip Bat" << true << "Bat<A> .Pnat<Q> Nyc<S> Myo"
                            << "Bat|x / Nyc + Bat|Nyc|0| / Pnat| / Bat|"
                            << warning + "Do you really want to rename class Pip?\n"
                                         "All related files will be updated!";
    QTest::newRow("rename subclass") << "rename Pnat Bat" << true << "Pip<A> .Bat<Q> Nyc<S> Myo"
                                     << "Pip|x / Nyc + Pip|Nyc|0| / Bat| / Pip|"
                                     << warning + "Do you really want to rename subclass Pnat?\n"
                                                  "All related files will be updated!";
    QTest::newRow("rename, no") << "rename Pip Bat" << false << classes
                                << "Pip|x / Nyc + Pip|Nyc|0| / Pnat| / Pip|"
                                << "";
    QTest::newRow("rename what no file has") << "rename Myo Bat" << true << "Pip<A> .Pnat<Q> Nyc<S> Bat"
                                             << "Pip|x / Nyc + Pip|Nyc|0| / Pnat| / Pip|"
                                             << "";
}

void tst_AssignmentController::gesturesOnClasses()
{
    QFETCH(QString, gesture);
    QFETCH(bool, confirmed);
    QFETCH(QString, asked);

    ClassDesk desk(classes, {"Pip|x", "Nyc + Pip|Nyc|0|", "Pnat|", "raw:Pip|"});
    desk.prompts.willAnswer(confirmed ? Answer::Yes : Answer::No);
    QTreeWidgetItem* item = desk.pane.itemOf(gesture.section(' ', 1, 1));
    if (gesture.startsWith("delete")) {
        desk.tree.setCurrentItem(item);
        desk.pane.deleteCurrent();
    } else
        desk.controller->renameClass(item, gesture.section(' ', 2));
    QVERIFY(desk.waitForEnd());

    QTEST(ClassDesk::shown(desk.pane.classTree()), "tree");
    QTEST(desk.rows(), "after");
    QCOMPARE(desk.differingFiles(), QString());
    const QStringList questions = desk.prompts.takeAsked();
    QCOMPARE(questions.size(), 1);
    if (!asked.isEmpty())
        QCOMPARE(questions.constFirst(), asked);
    // The last row stays that for files without a class, and its count is right.
    const QTreeWidgetItem* last = desk.tree.topLevelItem(desk.tree.topLevelItemCount() - 1);
    QCOMPARE(last->text(ClassTreePane::Name), ClassTree::unassigned());
    QCOMPARE(last->text(ClassTreePane::Count).toInt(),
             desk.rows().split(" / ").filter(QRegularExpression("^\\|")).size());
}

void tst_AssignmentController::failedFiles_data()
{
    QTest::addColumn<QString>("missing");
    QTest::addColumn<QVector<int>>("answers");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("asked");

    const int skip = int(Answer::Skip);
    const int skipAll = int(Answer::SkipForAll);
    const int cancel = int(Answer::Cancel);
    QTest::newRow("skip each") << "1 2" << QVector<int>{skip, skip} << "Pip| / | / | / Pip|"
                               << "b.wav c.wav";
    QTest::newRow("skip for all") << "0 2" << QVector<int>{skipAll} << "| / Pip| / | / Pip|"
                                  << "a.wav";
    QTest::newRow("cancel") << "1" << QVector<int>{cancel} << "Pip| / | / | / |"
                            << "b.wav";
    QTest::newRow("skip the last") << "3" << QVector<int>{skip} << "Pip| / Pip| / Pip| / |"
                                   << "d.wav";
}

void tst_AssignmentController::failedFiles()
{
    QFETCH(QString, missing);
    QFETCH(QVector<int>, answers);
    QFETCH(QString, asked);

    ClassDesk desk(classes, {"|", "|", "|", "|"});
    for (const QString& row : missing.split(' '))
        desk.removeFile(row.toInt());
    for (const int answer : answers)
        desk.prompts.willAnswer(static_cast<Answer>(answer));
    desk.select("0 1 2 3");
    perform(desk, "key a");

    QTEST(desk.rows(), "after");
    const int assigned = desk.rows().count("Pip");
    QCOMPARE(desk.counts(), QStringLiteral("Pip=%1 Unassigned=%2").arg(assigned).arg(4 - assigned));
    QStringList expected;
    for (const QString& name : asked.split(' '))
        expected.append("critical|Error|Error Writing File " + name);
    QCOMPARE(desk.prompts.takeAsked(), expected);
}

void tst_AssignmentController::cancelledRunLeavesTheRestAlone()
{
    ClassDesk desk(classes, {"|", "|", "|", "|", "|"});
    desk.window.show();
    desk.onRequest = [&desk](int index) {
        if (index == 1)
            desk.window.findChild<QProgressDialog*>()->cancel();
    };
    desk.select("0 1 2 3 4");
    perform(desk, "key a");
    QCOMPARE(desk.rows(), QStringLiteral("Pip| / Pip| / | / | / |"));
    QCOMPARE(desk.counts(), QStringLiteral("Pip=2 Unassigned=3"));
    QCOMPARE(desk.differingFiles(), QString());
}

void tst_AssignmentController::shortcutsThatAssignNothing()
{
    ClassDesk desk(classes, {"|", "|"});
    QVERIFY(!desk.controller->assignByShortcut("<A>")); // nothing is selected
    desk.select("0");
    QVERIFY(!desk.controller->assignByShortcut("<X>"));                 // no class has it
    QVERIFY(!desk.controller->assignByShortcut(QString()));             // "Myo" has none
    desk.evaluation.topLevelItem(0)->setText(RowItem::Date, QString()); // its header is not read yet
    QVERIFY(desk.controller->assignByShortcut("<A>"));
    QVERIFY(!desk.controller->isRunning());
    QCOMPARE(desk.rows(), QStringLiteral("| / |"));
}

void tst_AssignmentController::acceptingAProposal_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<bool>("checked");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("counts");

    QTest::newRow("accept") << "|Pip, Nyc|0|x" << true << "Pip + Nyc|Pip, Nyc|1|x"
                            << "Pip=1 Nyc=1";
    QTest::newRow("accept in place of another") << "Myo|Pip|0|" << true << "Pip|Pip|1|"
                                                << "Pip=1";
    QTest::newRow("take back") << "Pip + Nyc|Pip, Nyc|1|x" << false << "|Pip, Nyc|0|x"
                               << "Unassigned=1";
}

void tst_AssignmentController::acceptingAProposal()
{
    QFETCH(QString, before);
    QFETCH(bool, checked);

    ClassDesk desk(classes, {before}, true);
    QTreeWidgetItem* row = desk.evaluation.topLevelItem(0);
    desk.controller->directEdits().acceptProposal(row, checked);
    QTEST(desk.rows(), "after");
    QTEST(desk.counts(), "counts");
    QCOMPARE(desk.differingFiles(), QString());
    QCOMPARE(row->foreground(RowItem::Name).color() == QColor(122, 184, 0), checked);
}

void tst_AssignmentController::failedDirectEdits_data()
{
    QTest::addColumn<QString>("gesture");
    QTest::addColumn<QString>("loss");

    QTest::newRow("accept") << "accept"
                            << "Class assignment is not saved to wav file.";
    QTest::newRow("reassign") << "Reassign/class 1"
                              << "Class assignment is not saved to wav file.";
    QTest::newRow("unassign") << "Unassign/class 1"
                              << "Class unassignment is not saved to wav file.";
    QTest::newRow("comment") << "comment"
                             << "New comment is not saved to wav file.";
}

void tst_AssignmentController::failedDirectEdits()
{
    QFETCH(QString, gesture);
    QFETCH(QString, loss);

    ClassDesk desk(classes, {"Nyc|Pip|0|x"}, true);
    desk.removeFile(0);
    desk.select("0");
    QTreeWidgetItem* row = desk.evaluation.topLevelItem(0);
    const NextModal<AssignSecondClassDialog> dialog([](AssignSecondClassDialog& shown) { shown.accept(); });
    if (gesture == "accept")
        desk.controller->directEdits().acceptProposal(row, true);
    else if (gesture == "comment")
        desk.controller->directEdits().setComment(row, "y");
    else
        perform(desk, gesture);
    QCOMPARE(desk.rows(), QStringLiteral("Nyc|Pip|0|x"));
    QCOMPARE(desk.counts(), QStringLiteral("Nyc=1"));
    QCOMPARE(desk.prompts.takeAsked(), QStringList("critical|Error|Could not write file a.wav\n" + loss));
}

void tst_AssignmentController::comments_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("comment");
    QTest::addColumn<QString>("after");
    QTest::addColumn<bool>("refused");

    QTest::newRow("first") << "Pip|"
                           << "two calls"
                           << "Pip|two calls" << false;
    QTest::newRow("another") << "Pip|Pip|1|old"
                             << "new"
                             << "Pip|Pip|1|new" << false;
    QTest::newRow("none any more") << "|old"
                                   << ""
                                   << "|" << false;
    QTest::newRow("raw") << "raw:|"
                         << "new"
                         << "|new" << false;
    QTest::newRow("256 bytes") << "Pip|" << QString(252, 'x') << "Pip|" + QString(252, 'x') << false;
    QTest::newRow("257 bytes") << "Pip|" << QString(253, 'x') << "Pip|" << true;
    QTest::newRow("a bar") << "Pip|old"
                           << "a|b"
                           << "Pip|old" << true;
    QTest::newRow("not ASCII") << "Pip|old" << QString(QChar(0xfc)) << "Pip|old" << true;
}

void tst_AssignmentController::comments()
{
    QFETCH(QString, before);
    QFETCH(QString, comment);
    QFETCH(bool, refused);

    ClassDesk desk(classes, {before});
    desk.controller->directEdits().setComment(desk.evaluation.topLevelItem(0), comment);
    QTEST(desk.rows(), "after");
    QCOMPARE(desk.differingFiles(), QString());
    QCOMPARE(desk.prompts.takeAsked().size(), refused ? 1 : 0);
}

void tst_AssignmentController::reset()
{
    ClassDesk desk("Pip<A> .PpPn<B>", {"Pip|Pip|1|note", "PpPn|", "|x", "raw:Pip|"});
    QSignalSpy reload(desk.controller.get(), &AssignmentController::reloadAfterReset);
    desk.prompts.willAnswer(Answer::Ok);
    perform(desk, "&Reset all files");
    QCOMPARE(desk.rows(), QStringLiteral("|note / | / |x / Pip|"));
    QCOMPARE(desk.differingFiles(), QString());
    QCOMPARE(reload.size(), 1);
    QCOMPARE(ClassDesk::shown(desk.pane.classTree()), ClassDesk::shown(ClassTree::advancedReview()));
    QCOMPARE(desk.counts(), QString());
    QCOMPARE(desk.prompts.takeAsked(),
             QStringList("warning|Warning|Reset will delete class assignments and Vantor proposals\n"
                         "of all files in your current loaded folder."));
}

void tst_AssignmentController::cancelledResetDoesNotReload()
{
    ClassDesk desk(classes, {"Pip|", "Pip|"});
    QSignalSpy reload(desk.controller.get(), &AssignmentController::reloadAfterReset);
    perform(desk, "&Reset all files"); // the preset is Cancel
    QCOMPARE(desk.rows(), QStringLiteral("Pip| / Pip|"));
    desk.removeFile(0);
    desk.prompts.willAnswer(Answer::Ok);
    desk.prompts.willAnswer(Answer::Cancel);
    perform(desk, "&Reset all files");
    QCOMPARE(desk.rows(), QStringLiteral("Pip| / Pip|"));
    QCOMPARE(reload.size(), 0);
    QCOMPARE(ClassDesk::shown(desk.pane.classTree()), classes);
}

void tst_AssignmentController::deletesFiles()
{
    ClassDesk desk(classes, {"Pip|", "|", "Nyc + Pip|", "raw:|"});
    const QString gone = desk.path(0);
    const QString kept = desk.path(1);
    int deletions = 0;
    connect(&desk.controller->deletion(), &FileDeletion::recordingsDeleted, this, [&] { ++deletions; });
    desk.removeFile(2);
    desk.select("0 2 3");
    perform(desk, "&Delete files"); // the preset is Cancel
    QVERIFY(QFile::exists(gone));
    desk.prompts.willAnswer(Answer::Ok);
    desk.prompts.willAnswer(Answer::Ok);
    perform(desk, "&Delete files");
    QCOMPARE(desk.rows(), QStringLiteral("| / Nyc + Pip|"));
    QCOMPARE(desk.counts(), QStringLiteral("Pip=1 Nyc=1 Unassigned=1"));
    QVERIFY(!QFile::exists(gone) && QFile::exists(kept));
    QCOMPARE(deletions, 1);
    const QString question = "warning|Warning|Do you really want to delete 3 files irrevocably?";
    QCOMPARE(desk.prompts.takeAsked(),
             QStringList({question, question, "critical|Error|The file c.wav could not be deleted."}));
}

void tst_AssignmentController::deletesFilesOfTheFolderList()
{
    ClassDesk desk(classes, {"Pip|", "Pip|"});
    desk.folderList.addTopLevelItem(desk.evaluation.takeTopLevelItem(0));
    desk.folderList.topLevelItem(0)->setSelected(true);
    desk.prompts.willAnswer(Answer::Ok);
    desk.controller->deletion().deleteSelected(desk.folderList);
    QVERIFY(desk.waitForEnd());
    QCOMPARE(desk.folderList.topLevelItemCount(), 0);
    QVERIFY(!QFile::exists(desk.folder.filePath("a.wav")));
    QCOMPARE(desk.counts(), QStringLiteral("Pip=2")); // of the evaluation list, which is as it was
    QCOMPARE(desk.prompts.takeAsked(),
             QStringList("warning|Warning|Do you really want to delete a.wav irrevocably?"));
}

void tst_AssignmentController::deletesManyScatteredRows()
{
    QStringList records;
    for (int row = 0; row < 20; ++row)
        records.append(QStringLiteral("|%1").arg(row));
    ClassDesk desk(classes, records);
    desk.select("0 1 2 5 7 8 19");
    desk.prompts.willAnswer(Answer::Ok);
    perform(desk, "&Delete files");
    QCOMPARE(desk.rows(),
             QStringLiteral("|3 / |4 / |6 / |9 / |10 / |11 / |12 / |13 / |14 / |15 / |16 / |17 / |18"));
    QCOMPARE(QDir(desk.folder.path()).entryList(QDir::Files).size(), 13);
}

void tst_AssignmentController::firstFileOfAClass_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("row");

    QTest::newRow("class 1 before class 2") << "Nyc" << 3;
    QTest::newRow("class 2") << "Myo" << 1;
    QTest::newRow("unassigned") << ClassTree::unassigned() << 2;
    QTest::newRow("no file") << "Pnat" << -1;
}

void tst_AssignmentController::firstFileOfAClass()
{
    QFETCH(QString, name);
    QFETCH(int, row);

    ClassDesk desk(classes, {"Pip + Nyc|", "Pip + Myo|", "|", "Nyc + Myo|", "|"});
    QSignalSpy load(desk.controller.get(), &AssignmentController::rowToBeLoaded);
    desk.tree.setCurrentItem(desk.tree.findItems(name, Qt::MatchExactly | Qt::MatchRecursive).value(0));
    desk.session.busy = true;
    desk.pane.activateCurrent();
    QCOMPARE(load.size(), 0);
    desk.session.busy = false;
    desk.pane.activateCurrent();
    QCOMPARE(load.size(), row < 0 ? 0 : 1);
    QCOMPARE(desk.evaluation.indexOfTopLevelItem(desk.evaluation.currentItem()), row);
}

void tst_AssignmentController::menuOfTheEvaluationList()
{
    ClassDesk desk("Pip<A> .A&B", {"Pip + Nyc|", "|"});
    desk.select("0 1");
    QCOMPARE(entries(*desk.controller->menus().evaluationMenu()).join('\n'),
             QStringLiteral("Assign class/Pip\nAssign class/A&&B\n&Assign additional class\n"
                            "Reassign/class 1\nReassign/class 2\n[Reassign/class 3]\n[Reassign/class 4]\n"
                            "Unassign/class 1\nUnassign/class 2\n[Unassign/class 3]\n[Unassign/class 4]\n"
                            "Unassign/&All classes\n&Unassign all classes\n&Reset all files\n&Delete files\n"
                            "&Export selected files as CSV file\n&Export selected files as Vantor file"));
    int exported = 0;
    connect(&desk.controller->menus(), &FileListMenus::csvExportWanted, this,
            [&exported](const QList<QTreeWidgetItem*>& rows) { exported = rows.size(); });
    perform(desk, "&Export selected files as CSV file");
    QCOMPARE(exported, 2);

    desk.pane.setClassTree({});
    desk.select("0");
    perform(desk, "Assign class");
    perform(desk, "&Assign additional class");
    perform(desk, "Reassign/class 2");
    const QString before = "warning|Warning|Please add new class to class tree, before ";
    QCOMPARE(desk.prompts.takeAsked(),
             QStringList({before + "assigning a class.", before + "assigning a second class.",
                          before + "reassigning class 2."}));
}

void tst_AssignmentController::menusWithoutSelection()
{
    ClassDesk desk(classes, {"|"});
    QCOMPARE(entries(*desk.controller->menus().evaluationMenu()), QStringList("&Reset all files"));
    QCOMPARE(entries(*desk.controller->menus().folderMenu()), QStringList());
    desk.folderList.addTopLevelItem(desk.evaluation.takeTopLevelItem(0));
    desk.folderList.topLevelItem(0)->setSelected(true);
    QCOMPARE(entries(*desk.controller->menus().folderMenu()).join('\n'),
             QStringLiteral(
                 "&Export selected file as CSV file\n&Export selected file as Vantor file\n&Delete file"));
}

void tst_AssignmentController::gesturesThatNeedTheWholeList()
{
    ClassDesk desk(classes, {"Pip|"});
    desk.controller->setListComplete(false);
    desk.select("0");
    desk.controller->deleteClass(desk.pane.itemOf("Pip"));
    desk.controller->renameClass(desk.pane.itemOf("Pip"), "Bat");
    desk.controller->resetAllFiles();
    QVERIFY(desk.waitForEnd());
    QCOMPARE(desk.rows(), QStringLiteral("Pip|"));
    QCOMPARE(desk.prompts.takeAsked().size(), 3);
    perform(desk, "key s");
    QCOMPARE(desk.rows(), QStringLiteral("Pip + Nyc|"));
}

void tst_AssignmentController::runInASortedList()
{
    ClassDesk desk(classes, {"|1", "Nyc|2", "|3", "Nyc|4"});
    desk.evaluation.sortByColumn(RowItem::Name, Qt::AscendingOrder);
    desk.evaluation.setSortingEnabled(true);
    desk.evaluation.sortByColumn(RowItem::Class1, Qt::AscendingOrder);
    QCOMPARE(desk.rows(), QStringLiteral("|1 / |3 / Nyc|2 / Nyc|4"));
    desk.select("0 1");
    perform(desk, "button Pip");
    QCOMPARE(desk.rows(), QStringLiteral("Nyc|2 / Nyc|4 / Pip|1 / Pip|3"));
    QVERIFY(desk.evaluation.isSortingEnabled());
    QCOMPARE(desk.differingFiles(), QString());
}

/// As in the program: the worker in a thread of its own. Input during the run does nothing.
void tst_AssignmentController::runInAnotherThread()
{
    QStringList records;
    for (int row = 0; row < 26; ++row)
        records.append("|");
    ClassDesk desk(classes, records);
    desk.window.show();
    QThread thread;
    desk.worker.moveToThread(&thread);
    thread.start();
    desk.evaluation.selectAll();
    QVERIFY(desk.controller->assignByShortcut("<A>"));
    QVERIFY(desk.controller->isRunning());
    QVERIFY(desk.controller->assignByShortcut("<S>"));
    desk.controller->unassignAllClasses();
    QVERIFY(desk.waitForEnd());
    thread.quit();
    QVERIFY(thread.wait(5000));
    QCOMPARE(desk.counts(), QStringLiteral("Pip=26"));
    QCOMPARE(desk.differingFiles(), QString());
}

QTEST_MAIN(tst_AssignmentController)
#include "tst_AssignmentController.moc"
