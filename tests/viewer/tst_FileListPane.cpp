#include "tests/viewer/BareFileList.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QtTest>

Q_DECLARE_METATYPE(QTreeWidgetItem*)

class tst_FileListPane : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void columns();
    void beginsWithNames();
    void fillsRows();
    void coloursFollowTheRecord_data();
    void coloursFollowTheRecord();
    void sorts_data();
    void sorts();
    void sortsByWhatIsThereNow();
    void countsTheSelection();
    void countsAfterDeleting();
    void editsComments();
    void commentsAreNotEdited_data();
    void commentsAreNotEdited();
    void programChangesAreNoEdits();
    void acceptBox_data();
    void acceptBox();

private:
    static QStringList names(const char* text) { return QString::fromLatin1(text).split(QLatin1Char(' ')); }
    static QLineEdit* editor(BareFileList& files) { return files.list.findChild<QLineEdit*>(); }
};

void tst_FileListPane::initTestCase()
{
    QLocale::setDefault(QLocale::c());
    qRegisterMetaType<QTreeWidgetItem*>();
}

void tst_FileListPane::columns()
{
    const RecordingSession session;
    BareFileList files(FileListPane::Purpose::Assignment, session);
    QStringList headers;
    for (int column = 0; column < files.list.columnCount(); ++column)
        headers.append(files.list.headerItem()->text(column));
    QCOMPARE(headers.join(QLatin1Char('|')),
             QStringLiteral("name|date|time|length in s|proposal||class 1|class 2|class 3|class 4|comment"));
    QVERIFY(files.list.isColumnHidden(4));
    QVERIFY(files.list.isColumnHidden(5));
    files.pane.setProposalsShown(true);
    QVERIFY(!files.list.isColumnHidden(4));
    QCOMPARE(files.list.columnWidth(5), 15);
}

void tst_FileListPane::beginsWithNames()
{
    const RecordingSession session;
    BareFileList files(FileListPane::Purpose::Folder, session);
    QSignalSpy cleared(&files.pane, &FileListPane::rowsCleared);
    files.pane.beginLoading(names("a.wav b.wav a_long_name_of_a_recording_20240514_221000.wav"));
    files.pane.beginLoading(names("B.wav a.wav a_long_name_of_a_recording_20240514_221000.wav"));
    QCOMPARE(cleared.size(), 2);
    QCOMPARE(files.texts(0), names("B.wav a.wav a_long_name_of_a_recording_20240514_221000.wav"));
    QCOMPARE(files.list.currentItem(), files.pane.row(0));
    QCOMPARE(files.pane.row(2)->flags(), Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemIsEnabled);
    QCOMPARE(files.count.text(), QStringLiteral("\n3 items"));
    QVERIFY(!files.list.isSortingEnabled());
    QVERIFY(files.progress.isVisible());
    QCOMPARE(files.progress.value(), 1);
    const int needed = files.list.fontMetrics().horizontalAdvance(files.texts(0).last());
    QVERIFY(files.list.columnWidth(0) >= needed && files.list.columnWidth(0) < needed + 40);
}

void tst_FileListPane::fillsRows()
{
    const RecordingSession session;
    BareFileList files(FileListPane::Purpose::Folder, session);
    files.pane.beginLoading(names("a.wav b.wav"));
    QList<RecordingRow> filled;
    connect(&files.pane, &FileListPane::rowFilled, [&](const RecordingRow& row) { filled.append(row); });
    files.pane.fillRow(1, headerRow(QStringLiteral("Pip + Nyc|Pip|0|calls")));
    const RecordingRow row = RowItem::read(*files.pane.row(1));
    QCOMPARE(row.name, QStringLiteral("b.wav"));
    QCOMPARE(row.date + row.time + row.length, QStringLiteral("14/05/2422:10:005.000"));
    QCOMPARE(row.record.fullForm(), QStringLiteral("Pip + Nyc|Pip|0|calls"));
    QCOMPARE(files.pane.row(1)->textAlignment(3), int(Qt::AlignCenter));
    QVERIFY(!RowItem::read(*files.pane.row(0)).isHeaderRead());
    QCOMPARE(filled.size(), 1);
    QCOMPARE(filled.first().name, QStringLiteral("b.wav"));
    QVERIFY(filled.first().record == row.record);
}

void tst_FileListPane::coloursFollowTheRecord_data()
{
    QTest::addColumn<int>("purpose");
    QTest::addColumn<QString>("description");
    QTest::addColumn<QBrush>("brush");

    const int assignment = static_cast<int>(FileListPane::Purpose::Assignment);
    const int folder = static_cast<int>(FileListPane::Purpose::Folder);
    QTest::newRow("accepted") << assignment << "Pip|Pip|1|" << QBrush(QColor(122, 184, 0));
    QTest::newRow("assigned") << assignment << "Pip|Nyc|0|" << QBrush(QColor(255, 69, 0));
    QTest::newRow("nothing") << assignment << "|c" << QBrush(Qt::black);
    QTest::newRow("not accepted, nothing") << assignment << "|Nyc|0|" << QBrush();
    QTest::newRow("opened folder") << folder << "Pip|Pip|1|" << QBrush();
}

void tst_FileListPane::coloursFollowTheRecord()
{
    QFETCH(int, purpose);
    QFETCH(QString, description);
    const RecordingSession session;
    BareFileList files(static_cast<FileListPane::Purpose>(purpose), session);
    files.pane.beginLoading(names("a.wav"));
    files.pane.fillRow(0, headerRow(description));
    QTEST(files.pane.row(0)->foreground(0), "brush");
    QTEST(files.pane.row(0)->foreground(9), "brush");
    QCOMPARE(files.pane.row(0)->foreground(10), QBrush());
}

void tst_FileListPane::sorts_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("order");

    QTest::newRow("name: plain strings") << 0 << "B.wav a.wav b.wav c.wav";
    QTest::newRow("date with time") << 1 << "c.wav B.wav a.wav b.wav";
    QTest::newRow("time") << 2 << "c.wav a.wav b.wav B.wav";
    QTest::newRow("length as a number") << 3 << "b.wav B.wav c.wav a.wav";
    QTest::newRow("comment as a string") << 10 << "b.wav B.wav c.wav a.wav";
}

void tst_FileListPane::sorts()
{
    const RecordingSession session;
    BareFileList files(FileListPane::Purpose::Folder, session);
    files.pane.beginLoading(names("B.wav a.wav b.wav c.wav"));
    const auto fill = [&](int row, const char* date, const char* time, const char* length,
                          const char* comment) {
        files.pane.fillRow(row, headerRow(QLatin1Char('|') + QLatin1String(comment), QLatin1String(date),
                                          QLatin1String(time), QLatin1String(length)));
    };
    fill(0, "30/04/24", "23:00:00", "9.500", "10");
    fill(1, "01/05/24", "01:00:00", "100.000", "b");
    fill(2, "01/05/24", "02:00:00", "N/A", "");
    fill(3, "N/A", "N/A", "10.000", "9");
    files.pane.endLoading(true);
    QVERIFY(files.list.isSortingEnabled());
    QCOMPARE(files.texts(0), names("B.wav a.wav b.wav c.wav"));
    QCOMPARE(files.list.header()->sortIndicatorSection(), 0);

    QFETCH(int, column);
    QFETCH(QString, order);
    files.list.sortByColumn(column, Qt::DescendingOrder);
    files.list.sortByColumn(column, Qt::AscendingOrder);
    QCOMPARE(files.texts(0).join(QLatin1Char(' ')), order);
}

void tst_FileListPane::sortsByWhatIsThereNow()
{
    const RecordingSession session;
    BareFileList files(FileListPane::Purpose::Folder, session);
    files.pane.beginLoading(names("a.wav b.wav"));
    files.pane.fillRow(0, headerRow({}, QStringLiteral("01/05/24")));
    files.pane.fillRow(1, headerRow({}, QStringLiteral("02/05/24")));
    files.pane.endLoading(true);
    files.list.sortByColumn(1, Qt::AscendingOrder);
    files.pane.row(0)->setText(1, QStringLiteral("03/05/24"));
    QCOMPARE(files.texts(0), names("b.wav a.wav"));
    files.list.sortByColumn(2, Qt::AscendingOrder);
    files.pane.row(0)->setText(2, QStringLiteral("23:00:00"));
    QCOMPARE(files.texts(0), names("a.wav b.wav"));
}

void tst_FileListPane::countsTheSelection()
{
    const RecordingSession session;
    BareFileList files(FileListPane::Purpose::Folder, session);
    files.pane.beginLoading(names("a.wav b.wav c.wav d.wav e.wav"));
    files.pane.endLoading(true);
    files.list.clearSelection();
    QCOMPARE(files.count.text(), QStringLiteral("\n5 items"));
    for (const int row : {0, 1, 4})
        files.pane.row(row)->setSelected(true);
    QCOMPARE(files.count.text(), QStringLiteral("\n3 of 5\nitems selected"));
    files.list.selectAll();
    QCOMPARE(files.count.text(), QStringLiteral("\n5 of 5\nitems selected"));
    files.list.setCurrentItem(files.pane.row(2));
    QCOMPARE(files.count.text(), QStringLiteral("\n1 of 5\nitems selected"));
}

void tst_FileListPane::countsAfterDeleting()
{
    const RecordingSession session;
    BareFileList files(FileListPane::Purpose::Folder, session);
    files.pane.beginLoading(names("a.wav b.wav c.wav"));
    files.list.clearSelection();
    delete files.pane.row(2);
    delete files.pane.row(0);
    QTRY_COMPARE(files.count.text(), QStringLiteral("\n1 item"));
}

void tst_FileListPane::editsComments()
{
    RecordingSession session;
    BareFileList files(FileListPane::Purpose::Assignment, session);
    files.pane.beginLoading(names("a.wav b.wav"));
    files.pane.fillRow(1, headerRow(QStringLiteral("Pip|old")));
    files.list.show();
    QSignalSpy edits(&files.pane, &FileListPane::commentEdited);
    const auto type = [&](const char* text) {
        files.pane.editComment(files.pane.row(1));
        editor(files)->selectAll();
        QTest::keyClicks(editor(files), QLatin1String(text));
        QTest::keyClick(editor(files), Qt::Key_Return);
        QTRY_VERIFY(!editor(files));
    };
    type("new|comment"); // the separator is refused as it is typed
    QCOMPARE(edits.size(), 1);
    QCOMPARE(edits.first().at(0).value<QTreeWidgetItem*>(), files.pane.row(1));
    QCOMPARE(edits.first().at(1).toString(), QStringLiteral("newcomment"));
    QCOMPARE(files.pane.row(1)->text(10), QStringLiteral("old")); // until it is in the file

    type("old");
    QCOMPARE(edits.size(), 1);
    files.pane.editComment(files.pane.row(1));
    session.busy = true; // began meanwhile
    QTest::keyClicks(editor(files), QStringLiteral("x"));
    QTest::keyClick(editor(files), Qt::Key_Return);
    QCOMPARE(edits.size(), 1);
    QCOMPARE(files.pane.row(1)->text(10), QStringLiteral("old"));
}

void tst_FileListPane::commentsAreNotEdited_data()
{
    QTest::addColumn<bool>("busy");
    QTest::addColumn<int>("row");
    QTest::newRow("busy") << true << 1;
    QTest::newRow("header not read") << false << 0;
}

void tst_FileListPane::commentsAreNotEdited()
{
    QFETCH(bool, busy);
    QFETCH(int, row);
    RecordingSession session;
    session.busy = busy;
    BareFileList files(FileListPane::Purpose::Folder, session);
    files.pane.beginLoading(names("a.wav b.wav"));
    files.pane.fillRow(1, headerRow(QStringLiteral("Pip|old")));
    files.list.show();
    files.pane.editComment(files.pane.row(row));
    QVERIFY(!editor(files));
}

void tst_FileListPane::programChangesAreNoEdits()
{
    const RecordingSession session;
    BareFileList files(FileListPane::Purpose::Folder, session);
    QSignalSpy edits(&files.pane, &FileListPane::commentEdited);
    files.pane.beginLoading(names("a.wav"));
    files.pane.fillRow(0, headerRow(QStringLiteral("Pip|old")));
    files.pane.row(0)->setText(10, QStringLiteral("new"));
    QCOMPARE(edits.size(), 0);
    QCOMPARE(files.pane.row(0)->text(10), QStringLiteral("new"));
}

void tst_FileListPane::acceptBox_data()
{
    QTest::addColumn<int>("purpose");
    QTest::addColumn<QString>("description"); // empty: header not read
    QTest::addColumn<bool>("box");
    QTest::addColumn<bool>("toggledTo");

    const int assignment = static_cast<int>(FileListPane::Purpose::Assignment);
    const int folder = static_cast<int>(FileListPane::Purpose::Folder);
    QTest::newRow("not accepted") << assignment << "|Pip|0|" << true << true;
    QTest::newRow("accepted") << assignment << "Pip|Pip|1|" << true << false;
    QTest::newRow("no flag") << assignment << "|c" << true << true;
    QTest::newRow("No call") << assignment << "|No call|0|" << false << false;
    QTest::newRow("recorder's No Call") << assignment << "|No Call|0|" << true << true;
    QTest::newRow("header not read") << assignment << "" << false << false;
    QTest::newRow("opened folder") << folder << "|Pip|0|" << false << false;
}

void tst_FileListPane::acceptBox()
{
    QFETCH(int, purpose);
    QFETCH(QString, description);
    QFETCH(bool, box);
    const RecordingSession session;
    BareFileList files(static_cast<FileListPane::Purpose>(purpose), session);
    files.pane.setProposalsShown(true);
    files.pane.beginLoading(names("a.wav"));
    if (!description.isEmpty())
        files.pane.fillRow(0, headerRow(description));
    files.list.resize(900, 200);
    files.list.show();
    QSignalSpy toggled(&files.pane, &FileListPane::acceptToggled);
    const QString flag = files.pane.row(0)->text(5);
    const QPoint cell = files.list.visualRect(files.list.model()->index(0, 5)).center();
    QTest::mouseClick(files.list.viewport(), Qt::LeftButton, {}, cell);
    files.pane.toggleAccepted(); // the keyboard's way
    QCOMPARE(toggled.size(), box ? 2 : 0);
    QCOMPARE(files.pane.hasAcceptBox(files.pane.row(0)), box);
    QCOMPARE(files.pane.row(0)->text(5), flag); // until it is in the file
    if (box)
        QTEST(toggled.first().at(1).toBool(), "toggledTo");

    // Hidden, it cannot be changed by a key.
    files.pane.setProposalsShown(false);
    files.pane.toggleAccepted();
    QCOMPARE(toggled.size(), box ? 2 : 0);

    // The flag itself is never painted: without a box all flags look alike.
    if (!box && !description.isEmpty()) {
        files.pane.setProposalsShown(true);
        const QImage before = files.list.viewport()->grab().toImage();
        files.pane.row(0)->setText(5, QStringLiteral("1"));
        QCOMPARE(files.list.viewport()->grab().toImage(), before);
    }
}

QTEST_MAIN(tst_FileListPane)
#include "tst_FileListPane.moc"
