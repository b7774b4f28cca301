#include "evaluation/core/ClassEvents.h"
#include "tests/evaluation/exampleRow.h"

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>

using Mode = ClassEvents::Mode;

Q_DECLARE_METATYPE(ClassEvents::Mode)

namespace {

TimeZoneChoice berlin(bool daylightSaving)
{
    return {QTimeZone("Europe/Berlin"), daylightSaving};
}

/// What one class is marked for, found by taking recordings out of a list one by one.
QVector<bool> markedByRemoval(const QVector<RecordingRow>& rows, const QString& name, int minutes, Mode mode)
{
    QList<QDateTime> starts;
    for (const RecordingRow& row : rows)
        if (row.record.contains(name))
            starts.append(TimeZoneChoice::wallClock(row.date, row.time));
    std::sort(starts.begin(), starts.end());
    for (int i = 1; i < starts.size();) {
        const QDateTime before = starts.at(i - 1);
        const QDateTime at = starts.at(i);
        const bool removed = mode == Mode::Dynamic
                                 ? before >= at.addSecs(-minutes * 60)
                                 : before.date() == at.date() && before.time().hour() == at.time().hour() &&
                                       before.time().minute() / minutes == at.time().minute() / minutes;
        if (removed)
            starts.removeAt(i);
        else
            ++i;
    }
    QVector<bool> marked;
    for (const RecordingRow& row : rows)
        marked.append(row.record.contains(name) &&
                      starts.contains(TimeZoneChoice::wallClock(row.date, row.time)));
    return marked;
}

} // namespace

class tst_ClassEvents : public QObject
{
    Q_OBJECT

private slots:
    void opensEvents_data();
    void opensEvents();
    void doesAsRemovalFromAList();
    void joinsClassesInTheirOrder();
};

void tst_ClassEvents::opensEvents_data()
{
    QTest::addColumn<QStringList>("times"); // "dd/MM/yy hh:mm:ss" of recordings of one class
    QTest::addColumn<int>("minutes");
    QTest::addColumn<Mode>("mode");
    QTest::addColumn<bool>("daylightSaving");
    QTest::addColumn<QString>("opens"); // a mark for each
    const auto add = [](const char* title, const QString& times, int minutes, Mode mode, const char* opens,
                        bool daylightSaving = false) {
        QStringList texts;
        for (const QString& time : times.split(' '))
            texts.append(time.contains('@') ? QString(time).replace('@', ' ') : "01/08/17 " + time);
        QTest::newRow(title) << texts << minutes << mode << daylightSaving << opens;
    };
    add("60 s apart", "21:00:00 21:01:00", 1, Mode::Dynamic, "x.");
    add("61 s apart", "21:00:00 21:01:01", 1, Mode::Dynamic, "xx");
    add("from the opener, not the last", "21:00:00 21:00:40 21:01:20 21:02:00", 1, Mode::Dynamic, "x.x.");
    add("across midnight", "01/08/17@23:59:30 02/08/17@00:00:30", 1, Mode::Dynamic, "x.");
    add("static, next slot", "21:09:59 21:10:00", 10, Mode::Static, "xx");
    add("static, same slot", "21:10:00 21:19:59", 10, Mode::Static, "x.");
    add("static, same slot of another hour", "21:10:00 22:10:00", 10, Mode::Static, "xx");
    add("static, same slot of another day", "01/08/17@21:10:00 02/08/17@21:10:00", 10, Mode::Static, "xx");
    add("not in order", "21:05:00 21:00:00 21:00:30", 1, Mode::Dynamic, "xx.");
    add("same second", "21:00:00 21:00:00 21:00:01", 5, Mode::Dynamic, "xx.");
    add("unknown times", "N/A@N/A 21:00:00 01/08/17@ 21:00:30", 1, Mode::Dynamic, ".x..");
    // The clock is put forward from 02:00 to 03:00 ...
    add("one minute over the skipped hour", "29/03/20@01:59:30 29/03/20@03:00:30", 1, Mode::Dynamic, "x.",
        true);
    add("the same on standard time", "29/03/20@01:59:30 29/03/20@03:00:30", 1, Mode::Dynamic, "xx");
    // ... and back from 03:00 to 02:00.
    add("an hour longer", "25/10/20@01:59:30 25/10/20@02:00:30", 1, Mode::Dynamic, "xx", true);
}

void tst_ClassEvents::opensEvents()
{
    QFETCH(QStringList, times);
    QFETCH(int, minutes);
    QFETCH(Mode, mode);
    QFETCH(bool, daylightSaving);
    QFETCH(QString, opens);
    QVector<RecordingRow> rows;
    for (const QString& time : times)
        rows.append(exampleRow("a.wav", time.section(' ', 0, 0), time.section(' ', 1), "Nyc + Pip|"));
    QString marks;
    for (const QString& text : ClassEvents(rows, {"Pip"}, berlin(daylightSaving)).openedBy(minutes, mode))
        marks += text == "Pip" ? 'x' : text.isEmpty() ? '.' : '?';
    QCOMPARE(marks, opens);
}

void tst_ClassEvents::doesAsRemovalFromAList()
{
    QRandomGenerator random(7);
    QVector<RecordingRow> rows;
    const QDateTime start(QDate(2020, 6, 30), QTime(20, 0), Qt::UTC);
    for (int i = 0; i < 500; ++i) {
        const QDateTime at = start.addSecs(random.bounded(6 * 3600));
        rows.append(exampleRow("a.wav", at.toString("dd/MM/yy"), at.toString("hh:mm:ss"),
                               random.bounded(3) ? "Pip|" : "Nyc|"));
    }
    const ClassEvents events(rows, {"Pip"}, berlin(false));
    for (const Mode mode : {Mode::Dynamic, Mode::Static})
        for (const int minutes : {1, 5, 10}) {
            const QVector<bool> expected = markedByRemoval(rows, "Pip", minutes, mode);
            QVERIFY(expected.count(true) > 10);
            const QVector<QString> texts = events.openedBy(minutes, mode);
            for (int i = 0; i < rows.size(); ++i)
                QCOMPARE(!texts.at(i).isEmpty(), expected.at(i));
        }
}

void tst_ClassEvents::joinsClassesInTheirOrder()
{
    const QVector<RecordingRow> rows = {exampleRow("a", "01/08/17", "21:00:00", "Nyc + Pip|"),
                                        exampleRow("b", "01/08/17", "21:00:00", "|No call|0|"),
                                        exampleRow("c", "01/08/17", "21:00:00", " + Nyc|"),
                                        exampleRow("d", "01/08/17", "21:00:00", "Pip + Pip + Test|")};
    const ClassEvents events(rows, {"Unassigned", "Detected No Call", "Pip", "Nyc"}, berlin(false));
    QCOMPARE(events.openedBy(1, Mode::Dynamic), QVector<QString>({"Pip,Nyc", "", "Nyc", "Pip"}));
}

QTEST_GUILESS_MAIN(tst_ClassEvents)

#include "tst_ClassEvents.moc"
