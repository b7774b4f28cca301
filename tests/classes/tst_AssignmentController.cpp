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
#include <QtTest>

using Answer = UserPrompts::Answer;

namespace {

const QString classes = QStringLiteral("Pip<A> .Pnat<Q> Nyc<S> Myo");
const QString warning = QStringLiteral("warning|Warning|");
const QString error = QStringLiteral("critical|Error|");

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
    for (QAction* action : menu.actions())
        if (action->text() == path.section('/', 0, 0))
            return action->menu() ? entry(*action->menu(), path.section('/', 1)) : action;
    return nullptr;
}

/// "key a", "button Pip", "accept", "reject", "comment x", or the path of an entry of the context menu. A
/// name after " -> " is chosen in the dialog that comes up.
void perform(ClassDesk& desk, const QString& gesture)
{
    const QString what = gesture.section(" -> ", 0, 0);
    const QString choice = gesture.section(" -> ", 1);
    const QString argument = what.section(' ', 1);
    const NextModal<AssignSecondClassDialog> dialog([&choice](AssignSecondClassDialog& shown) {
        shown.findChild<QComboBox*>("comboBox")->setCurrentText(choice);
        shown.accept();
    });
    QTreeWidgetItem* row = desk.evaluation.topLevelItem(0);
    if (what.startsWith("key "))
        desk.controller->assignByShortcut(ClassTree::shortcutOf(argument.at(0)));
    else if (what.startsWith("button "))
        qobject_cast<QPushButton*>(
            desk.tree.itemWidget(desk.pane.itemOf(argument), ClassTreePane::AssignButton))
            ->click();
    else if (what == "accept" || what == "reject")
        desk.controller->directEdits().acceptProposal(row, what == "accept");
    else if (what.startsWith("comment"))
        desk.controller->directEdits().setComment(row, argument);
    else {
        const std::unique_ptr<QMenu> menu = desk.controller->menus().evaluationMenu();
        QAction* action = entry(*menu, what);
        QVERIFY2(action, qPrintable(what));
        action->trigger();
    }
    QVERIFY(desk.waitForEnd());
    QCOMPARE(dialog.happened(), !choice.isEmpty());
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
    void failedFiles();
    void failedDirectEdits();
    void commentsThatAreRefused();
    void cancelledRunLeavesTheRestAlone();
    void shortcutsThatAssignNothing();
    void reset();
    void deletesFiles();
    void firstFileOfAClass();
    void menusOfTheLists();
    void emptyTreeIsSaid();
    void incompleteListKeepsItsClasses();
    void runInASortedList();
};

void tst_AssignmentController::gesturesOnSelectedFiles_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QString>("gesture");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("counts");

    const auto row = [](const char* before, const char* selected, const char* gesture, const char* after,
                        const char* counts) {
        QTest::addRow("%s, %s of %s", gesture, selected, before)
            << before << selected << gesture << after << counts;
    };
    row("| / | / |x", "0 1 2", "key a", "Pip| / Pip| / Pip|x", "Pip=3");
    row("Pip|x", "0", "key s", "Pip + Nyc|x", "Pip=1 Nyc=1");
    row("Pip|x", "0", "key a", "Pip|x", "Pip=1");
    row("a + b + c + Pip|", "0", "key s", "a + b + c + Nyc|", "Nyc=1");
    row("Nyc|Pip, Nyc|0|x", "0", "key a", "Nyc + Pip|Pip, Nyc|1|x", "Pip=1 Nyc=1");
    row("raw:| / |", "0 1", "key a", "Pip| / Pip|", "Pip=2");
    row("Pip| / Nyc|", "0 1", "&Assign additional class -> Myo", "Pip + Myo| / Nyc + Myo|",
        "Pip=1 Nyc=1 Myo=2");
    row("Pip + Nyc| / Myo|x", "0 1", "&Unassign all classes", "| / |x", "Unassigned=2");
    row("Pip|Pip|1|x / |", "0", "Unassign/&All classes", "|Pip|1|x / |", "Unassigned=2");
    row("Pip + Nyc|Nyc|0| / |", "0 1", "Unassign/class 1", "Nyc|Nyc|1| / |", "Nyc=1 Unassigned=1");
    row("Pip| / Nyc + Myo|", "0 1", "Unassign/class 2", "Pip| / Nyc|", "Pip=1 Nyc=1");
    row("Pip + Nyc|Pip, Myo|0| / Pip|", "0 1", "Reassign/class 2 -> Myo", "Pip + Myo|Pip, Myo|1| / Pip|",
        "Pip=2 Myo=1");
    row("raw:Pip|", "0", "Reassign/class 1 -> Nyc", "Nyc|", "Nyc=1");
    row("|Pip, Nyc|0|x", "", "accept", "Pip + Nyc|Pip, Nyc|1|x", "Pip=1 Nyc=1");
    row("Myo|Pip|0|", "", "accept", "Pip|Pip|1|", "Pip=1");
    row("Pip + Nyc|Pip, Nyc|1|x", "", "reject", "|Pip, Nyc|0|x", "Unassigned=1");
    row("Pip|Pip|1|old", "", "comment two calls", "Pip|Pip|1|two calls", "Pip=1");
    row("|old", "", "comment", "|", "Unassigned=1");
    row("raw:|", "", "comment new", "|new", "Unassigned=1");
    // A gap leaves a file unassigned, and a class counts once for a file.
    row(" + Nyc| / Pip + Pip + Nyc|", "0", "&Unassign all classes", "| / Pip + Pip + Nyc|",
        "Pip=1 Nyc=1 Unassigned=1");
    row(" + Nyc| / |", "1", "key q", " + Nyc| / Pnat|", "Pnat=1 Nyc=1 Unassigned=1");
}

void tst_AssignmentController::gesturesOnSelectedFiles()
{
    QFETCH(QString, before);
    QFETCH(QString, selected);
    QFETCH(QString, gesture);

    ClassDesk desk(classes, before.split(" / "));
    desk.select(selected);
    perform(desk, gesture);
    QTEST(desk.rows(), "after");
    QTEST(desk.counts(), "counts");
    QCOMPARE(desk.differingFiles(), QString());
    QCOMPARE(desk.prompts.takeAsked(), QStringList());
}

void tst_AssignmentController::gesturesOnClasses_data()
{
    QTest::addColumn<QString>("gesture");
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QString>("tree");
    QTest::addColumn<QString>("after");

    const auto row = [](const char* gesture, const QString& asked, const char* tree, const char* after) {
        QTest::newRow(gesture) << gesture << asked << tree << after;
    };
    const QString deletion = "Do you really want to delete %1 %3?\n%2 %3 will be unassigned in all files!";
    const QString renaming = "Do you really want to rename %1?\nAll related files will be updated!";
    row("delete Pip", deletion.arg("class", "Class", "Pip"), "Nyc<S> Myo", "|x / Nyc|Nyc|0| / Pnat| / |");
    row("delete Pnat", deletion.arg("subclass", "Subclass", "Pnat"), "Pip<A> Nyc<S> Myo",
        "Pip|x / Nyc + Pip|Nyc|0| / | / Pip|");
    row("delete Myo", deletion.arg("class", "Class", "Myo"), "Pip<A> .Pnat<Q> Nyc<S>",
        "Pip|x / Nyc + Pip|Nyc|0| / Pnat| / Pip|");
    row("rename Pip Bat", renaming.arg("class Pip"), "Bat<A> .Pnat<Q> Nyc<S> Myo",
        "Bat|x / Nyc + Bat|Nyc|0| / Pnat| / Bat|");
    row("rename Pnat Bat", renaming.arg("subclass Pnat"), "Pip<A> .Bat<Q> Nyc<S> Myo",
        "Pip|x / Nyc + Pip|Nyc|0| / Bat| / Pip|");
}

void tst_AssignmentController::gesturesOnClasses()
{
    QFETCH(QString, gesture);
    QFETCH(QString, asked);

    ClassDesk desk(classes, {"Pip|x", "Nyc + Pip|Nyc|0|", "Pnat|", "raw:Pip|"});
    const QString before = desk.rows();
    const auto act = [&](Answer answer) {
        desk.prompts.willAnswer(answer);
        desk.tree.setCurrentItem(desk.pane.itemOf(gesture.section(' ', 1, 1)));
        if (gesture.startsWith("delete"))
            desk.pane.deleteCurrent();
        else
            desk.controller->renameClass(desk.tree.currentItem(), gesture.section(' ', 2));
        return desk.waitForEnd();
    };
    QVERIFY(act(Answer::No));
    QCOMPARE(desk.rows(), before);
    QCOMPARE(ClassDesk::shown(desk.pane.classTree()), classes);
    QVERIFY(act(Answer::Yes));
    QTEST(desk.rows(), "after");
    QTEST(ClassDesk::shown(desk.pane.classTree()), "tree");
    QCOMPARE(desk.differingFiles(), QString());
    QCOMPARE(desk.prompts.takeAsked(), QStringList({warning + asked, warning + asked}));
}

void tst_AssignmentController::failedFiles()
{
    const auto check = [](const char* missing, const QVector<Answer>& answers, const char* after,
                          const QString& told) {
        ClassDesk desk(classes, {"|", "|", "|", "|"});
        for (const QString& row : QString(missing).split(' '))
            desk.removeFile(row.toInt());
        for (const Answer answer : answers)
            desk.prompts.willAnswer(answer);
        desk.select("0 1 2 3");
        perform(desk, "key a");
        QCOMPARE(desk.rows() + '#' + desk.counts(), QString(after));
        QCOMPARE(desk.prompts.takeAsked().join(' ').remove(error + "Error Writing File "), told);
    };
    check("1 2", {Answer::Skip, Answer::Skip}, "Pip| / | / | / Pip|#Pip=2 Unassigned=2", "b.wav c.wav");
    check("0 2", {Answer::SkipForAll}, "| / Pip| / | / Pip|#Pip=2 Unassigned=2", "a.wav");
    check("1", {Answer::Cancel}, "Pip| / | / | / |#Pip=1 Unassigned=3", "b.wav");
}

void tst_AssignmentController::failedDirectEdits()
{
    const auto check = [](const char* gesture, const char* loss) {
        ClassDesk desk(classes, {"Nyc|Pip|0|x"});
        desk.removeFile(0);
        desk.select("0");
        perform(desk, gesture);
        QCOMPARE(desk.rows() + desk.counts(), QStringLiteral("Nyc|Pip|0|xNyc=1"));
        QCOMPARE(desk.prompts.takeAsked(),
                 QStringList(error + "Could not write file a.wav\n" + loss + " is not saved to wav file."));
    };
    check("accept", "Class assignment");
    check("Reassign/class 1 -> Myo", "Class assignment");
    check("Unassign/class 1", "Class unassignment");
    check("comment y", "New comment");
}

void tst_AssignmentController::commentsThatAreRefused()
{
    const auto isRefused = [](const QString& comment) {
        ClassDesk desk(classes, {"Pip|old"});
        perform(desk, "comment " + comment);
        const bool told = desk.prompts.takeAsked().size() == 1;
        return desk.differingFiles().isEmpty() && desk.rows() == "Pip|" + (told ? "old" : comment) && told;
    };
    QVERIFY(!isRefused(QString(252, 'x'))); // 256 bytes with the class
    QVERIFY(isRefused(QString(253, 'x')));
    QVERIFY(isRefused("a|b"));
    QVERIFY(isRefused(QString(QChar(0xfc))));
}

void tst_AssignmentController::cancelledRunLeavesTheRestAlone()
{
    ClassDesk desk(classes, {"|", "|", "|", "|", "|"});
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

void tst_AssignmentController::reset()
{
    ClassDesk desk("Pip<A> .PpPn<B>", {"PpPn|", "Pip|Pip|1|note", "|x", "raw:Pip|"});
    QSignalSpy reload(desk.controller.get(), &AssignmentController::reloadAfterReset);
    const QString records = desk.rows();
    perform(desk, "&Reset all files"); // the preset is Cancel
    QFile::rename(desk.path(0), desk.path(0) + '~');
    desk.prompts.willAnswer(Answer::Ok);
    desk.prompts.willAnswer(Answer::Cancel); // after the first file
    perform(desk, "&Reset all files");
    QCOMPARE(desk.rows(), records);
    QCOMPARE(reload.size(), 0);
    QCOMPARE(desk.prompts.takeAsked().constFirst(),
             warning + "Reset will delete class assignments and Vantor proposals\n"
                       "of all files in your current loaded folder.");
    QFile::rename(desk.path(0) + '~', desk.path(0));
    desk.prompts.willAnswer(Answer::Ok);
    perform(desk, "&Reset all files");
    QCOMPARE(desk.rows(), QStringLiteral("| / |note / |x / Pip|"));
    QCOMPARE(desk.differingFiles(), QString());
    QCOMPARE(reload.size(), 1);
    QCOMPARE(ClassDesk::shown(desk.pane.classTree()), ClassDesk::shown(ClassTree::advancedReview()));
}

void tst_AssignmentController::deletesFiles()
{
    ClassDesk desk(classes, {"Pip|", "|", "Nyc + Pip|", "raw:|", "|5", "|6", "Myo|", "|8"});
    int deletions = 0;
    connect(&desk.controller->deletion(), &FileDeletion::recordingsDeleted, this, [&] { ++deletions; });
    desk.removeFile(2);
    desk.select("0 2 3 5 6");
    perform(desk, "&Delete files"); // the preset is Cancel
    desk.prompts.willAnswer(Answer::Ok);
    perform(desk, "&Delete files");
    QCOMPARE(desk.rows(), QStringLiteral("| / Nyc + Pip| / |5 / |8"));
    QCOMPARE(desk.counts(), QStringLiteral("Pip=1 Nyc=1 Unassigned=3"));
    QCOMPARE(QDir(desk.folder.path()).entryList(QDir::Files).join(' '), QStringLiteral("b.wav e.wav h.wav"));
    QCOMPARE(deletions, 1);
    const QString question = warning + "Do you really want to delete %1 irrevocably?";
    QCOMPARE(desk.prompts.takeAsked(), QStringList({question.arg("5 files"), question.arg("5 files"),
                                                    error + "The file c.wav could not be deleted."}));

    desk.folderList.addTopLevelItem(desk.evaluation.takeTopLevelItem(0));
    desk.folderList.topLevelItem(0)->setSelected(true);
    desk.prompts.willAnswer(Answer::Ok);
    desk.controller->deletion().deleteSelected(desk.folderList);
    QVERIFY(desk.waitForEnd());
    QCOMPARE(desk.folderList.topLevelItemCount(), 0);
    QVERIFY(!QFile::exists(desk.folder.filePath("b.wav")));
    QCOMPARE(desk.counts(), QStringLiteral("Pip=1 Nyc=1 Unassigned=3")); // of the evaluation list
    QCOMPARE(desk.prompts.takeAsked(), QStringList(question.arg("b.wav")));
}

void tst_AssignmentController::firstFileOfAClass()
{
    ClassDesk desk(classes, {"Pip + Nyc|", "Pip + Myo|", "|", "Nyc + Myo|", "|"});
    QSignalSpy load(desk.controller.get(), &AssignmentController::rowToBeLoaded);
    const auto rowOf = [&](const QString& name) {
        load.clear();
        desk.tree.setCurrentItem(desk.tree.findItems(name, Qt::MatchExactly | Qt::MatchRecursive).value(0));
        desk.pane.activateCurrent();
        return load.isEmpty() ? -1 : desk.evaluation.indexOfTopLevelItem(desk.evaluation.currentItem());
    };
    desk.session.busy = true;
    QCOMPARE(rowOf("Nyc"), -1);
    desk.session.busy = false;
    QCOMPARE(rowOf("Nyc"), 3); // class 1 before class 2
    QCOMPARE(rowOf("Myo"), 1);
    QCOMPARE(rowOf("Pnat"), -1);
    QCOMPARE(rowOf(ClassTree::unassigned()), 2);
}

void tst_AssignmentController::menusOfTheLists()
{
    ClassDesk desk("Pip<A> .A&B", {"Pip + Nyc|", "|"});
    FileListMenus& menus = desk.controller->menus();
    QCOMPARE(entries(*menus.evaluationMenu()), QStringList("&Reset all files"));
    QCOMPARE(entries(*menus.folderMenu()), QStringList());
    desk.select("0 1");
    QCOMPARE(entries(*menus.evaluationMenu()).join('\n'),
             QStringLiteral("Assign class/Pip\nAssign class/A&&B\n&Assign additional class\n"
                            "Reassign/class 1\nReassign/class 2\n[Reassign/class 3]\n[Reassign/class 4]\n"
                            "Unassign/class 1\nUnassign/class 2\n[Unassign/class 3]\n[Unassign/class 4]\n"
                            "Unassign/&All classes\n&Unassign all classes\n&Reset all files\n&Delete files\n"
                            "&Export selected files as CSV file\n&Export selected files as Vantor file"));
    int exported = 0;
    connect(&menus, &FileListMenus::csvExportWanted, this,
            [&exported](const QList<QTreeWidgetItem*>& rows) { exported = rows.size(); });
    perform(desk, "&Export selected files as CSV file");
    QCOMPARE(exported, 2);

    desk.folderList.addTopLevelItem(desk.evaluation.takeTopLevelItem(0));
    desk.folderList.topLevelItem(0)->setSelected(true);
    QCOMPARE(entries(*menus.folderMenu()).join('\n'),
             QStringLiteral(
                 "&Export selected file as CSV file\n&Export selected file as Vantor file\n&Delete file"));
}

void tst_AssignmentController::emptyTreeIsSaid()
{
    ClassDesk desk("", {"Pip + Nyc|"});
    desk.select("0");
    for (const char* gesture : {"Assign class", "&Assign additional class", "Reassign/class 2"})
        perform(desk, gesture);
    const QString before = warning + "Please add new class to class tree, before ";
    QCOMPARE(desk.prompts.takeAsked(),
             QStringList({before + "assigning a class.", before + "assigning a second class.",
                          before + "reassigning class 2."}));
}

void tst_AssignmentController::incompleteListKeepsItsClasses()
{
    ClassDesk desk(classes, {"Pip|"});
    desk.controller->setListComplete(false);
    desk.controller->deleteClass(desk.pane.itemOf("Pip"));
    desk.controller->renameClass(desk.pane.itemOf("Pip"), "Bat");
    desk.controller->resetAllFiles();
    QCOMPARE(desk.rows(), QStringLiteral("Pip|"));
    QCOMPARE(desk.prompts.takeAsked().size(), 3);
    desk.select("0");
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

QTEST_MAIN(tst_AssignmentController)
#include "tst_AssignmentController.moc"
