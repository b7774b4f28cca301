#include "recordings/WavReader.h"
#include "recordings/rows/RowItem.h"
#include "recordings/rows/WriteFileBextThread.h"
#include "tests/support/TestFolder.h"
#include "tools/WavBytes.h"

#include <QSignalSpy>
#include <QThread>
#include <QTreeWidget>
#include <QtTest>

#include <functional>

namespace {

using Items = QList<QTreeWidgetItem*>;
using Request = std::function<void(WriteFileBextThread&, const QString& folder, QTreeWidgetItem* classItem,
                                   const Items&)>;

/// The class that every request is about.
const QString nyc = "Nyc";
const QString pip = "Pip";

} // namespace

Q_DECLARE_METATYPE(Request)
Q_DECLARE_METATYPE(QTreeWidgetItem*)

class tst_WriteFileBextThread : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qRegisterMetaType<Items>("QList<QTreeWidgetItem*>"); }
    void init();
    void request_data();
    void request();
    void exclusiveClassWhereProposalsAreShown();
    void refusesWhatDoesNotFit();
    void abortingRunGetsNoAnswer();
    void requestWithoutItem();
    void otherThread();
    void rowRoundTrip();

private:
    /// A file with the record and its row.
    QTreeWidgetItem* addRow(const QString& name, const QByteArray& record)
    {
        m_folder.write(name,
                       WavBytes().fmt(300000).data({1, 2}).bext(WavBytes::Bext::ofRecorder(record)).bytes());
        auto* item = new QTreeWidgetItem(m_list.data(), {name});
        RecordingRow row;
        row.date = "01/05/24";
        row.record = ClassRecord::parse(record);
        RowItem::write(*item, row);
        return item;
    }
    QString description(const QString& name) const
    {
        WavReader reader;
        reader.load(m_folder.path(name), true);
        return reader.bextDescription;
    }

    TestFolder m_folder;
    QScopedPointer<QTreeWidget> m_list;
    QScopedPointer<QTreeWidgetItem> m_class;
};

void tst_WriteFileBextThread::init()
{
    m_list.reset(new QTreeWidget);
    m_list->setColumnCount(RowItem::ColumnCount);
    m_list->setColumnHidden(RowItem::Accepted, true);
    m_class.reset(new QTreeWidgetItem({nyc, "12", "<S>"}));
}

void tst_WriteFileBextThread::request_data()
{
    QTest::addColumn<Request>("request");
    QTest::addColumn<QByteArray>("answer"); // the signal
    QTest::addColumn<QString>("written");
    const auto row = [](const char* name, const Request& request, const char* answer, const char* written) {
        const QByteArray arguments = "QList<QTreeWidgetItem*>,bool)";
        QTest::newRow(name) << request << answer + arguments << written;
    };
    row(
        "assign", [](auto& w, auto& f, auto* c, auto& items) { w.writeFileBextExtended(1, f, c, items); },
        "signalFileBextFinishedExtended(int,QString,QTreeWidgetItem*,", "Pip + Nyc|Pip|0|x");
    row(
        "rename", [](auto& w, auto& f, auto*, auto& items) { w.renameClassFile(1, f, pip, nyc, items); },
        "signalRenameClassFile(int,QString,QString,QString,", "Nyc|Pip|1|x");
    row(
        "delete", [](auto& w, auto& f, auto*, auto& items) { w.deleteClassFile(1, f, pip, items); },
        "signalDeleteClassFile(int,QString,QString,", "|Pip|1|x");
    row(
        "unassign", [](auto& w, auto& f, auto*, auto& items) { w.unassignFile(1, f, items); },
        "signalUnassignFile(int,QString,", "|Pip|1|x");
    row(
        "reset", [](auto& w, auto& f, auto*, auto& items) { w.resetFile(1, f, items); },
        "signalResetFile(int,QString,", "|x");
}

/// The second of three files is written, the others are not, and the answer carries the arguments back. Once
/// the file is gone, the same request fails; for a RAW file there is nothing to write.
void tst_WriteFileBextThread::request()
{
    QFETCH(Request, request);
    QFETCH(QByteArray, answer);
    const QString before = "Pip|Pip|1|x";
    Items items;
    for (const char* name : {"a.wav", "b.WAV", "c.raw"})
        items.append(addRow(name, before.toLatin1()));
    WriteFileBextThread worker;
    QSignalSpy spy(&worker, ("2" + answer).constData());
    request(worker, m_folder.path(), m_class.data(), items);
    QTEST(description("b.WAV"), "written");
    QVERIFY(QFile::remove(m_folder.path("b.WAV")));
    request(worker, m_folder.path(), m_class.data(), items);
    request(worker, m_folder.path(), m_class.data(), {items.at(0), items.at(2)});
    QCOMPARE(spy.size(), 3);
    QVERIFY(spy.at(0).last().toBool() && !spy.at(1).last().toBool() && spy.at(2).last().toBool());
    const QVariantList& arguments = spy.at(0);
    QCOMPARE(arguments.at(0).toInt(), 1);
    QCOMPARE(arguments.at(1).toString(), m_folder.path());
    QCOMPARE(arguments.at(arguments.size() - 2).value<Items>(), items);
    QVERIFY(!QFile::exists(m_folder.path("b.WAV")));
    for (const char* untouched : {"a.wav", "c.raw"})
        QCOMPARE(description(untouched), before);
    QCOMPARE(RowItem::read(*items.at(1)).record.text(), before); // the window's task
}

void tst_WriteFileBextThread::exclusiveClassWhereProposalsAreShown()
{
    m_class->setText(0, "No Call");
    const Items items = {addRow("a.wav", "Pip|Pip|1|x")};
    WriteFileBextThread worker;
    for (const bool hidden : {false, true}) {
        m_list->setColumnHidden(RowItem::Accepted, hidden);
        worker.writeFileBextExtended(0, m_folder.path(), m_class.data(), items);
        QCOMPARE(description("a.wav"), QString(hidden ? "Pip + No Call|Pip|0|x" : "No Call|Pip|0|x"));
    }
}

/// The fields behind the Description stay the recorder's.
void tst_WriteFileBextThread::refusesWhatDoesNotFit()
{
    WriteFileBextThread worker;
    QSignalSpy spy(&worker, &WriteFileBextThread::signalFileBextFinishedExtended);
    for (const int length : {256, 257}) { // of the record with the new class
        const QByteArray comment(length - 10, 'c');
        const Items items = {addRow("a.wav", "Pip|" + comment)};
        worker.writeFileBextExtended(0, m_folder.path(), m_class.data(), items);
        QCOMPARE(description("a.wav"), (length == 256 ? "Pip + Nyc|" : "Pip|") + comment);
        QCOMPARE(spy.takeLast().last().toBool(), length == 256);
    }
}

void tst_WriteFileBextThread::abortingRunGetsNoAnswer()
{
    const Items items = {addRow("a.wav", "Pip|")};
    m_class->setText(1, "Aborting");
    WriteFileBextThread worker;
    QSignalSpy spy(&worker, &WriteFileBextThread::signalFileBextFinishedExtended);
    worker.writeFileBextExtended(0, m_folder.path(), m_class.data(), items);
    QVERIFY(spy.isEmpty());
    QCOMPARE(description("a.wav"), QString("Pip + Nyc|"));
}

void tst_WriteFileBextThread::requestWithoutItem()
{
    WriteFileBextThread worker;
    QSignalSpy spy(&worker, &WriteFileBextThread::signalResetFile);
    for (const int index : {-1, 0, 1})
        worker.resetFile(index, m_folder.path(), {nullptr});
    QCOMPARE(spy.size(), 3);
    QVERIFY(!spy.at(0).last().toBool() && !spy.at(1).last().toBool() && !spy.at(2).last().toBool());
}

/// As in the program: asked by a queued call, answered by a queued signal.
void tst_WriteFileBextThread::otherThread()
{
    const Items items = {addRow("a.wav", "Pip|")};
    QThread thread;
    auto* worker = new WriteFileBextThread;
    worker->moveToThread(&thread);
    connect(&thread, &QThread::finished, worker, &QObject::deleteLater);
    QSignalSpy spy(worker, &WriteFileBextThread::signalFileBextFinishedExtended);
    thread.start();
    QMetaObject::invokeMethod(worker, "writeFileBextExtended", Q_ARG(int, 0), Q_ARG(QString, m_folder.path()),
                              Q_ARG(QTreeWidgetItem*, m_class.data()), Q_ARG(QList<QTreeWidgetItem*>, items));
    QTRY_COMPARE(spy.size(), 1);
    QCOMPARE(spy.at(0).at(2).value<QTreeWidgetItem*>(), m_class.data());
    QCOMPARE(description("a.wav"), QString("Pip + Nyc|"));
    thread.quit();
    QVERIFY(thread.wait(5000));
}

void tst_WriteFileBextThread::rowRoundTrip()
{
    const QStringList texts = {"a.wav", "01/05/24", "22:10:30", "1.500", "Pip", "1",
                               "a",     "b",        "",         "d",     "note"};
    QCOMPARE(RowItem::headerTexts().size(), texts.size());
    QTreeWidgetItem item(m_list.data(), {"a.wav"});
    const RecordingRow row = {"a.wav", "01/05/24", "22:10:30", "1.500",
                              ClassRecord::parse("a + b +  + d|Pip|1|note")};
    RowItem::write(item, row);
    QVERIFY(RowItem::read(item) == row);
    for (int column = 0; column < texts.size(); ++column)
        QCOMPARE(item.text(column), texts.at(column));
}

QTEST_MAIN(tst_WriteFileBextThread)
#include "tst_WriteFileBextThread.moc"
