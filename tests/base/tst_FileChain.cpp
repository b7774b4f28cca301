#include "base/FileChain.h"
#include "tests/support/Table.h"

#include <QtTest>

using Step = FileChain::Step;

/// A run is written as a script of what comes in, one word each; what the chain says is compared word by
/// word. "3" begins a run over that many files; "ok" and "bad" answer the expected index, "late" and "early"
/// the one before and after it; "stop" stops; "skip", "skipall" and "cancel" resolve an error.
class tst_FileChain : public QObject
{
    Q_OBJECT

    using RunRow = Table<QString, QString>; // script, steps

private slots:
    void run_data()
    {
        RunRow row;
        row("no file", "0 ok", "done ignored");
        row("all well", "3 ok ok ok ok", "0 1 2 done ignored");
        row("another index", "3 early ok late ok ok", "0 ignored 1 ignored 2 done");
        row("before any run", "ok skip", "ignored ignored");
        row("skip asks again", "3 bad skip bad skip ok", "0 ask 1 ask 2 done");
        row("skip for all asks no more", "4 bad skipall bad ok bad", "0 ask 1 2 3 done");
        row("skip for all ends with its run", "2 bad skipall bad 1 bad skip", "0 ask 1 done 0 ask done");
        row("cancel after an error", "3 bad cancel ok", "0 ask stopped ignored");
        row("error at the end", "1 bad skip", "0 ask done");
        row("no answer while asking", "2 bad ok skip ok", "0 ask ignored 1 done");
        row("stop waits for the file on its way", "5 ok stop ok ok", "0 1 stopped ignored");
        row("stopping asks no more", "3 stop bad", "0 stopped");
        row("stop at the last file", "1 stop ok", "0 stopped");
        row("stop outside a run", "stop 2 ok ok", "0 1 done");
    }
    void run()
    {
        const auto& [script, steps] = RunRow::row();

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
};

QTEST_GUILESS_MAIN(tst_FileChain)
#include "tst_FileChain.moc"
