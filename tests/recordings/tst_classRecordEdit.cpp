#include "recordings/classRecordEdit.h"

#include <QtTest>

#include <functional>

using Edit = std::function<RecordEdit(const RecordingRow&)>;
Q_DECLARE_METATYPE(Edit)

namespace {

/// A row with the record as it stands in a file.
RecordingRow row(const char* description, const char* name = "a.wav", const char* date = "01/05/24")
{
    RecordingRow row;
    row.name = QString::fromLatin1(name);
    row.date = QString::fromLatin1(date);
    row.record = ClassRecord::parse(QString::fromLatin1(description));
    return row;
}

/// "description" for the file, "row: description" where only the row changes, "nothing" or "impossible".
QString printed(const RecordEdit& edit)
{
    if (!edit.possible)
        return QStringLiteral("impossible");
    if (!edit.changesRow())
        return QStringLiteral("nothing");
    return edit.writesFile() ? edit.description : QStringLiteral("row: ") + edit.description;
}

Edit assign(const char* name)
{
    return [name](const RecordingRow& r) { return classRecordEdit::assign(r, QString::fromLatin1(name)); };
}

Edit rename(const char* from, const char* to)
{
    return [from, to](const RecordingRow& r) {
        return classRecordEdit::rename(r, QString::fromLatin1(from), QString::fromLatin1(to));
    };
}

Edit remove(const char* name)
{
    return [name](const RecordingRow& r) { return classRecordEdit::remove(r, QString::fromLatin1(name)); };
}

Edit accept(bool accepted)
{
    return [accepted](const RecordingRow& r) { return classRecordEdit::acceptProposal(r, accepted); };
}

Edit reassign(int slot, const char* name)
{
    return [slot, name](const RecordingRow& r) {
        return classRecordEdit::reassign(r, slot, QString::fromLatin1(name));
    };
}

Edit unassign(int slot)
{
    return [slot](const RecordingRow& r) { return classRecordEdit::unassign(r, slot); };
}

Edit comment(const char* text)
{
    return
        [text](const RecordingRow& r) { return classRecordEdit::setComment(r, QString::fromLatin1(text)); };
}

void addAssignments()
{
    const auto add = [](const char* name, const RecordingRow& row, const char* className,
                        const char* expected) {
        QTest::newRow(name) << row << assign(className) << expected;
    };
    add("assign a first class", row(""), "Nyc", "Nyc|");
    add("assign a second class", row("Pip|x"), "Nyc", "Pip + Nyc|x");
    add("assign into a gap", row("a +  + c|"), "b", "a + b + c|");
    add("assign a class that is there", row("a + b|"), "b", "nothing");
    add("assign over class 4", row("a + b + c + d|x"), "e", "a + b + c + e|x");
    add("assign the proposed class", row("|Pip|0|x"), "Pip", "Pip|Pip|1|x");
    add("assign one of two proposed", row("|Pip, Nyc|0|"), "Pip", "Pip|Pip, Nyc|0|");
    add("assign the other, in any order", row("Nyc|Pip, Nyc|0|"), "Pip", "Nyc + Pip|Pip, Nyc|1|");
    add("assign one too many", row("Pip|Pip|1|"), "Nyc", "Pip + Nyc|Pip|0|");
    add("assign to an accepted flag alone", row("||0|"), "Pip", "Pip||0|");
    add("assign before the header is read", row("", "a.wav", ""), "Pip", "nothing");
    add("assign to a WAV without date", row("", "a.WAV", "N/A"), "Pip", "Pip|");
    add("assign to RAW", row("a|", "a.raw"), "Pip", "row: a + Pip|");
    add("assign to a RAW that is gone", row("", "a.raw", "N/A"), "Pip", "impossible");
    add("assign No Call without proposals shown", row("a + b|"), "No Call", "a + b + No Call|");
    RecordingRow shown = row("a + b|Nyc|0|x");
    shown.showsProposals = true;
    add("assign No Call", shown, "No Call", "No Call|Nyc|0|x");
    add("assign No call", shown, "No call", "a + b + No call|Nyc|0|x");
    shown.record.classes = {QStringLiteral("No Call")};
    add("assign instead of No Call", shown, "Nyc", "Nyc|Nyc|1|x");
    add("assign No Call again", shown, "No Call", "nothing");
}

void addRunsOverFiles()
{
    const auto unassignAll = Edit(classRecordEdit::unassignAll);
    const auto reset = Edit(classRecordEdit::reset);
    QTest::newRow("rename") << row("a + b|b|1|b") << rename("b", "c") << "a + c|b|1|b";
    QTest::newRow("rename what is not there") << row("a|") << rename("b", "c") << "nothing";
    QTest::newRow("rename nothing") << row("a|") << rename("", "c") << "nothing";
    QTest::newRow("rename in RAW") << row("a|", "a.RAW") << rename("a", "c") << "row: c|";
    QTest::newRow("delete keeps accepted") << row("Pip + Nyc|Nyc|0|") << remove("Pip") << "Nyc|Nyc|0|";
    QTest::newRow("delete the last, short") << row("a|x") << remove("a") << "|x";
    QTest::newRow("delete the last, full") << row("a|b|0|x") << remove("a") << "|b|0|x";
    QTest::newRow("delete moves gaps along") << row("a +  + c|") << remove("a") << " + c|";
    QTest::newRow("delete what is twice") << row("a + b + a|") << remove("a") << "b|";
    QTest::newRow("delete what is not there") << row("a|") << remove("b") << "nothing";
    QTest::newRow("unassign all, full") << row("Pip|Pip|1|note") << unassignAll << "|Pip|1|note";
    QTest::newRow("unassign all, comment") << row("Pip|note") << unassignAll << "|note";
    QTest::newRow("unassign all, nothing left") << row("Pip + Nyc|") << unassignAll << "";
    QTest::newRow("unassign all, five classes") << row("a + b + c + d + e") << unassignAll << "";
    QTest::newRow("unassign all in RAW") << row("a|x", "a.raw") << unassignAll << "row: |x";
    QTest::newRow("reset") << row("Pip|Pip|1|note") << reset << "|note";
    QTest::newRow("reset without a comment") << row("Pip|Pip|1|") << reset << "|";
    QTest::newRow("reset without a date") << row("Pip|Pip|1|", "a.wav", "n/a") << reset << "nothing";
    QTest::newRow("reset of RAW") << row("Pip|", "a.raw") << reset << "nothing";
}

void addDirectEdits()
{
    QTest::newRow("accept") << row("a|Pip, Nyc|0|x") << accept(true) << "Pip + Nyc|Pip, Nyc|1|x";
    QTest::newRow("accept five") << row("|a, b, c, d, e||") << accept(true)
                                 << "a + b + c + d|a, b, c, d, e|1|";
    QTest::newRow("accept nothing") << row("a||0|") << accept(true) << "||1|";
    QTest::newRow("no longer accept") << row("Pip + Nyc|Pip, Nyc|1|x") << accept(false) << "|Pip, Nyc|0|x";
    QTest::newRow("reassign") << row("a + b|c, b|0|x") << reassign(0, "c") << "c + b|c, b|1|x";
    QTest::newRow("reassign, short") << row("a + b|x") << reassign(1, "c") << "a + c|x";
    QTest::newRow("reassign an empty slot") << row("a|") << reassign(1, "c") << "nothing";
    QTest::newRow("reassign to one that is there") << row("a + b|") << reassign(0, "b") << "nothing";
    QTest::newRow("reassign no slot") << row("a|") << reassign(4, "b") << "nothing";
    RecordingRow shown = row("a + b|");
    shown.showsProposals = true;
    QTest::newRow("reassign to No Call") << shown << reassign(1, "No Call") << "No Call|";
    QTest::newRow("unassign a slot") << row("Pip + Nyc|Nyc|0|") << unassign(0) << "Nyc|Nyc|1|";
    QTest::newRow("unassign the last class") << row("Pip|Pip|1|x") << unassign(0) << "|Pip|0|x";
    QTest::newRow("unassign an empty slot") << row("Pip|") << unassign(1) << "nothing";
    QTest::newRow("comment, short") << row("a|x") << comment("y") << "a|y";
    QTest::newRow("comment, full") << row("a|b|1|x") << comment("") << "a|b|1|";
    QTest::newRow("comment as it was") << row("a|x") << comment("x") << "nothing";
}

} // namespace

Q_DECLARE_METATYPE(RecordingRow)

class tst_classRecordEdit : public QObject
{
    Q_OBJECT

private slots:
    void edit_data();
    void edit();
    void fits();
};

void tst_classRecordEdit::edit_data()
{
    QTest::addColumn<RecordingRow>("row");
    QTest::addColumn<Edit>("edit");
    QTest::addColumn<QString>("expected");
    addAssignments();
    addRunsOverFiles();
    addDirectEdits();
}

void tst_classRecordEdit::edit()
{
    QFETCH(RecordingRow, row);
    QFETCH(Edit, edit);
    const RecordEdit result = edit(row);
    QTEST(printed(result), "expected");
    if (result.changesRow())
        QCOMPARE(ClassRecord::parse(result.description).text(), result.record.text());
    else
        QVERIFY(result.record == row.record);
}

void tst_classRecordEdit::fits()
{
    const RecordingRow before = row("Pip|Pip|1|");
    const QByteArray comment(256 - 10, 'c');
    QVERIFY(classRecordEdit::setComment(before, QString::fromLatin1(comment)).fits());
    QVERIFY(!classRecordEdit::setComment(before, QString::fromLatin1(comment + 'c')).fits());
    QVERIFY(!classRecordEdit::setComment(before, QString(100, QChar(0x2265))).fits()); // three bytes each
}

QTEST_APPLESS_MAIN(tst_classRecordEdit)
#include "tst_classRecordEdit.moc"
