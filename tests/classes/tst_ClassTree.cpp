#include "classes/core/ClassTree.h"
#include "classes/core/classModelFile.h"

#include <QTemporaryDir>
#include <QtTest>

class tst_ClassTree : public QObject
{
    Q_OBJECT

private slots:
    void textsOfTheProgramsTrees_data();
    void textsOfTheProgramsTrees();
    void readsText_data();
    void readsText();
    void problemsOfNames_data();
    void problemsOfNames();
    void freeShortcuts();
    void firstClassHasAShortcutGivenTwice();
    void shortcutOfALetter();
    void treeAfterReset();
    void modelFileKeepsTheTree();
    void modelFilesThatCannotBe();
};

namespace {

/// One word per class, subclasses with a dot before: "Pip<A> .Pnat<Q>".
QString shown(const ClassTree& tree)
{
    QStringList words;
    for (const ClassTree::Entry& entry : tree.entries())
        words.append((entry.isSubclass ? "." : "") + entry.name + entry.shortcut);
    return words.join(' ');
}

} // namespace

void tst_ClassTree::textsOfTheProgramsTrees_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("lines");
    QTest::addColumn<QString>("expected");

    QTest::newRow("advanced default") << ClassTree::advancedDefault().text() << 13
                                      << "Pip<A> .Pnat<Q> .PpPn<W> .Ppip<E> .PpPp<R> .Ppyg<T> "
                                         "Nyc<S> .Nlow<Y> .Nnoc<X> .Nycmi<C> .Enil<V> Test<D> Noise<F>";
    QTest::newRow("simple default") << ClassTree::simpleDefault().text() << 2 << "Bat<A> No call<D>";
    QTest::newRow("advanced review") << ClassTree::advancedReview().text() << 12
                                     << "Pip<A> .Pnat<Q> .PpPn<W> .Ppip<E> .PpPp<R> .Ppyg<T> "
                                        "Nyc<S> .Nlow<Y> .Nnoc<X> .Nycmi<C> .Enil<V> No Call<D>";
    QTest::newRow("simple review") << ClassTree::simpleReview().text() << 4
                                   << "Pip<G> .Pnat<H> Nyc<F> No Call<J>";
}

void tst_ClassTree::textsOfTheProgramsTrees()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);

    QTEST(int(text.count('\n')), "lines");
    QVERIFY(text.endsWith('\n'));
    QCOMPARE(shown(ClassTree::fromText(text)), expected);
    QCOMPARE(ClassTree::fromText(text).text(), text);
}

void tst_ClassTree::readsText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QString>("leftOut");

    QTest::newRow("empty") << ""
                           << ""
                           << "";
    QTest::newRow("no line end") << "Pip\t<A>"
                                 << "Pip<A>"
                                 << "";
    QTest::newRow("blank lines") << "\n\nPip\t<A>\n\n\tPnat\t<Q>\n\t\n"
                                 << "Pip<A> .Pnat<Q>"
                                 << "";
    QTest::newRow("carriage returns") << "Pip\t<A>\r\n\tPnat\r\n"
                                      << "Pip<A> .Pnat"
                                      << "";
    QTest::newRow("no second field") << "Pip\n\tPnat\n"
                                     << "Pip .Pnat"
                                     << "";
    QTest::newRow("empty shortcut") << "Pip\t\nNyc\t<S>\n"
                                    << "Pip Nyc<S>"
                                    << "";
    QTest::newRow("further fields") << "Pip\t<A>\tred\n"
                                    << "Pip<A>"
                                    << "";
    QTest::newRow("no shortcuts") << "Pip\tA\nNyc\t<a>\nBat\t<AB>\nCat\t<1>\n"
                                  << "Pip Nyc Bat Cat"
                                  << "";
    QTest::newRow("blank in a name") << "No call\t<D>\n"
                                     << "No call<D>"
                                     << "";
    QTest::newRow("subclass first") << "\tPnat\t<Q>\nPip\t<A>\n"
                                    << "Pip<A>"
                                    << "";
    QTest::newRow("third level") << "Pip\n\t\tPnat\t<Q>\n"
                                 << "Pip"
                                 << "";
    QTest::newRow("repeated name") << "Pip\n\tPnat\nNyc\n\tPnat\n\tPip\n"
                                   << "Pip .Pnat Nyc"
                                   << "Pnat Pip";
    QTest::newRow("subclasses go with their class") << "Pip\nA|B\n\tPnat\nNyc\n"
                                                    << "Pip Nyc"
                                                    << "A|B Pnat";
    QTest::newRow("first class refused") << "A|B\n\tPnat\nNyc\n"
                                         << "Nyc"
                                         << "A|B Pnat";
    QTest::newRow("unassigned") << "Unassigned\nPip\n"
                                << "Pip"
                                << "Unassigned";
    QTest::newRow("not ASCII") << QString::fromUtf8("Großes\nPip\n") << "Pip" << QString::fromUtf8("Großes");
    QTest::newRow("nonsense") << QString(5, QChar(0)) << "" << QString(5, QChar(0));
}

void tst_ClassTree::readsText()
{
    QFETCH(QString, text);

    QStringList leftOut;
    QTEST(shown(ClassTree::fromText(text, &leftOut)), "expected");
    QTEST(leftOut.join(' '), "leftOut");
}

void tst_ClassTree::problemsOfNames_data()
{
    using Problem = ClassTree::NameProblem;
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("problem");

    const auto row = [](const char* name, Problem problem) {
        QTest::newRow(name) << QString(name) << int(problem);
    };
    row("Bat", Problem::None);
    row("pip", Problem::None);
    row("Pip + ", Problem::Refused);
    row("a, b", Problem::Refused);
    row("a\tb", Problem::Refused);
    row("a|b", Problem::Refused);
    row("a+b,c", Problem::None);
    row("", Problem::Empty);
    row("Pip", Problem::Exists);
    row("Pnat", Problem::Exists);
    row("Unassigned", Problem::Exists);
}

void tst_ClassTree::problemsOfNames()
{
    QFETCH(QString, name);
    QTEST(int(ClassTree::advancedDefault().problemOf(name)), "problem");
}

void tst_ClassTree::freeShortcuts()
{
    QCOMPARE(ClassTree().freeShortcuts().size(), 26);
    QCOMPARE(ClassTree().freeShortcuts().constFirst(), QStringLiteral("<A>"));
    QCOMPARE(ClassTree().freeShortcuts().constLast(), QStringLiteral("<Z>"));
    const QStringList free = ClassTree::fromText("Pip\t<A>\nNyc\t<S>\n\tNlow\n").freeShortcuts();
    QCOMPARE(free.size(), 24);
    QVERIFY(!free.contains("<A>") && !free.contains("<S>"));
}

void tst_ClassTree::firstClassHasAShortcutGivenTwice()
{
    const ClassTree tree = ClassTree::fromText("Nyc\t<A>\n\tNycMid\t<D>\nPip\t<D>\n");
    QCOMPARE(tree.nameOfShortcut("<D>"), QStringLiteral("NycMid"));
    QCOMPARE(tree.nameOfShortcut("<Z>"), QString());
    QCOMPARE(ClassTree::fromText("Pip\n").nameOfShortcut(QString()), QString());
}

void tst_ClassTree::shortcutOfALetter()
{
    QCOMPARE(ClassTree::shortcutOf('q'), QStringLiteral("<Q>"));
    QCOMPARE(ClassTree::shortcutOf('Z'), QStringLiteral("<Z>"));
    for (const QChar other : {QChar('1'), QChar('@'), QChar('['), QChar(0xe4), QChar()})
        QCOMPARE(ClassTree::shortcutOf(other), QString());
}

void tst_ClassTree::treeAfterReset()
{
    QCOMPARE(shown(ClassTree::advancedDefault().reviewAfterReset()), shown(ClassTree::advancedReview()));
    QCOMPARE(shown(ClassTree::simpleReview().reviewAfterReset()), shown(ClassTree::simpleReview()));
    QCOMPARE(shown(ClassTree().reviewAfterReset()), shown(ClassTree::simpleReview()));
}

void tst_ClassTree::modelFileKeepsTheTree()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("model.txt");
    QVERIFY(writeClassModel(path, ClassTree::advancedDefault()));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().startsWith("Pip\t<A>\n\tPnat\t<Q>\n"));
    QCOMPARE(shown(readClassModel(path)), shown(ClassTree::advancedDefault()));
}

void tst_ClassTree::modelFilesThatCannotBe()
{
    const QTemporaryDir folder;
    QVERIFY(readClassModel(folder.filePath("missing.txt")).isEmpty());
    QVERIFY(readClassModel(folder.path()).isEmpty());
    QVERIFY(!writeClassModel(folder.filePath("no/such/folder.txt"), ClassTree::simpleDefault()));
}

QTEST_GUILESS_MAIN(tst_ClassTree)
#include "tst_ClassTree.moc"
