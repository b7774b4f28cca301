#include "classes/core/AssignmentPlan.h"
#include "tests/support/ScriptedPrompts.h"

#include <QtTest>

using Answer = UserPrompts::Answer;

class tst_AssignmentPlan : public QObject
{
    Q_OBJECT

private slots:
    void asksBeforeItOverwrites_data();
    void asksBeforeItOverwrites();
    void presetsChangeNothing();
    void offersWhatNobodyCarries();
};

namespace {

const char full[] = "a + b + c + d|";
const char fullOne[] = "warning|Warning|All classes of the file are already assigned.\n"
                       "Do you want to overwrite class 4?";
const char fullMany[] = "warning|Warning|All classes of one or more files are already assigned.\n"
                        "Do you want to overwrite class 4 in such files?";
const char noCallOne[] = "warning|Warning|File already assigned to 'No Call'.\n"
                         "This 'No Call' assignment will be overwritten.";
const char noCallMany[] = "warning|Warning|One or more files already assigned to 'No Call'.\n"
                          "This 'No Call' assignment will be overwritten.";
const char batOne[] = "warning|Warning|File already assigned to a bat call class.\n"
                      "This assignment will be overwritten.";
const char batMany[] = "warning|Warning|One or more files already assigned to a bat call class.\n"
                       "This assignment will be overwritten.";

QVector<ClassRecord> records(const QStringList& descriptions)
{
    QVector<ClassRecord> records;
    for (const QString& description : descriptions)
        records.append(ClassRecord::parse(description));
    return records;
}

QString joined(const QVector<int>& numbers)
{
    QStringList words;
    for (const int number : numbers)
        words.append(QString::number(number));
    return words.join(' ');
}

} // namespace

void tst_AssignmentPlan::asksBeforeItOverwrites_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QString>("className");
    QTest::addColumn<bool>("asksAboutNoCall");
    QTest::addColumn<QVector<int>>("answers");
    QTest::addColumn<QStringList>("asked");
    QTest::addColumn<QString>("taken");

    using Files = QStringList;
    using Asked = QStringList;
    const auto row = [](const char* name, const Files& files, const QString& className,
                        const QVector<Answer>& answers, const Asked& asked, const QString& taken,
                        bool asksAboutNoCall = true) {
        QVector<int> numbers;
        for (const Answer answer : answers)
            numbers.append(static_cast<int>(answer));
        QTest::newRow(name) << files << className << asksAboutNoCall << numbers << asked << taken;
    };
    row("no file", {}, "x", {}, {}, "");
    row("room in every file", {"|", "a|", "a + b + c|"}, "x", {}, {}, "0 1 2");
    row("carried already", {full}, "c", {}, {}, "0");
    row("a gap is room", {"a +  + c + d|"}, "x", {}, {}, "0");
    row("full, yes", {full}, "x", {Answer::Yes}, {fullOne}, "0");
    row("full, no", {full}, "x", {Answer::No}, {fullOne}, "");
    row("full, cancel", {full}, "x", {Answer::Cancel}, {fullOne}, "");
    row("several full, yes", {full, "|", full}, "x", {Answer::Yes}, {fullMany}, "0 1 2");
    row("several full, no", {full, "|", full}, "x", {Answer::No}, {fullMany}, "1");
    row("several full, cancel", {full, "|", full}, "x", {Answer::Cancel}, {fullMany}, "");
    row("all full, no", {full, full}, "x", {Answer::No}, {fullMany}, "");

    row("over No call, ok", {"No call|"}, "x", {Answer::Ok}, {noCallOne}, "0");
    row("over No call, cancel", {"No call|"}, "x", {Answer::Cancel}, {noCallOne}, "");
    row("over No call, several", {"|", "No call|"}, "x", {Answer::Ok}, {noCallMany}, "0 1");
    row("No call on itself", {"No call|", "|"}, "No call", {}, {}, "0 1");
    row("No call over a class", {"a|"}, "No call", {Answer::Ok}, {batOne}, "0");
    row("No call over a class, cancel", {"|", "a|"}, "No call", {Answer::Cancel}, {batMany}, "");
    row("the automatic spelling is a class", {"No Call|"}, "x", {}, {}, "0");
    row("No call over the automatic spelling", {"No Call|"}, "No call", {Answer::Ok}, {batOne}, "0");
    row("only class 1 counts", {"a + No call|"}, "x", {}, {}, "0");
    row("fixed trees do not ask", {"No call|", "a|"}, "x", {}, {}, "0 1", false);
    row("fixed trees ask about class 4", {full}, "x", {Answer::Yes}, {fullOne}, "0", false);

    row("both, one left after the first", {full, "No call|"}, "x", {Answer::No, Answer::Ok},
        {fullMany, noCallOne}, "1");
    row("no second question for what was dropped", {"No call + b + c + d|", "|"}, "x", {Answer::No},
        {fullMany}, "1");
}

void tst_AssignmentPlan::asksBeforeItOverwrites()
{
    QFETCH(QStringList, files);
    QFETCH(QString, className);
    QFETCH(bool, asksAboutNoCall);
    QFETCH(QVector<int>, answers);
    QFETCH(QString, taken);

    ScriptedPrompts prompts;
    for (const int answer : answers)
        prompts.willAnswer(static_cast<Answer>(answer));
    const QVector<int> indexes = AssignmentPlan(className, records(files), asksAboutNoCall).settle(prompts);
    QTEST(prompts.takeAsked(), "asked");
    QCOMPARE(joined(indexes), taken);
}

/// ScriptedPrompts without a script gives the preset: what Return does to each question.
void tst_AssignmentPlan::presetsChangeNothing()
{
    ScriptedPrompts prompts;
    QCOMPARE(joined(AssignmentPlan("x", records({full}), true).settle(prompts)), QString());
    QCOMPARE(joined(AssignmentPlan("x", records({full, "|"}), true).settle(prompts)), QStringLiteral("1"));
    QCOMPARE(joined(AssignmentPlan("x", records({"No call|"}), true).settle(prompts)), QString());
    QCOMPARE(joined(AssignmentPlan("No call", records({"a|"}), true).settle(prompts)), QString());
    QCOMPARE(prompts.takeAsked().size(), 4);
}

void tst_AssignmentPlan::offersWhatNobodyCarries()
{
    const QStringList names = {"Pip", "Pnat", "Nyc", "Bat"};
    QCOMPARE(AssignmentPlan::carriedByNone(names, records({"Pip|", "x + Bat|"})),
             QStringList({"Pnat", "Nyc"}));
    QCOMPARE(AssignmentPlan::carriedByNone(names, {}), names);
    QVERIFY(AssignmentPlan::anyHasSlot(1, records({"|", "a + b|"})));
    QVERIFY(!AssignmentPlan::anyHasSlot(2, records({"|", "a + b|"})));
}

QTEST_GUILESS_MAIN(tst_AssignmentPlan)
#include "tst_AssignmentPlan.moc"
