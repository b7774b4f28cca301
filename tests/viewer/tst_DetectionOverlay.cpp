#include "tests/support/Table.h"
#include "viewer/DetectionOverlay.h"
#include "viewer/MyRectCallsMarker.h"
#include "viewer/SpectrogramView.h"

#include <QtTest>
#include <qwt_plot_marker.h>
#include <qwt_plot_textlabel.h>

class tst_DetectionOverlay : public QObject
{
    Q_OBJECT

    using MarksRow = Table<QStringList, QStringList, QString>; // classes, marked, shown

private slots:
    void marksWhatIsNoNoise_data()
    {
        MarksRow row;
        row("nothing found", QStringList(), QStringList(), "");
        row("calls and noise", QStringList{"PipPip", "Noise", "NycNoc"}, QStringList{"PipPip", "NycNoc"},
            " NycNoc, PipPip ");
        row("noise", QStringList{"Noise", "Noise"}, QStringList(), " No call ");
        row("a tone", QStringList{"PipPip", "Test"}, QStringList(), " No call ");
    }
    void marksWhatIsNoNoise()
    {
        const auto& [classes, marked, shown] = MarksRow::row();
        SpectrogramView plot;
        DetectionOverlay overlay(plot);
        QList<MyBatCall> calls;
        for (int i = 0; i < classes.size(); ++i)
            calls.append(classes[i] == QLatin1String("Noise") ? MyBatCall() : callAt(0.1 * i));
        overlay.showResult(classes, calls);
        QCOMPARE(marks(plot), marked);
        QCOMPARE(overlay.calls().size(), marked.size());
        QCOMPARE(proposal(plot), shown);
        for (int i = 0; i < overlay.calls().size(); ++i)
            QVERIFY(!overlay.calls()[i].rectangle.isEmpty());
    }

    void nextResultReplacesTheMarks()
    {
        SpectrogramView plot;
        DetectionOverlay overlay(plot);
        overlay.showResult({"PipPip", "PipPip"}, {callAt(0.1), callAt(0.2)});
        const int items = plot.itemList().size();
        overlay.showResult({"NycNoc", "PipPip"}, {callAt(0.3), callAt(0.4)});
        QCOMPARE(plot.itemList().size(), items);
        QCOMPARE(marks(plot), QStringList({"NycNoc", "PipPip"}));
        plot.removeDetectionMarks(); // as when another recording is opened
        overlay.clear();
        QVERIFY(marks(plot).isEmpty());
        QVERIFY(overlay.calls().isEmpty() && overlay.proposal().isEmpty());
        QVERIFY(proposal(plot).isEmpty());
    }

    void isSeenOnlyWhenWanted()
    {
        SpectrogramView plot;
        plot.resize(600, 400);
        const QImage empty = plot.grab().toImage();
        DetectionOverlay overlay(plot);
        overlay.showResult({"PipPip"}, {callAt(0.3)});
        QCOMPARE(plot.grab().toImage(), empty);
        overlay.setVisible(true);
        QVERIFY(plot.grab().toImage() != empty);
        overlay.showResult({"NycNoc"}, {callAt(0.6)});
        QVERIFY(plot.grab().toImage() != empty);
        overlay.setVisible(false);
        QCOMPARE(plot.grab().toImage(), empty);
    }

    void labelsTellDurationAndEnd()
    {
        QLocale::setDefault(QLocale::c());
        QCOMPARE(MyRectCallsMarker::labelOf(callAt(0.1)), QStringLiteral("4.2 ms, 45.3 kHz"));
    }

private:
    static MyBatCall callAt(double seconds)
    {
        MyBatCall call;
        call.rectangle = QRectF(seconds, 40.0, 0.01, 20.0);
        call.duration = 0.0042;
        call.endFreq = 45.26;
        return call;
    }
    static QStringList marks(const QwtPlot& plot)
    {
        QStringList texts;
        for (const QwtPlotItem* item : plot.itemList(QwtPlotItem::Rtti_PlotMarker))
            if (item->title().text() == QLatin1String("Blob"))
                texts.append(static_cast<const QwtPlotMarker*>(item)->label().text());
        return texts;
    }
    static QString proposal(const QwtPlot& plot)
    {
        const auto labels = plot.itemList(QwtPlotItem::Rtti_PlotTextLabel);
        return labels.isEmpty() ? QString()
                                : static_cast<const QwtPlotTextLabel*>(labels.first())->text().text();
    }
};

QTEST_MAIN(tst_DetectionOverlay)
#include "tst_DetectionOverlay.moc"
