#include "classes/core/AssignmentPlan.h"
#include "tests/support/ScriptedPrompts.h"

#include <QtTest>

/// Files are given by their records, separated by " / "; answers and what is asked by single letters.
class tst_AssignmentPlan : public QObject
{
    Q_OBJECT

private slots:
    void settle_data();
    void settle();
};

namespace {

using Answer = UserPrompts::Answer;

const QMap<QChar, Answer> answerOf{
    {'y', Answer::Yes}, {'n', Answer::No}, {'c', Answer::Cancel}, {'o', Answer::Ok}};

const QMap<QString, QChar> letterOf{
    {"All classes of the file are already assigned.\nDo you want to overwrite class 4?", 'f'},
    {"All classes of one or more files are already assigned.\nDo you want to overwrite class 4 in such "
     "files?",
     'F'},
    {"File already assigned to 'No Call'.\nThis 'No Call' assignment will be overwritten.", 'n'},
    {"One or more files already assigned to 'No Call'.\nThis 'No Call' assignment will be overwritten.", 'N'},
    {"File already assigned to a bat call class.\nThis assignment will be overwritten.", 'b'},
    {"One or more files already assigned to a bat call class.\nThis assignment will be overwritten.", 'B'}};

} // namespace

void tst_AssignmentPlan::settle_data()
{
    QTest::addColumn<QString>("files");
    QTest::addColumn<QString>("className");
    QTest::addColumn<QString>("answers");
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QString>("taken");
    QTest::addColumn<bool>("asksAboutNoCall");

    const QString full = "a + b + c + d|";
    const auto row = [](const char* name, const QString& files, const char* className, const char* answers,
                        const char* asked, const char* taken, bool asksAboutNoCall = true) {
        QTest::newRow(name) << files << className << answers << asked << taken << asksAboutNoCall;
    };
    row("room in every file", "| / a| / a + b + c|", "x", "", "", "0 1 2");
    row("carried already", full, "c", "", "", "0");
    row("a gap is room", "a +  + c + d|", "x", "", "", "0");
    row("full, yes", full, "x", "y", "f", "0");
    row("full, no", full, "x", "n", "f", "");
    row("full, preset", full, "x", "", "f", "");
    row("several full, yes", full + " / | / " + full, "x", "y", "F", "0 1 2");
    row("several full, preset is no", full + " / | / " + full, "x", "", "F", "1");

    row("over No call, ok", "No call|", "x", "o", "n", "0");
    row("over No call, preset is cancel", "| / No call|", "x", "", "N", "");
    row("No call on itself", "No call| / |", "No call", "", "", "0 1");
    row("No call over a class, ok", "a|", "No call", "o", "b", "0");
    row("No call over a class, preset is cancel", "| / a|", "No call", "", "B", "");
    row("the automatic spelling is a class", "No Call|", "x", "", "", "0");
    row("No call over the automatic spelling", "No Call|", "No call", "o", "b", "0");
    row("only class 1 counts", "a + No call|", "x", "", "", "0");
    row("fixed trees do not ask about it", "No call| / a|", "x", "", "", "0 1", false);
    row("fixed trees ask about class 4", full, "x", "y", "f", "0", false);
    row("both, one left after the first", full + " / No call|", "x", "no", "Fn", "1");
    row("no question about what was dropped", "No call + b + c + d| / |", "x", "n", "F", "1");
}

void tst_AssignmentPlan::settle()
{
    QFETCH(QString, files);
    QFETCH(QString, className);
    QFETCH(QString, answers);
    QFETCH(bool, asksAboutNoCall);

    ScriptedPrompts prompts;
    for (const QChar answer : answers)
        prompts.willAnswer(answerOf.value(answer));
    QVector<ClassRecord> records;
    for (const QString& description : files.split(" / "))
        records.append(ClassRecord::parse(description));
    QStringList taken;
    for (const int index : AssignmentPlan(className, records, asksAboutNoCall).settle(prompts))
        taken.append(QString::number(index));
    QTEST(taken.join(' '), "taken");
    QString asked;
    for (const QString& question : prompts.takeAsked())
        asked.append(letterOf.value(question.mid(QStringLiteral("warning|Warning|").size()), '?'));
    QTEST(asked, "asked");
}

QTEST_GUILESS_MAIN(tst_AssignmentPlan)
#include "tst_AssignmentPlan.moc"
