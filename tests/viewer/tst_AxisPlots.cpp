#include "tests/support/DrawCounter.h"
#include "tests/support/PlotScene.h"
#include "tests/support/Table.h"
#include "tests/support/TemporarySettings.h"
#include "viewer/MyQwtZoomer2.h"
#include "viewer/OverlayMarker.h"
#include "viewer/PlotExporter.h"
#include "viewer/RangeMarker.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QSignalSpy>
#include <QtTest>
#include <qwt_plot_curve.h>

class tst_AxisPlots : public QObject
{
    Q_OBJECT

    using TitlesRow = Table<int, QString, QString, QString>; // mode, timeAtStart, time, level
    using NothingRow = Table<int, int>;                      // samples, mode

private slots:
    void init()
    {
        m_settings.clear();
        m_scene = std::make_unique<PlotScene>(2.0, 250, 1000, QSize(900, 600));
        connect(&m_scene->tool.zoomer(), &QwtPlotZoomer::zoomed, &m_scene->presenter,
                &AxisPlotsPresenter::spectroZoomed);
    }

    void cleanup() { m_scene.reset(); }

    void titlesNameTheMode_data()
    {
        TitlesRow row;
        row("samples", 0, "Norm. Amplitude", "Norm. Amplitude", "Power/Freq. in dB/Hz");
        row("at the cursor", 1, "Ampl. in dBFS", "Amplitude in dBFS", "Ampl. in dBFS");
        row("largest", 2, "Ampl. in dBFS", "Amplitude in dBFS", "Ampl. in dBFS");
        row("unknown", 7, "Norm. Amplitude", "Norm. Amplitude", "Power/Freq. in dB/Hz");
    }
    void titlesNameTheMode()
    {
        const auto& [mode, timeAtStart, time, level] = TitlesRow::row();
        m_scene->settings.setValue(SettingKeys::timePlotMode, mode);
        TimeAxisView timeView;
        FrequencyAxisView frequencyView;
        const AxisPlotsPresenter atStart(*m_scene->spectrogram, timeView, frequencyView, m_scene->settings);
        QCOMPARE(timeView.axisTitle(QwtPlot::yLeft).text(), timeAtStart);
        QCOMPARE(frequencyView.axisTitle(QwtPlot::xBottom).text(), QStringLiteral("Ampl. in dBFS"));

        setModes(mode, mode);
        QCOMPARE(m_scene->time->axisTitle(QwtPlot::yLeft).text(), time);
        QCOMPARE(m_scene->frequency->axisTitle(QwtPlot::xBottom).text(), level);
    }

    void amplitudeIsNormalised()
    {
        const int largest = *std::max_element(m_scene->samples().begin(), m_scene->samples().end());
        const double peak = m_scene->presenter.displayPeak();
        QVERIFY(std::abs(peak - 1.1 * largest / 32767.0) < 1e-3);
        QCOMPARE(m_scene->time->axisInterval(QwtPlot::yLeft), QwtInterval(-peak, peak));

        const auto curves = curvesOf(m_scene->time);
        QCOMPARE(curves.size(), 4);
        const int width = m_scene->time->canvas()->width();
        for (int i = 0; i < 4; ++i) {
            QVERIFY(points(curves[i]).size() >= width && points(curves[i]).size() < width + 20);
            QCOMPARE(curves[i]->baseline(), 0.0);
        }
        // A sine's root mean square is 0.71 of its peak; blocks are much longer than its period.
        const int middle = points(curves[0]).size() * 2 / 5;
        const double maximum = points(curves[0])[middle].y();
        QVERIFY(std::abs(maximum - peak / 1.1) < 0.01);
        QVERIFY(std::abs(points(curves[1])[middle].y() + maximum) < 0.01);
        QVERIFY(std::abs(points(curves[2])[middle].y() - maximum * M_SQRT1_2) < 0.01);
        QCOMPARE(points(curves[3])[middle].y(), -points(curves[2])[middle].y());
    }

    void shortRecordingHasOnePointPerSample()
    {
        const std::vector<int> samples{100, -200, 300, 50};
        m_scene->presenter.setRecording(&samples, 1000, 16);
        PlotScene::settle();
        QCOMPARE(timeCurve().size(), 4);
        QCOMPARE(timeCurve()[2], QPointF(0.002, 300 / 32767.0));
        m_scene->presenter.clear();
        PlotScene::settle();
        QVERIFY(timeCurve().isEmpty());
        QCOMPARE(m_scene->presenter.displayPeak(), 0.0);
    }

    void nothingToShow_data()
    {
        NothingRow row;
        for (const int samples : {0, 1, 5000})
            for (const int mode : {0, 1, 2})
                row(QString::asprintf("%d silent samples, mode %d", samples, mode), samples, mode);
    }
    void nothingToShow()
    {
        const auto& [samples, mode] = NothingRow::row();
        const std::vector<int> silence(static_cast<std::size_t>(samples), 0);
        m_scene->presenter.setRecording(&silence, 8000, 16);
        setModes(mode, mode);
        m_scene->spectrogram->showResult({}, 0, samples / 8000.0, 4);
        m_scene->presenter.setResult({}, 0);
        m_scene->presenter.setCursor({1.0, 50.0});
        m_scene->presenter.spectroZoomed(QRectF(0.1, 1.0, 0.2, 2.0));
        m_scene->window().resize(500, 400);
        PlotScene::settle();
        QCOMPARE(timeCurve().isEmpty(), samples == 0 || mode != 0);
        QVERIFY(m_scene->time->timeLimits().isValid());
        m_scene->presenter.clear();
    }

    void cursorChoosesRowAndColumn()
    {
        setModes(1, 1);
        for (const double seconds : {0.5, 1.5}) {
            const double other = 2.0 - seconds; // row and column are independent of each other
            m_scene->presenter.setCursor({other, m_scene->toneAt(seconds)});
            PlotScene::settle();
            QVERIFY(std::abs(highest(timeCurve(), &QPointF::y).x() - seconds) < 0.02);
            QVERIFY(std::abs(highest(levelCurve(), &QPointF::x).y() - m_scene->toneAt(other)) < 1.0);
            QCOMPARE(m_scene->frequency->marker().yValue(), m_scene->toneAt(seconds));
            QCOMPARE(m_scene->frequency->marker().title().text(), QStringLiteral("frequencyPlotMarker"));
        }
        m_scene->presenter.setCursorTime(1.7); // as playing does
        PlotScene::settle();
        QVERIFY(std::abs(highest(levelCurve(), &QPointF::x).y() - m_scene->toneAt(1.7)) < 1.0);
        QCOMPARE(curvesOf(m_scene->time).first()->baseline(), -300.0);
        QVERIFY(!curvesOf(m_scene->time).last()->isVisible());
    }

    void largestLevels()
    {
        setModes(2, 2);
        for (const QPointF& point : timeCurve())
            QVERIFY(point.y() > -43.0); // every column meets the tone
        // All rows that the falling tone passes have it, the others lie on the floor.
        for (const QPointF& point : levelCurve()) {
            if (point.y() > 21.0 && point.y() < 89.0)
                QVERIFY(point.x() > -43.0);
            if (point.y() < 14.0 || point.y() > 96.0)
                QVERIFY(point.x() < -90.0);
        }
        m_scene->settings.setValue(SettingKeys::frequencyPlotZoom, true);
        zoom(QRectF(0.0, 0.0, 1.0, 125.0));
        for (const QPointF& point : levelCurve())
            QVERIFY(point.y() > 50.0 || point.x() < -50.0); // the tone ends at 55 kHz
    }

    void densityPeaksAtTheTone()
    {
        const auto peak = [this] { return highest(levelCurve(), &QPointF::x); };
        QVERIFY(peak().y() > 20.0 && peak().y() < 90.0);
        const QwtInterval level = m_scene->frequency->axisInterval(QwtPlot::xBottom);
        QVERIFY(level.normalized().contains(peak().x()));
        m_scene->settings.setValue(SettingKeys::frequencyPlotZoom, true);
        zoom(QRectF(1.5, 10.0, 0.1, 60.0));
        QVERIFY(std::abs(peak().y() - m_scene->toneAt(1.55)) < 3.0);
    }

    void levelsFollowTheColourScale()
    {
        setModes(1, 2);
        m_scene->spectrogram->setAmplitudeLimits({-80.0, -20.0});
        m_scene->presenter.amplitudeScaleChanged();
        PlotScene::settle();
        QCOMPARE(m_scene->time->axisInterval(QwtPlot::yLeft), QwtInterval(-80.0, -20.0));
        // The level axis runs from the upper to the lower limit.
        QVERIFY(m_scene->frequency->transform(QwtPlot::xBottom, -20.0) <
                m_scene->frequency->transform(QwtPlot::xBottom, -80.0));
        QCOMPARE(m_scene->frequency->axisInterval(QwtPlot::xBottom).normalized(), QwtInterval(-80.0, -20.0));
        QCOMPARE(curvesOf(m_scene->frequency).first()->baseline(), -80.0);
    }

    void plotsStayWhenTheyDoNotFollowTheZoom()
    {
        QTest::qWait(100); // the curve is made for the last size of its plot
        auto* time = new DrawCounter(m_scene->time);
        auto* frequency = new DrawCounter(m_scene->frequency);
        QSignalSpy shown(&m_scene->presenter, &AxisPlotsPresenter::timeRangeShown);
        zoom(QRectF(0.5, 30.0, 1.0, 40.0));
        QCOMPARE(time->count + frequency->count, 0);
        QCOMPARE(m_scene->time->axisInterval(QwtPlot::xBottom), QwtInterval(0.0, 2.0));
        QCOMPARE(m_scene->frequency->axisInterval(QwtPlot::yLeft), QwtInterval(0.0, 125.0));
        QCOMPARE(m_scene->spectrogram->scaleItemPosition(), 0.5);
        QCOMPARE(m_scene->time->scaleItemPosition(), 0.0);
        const AxisLimits times = m_scene->time->visibleRange().range();
        const AxisLimits frequencies = m_scene->frequency->visibleRange().range();
        QVERIFY(times.lower == 0.5 && times.upper == 1.5);
        QVERIFY(frequencies.lower == 30.0 && frequencies.upper == 70.0);
        QCOMPARE(shown.count(), 1);
        QCOMPARE(shown.at(0), QVariantList({0.5, 1.5}));
    }

    void plotsFollowTheZoom()
    {
        m_scene->settings.setValue(SettingKeys::timePlotZoom, true);
        m_scene->settings.setValue(SettingKeys::frequencyPlotZoom, true);
        const int before = timeCurve().size();
        zoom(QRectF(0.5, 30.0, 0.01, 40.0));
        QCOMPARE(m_scene->time->axisInterval(QwtPlot::xBottom), QwtInterval(0.5, 0.51));
        QCOMPARE(m_scene->frequency->axisInterval(QwtPlot::yLeft), QwtInterval(30.0, 70.0));
        QCOMPARE(m_scene->time->scaleItemPosition(), 0.5);
        QVERIFY(timeCurve().size() > before / 2); // not a cut-out of the coarse curve
        QVERIFY(timeCurve().first().x() >= 0.5 && timeCurve().last().x() <= 0.51);
        m_scene->tool.zoomer().zoom(0);
        PlotScene::settle();
        QCOMPARE(m_scene->time->axisInterval(QwtPlot::xBottom), QwtInterval(0.0, 2.0));
    }

    void ownZoomOutlivesHiding()
    {
        const double peak = m_scene->presenter.displayPeak();
        m_scene->time->zoomer().zoom(QRectF(1.0, -peak, 0.1, 2 * peak));
        PlotScene::settle();
        QVERIFY(timeCurve().first().x() >= 1.0 && timeCurve().last().x() <= 1.1);
        m_scene->time->hide();
        m_scene->tool.zoomer().zoom(QRectF(0.2, 20.0, 0.3, 30.0));
        m_scene->window().resize(1000, 700);
        PlotScene::settle();
        m_scene->time->show();
        QTest::qWait(100); // the curve is made for the new size a little later
        QCOMPARE(m_scene->time->axisInterval(QwtPlot::xBottom), QwtInterval(1.0, 1.1));
        QVERIFY(timeCurve().first().x() >= 1.0 && timeCurve().last().x() <= 1.1);
    }

    void oneReplotPerTurn()
    {
        QTest::qWait(100); // the curve is made for the last size of its plot
        m_scene->settings.setValue(SettingKeys::timePlotZoom, true);
        setModes(1, 1);
        auto* time = new DrawCounter(m_scene->time);
        auto* frequency = new DrawCounter(m_scene->frequency);
        for (int i = 0; i < 20; ++i) {
            m_scene->presenter.setCursor({0.1 * i + 0.001, 3.0 * i});
            m_scene->presenter.slotTimePlotChanged();
            m_scene->presenter.slotFrequencyPlotChanged();
            m_scene->presenter.spectroZoomed(QRectF(0.0, 0.0, 2.0, 125.0));
        }
        PlotScene::settle();
        QCOMPARE(time->count, 1);
        QCOMPARE(frequency->count, 1);
        m_scene->presenter.setCursor({1.9012, 57.1}); // the same cells
        PlotScene::settle();
        QCOMPARE(time->count, 1);
        QCOMPARE(frequency->count, 1);
    }

    void hiddenPlotIsExportedWithItsMarkers()
    {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        QTemporaryDir folder;
        QString file = folder.filePath(QStringLiteral("plot.png"));
        const auto answer = [&file](bool accept) {
            QTimer::singleShot(100, qApp, [&file, accept] {
                auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
                if (!dialog)
                    return;
                if (accept)
                    dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(file);
                QMetaObject::invokeMethod(dialog, accept ? "accept" : "reject");
            });
        };
        m_scene->playCursor.moveTo(1.0);
        m_scene->playCursor.setVisible(true);
        m_scene->time->hide();
        PlotScene::settle();

        answer(false);
        PlotExporter::exportTo(*m_scene->time, QStringLiteral("TimeAxisPlot.pdf"));
        QVERIFY(QDir(folder.path()).isEmpty());

        QImage images[2];
        for (const bool withCursor : {false, true}) {
            m_scene->playCursor.setVisible(withCursor);
            answer(true);
            PlotExporter::exportTo(*m_scene->time, QStringLiteral("TimeAxisPlot.pdf"));
            QVERIFY(images[withCursor ? 1 : 0].load(file));
        }
        QCOMPARE(images[0].size(), QSize(1004, 669));
        QVERIFY(images[0] != images[1]);

        // On the screen the cursor lies on the overlay again, and nowhere else.
        m_scene->time->show();
        m_scene->playCursor.setVisible(false);
        m_scene->time->replot();
        PlotScene::settle();
        const QImage without = m_scene->time->grab().toImage();
        m_scene->playCursor.setVisible(true);
        PlotScene::settle();
        QVERIFY(m_scene->time->grab().toImage() != without);
        m_scene->playCursor.setVisible(false);
        PlotScene::settle();
        QCOMPARE(m_scene->time->grab().toImage(), without);
    }

private:
    void setModes(int time, int frequency)
    {
        m_scene->settings.setValue(SettingKeys::timePlotMode, time);
        m_scene->settings.setValue(SettingKeys::frequencyPlotMode, frequency);
        m_scene->presenter.slotTimePlotChanged();
        m_scene->presenter.slotFrequencyPlotChanged();
        PlotScene::settle();
    }

    static QList<const QwtPlotCurve*> curvesOf(const QwtPlot* plot)
    {
        QList<const QwtPlotCurve*> curves;
        for (const QwtPlotItem* item : plot->itemList(QwtPlotItem::Rtti_PlotCurve))
            curves.append(static_cast<const QwtPlotCurve*>(item));
        return curves;
    }

    static QVector<QPointF> points(const QwtPlotCurve* curve)
    {
        QVector<QPointF> points;
        for (std::size_t i = 0; i < curve->dataSize(); ++i)
            points.append(curve->sample(static_cast<int>(i)));
        return points;
    }

    static QPointF highest(const QVector<QPointF>& curve, double (QPointF::*level)() const)
    {
        return *std::max_element(curve.begin(), curve.end(), [level](const QPointF& a, const QPointF& b) {
            return (a.*level)() < (b.*level)();
        });
    }
    void zoom(const QRectF& rect)
    {
        m_scene->tool.zoomer().zoom(rect);
        PlotScene::settle();
    }
    QVector<QPointF> timeCurve() const { return points(curvesOf(m_scene->time).first()); }
    QVector<QPointF> levelCurve() const { return points(curvesOf(m_scene->frequency).first()); }

    TemporarySettings m_settings;
    std::unique_ptr<PlotScene> m_scene;
};

QTEST_MAIN(tst_AxisPlots)
#include "tst_AxisPlots.moc"
