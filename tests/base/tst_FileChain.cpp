#include "base/FileChain.h"

#include <QtTest>

using Step = FileChain::Step;

/// A run is written as a script of what comes in, one word each; what the chain says is compared word by
/// word. "3" begins a run over that many files; "ok" and "bad" answer the expected index, "late" and "early"
/// the one before and after it; "stop" stops; "skip", "skipall" and "cancel" resolve an error.
class tst_FileChain : public QObject
{
    Q_OBJECT

private slots:
    void run_data();
    void run();
};

void tst_FileChain::run_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("steps");

    QTest::newRow("no file") << "0 ok"
                             << "done ignored";
    QTest::newRow("all well") << "3 ok ok ok ok"
                              << "0 1 2 done ignored";
    QTest::newRow("another index") << "3 early ok late ok ok"
                                   << "0 ignored 1 ignored 2 done";
    QTest::newRow("before any run") << "ok skip"
                                    << "ignored ignored";
    QTest::newRow("skip asks again") << "3 bad skip bad skip ok"
                                     << "0 ask 1 ask 2 done";
    QTest::newRow("skip for all asks no more") << "4 bad skipall bad ok bad"
                                               << "0 ask 1 2 3 done";
    QTest::newRow("skip for all ends with its run") << "2 bad skipall bad 1 bad skip"
                                                    << "0 ask 1 done 0 ask done";
    QTest::newRow("cancel after an error") << "3 bad cancel ok"
                                           << "0 ask stopped ignored";
    QTest::newRow("error at the end") << "1 bad skip"
                                      << "0 ask done";
    QTest::newRow("no answer while asking") << "2 bad ok skip ok"
                                            << "0 ask ignored 1 done";
    QTest::newRow("stop waits for the file on its way") << "5 ok stop ok ok"
                                                        << "0 1 stopped ignored";
    QTest::newRow("stopping asks no more") << "3 stop bad"
                                           << "0 stopped";
    QTest::newRow("stop at the last file") << "1 stop ok"
                                           << "0 stopped";
    QTest::newRow("stop outside a run") << "stop 2 ok ok"
                                        << "0 1 done";
}

void tst_FileChain::run()
{
    QFETCH(QString, script);
    QFETCH(QString, steps);

    FileChain chain;
    const auto step = [&chain](const QString& word) {
        const int index = chain.index();
        if (word == "ok" || word == "bad")
            return chain.answered(index, word == "ok");
        if (word == "late" || word == "early")
            return chain.answered(word == "late" ? index - 1 : index + 1, true);
        if (word == "skip")
            return chain.resolve(FileChain::ErrorChoice::Skip);
        if (word == "skipall")
            return chain.resolve(FileChain::ErrorChoice::SkipForAll);
        if (word == "cancel")
            return chain.resolve(FileChain::ErrorChoice::Cancel);
        return chain.begin(word.toInt());
    };
    QStringList said;
    for (const QString& word : script.split(' ')) {
        if (word == "stop") {
            chain.stop();
            continue;
        }
        const Step next = step(word);
        said.append(next == Step::Request         ? QString::number(chain.index())
                    : next == Step::AskAboutError ? QStringLiteral("ask")
                    : next == Step::Done          ? QStringLiteral("done")
                    : next == Step::Stopped       ? QStringLiteral("stopped")
                                                  : QStringLiteral("ignored"));
    }
    QCOMPARE(said.join(' '), steps);
    QVERIFY(!chain.isActive());
}

QTEST_GUILESS_MAIN(tst_FileChain)
#include "tst_FileChain.moc"
