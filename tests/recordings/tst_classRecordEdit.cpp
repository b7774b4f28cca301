#include "recordings/classRecordEdit.h"

#include <QtTest>

namespace {

/// A gesture as a line of words: "assign Nyc", "rename Pip>Nyc", "reassign 0>Nyc".
RecordEdit applied(const RecordingRow& row, const QString& gesture)
{
    const QString verb = gesture.section(' ', 0, 0);
    const QString object = gesture.section(' ', 1);
    const QString from = object.section('>', 0, 0);
    const QString to = object.section('>', 1);
    if (verb == "assign")
        return classRecordEdit::assign(row, object);
    if (verb == "rename")
        return classRecordEdit::rename(row, from, to);
    if (verb == "delete")
        return classRecordEdit::remove(row, object);
    if (verb == "accept")
        return classRecordEdit::acceptProposal(row, object == "1");
    if (verb == "reassign")
        return classRecordEdit::reassign(row, from.toInt(), to);
    if (verb == "unassign")
        return classRecordEdit::unassign(row, object.toInt());
    if (verb == "comment")
        return classRecordEdit::setComment(row, object);
    return verb == "reset" ? classRecordEdit::reset(row) : classRecordEdit::unassignAll(row);
}

/// The text for the file, "row: text" where only the row changes, "nothing" or "impossible".
QString printed(const RecordEdit& edit)
{
    if (!edit.possible)
        return "impossible";
    if (!edit.changesRow())
        return "nothing";
    return (edit.writesFile() ? "" : "row: ") + edit.description;
}

} // namespace

Q_DECLARE_METATYPE(RecordingRow)

class tst_classRecordEdit : public QObject
{
    Q_OBJECT

private slots:
    void edits_data();
    void edits();
    void fits();
};

void tst_classRecordEdit::edits_data()
{
    QTest::addColumn<RecordingRow>("row");
    QTest::addColumn<QString>("gesture");
    QTest::addColumn<QString>("expected");
    bool showsProposals = false;
    const auto add = [&showsProposals](const char* label, const char* record, const char* gesture,
                                       const char* expected, const char* name = "a.WAV",
                                       const char* date = "01/05/24") {
        QTest::newRow(label) << RecordingRow{name, date, {}, {}, ClassRecord::parse(record), showsProposals}
                             << gesture << expected;
    };
    add("assign a first class", "", "assign Nyc", "Nyc|");
    add("assign a second class", "Pip|x", "assign Nyc", "Pip + Nyc|x");
    add("assign into a gap", "a +  + c|", "assign b", "a + b + c|");
    add("assign a class that is there", "a + b|", "assign b", "nothing");
    add("assign over class 4", "a + b + c + d|x", "assign e", "a + b + c + e|x");
    add("assign the proposed class", "|Pip|0|x", "assign Pip", "Pip|Pip|1|x");
    add("assign one of two proposed", "|Pip, Nyc|0|", "assign Pip", "Pip|Pip, Nyc|0|");
    add("assign the other", "Nyc|Pip, Nyc|0|", "assign Pip", "Nyc + Pip|Pip, Nyc|1|");
    add("assign to a flag alone", "||0|", "assign Pip", "Pip||0|");
    add("No Call excludes none", "a + b|", "assign No Call", "a + b + No Call|");
    add("rename", "a + b|b|1|b", "rename b>c", "a + c|b|1|b");
    add("rename what is not there", "a|", "rename b>c", "nothing");
    add("delete keeps accepted", "Pip + Nyc|Nyc|0|", "delete Pip", "Nyc|Nyc|0|");
    add("delete the last, short", "a|x", "delete a", "|x");
    add("delete the last, full", "a|b|0|x", "delete a", "|b|0|x");
    add("delete what is twice", "a + b + a|", "delete a", "b|");
    add("delete what is not there", "a|", "delete b", "nothing");
    add("unassign all, full", "Pip|Pip|1|note", "clear", "|Pip|1|note");
    add("unassign all, nothing left", "Pip + Nyc|", "clear", "");
    add("unassign all, five classes", "a + b + c + d + e", "clear", "");
    add("reset", "Pip|Pip|1|note", "reset", "|note");
    add("accept", "a|Pip, Nyc|0|x", "accept 1", "Pip + Nyc|Pip, Nyc|1|x");
    add("accept five", "|a, b, c, d, e||", "accept 1", "a + b + c + d|a, b, c, d, e|1|");
    add("no longer accept", "Pip + Nyc|Pip, Nyc|1|x", "accept 0", "|Pip, Nyc|0|x");
    add("reassign", "a + b|c, b|0|x", "reassign 0>c", "c + b|c, b|1|x");
    add("reassign an empty slot", "a|", "reassign 1>c", "nothing");
    add("reassign to one that is there", "a + b|", "reassign 0>b", "nothing");
    add("reassign no slot", "a|", "reassign 4>b", "nothing");
    add("unassign a slot", "Pip + Nyc|Nyc|0|", "unassign 0", "Nyc|Nyc|1|");
    add("unassign the last class", "Pip|Pip|1|x", "unassign 0", "|Pip|0|x");
    add("unassign an empty slot", "Pip|", "unassign 1", "nothing");
    add("comment, full", "a|b|1|x", "comment", "a|b|1|");
    add("comment as it was", "a|x", "comment x", "nothing");
    add("header not yet read", "", "assign Pip", "nothing", "a.wav", "");
    add("reset without a date", "Pip|Pip|1|", "reset", "nothing", "a.wav", "n/a");
    add("RAW, assign", "a|", "assign Pip", "row: a + Pip|", "a.raw", "01/05/24");
    add("RAW, rename", "a|", "rename a>c", "row: c|", "a.RAW", "01/05/24");
    add("RAW, unassign all", "a|x", "clear", "row: |x", "a.raw", "01/05/24");
    add("RAW, reset", "Pip|", "reset", "nothing", "a.raw", "01/05/24");
    add("RAW that is gone", "", "assign Pip", "impossible", "a.raw", "N/A");

    showsProposals = true;
    add("assign No Call", "a + b|Nyc|0|x", "assign No Call", "No Call|Nyc|0|x");
    add("assign No call", "a + b|Nyc|0|x", "assign No call", "a + b + No call|Nyc|0|x");
    add("assign instead of No Call", "No Call|Nyc|0|", "assign Nyc", "Nyc|Nyc|1|", "a.wav", "N/A");
    add("assign No Call again", "No Call|Nyc|0|", "assign No Call", "nothing");
    add("reassign to No Call", "a + b|", "reassign 1>No Call", "No Call|");
}

void tst_classRecordEdit::edits()
{
    QFETCH(RecordingRow, row);
    QFETCH(QString, gesture);
    const RecordEdit edit = applied(row, gesture);
    QTEST(printed(edit), "expected");
    if (edit.changesRow())
        QCOMPARE(ClassRecord::parse(edit.description).text(), edit.record.text());
    else
        QVERIFY(edit.record == row.record);
}

void tst_classRecordEdit::fits()
{
    RecordingRow row;
    row.record = ClassRecord::parse("Pip|Pip|1|");
    QVERIFY(classRecordEdit::setComment(row, QString(256 - 10, 'c')).fits());
    QVERIFY(!classRecordEdit::setComment(row, QString(256 - 9, 'c')).fits());
    QVERIFY(!classRecordEdit::setComment(row, QString(100, QChar(0x2265))).fits()); // three bytes each
}

QTEST_APPLESS_MAIN(tst_classRecordEdit)
#include "tst_classRecordEdit.moc"
