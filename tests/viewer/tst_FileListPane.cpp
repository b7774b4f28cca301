#include "tests/viewer/BareFileList.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QLineEdit>
#include <QToolTip>
#include <QtTest>

Q_DECLARE_METATYPE(QTreeWidgetItem*)

using Purpose = FileListPane::Purpose;

class tst_FileListPane : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void beginsWithNames();
    void fillsRows_data();
    void fillsRows();
    void sorts_data();
    void sorts();
    void sortsByWhatIsThereNow();
    void counts();
    void tellsWhatIsCutOff();
    void editsComments();
    void acceptBox_data();
    void acceptBox();

private:
    static QStringList names(const char* text) { return QString(text).split(' '); }
    static QLineEdit* editor(BareFileList& files) { return files.list.findChild<QLineEdit*>(); }

    RecordingSession m_session;
};

void tst_FileListPane::initTestCase()
{
    QLocale::setDefault(QLocale::c());
    qRegisterMetaType<QTreeWidgetItem*>();
}

void tst_FileListPane::beginsWithNames()
{
    BareFileList files(Purpose::Folder, m_session);
    files.pane.beginLoading(names("old.wav"));
    const QStringList shown = names("B.wav a.wav a_long_name_of_a_recording_20240514_221000.wav");
    files.pane.beginLoading(shown);
    QCOMPARE(files.texts(0), shown);
    QCOMPARE(files.list.currentItem(), files.pane.row(0));
    QCOMPARE(files.pane.row(2)->flags(), Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemIsEnabled);
    QCOMPARE(files.count.text(), QString("\n3 items"));
    QVERIFY(!files.list.isSortingEnabled() && files.progress.isVisible());
    const int needed = files.list.fontMetrics().horizontalAdvance(shown.last());
    QVERIFY(files.list.columnWidth(0) >= needed && files.list.columnWidth(0) < needed + 40);
    QVERIFY(files.list.isColumnHidden(4) && files.list.isColumnHidden(5));
    files.pane.setProposalsShown(true);
    QCOMPARE(files.list.columnWidth(5), 15);

    files.pane.beginLoading(names("a.wav")); // shorter than the header's text and the arrow beside it
    files.pane.endLoading(true);
    for (const int column : {0, 3})
        QVERIFY(files.list.columnWidth(column) >= files.list.header()->sectionSizeHint(column));
}

void tst_FileListPane::fillsRows_data()
{
    QTest::addColumn<Purpose>("purpose");
    QTest::addColumn<QString>("description");
    QTest::addColumn<QBrush>("brush");

    const auto row = [](const char* name, Purpose purpose, const char* description, const QBrush& brush) {
        QTest::newRow(name) << purpose << description << brush;
    };
    row("accepted", Purpose::Assignment, "Pip + Nyc|Pip|1|calls", QColor(122, 184, 0));
    row("assigned", Purpose::Assignment, "Pip|Nyc|0|", QColor(255, 69, 0));
    row("assigned, no proposal", Purpose::Assignment, "Pip|", QColor(255, 69, 0));
    row("nothing", Purpose::Assignment, "|c", Qt::black);
    row("not accepted, nothing", Purpose::Assignment, "|Nyc|0|", {});
    row("opened folder", Purpose::Folder, "Pip|Pip|1|", {});
}

void tst_FileListPane::fillsRows()
{
    QFETCH(Purpose, purpose);
    QFETCH(QString, description);
    BareFileList files(purpose, m_session);
    files.pane.beginLoading(names("a.wav b.wav"));
    QList<RecordingRow> filled;
    connect(&files.pane, &FileListPane::rowFilled, [&](const RecordingRow& row) { filled.append(row); });
    files.pane.fillRow(1, headerRow(description));

    QTreeWidgetItem* item = files.pane.row(1);
    const RecordingRow row = RowItem::read(*item);
    QCOMPARE(row.name + row.date + row.time + row.length, QString("b.wav14/05/2422:10:005.000"));
    QCOMPARE(row.record.text(), description);
    QCOMPARE(item->textAlignment(3), int(Qt::AlignCenter));
    QTEST(item->foreground(0), "brush");
    QTEST(item->foreground(9), "brush");
    QCOMPARE(item->foreground(10), QBrush());
    QVERIFY(!RowItem::read(*files.pane.row(0)).isHeaderRead());
    QCOMPARE(filled.size(), 1);
    QVERIFY(filled.first().name == "b.wav" && filled.first().record == row.record);
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
    BareFileList files(Purpose::Folder, m_session);
    files.pane.beginLoading(names("B.wav a.wav b.wav c.wav"));
    files.pane.fillRow(0, headerRow("|10", "30/04/24", "23:00:00", "9.500"));
    files.pane.fillRow(1, headerRow("|b", "01/05/24", "01:00:00", "100.000"));
    files.pane.fillRow(2, headerRow("|", "01/05/24", "02:00:00", "N/A"));
    files.pane.fillRow(3, headerRow("|9", "N/A", "N/A", "10.000"));
    files.pane.endLoading(true);
    QVERIFY(files.list.isSortingEnabled());
    QCOMPARE(files.texts(0), names("B.wav a.wav b.wav c.wav"));
    QCOMPARE(files.list.header()->sortIndicatorSection(), 0);

    QFETCH(int, column);
    files.list.sortByColumn(column, Qt::DescendingOrder);
    files.list.sortByColumn(column, Qt::AscendingOrder);
    QTEST(files.texts(0).join(' '), "order");
}

void tst_FileListPane::sortsByWhatIsThereNow()
{
    BareFileList files(Purpose::Folder, m_session);
    files.pane.beginLoading(names("a.wav b.wav"));
    files.pane.fillRow(0, headerRow({}, "01/05/24"));
    files.pane.fillRow(1, headerRow({}, "02/05/24"));
    files.pane.endLoading(true);
    files.list.sortByColumn(1, Qt::AscendingOrder);
    files.pane.row(0)->setText(1, "03/05/24");
    QCOMPARE(files.texts(0), names("b.wav a.wav"));
}

void tst_FileListPane::tellsWhatIsCutOff()
{
    BareFileList files(Purpose::Folder, m_session);
    files.pane.beginLoading({"a <b>c.wav"});
    files.list.show();
    for (const int width : {300, 20}) {
        files.list.setColumnWidth(0, width);
        const QPoint cell = files.list.visualItemRect(files.pane.row(0)).topLeft() + QPoint(9, 5);
        QHelpEvent event(QEvent::ToolTip, cell, files.list.viewport()->mapToGlobal(cell));
        QApplication::sendEvent(files.list.viewport(), &event);
        QCOMPARE(QToolTip::text(), QString(width == 300 ? "" : "<span>a &lt;b&gt;c.wav</span>"));
    }
}

void tst_FileListPane::counts()
{
    BareFileList files(Purpose::Folder, m_session);
    files.pane.beginLoading(names("a.wav b.wav c.wav d.wav e.wav"));
    files.list.clearSelection();
    QCOMPARE(files.count.text(), QString("\n5 items"));
    for (const int row : {0, 1, 4})
        files.pane.row(row)->setSelected(true);
    QCOMPARE(files.count.text(), QString("\n3 of 5\nitems selected"));
    while (files.pane.rowCount() > 1)
        delete files.pane.row(0);
    files.list.clearSelection();
    QTRY_COMPARE(files.count.text(), QString("\n1 item"));
}

void tst_FileListPane::editsComments()
{
    RecordingSession session;
    BareFileList files(Purpose::Assignment, session);
    files.pane.beginLoading(names("a.wav"));
    files.pane.fillRow(0, headerRow("Pip|old"));
    files.list.show();
    QTreeWidgetItem* row = files.pane.row(0);
    QSignalSpy edits(&files.pane, &FileListPane::commentEdited);
    const auto type = [&](const char* text, bool busyMeanwhile = false) {
        files.pane.editComment(row);
        session.busy = busyMeanwhile;
        editor(files)->selectAll();
        QTest::keyClicks(editor(files), text);
        QTest::keyClick(editor(files), Qt::Key_Return);
        QTRY_VERIFY(!editor(files));
    };
    type("new|comment"); // the separator is refused as it is typed
    QCOMPARE(edits.size(), 1);
    QCOMPARE(edits.first().at(0).value<QTreeWidgetItem*>(), row);
    QCOMPARE(edits.first().at(1).toString(), QString("newcomment"));
    QCOMPARE(row->text(10), QString("old")); // until it is in the file
    type("old");
    type("another", true);
    row->setText(10, "by the program");
    QCOMPARE(edits.size(), 1);
}

void tst_FileListPane::acceptBox_data()
{
    QTest::addColumn<Purpose>("purpose");
    QTest::addColumn<QString>("description"); // empty: header not read
    QTest::addColumn<bool>("box");
    QTest::addColumn<bool>("toggledTo");

    QTest::newRow("not accepted") << Purpose::Assignment << "|Pip|0|" << true << true;
    QTest::newRow("accepted") << Purpose::Assignment << "Pip|Pip|1|" << true << false;
    QTest::newRow("no flag") << Purpose::Assignment << "|c" << true << true;
    QTest::newRow("No call") << Purpose::Assignment << "|No call|0|" << false << false;
    QTest::newRow("recorder's No Call") << Purpose::Assignment << "|No Call|0|" << true << true;
    QTest::newRow("header not read") << Purpose::Assignment << "" << false << false;
    QTest::newRow("opened folder") << Purpose::Folder << "|Pip|0|" << false << false;
}

void tst_FileListPane::acceptBox()
{
    QFETCH(Purpose, purpose);
    QFETCH(QString, description);
    QFETCH(bool, box);
    BareFileList files(purpose, m_session);
    files.pane.setProposalsShown(true);
    files.pane.beginLoading(names("a.wav"));
    if (!description.isEmpty())
        files.pane.fillRow(0, headerRow(description));
    files.list.resize(900, 200);
    files.list.show();
    QSignalSpy toggled(&files.pane, &FileListPane::acceptToggled);
    const QString flag = files.pane.row(0)->text(5);
    const QRect cell = files.list.visualRect(files.list.model()->index(0, 5));
    QTest::mouseClick(files.list.viewport(), Qt::LeftButton, {}, cell.center());
    files.pane.toggleAccepted(); // the keyboard's way
    QCOMPARE(toggled.size(), box ? 2 : 0);
    QCOMPARE(files.pane.row(0)->text(5), flag); // until it is in the file
    if (box)
        QTEST(toggled.first().at(1).toBool(), "toggledTo");

    // The box shows the flag; without one, the flag is not painted.
    const auto picture = [&](const char* text) {
        files.pane.row(0)->setText(5, text);
        return files.list.viewport()->grab(cell).toImage();
    };
    QCOMPARE(picture("0") != picture("1"), box);

    files.pane.setProposalsShown(false); // hidden, it cannot be changed by a key
    files.pane.toggleAccepted();
    QCOMPARE(toggled.size(), box ? 2 : 0);
}

QTEST_MAIN(tst_FileListPane)
#include "tst_FileListPane.moc"
