#include "classes/core/ClassTree.h"
#include "classes/core/classModelFile.h"

#include <QTemporaryDir>
#include <QtTest>

/// Trees are written as one word per class, subclasses with a dot before: "Pip<A> .Pnat<Q>".
class tst_ClassTree : public QObject
{
    Q_OBJECT

private slots:
    void programsTrees_data();
    void programsTrees();
    void readsText_data();
    void readsText();
    void shortcuts();
    void modelFiles();
};

namespace {

QString shown(const ClassTree& tree)
{
    QStringList words;
    for (const ClassTree::Entry& entry : tree.entries())
        words.append((entry.isSubclass ? "." : "") + entry.name + entry.shortcut);
    return words.join(' ');
}

} // namespace

void tst_ClassTree::programsTrees_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");

    const QString pipAndNyc = "Pip<A> .Pnat<Q> .PpPn<W> .Ppip<E> .PpPp<R> .Ppyg<T> "
                              "Nyc<S> .Nlow<Y> .Nnoc<X> .Nycmi<C> .Enil<V> ";
    const auto row = [](const char* name, const ClassTree& tree, const QString& expected) {
        QTest::newRow(name) << tree.text() << expected;
    };
    row("advanced", ClassTree::advancedDefault(), pipAndNyc + "Test<D> Noise<F>");
    row("simple", ClassTree::simpleDefault(), "Bat<A> No call<D>");
    row("after a reset", ClassTree::advancedDefault().reviewAfterReset(), pipAndNyc + "No Call<D>");
    row("after a reset without PpPn", ClassTree().reviewAfterReset(), "Pip<G> .Pnat<H> Nyc<F> No Call<J>");
}

void tst_ClassTree::programsTrees()
{
    QFETCH(QString, text);
    QTEST(shown(ClassTree::fromText(text)), "expected");
    QCOMPARE(ClassTree::fromText(text).text(), text);
}

void tst_ClassTree::readsText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QString>("leftOut");

    const auto row = [](const char* name, const QString& text, const char* expected,
                        const QString& leftOut = {}) { QTest::newRow(name) << text << expected << leftOut; };
    row("empty", "", "");
    row("blank lines", "\n\nPip\t<A>\n\n\tPnat\t<Q>\n\t\n", "Pip<A> .Pnat<Q>");
    row("carriage returns", "Pip\t<A>\r\n\tPnat\r\n", "Pip<A> .Pnat");
    row("further fields", "Pip\t<A>\tred\n", "Pip<A>");
    row("no shortcuts", "Pip\tA\nNyc\t<a>\nBat\t<AB>\nCat\t<1>\nDog\t\n", "Pip Nyc Bat Cat Dog");
    row("subclass first", "\tPnat\t<Q>\nPip\t<A>\n", "Pip<A>");
    row("third level", "Pip\n\t\tPnat\t<Q>\n", "Pip");
    row("repeated name", "Pip\n\tPnat\nNyc\n\tPnat\n\tPip\n", "Pip .Pnat Nyc", "Pnat Pip");
    row("subclasses go with their class", "Pip\nA|B\n\tPnat\nNyc\n", "Pip Nyc", "A|B Pnat");
    row("first class refused", "a, b\n\tPnat\nNyc\n", "Nyc", "a, b Pnat");
    row("unassigned", "Unassigned\nPip\n", "Pip", "Unassigned");
    row("not ASCII", QString::fromUtf8("Großes\nPip\n"), "Pip", QString::fromUtf8("Großes"));
    row("nonsense", QString(5, QChar(0)), "", QString(5, QChar(0)));
}

void tst_ClassTree::readsText()
{
    QFETCH(QString, text);

    QStringList leftOut;
    QTEST(shown(ClassTree::fromText(text, &leftOut)), "expected");
    QTEST(leftOut.join(' '), "leftOut");
}

void tst_ClassTree::shortcuts()
{
    const ClassTree tree = ClassTree::fromText("Nyc\t<A>\n\tNycMid\t<D>\nPip\t<D>\nBat\n");
    QCOMPARE(tree.freeShortcuts().size(), 24);
    QCOMPARE(tree.freeShortcuts().mid(0, 3).join(' '), QStringLiteral("<B> <C> <E>"));
    QCOMPARE(ClassTree::shortcutOf('q'), QStringLiteral("<Q>"));
    for (const QChar other : {QChar('1'), QChar('@'), QChar('['), QChar(0xe4), QChar()})
        QCOMPARE(ClassTree::shortcutOf(other), QString());
}

void tst_ClassTree::modelFiles()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("model.txt");
    QVERIFY(writeClassModel(path, ClassTree::advancedDefault()));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().startsWith("Pip\t<A>\n\tPnat\t<Q>\n"));
    QCOMPARE(readClassModel(path).text(), ClassTree::advancedDefault().text());

    QVERIFY(readClassModel(folder.filePath("missing.txt")).isEmpty());
    QVERIFY(!writeClassModel(folder.filePath("no/such/folder.txt"), ClassTree::simpleDefault()));
}

QTEST_GUILESS_MAIN(tst_ClassTree)
#include "tst_ClassTree.moc"
