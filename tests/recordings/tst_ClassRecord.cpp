#include "recordings/ClassRecord.h"

#include <QtTest>

namespace {

/// "class 1,class 2,class 3,class 4;proposal;accepted;comment"
QString printed(const ClassRecord& record)
{
    const QStringList classes(record.classes.cbegin(), record.classes.cend());
    return QStringList{classes.join(QLatin1Char(',')), record.autoClass, record.accepted, record.comment}
        .join(QLatin1Char(';'));
}

} // namespace

class tst_ClassRecord : public QObject
{
    Q_OBJECT

private slots:
    void parse_data();
    void parse();
    void typedTexts_data();
    void typedTexts();
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
        QTest::newRow(name) << QString::fromLatin1(description) << QString::fromLatin1(expected)
                            << QString::fromLatin1(text) << QString::fromLatin1(allSlots);
    };
    row("full", "Pip|Pip|1|", "Pip,,,;Pip;1;", "Pip|Pip|1|", "Pip +  +  + |Pip|1|");
    row("two classes", "Pip + Ppyg|Pip|0|two calls", "Pip,Ppyg,,;Pip;0;two calls",
        "Pip + Ppyg|Pip|0|two calls", "Pip + Ppyg +  + |Pip|0|two calls");
    row("all slots empty", " +  +  + |No Call|0|", ",,,;No Call;0;", "|No Call|0|", " +  +  + |No Call|0|");
    row("short", "Nyc|old comment", "Nyc,,,;;;old comment", "Nyc|old comment", "Nyc +  +  + |||old comment");
    row("two separators", "Nyc|a|b", "Nyc,,,;;;a|b", "Nyc|a|b", "Nyc +  +  + |||a|b");
    row("four separators", "Nyc|a|b|c|d", "Nyc,,,;;;a|b|c|d", "Nyc|a|b|c|d", "Nyc +  +  + |||a|b|c|d");
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

void tst_ClassRecord::typedTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("className");
    QTest::addColumn<bool>("comment");
    QTest::newRow("letters") << "Myotis cf. daubentonii (2)" << true << true;
    QTest::newRow("plus alone") << "+" << true << true;
    QTest::newRow("empty") << "" << false << true;
    QTest::newRow("separator of fields") << "a|b" << false << false;
    QTest::newRow("separator of classes") << "a + b" << false << true;
    QTest::newRow("half a separator") << "a +" << false << true;
    QTest::newRow("separator of proposals") << "a, b" << false << true;
    QTest::newRow("tab") << "a\tb" << false << false;
    QTest::newRow("line break") << "a\n" << false << false;
    QTest::newRow("umlaut") << QStringLiteral("\u00fc") << false << false;
    QTest::newRow("delete character") << "\x7f" << false << false;
}

void tst_ClassRecord::typedTexts()
{
    QFETCH(QString, text);
    QTEST(ClassRecord::acceptsClassName(text), "className");
    QTEST(ClassRecord::acceptsComment(text), "comment");
}

/// Every name of up to three characters from those that separators are made of, in the places where names
/// meet.
void tst_ClassRecord::whatIsTypedReadsBack()
{
    QStringList names = {QString()};
    for (int i = 0; i < names.size() && names.at(i).size() < 3; ++i)
        for (const char c : {' ', '+', ',', '|', 'a'})
            names.append(names.at(i) + QLatin1Char(c));
    names.erase(std::remove_if(names.begin(), names.end(),
                               [](const QString& name) { return !ClassRecord::acceptsClassName(name); }),
                names.end());
    QVERIFY(names.size() > 50);
    for (const QString& first : std::as_const(names))
        for (const QString& second : std::as_const(names)) {
            ClassRecord record;
            record.classes = {first, second, first, second};
            record.comment = QStringLiteral(" + ,");
            QVERIFY2(record.readsBack(record.text()), qPrintable(record.text()));
            record.autoClass = QStringLiteral("Pip, Nyc");
            QVERIFY2(record.readsBack(record.text()), qPrintable(record.text()));
        }
}

void tst_ClassRecord::proposal()
{
    ClassRecord record = ClassRecord::parse(QStringLiteral("Nyc +  + Pip|Pip, Nyc|0|"));
    QCOMPARE(record.proposedClasses(), QStringList({QStringLiteral("Pip"), QStringLiteral("Nyc")}));
    QCOMPARE(record.recomputedAccepted(), QStringLiteral("1"));
    record.classes[2].clear();
    QCOMPARE(record.recomputedAccepted(), QStringLiteral("0"));
    record.autoClass = QStringLiteral("a, b, c, d, e");
    QCOMPARE(record.proposedClasses().size(), 4);
    record.classes = {};
    record.autoClass.clear();
    QCOMPARE(record.recomputedAccepted(), QStringLiteral("0"));
}

QTEST_APPLESS_MAIN(tst_ClassRecord)
#include "tst_ClassRecord.moc"
