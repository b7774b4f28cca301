#include "viewer/core/CommentValidator.h"
#include "viewer/core/CountLabel.h"
#include "viewer/core/SortKeys.h"

#include <QtTest>

/// What a file list says, how it orders texts and which comments it takes.
class tst_FileListRules : public QObject
{
    Q_OBJECT

private slots:
    void countLabel();
    void sortKeysRise();
    void comments_data();
    void comments();
    void foreignCommentsCanBeRepaired();
};

void tst_FileListRules::countLabel()
{
    QCOMPARE(CountLabel::selection(0, 0), QString("\n0 items"));
    QCOMPARE(CountLabel::selection(0, 1), QString("\n1 item"));
    QCOMPARE(CountLabel::selection(1, 1), QString("\n1 of 1\nitem selected"));
    QCOMPARE(CountLabel::selection(1, 2), QString("\n1 of 2\nitems selected"));
}

void tst_FileListRules::sortKeysRise()
{
    const QStringList instants{"N/A N/A",           "01/01/00 00:00:00", "31/12/23 23:59:59",
                               "01/01/24 00:00:00", "29/02/24 23:59:59", "01/03/24 00:00:01",
                               "02/01/25 00:01:00", "01/02/25 09:00:00"};
    const auto key = [](const QString& text) {
        return SortKeys::instant(text.left(8).trimmed(), text.mid(9));
    };
    for (int i = 1; i < instants.size(); ++i)
        QVERIFY2(key(instants.at(i - 1)) < key(instants.at(i)), qPrintable(instants.at(i)));
    QVERIFY(SortKeys::timeOfDay("N/A") < SortKeys::timeOfDay("00:00:00"));

    // All forms that are none are alike, however close they come.
    for (const char* time : {"", "9:05:01", "24:00:00", "12:60:00", "12:00:0x", "12-00-00", "112:00:00"})
        QCOMPARE(SortKeys::timeOfDay(time), SortKeys::timeOfDay("N/A"));
    for (const char* date : {"30/02/24", "1/02/24", "2024-02-01", "00/01/24"})
        QCOMPARE(SortKeys::instant(date, "12:00:00"), SortKeys::instant("N/A", "N/A"));
    QCOMPARE(SortKeys::instant("01/01/24", "N/A"), SortKeys::instant("N/A", "N/A"));
    QCOMPARE(SortKeys::number("9,500", QLocale(QLocale::German)), 9.5);
}

void tst_FileListRules::comments_data()
{
    QTest::addColumn<QString>("description"); // of the file as it is
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("accepted");

    const auto letters = [](int count) { return QString(count, 'c'); };
    const auto row = [](const char* name, const QString& description, const QString& typed, bool accepted) {
        QTest::newRow(name) << description << typed << accepted;
    };
    row("text", "Pip|Pip|0|", "two calls, 3 m + wind", true);
    row("nothing", "Pip|old", "", true);
    row("separator", "Pip|", "a|b", false);
    row("accent", "Pip|", QString::fromUtf8("K\xc3\xa4lte"), false);
    row("fills the record", '|' + letters(255), QString(255, 'd'), true);
    row("one too long", "", letters(256), false);
    row("classes take room", "Pip + Ppyg|", letters(245), true);
    row("classes take too much", "Pip + Ppyg|", letters(246), false);
    row("a proposal takes room", "Pip|Nyc|0|", letters(246), true);
    row("a proposal takes too much", "Pip|Nyc|0|", letters(247), false);
    row("no room at all", letters(300) + '|', "c", false);
}

void tst_FileListRules::comments()
{
    QFETCH(QString, description);
    QFETCH(QString, typed);
    const CommentValidator validator(ClassRecord::parse(description));
    int position = 0;
    QTEST(validator.validate(typed, position) == QValidator::Acceptable, "accepted");
}

void tst_FileListRules::foreignCommentsCanBeRepaired()
{
    const CommentValidator validator(ClassRecord::parse(QString::fromUtf8("Pip|w\xc3\xa4r|mer")));
    int position = 0;
    const auto state = [&](const char* text) {
        QString typed = QString::fromUtf8(text);
        return validator.validate(typed, position);
    };
    QCOMPARE(state("w\xc3\xa4r|mer"), QValidator::Intermediate);
    QCOMPARE(state("wr|mer"), QValidator::Intermediate);
    QCOMPARE(state("w\xc3\xa4r|m|r"), QValidator::Invalid);
    QCOMPARE(state("wrmer"), QValidator::Acceptable);
}

QTEST_GUILESS_MAIN(tst_FileListRules)
#include "tst_FileListRules.moc"
