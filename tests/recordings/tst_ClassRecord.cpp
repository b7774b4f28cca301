#include "recordings/ClassRecord.h"

#include <QtTest>

namespace {

/// "class 1,class 2,class 3,class 4;proposal;accepted;comment"
QString printed(const ClassRecord& record)
{
    const QStringList classes(record.classes.cbegin(), record.classes.cend());
    return QStringList{classes.join(','), record.autoClass, record.accepted, record.comment}.join(';');
}

} // namespace

class tst_ClassRecord : public QObject
{
    Q_OBJECT

private slots:
    void parse_data();
    void parse();
    void whatIsTypedReadsBack();
    void proposal();
};

void tst_ClassRecord::parse_data()
{
    QTest::addColumn<QString>("description");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QString>("text"); // in the form that it calls for
    QTest::addColumn<QString>("allSlots");

    const auto row = [](const char* name, const char* description, const char* expected, const char* text,
                        const char* allSlots) {
        QTest::newRow(name) << description << expected << text << allSlots;
    };
    row("full", "Pip|Pip|1|", "Pip,,,;Pip;1;", "Pip|Pip|1|", "Pip +  +  + |Pip|1|");
    row("two classes", "Pip + Ppyg|Pip|0|two calls", "Pip,Ppyg,,;Pip;0;two calls",
        "Pip + Ppyg|Pip|0|two calls", "Pip + Ppyg +  + |Pip|0|two calls");
    row("all slots empty", " +  +  + |No Call|0|", ",,,;No Call;0;", "|No Call|0|", " +  +  + |No Call|0|");
    row("short", "Nyc|old comment", "Nyc,,,;;;old comment", "Nyc|old comment", "Nyc +  +  + |||old comment");
    row("two separators", "Nyc|a|b", "Nyc,,,;;;a|b", "Nyc|a|b", "Nyc +  +  + |||a|b");
    row("no separator", "Pip + Nyc", "Pip,Nyc,,;;;", "Pip + Nyc|", "Pip + Nyc +  + |||");
    row("four classes", "a + b + c + d|", "a,b,c,d;;;", "a + b + c + d|", "a + b + c + d|||");
    row("five classes", "a + b + c + d + e|x", ",,,;;;x", "|x", " +  +  + |||x");
    row("gaps", "a +  + c|", "a,,c,;;;", "a +  + c|", "a +  + c + |||");
    row("plus in the comment", "a|b + c", "a,,,;;;b + c", "a|b + c", "a +  +  + |||b + c");
    row("plus without blanks", "a+b +c|", "a+b +c,,,;;;", "a+b +c|", "a+b +c +  +  + |||");
    row("accepted flag alone", "a||1|", "a,,,;;1;", "a||1|", "a +  +  + ||1|");
    row("empty", "", ",,,;;;", "|", " +  +  + |||");
}

void tst_ClassRecord::parse()
{
    QFETCH(QString, description);
    const ClassRecord record = ClassRecord::parse(description);
    QTEST(printed(record), "expected");
    QTEST(record.text(), "text");
    QTEST(record.allSlotsForm(), "allSlots");
    QVERIFY(record.readsBack(record.text()));
}

/// Every name of up to three characters from those that separators are made of, in the places where names
/// meet.
void tst_ClassRecord::whatIsTypedReadsBack()
{
    QStringList names = {QString()};
    for (int i = 0; i < names.size() && names.at(i).size() < 3; ++i)
        for (const char c : {' ', '+', ',', '|', 'a'})
            names.append(names.at(i) + c);
    names.erase(std::remove_if(names.begin(), names.end(),
                               [](const QString& name) { return !ClassRecord::acceptsClassName(name); }),
                names.end());
    QVERIFY(names.size() > 50 && !names.contains(" + ") && !names.contains("a +") && !names.contains(", "));
    for (const char* bad : {"\t", "\n", "\x7f", "\xc3\xbc", "a|b"}) {
        QVERIFY(!ClassRecord::acceptsClassName(QString::fromUtf8(bad)));
        QVERIFY(!ClassRecord::acceptsComment(QString::fromUtf8(bad)));
    }
    for (const QString& first : std::as_const(names))
        for (const QString& second : std::as_const(names)) {
            ClassRecord record;
            record.classes = {first, second, first, second};
            record.comment = " + ,";
            QVERIFY2(record.readsBack(record.text()), qPrintable(record.text()));
            record.autoClass = "Pip, Nyc";
            QVERIFY2(record.readsBack(record.text()), qPrintable(record.text()));
        }
}

void tst_ClassRecord::proposal()
{
    ClassRecord record = ClassRecord::parse("Nyc +  + Pip|Pip, Nyc|0|");
    QCOMPARE(record.proposedClasses(), QStringList({"Pip", "Nyc"}));
    QCOMPARE(record.recomputedAccepted(), QString("1"));
    record.classes[2].clear();
    QCOMPARE(record.recomputedAccepted(), QString("0"));
    record.autoClass = "a, b, c, d, e";
    QCOMPARE(record.proposedClasses().size(), 4);
    record.classes = {};
    record.autoClass.clear();
    QCOMPARE(record.recomputedAccepted(), QString("0"));
}

QTEST_APPLESS_MAIN(tst_ClassRecord)
#include "tst_ClassRecord.moc"
