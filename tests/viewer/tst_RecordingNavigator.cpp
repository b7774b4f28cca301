#include "tests/viewer/BareFileList.h"
#include "viewer/RecordingNavigator.h"

#include <QLineEdit>
#include <QtTest>

using Purpose = FileListPane::Purpose;

class tst_RecordingNavigator : public QObject
{
    Q_OBJECT

private slots:
    void steps_data();
    void steps();
    void nothingWithoutRowsOrWhileBusy();
    void doubleClicks_data();
    void doubleClicks();
};

namespace {

/// Three rows in "/night"; the header of the last one is not read.
struct Walk
{
    explicit Walk(Purpose purpose) : files(purpose, session), navigator(files.pane, session)
    {
        session.folder = "/night";
        files.pane.setProposalsShown(true);
        files.pane.beginLoading({"a.wav", "b.wav", "c.wav"});
        files.pane.fillRow(0, headerRow("|Pip|0|"));
        files.pane.fillRow(1, headerRow("|No call|0|"));
        files.list.show();
        QObject::connect(&navigator, &RecordingNavigator::recordingWanted,
                         [this](const QString& path) { loaded.append(path); });
    }

    RecordingSession session;
    BareFileList files;
    RecordingNavigator navigator;
    QStringList loaded;
};

} // namespace

void tst_RecordingNavigator::steps_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to"); // -1: nowhere
    QTest::addColumn<bool>("down");
    QTest::addColumn<int>("blocked"); // a row that cannot be selected

    QTest::newRow("down") << 0 << 1 << true << -1;
    QTest::newRow("up over one") << 2 << 0 << false << 1;
    QTest::newRow("at the top") << 0 << -1 << false << -1;
    QTest::newRow("nothing below to select") << 1 << -1 << true << 2;
    QTest::newRow("at the bottom") << 2 << -1 << true << -1;
}

void tst_RecordingNavigator::steps()
{
    QFETCH(int, from);
    QFETCH(bool, down);
    QFETCH(int, blocked);
    QFETCH(int, to);
    Walk walk(Purpose::Assignment);
    walk.files.list.setCurrentItem(walk.files.pane.row(from));
    if (blocked >= 0)
        walk.files.pane.row(blocked)->setFlags(Qt::ItemIsEnabled);
    if (down)
        walk.navigator.next();
    else
        walk.navigator.previous();
    const int current = to < 0 ? from : to;
    QCOMPARE(walk.files.list.currentItem(), walk.files.pane.row(current));
    QCOMPARE(walk.files.list.selectedItems(), QList<QTreeWidgetItem*>{walk.files.pane.row(current)});
    QCOMPARE(walk.loaded, to < 0 ? QStringList() : QStringList{"/night/" + walk.files.texts(0).at(to)});
}

void tst_RecordingNavigator::nothingWithoutRowsOrWhileBusy()
{
    Walk walk(Purpose::Folder);
    walk.session.busy = true;
    walk.navigator.next();
    walk.navigator.loadCurrent();
    walk.navigator.show(walk.files.pane.row(2));
    walk.navigator.itemDoubleClicked(walk.files.pane.row(1), 10);
    QCOMPARE(walk.files.list.currentItem(), walk.files.pane.row(0));
    QVERIFY(!walk.files.list.findChild<QLineEdit*>());
    walk.session.busy = false;
    walk.files.list.clear();
    walk.navigator.next();
    walk.navigator.previous();
    walk.navigator.loadCurrent();
    QCOMPARE(walk.loaded, QStringList());
}

void tst_RecordingNavigator::doubleClicks_data()
{
    QTest::addColumn<Purpose>("purpose");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("outcome");

    const auto assignment = Purpose::Assignment;
    const auto folder = Purpose::Folder;
    QTest::newRow("name") << assignment << 0 << 0 << "load";
    QTest::newRow("class 4") << assignment << 0 << 9 << "load";
    QTest::newRow("comment") << assignment << 0 << 10 << "edit";
    QTest::newRow("check box") << assignment << 0 << 5 << "";
    QTest::newRow("no check box there") << assignment << 1 << 5 << "load";
    QTest::newRow("header not read") << assignment << 2 << 0 << "";
    QTest::newRow("folder") << folder << 0 << 0 << "load";
    QTest::newRow("folder, comment") << folder << 0 << 10 << "edit";
    QTest::newRow("folder, header not read") << folder << 2 << 0 << "load";
    QTest::newRow("folder, comment not read") << folder << 2 << 10 << "";
}

void tst_RecordingNavigator::doubleClicks()
{
    QFETCH(Purpose, purpose);
    QFETCH(int, row);
    QFETCH(int, column);
    Walk walk(purpose);
    walk.navigator.itemDoubleClicked(walk.files.pane.row(row), column);
    QString outcome;
    if (walk.files.list.findChild<QLineEdit*>())
        outcome += "edit";
    if (walk.loaded == QStringList{"/night/" + walk.files.texts(0).at(row)})
        outcome += "load";
    QTEST(outcome, "outcome");
}

QTEST_MAIN(tst_RecordingNavigator)
#include "tst_RecordingNavigator.moc"
