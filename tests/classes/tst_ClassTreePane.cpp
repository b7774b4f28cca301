#include "classes/ClassTreeEditor.h"
#include "classes/OpenModelDialog.h"
#include "classes/RenameDialog.h"
#include "classes/core/classModelFile.h"
#include "tests/classes/ClassDesk.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

using Answer = UserPrompts::Answer;

/// The class tree of the main window, the model dialog, and the dialogs that both of them open.
class tst_ClassTreePane : public QObject
{
    Q_OBJECT

private slots:
    void showsATree();
    void menus();
    void addsAndChangesClasses_data();
    void addsAndChangesClasses();
    void namesThatAreRefused();
    void heldCountsWait();
    void savesTheModel();
    void modelDialogTrees();
    void modelDialogFiles();
    void modelDialogDeletes();

private:
    static QAction* entry(const QMenu& menu, const QString& text);
};

QAction* tst_ClassTreePane::entry(const QMenu& menu, const QString& text)
{
    for (QAction* action : menu.actions())
        if (action->text() == text)
            return action;
    return nullptr;
}

void tst_ClassTreePane::showsATree()
{
    ClassDesk desk("Pip<A> .Pnat<Q> Nyc", {"Pip|", "Pip + Pnat|", "|"});
    int column = 0;
    for (const char* header : {"class", "count", "shortcut", ""})
        QCOMPARE(desk.tree.headerItem()->text(column++), QString(header));
    QCOMPARE(desk.counts(), QStringLiteral("Pip=2 Pnat=1 Unassigned=1"));
    QVERIFY(desk.tree.topLevelItem(0)->isExpanded());
    const auto toolTip = [&](QTreeWidgetItem* item) {
        const QWidget* button = desk.tree.itemWidget(item, ClassTreePane::AssignButton);
        return button ? button->toolTip() : QString();
    };
    QCOMPARE(toolTip(desk.pane.itemOf("Pip")), QStringLiteral("Assign selected file/s to class \"Pip\""));
    QCOMPARE(toolTip(desk.pane.itemOf("Pnat")),
             QStringLiteral("Assign selected file/s to subclass \"Pnat\""));
    QCOMPARE(toolTip(desk.tree.topLevelItem(2)), QString());
    desk.pane.rename(desk.pane.itemOf("Pnat"), "Bat");
    QCOMPARE(toolTip(desk.pane.itemOf("Bat")), QStringLiteral("Assign selected file/s to subclass \"Bat\""));
}

void tst_ClassTreePane::menus()
{
    ScriptedPrompts prompts;
    QTreeWidget tree;
    tree.setColumnCount(2);
    new QTreeWidgetItem(&tree, {ClassTree::unassigned()});
    const auto texts = [&](ClassTreeEditor::Saving saving, const QString& name) {
        ClassTreeEditor editor(tree, 1, saving, prompts);
        editor.show(ClassDesk::treeOf("Pip<A> .Pnat<Q>"));
        QTreeWidgetItem* item = tree.findItems(name, Qt::MatchExactly | Qt::MatchRecursive).value(0);
        QStringList entries;
        const std::unique_ptr<QMenu> menu = editor.menuFor(item);
        for (const QAction* action : menu->actions())
            entries.append(action->text());
        return entries.join(' ').remove('&');
    };
    const auto inMenu = ClassTreeEditor::Saving::InMenu;
    QCOMPARE(texts(inMenu, ""), QStringLiteral("Add class Save class model"));
    QCOMPARE(texts(inMenu, "Unassigned"), QStringLiteral("Add class Save class model"));
    QCOMPARE(texts(inMenu, "Pnat"),
             QStringLiteral("Delete subclass Change shortcut Rename subclass Save class model"));
    const QString ofClass = "Add class Add subclass Delete class Change shortcut Rename class";
    QCOMPARE(texts(inMenu, "Pip"), ofClass + " Save class model");
    QCOMPARE(texts(ClassTreeEditor::Saving::Elsewhere, "Pip"), ofClass);
}

void tst_ClassTreePane::addsAndChangesClasses_data()
{
    QTest::addColumn<QString>("row");
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("shortcut");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("asked");

    const auto row = [](const char* name, const char* on, const char* action, const char* title,
                        const char* typed, const char* shortcut, const char* after, const char* asked = "") {
        QTest::newRow(name) << on << action << title << typed << shortcut << after << asked;
    };
    const char adding[] = "Set new class parameter";
    const char addingBelow[] = "Set new subclass parameter";
    const char changing[] = "Set new shortcut";
    const char before[] = "Pip<A> .Pnat<Q> Nyc<S>";
    const char exists[] = "warning|Warning|Name already exists.";
    row("below a class", "Pip", "&Add class", adding, "Myo", "<B>", "Pip<A> .Pnat<Q> Myo<B> Nyc<S>");
    row("on no row", "", "&Add class", adding, "Myo", "none", "Myo Pip<A> .Pnat<Q> Nyc<S>");
    row("on the last row", "Unassigned", "&Add class", adding, "Myo", "<B>", "Pip<A> .Pnat<Q> Nyc<S> Myo<B>");
    row("subclass", "Nyc", "&Add subclass", addingBelow, " Nlow ", "none", "Pip<A> .Pnat<Q> Nyc<S> .Nlow");
    row("name of a subclass", "Pip", "&Add class", adding, "Pnat", "<B>", before, exists);
    row("unassigned", "Pip", "&Add class", adding, "Unassigned", "<B>", before, exists);
    row("shortcut", "Pnat", "&Change shortcut", changing, "", "<Z>", "Pip<A> .Pnat<Z> Nyc<S>");
    row("no shortcut", "Pnat", "&Change shortcut", changing, "", "none", "Pip<A> .Pnat Nyc<S>");
    row("rename", "Pip", "&Rename class", "Rename class", "Nyc", "", before, exists);
    row("rename below", "Pnat", "&Rename subclass", "Rename subclass", "Nyc", "", before, exists);
}

/// The same in the tree of the main window and in that of the model dialog.
void tst_ClassTreePane::addsAndChangesClasses()
{
    QFETCH(QString, row);
    QFETCH(QString, action);
    QFETCH(QString, name);
    QFETCH(QString, shortcut);

    ScriptedPrompts prompts;
    QTreeWidget tree;
    tree.setColumnCount(2);
    new QTreeWidgetItem(&tree, {ClassTree::unassigned()});
    ClassTreeEditor editor(tree, 1, ClassTreeEditor::Saving::Elsewhere, prompts);
    editor.show(ClassDesk::treeOf("Pip<A> .Pnat<Q> Nyc<S>"));
    const std::unique_ptr<QMenu> menu =
        editor.menuFor(tree.findItems(row, Qt::MatchExactly | Qt::MatchRecursive).value(0));
    QString title;
    bool isFocused = true;
    int offered = 23 + 1; // the letters that are free, and none
    const NextModal<QDialog> dialog([&](QDialog& shown) {
        title = shown.windowTitle();
        if (auto* box = shown.findChild<QComboBox*>("comboBox")) {
            offered = box->count();
            box->setCurrentText(shortcut);
        }
        if (auto* edit = shown.findChild<QLineEdit*>("lineEdit")) {
            isFocused = shown.focusWidget() == edit;
            edit->setText(name);
        }
        shown.findChild<QDialogButtonBox*>("buttonBox")->button(QDialogButtonBox::Ok)->click();
    });
    entry(*menu, action)->trigger();
    QTEST(title, "title");
    QVERIFY(isFocused && offered == 23 + 1);
    QTEST(ClassDesk::shown(editor.classTree()), "after");
    QTEST(prompts.takeAsked().join(' '), "asked");
    QCOMPARE(tree.topLevelItem(tree.topLevelItemCount() - 1)->text(0), ClassTree::unassigned());
}

void tst_ClassTreePane::namesThatAreRefused()
{
    // What is left of what is typed; "open" when the dialog is not closed by it.
    const auto takenOf = [](const QString& typed) {
        ScriptedPrompts prompts;
        RenameDialog dialog(false, prompts);
        dialog.show();
        for (const QChar& character : typed) {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
            QCoreApplication::sendEvent(dialog.findChild<QLineEdit*>("lineEdit"), &press);
        }
        dialog.accept();
        return (dialog.isVisible() ? "open" : dialog.name()) + prompts.takeAsked().join(' ');
    };
    QCOMPARE(takenOf("a|b"), QString("ab"));
    QCOMPARE(takenOf("a + b"), QString("a +b"));
    QCOMPARE(takenOf("a, b"), QString("a,b"));
    QCOMPARE(takenOf(QString::fromUtf8("Mäuse")), QString("Muse"));
    QCOMPARE(takenOf(QString(80, 'x')), QString(60, 'x'));
    QCOMPARE(takenOf("a +"), QString("open"));
    QCOMPARE(takenOf("   "), QString("openwarning|Warning|The new class name may not be empty."));
}

/// The worker reads the row of a class: while it may, only showCounts() changes that.
void tst_ClassTreePane::heldCountsWait()
{
    ClassDesk desk("Pip", {"|"});
    const RecordingRow row;
    desk.pane.holdCounts();
    for (int added = 0; added < 3; ++added)
        desk.pane.countAdded(row);
    QTest::qWait(100);
    QCOMPARE(desk.counts(), QStringLiteral("Unassigned=1"));
    desk.pane.showCounts();
    QCOMPARE(desk.counts(), QStringLiteral("Unassigned=4"));
    desk.pane.countRemoved(row);
    desk.pane.releaseCounts();
    QCOMPARE(desk.counts(), QStringLiteral("Unassigned=3"));
    desk.pane.countAdded(row); // right after: shown with the next ones
    desk.pane.countAdded(row);
    QTRY_COMPARE(desk.counts(), QStringLiteral("Unassigned=5"));
    desk.pane.clearCounts();
    QTRY_COMPARE(desk.counts(), QString());
}

void tst_ClassTreePane::savesTheModel()
{
    ClassDesk desk("Pip<A> .Pnat<Q>", {"|"});
    ClassTreeEditor* editor = desk.tree.findChild<ClassTreeEditor*>();
    const auto saveAs = [&](const QString& path) {
        const NextModal<QFileDialog> dialog([&](QFileDialog& shown) {
            QCOMPARE(shown.windowTitle(), QStringLiteral("Save Model File"));
            QCOMPARE(shown.nameFilters(), QStringList("TXT Files (*.txt)"));
            shown.findChild<QLineEdit*>("fileNameEdit")->setText(path);
            QMetaObject::invokeMethod(&shown, "accept");
        });
        editor->saveModel();
        QVERIFY(dialog.happened());
    };
    saveAs(desk.folder.filePath("model")); // gets the suffix
    QCOMPARE(readClassModel(desk.folder.filePath("model.txt")).text(),
             QStringLiteral("Pip\t<A>\n\tPnat\t<Q>\n"));
    QCOMPARE(desk.prompts.takeAsked(), QStringList());
    saveAs(desk.folder.filePath("model.txt/impossible"));
    QCOMPARE(desk.prompts.takeAsked(), QStringList("critical|Error|Could not write to file."));
}

void tst_ClassTreePane::modelDialogTrees()
{
    ScriptedPrompts prompts;
    OpenModelDialog dialog(ClassDesk::treeOf("Bat<B>"), prompts);
    QCOMPARE(ClassDesk::shown(dialog.classTree()), QStringLiteral("Bat<B>"));
    const auto press = [&](const char* button) { dialog.findChild<QAbstractButton*>(button)->click(); };
    press("pushButton"); // the preset is No
    QCOMPARE(ClassDesk::shown(dialog.classTree()), QStringLiteral("Bat<B>"));
    prompts.willAnswer(Answer::Yes);
    press("pushButton");
    QCOMPARE(dialog.classTree().text(), ClassTree::advancedDefault().text());
    prompts.willAnswer(Answer::Yes);
    press("pushButton_5");
    QCOMPARE(dialog.classTree().text(), ClassTree::simpleDefault().text());
    const QString question = "warning|Warning|Do you really want to load default model?";
    QCOMPARE(prompts.takeAsked(), QStringList({question, question, question}));
    press("pushButton_3");
    QVERIFY(dialog.classTree().isEmpty());
}

void tst_ClassTreePane::modelDialogFiles()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("model.txt");
    QVERIFY(writeClassModel(path, ClassTree::advancedDefault()));
    QFile file(path);
    QVERIFY(file.open(QIODevice::Append));
    file.write("A|B\t<B>\n");
    file.close();

    ScriptedPrompts prompts;
    OpenModelDialog dialog({}, prompts);
    const NextModal<QFileDialog> load([&](QFileDialog& shown) {
        QCOMPARE(shown.windowTitle(), QStringLiteral("Open Model File"));
        shown.findChild<QLineEdit*>("fileNameEdit")->setText(path);
        QMetaObject::invokeMethod(&shown, "accept");
    });
    dialog.findChild<QAbstractButton*>("pushButton_2")->click();
    QCOMPARE(dialog.classTree().text(), ClassTree::advancedDefault().text());
    QCOMPARE(prompts.takeAsked().size(), 1); // "A|B" is left out
    for (const QTreeWidgetItem* item :
         dialog.findChild<QTreeWidget*>("treeWidget")->findItems("*", Qt::MatchWildcard))
        QVERIFY(item->isExpanded());
}

void tst_ClassTreePane::modelDialogDeletes()
{
    ScriptedPrompts prompts;
    OpenModelDialog dialog(ClassDesk::treeOf("Pip .Pnat .PpPn Nyc"), prompts);
    auto* tree = dialog.findChild<QTreeWidget*>("treeWidget");
    tree->setCurrentItem(tree->topLevelItem(0)->child(0));
    QTest::keyClick(tree, Qt::Key_Delete); // the preset is Cancel
    prompts.willAnswer(Answer::Ok);
    QTest::keyClick(tree, Qt::Key_Delete);
    QCOMPARE(ClassDesk::shown(dialog.classTree()), QStringLiteral("Pip .PpPn Nyc"));
    tree->setCurrentItem(tree->topLevelItem(0));
    prompts.willAnswer(Answer::Ok);
    QTest::keyClick(tree, Qt::Key_Delete);
    QCOMPARE(ClassDesk::shown(dialog.classTree()), QStringLiteral("Nyc"));
    const QString subclass = "warning|Warning|Do you really want to delete subclass Pnat?";
    QCOMPARE(prompts.takeAsked(),
             QStringList({subclass, subclass,
                          "warning|Warning|Do you really want to delete class Pip and all its subclasses?"}));
}

int main(int argc, char** argv)
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication app(argc, argv);
    tst_ClassTreePane test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_ClassTreePane.moc"
