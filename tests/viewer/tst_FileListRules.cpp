#include "viewer/core/CommentValidator.h"
#include "viewer/core/CountLabel.h"
#include "viewer/core/SortKeys.h"

#include <QtTest>

/// What a file list says, how it orders texts and which comments it takes.
class tst_FileListRules : public QObject
{
    Q_OBJECT

private slots:
    void countLabel_data();
    void countLabel();
    void sortKeysRise_data();
    void sortKeysRise();
    void numbersFollowTheLocale();
    void comments_data();
    void comments();
    void foreignCommentsCanBeRepaired();
};

void tst_FileListRules::countLabel_data()
{
    QTest::addColumn<int>("selected");
    QTest::addColumn<int>("rows");
    QTest::addColumn<QString>("text");

    QTest::newRow("empty") << 0 << 0 << "\n0 items";
    QTest::newRow("one") << 0 << 1 << "\n1 item";
    QTest::newRow("many") << 0 << 10000 << "\n10000 items";
    QTest::newRow("one of one") << 1 << 1 << "\n1 of 1\nitem selected";
    QTest::newRow("one of two") << 1 << 2 << "\n1 of 2\nitems selected";
}

void tst_FileListRules::countLabel()
{
    QFETCH(int, selected);
    QFETCH(int, rows);
    QTEST(CountLabel::selection(selected, rows), "text");
}

void tst_FileListRules::sortKeysRise_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QStringList>("texts"); // each before the next

    QTest::newRow("time") << "time" << QStringList{"N/A", "00:00:00", "00:00:01", "09:59:59", "23:59:59"};
    QTest::newRow("date and time") << "instant" << QStringList{"N/A N/A",           "01/01/00 00:00:00",
                                                               "31/12/23 23:59:59", "01/01/24 00:00:00",
                                                               "29/02/24 23:59:59", "01/03/24 00:00:00",
                                                               "02/01/25 00:00:00", "01/02/25 00:00:00"};
}

void tst_FileListRules::sortKeysRise()
{
    QFETCH(QStringList, texts);
    QFETCH(QString, kind);
    const auto key = [&](const QString& text) {
        const QStringList parts = text.split(QLatin1Char(' '));
        return kind == QLatin1String("time") ? SortKeys::timeOfDay(text)
                                             : SortKeys::instant(parts.at(0), parts.at(1));
    };
    for (int i = 1; i < texts.size(); ++i)
        QVERIFY2(key(texts.at(i - 1)) < key(texts.at(i)), qPrintable(texts.at(i)));

    // All forms that are none are alike, however close they come.
    for (const char* text : {"", "9:05:01", "24:00:00", "12:60:00", "12:00:0x", "12-00-00", "112:00:00"})
        QCOMPARE(SortKeys::timeOfDay(QLatin1String(text)), SortKeys::timeOfDay(QStringLiteral("N/A")));
    for (const char* date : {"30/02/24", "1/02/24", "2024-02-01", "00/01/24"})
        QCOMPARE(SortKeys::instant(QLatin1String(date), QStringLiteral("12:00:00")),
                 SortKeys::instant(QStringLiteral("N/A"), QStringLiteral("N/A")));
    QCOMPARE(SortKeys::instant(QStringLiteral("01/01/24"), QStringLiteral("N/A")),
             SortKeys::instant(QStringLiteral("N/A"), QStringLiteral("N/A")));
}

void tst_FileListRules::numbersFollowTheLocale()
{
    const QLocale german(QLocale::German, QLocale::Germany);
    QCOMPARE(SortKeys::number(QStringLiteral("9,500"), german), 9.5);
    QCOMPARE(SortKeys::number(QStringLiteral("9.500"), QLocale::c()), 9.5);
    QCOMPARE(SortKeys::number(QStringLiteral("N/A"), german), 0.0);
}

void tst_FileListRules::comments_data()
{
    QTest::addColumn<QString>("description"); // of the file as it is
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("accepted");

    const QString full = QString(255, QLatin1Char('c'));
    QTest::newRow("text") << "Pip|Pip|0|"
                          << "two calls, 3 m + wind" << true;
    QTest::newRow("nothing") << "Pip|old"
                             << "" << true;
    QTest::newRow("separator") << "Pip|"
                               << "a|b" << false;
    QTest::newRow("accent") << "Pip|" << QString::fromUtf8("K\xc3\xa4lte") << false;
    QTest::newRow("line break") << "Pip|"
                                << "a\nb" << false;
    QTest::newRow("fills the record") << "" << full << true;
    QTest::newRow("one too long") << "" << full + 'c' << false;
    QTest::newRow("the old one makes room") << '|' + full << QString(255, QLatin1Char('d')) << true;
    QTest::newRow("classes take room") << "Pip + Ppyg|" << full.left(256 - 11) << true;
    QTest::newRow("classes take too much") << "Pip + Ppyg|" << full.left(256 - 10) << false;
    QTest::newRow("a proposal takes room") << "Pip|Nyc|0|" << full.left(256 - 10) << true;
    QTest::newRow("a proposal takes too much") << "Pip|Nyc|0|" << full.left(256 - 9) << false;
    QTest::newRow("no room at all") << QString(300, QLatin1Char('P')) + '|' << "c" << false;
}

void tst_FileListRules::comments()
{
    QFETCH(QString, description);
    QFETCH(QString, typed);
    const CommentValidator validator(ClassRecord::parse(description));
    int position = 0;
    QTEST(validator.validate(typed, position) == QValidator::Acceptable, "accepted");
    QVERIFY(validator.rule().contains(QString::number(validator.limit())));
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
