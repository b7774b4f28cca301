#include "tests/support/CanvasMouse.h"
#include "tests/support/PlotScene.h"
#include "tests/support/TemporarySettings.h"

#include <QtTest>
#include <qwt_plot_marker.h>

class tst_FrequencyMarkers : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        QLocale::setDefault(QLocale::c());
        m_settings.clear();
    }

    void cleanup() { m_scene.reset(); }

    void startsAsStored()
    {
        makeScene();
        QCOMPARE(lines().size(), 2);
        QCOMPARE(lines()[0]->label().text(), QStringLiteral("16.0 kHz"));
        QCOMPARE(lines()[1]->label().text(), QStringLiteral("33.0 kHz"));
        QVERIFY(!lines()[0]->isVisible() && !lines()[1]->isVisible());

        m_scene->markers.setMarker2Shown(true);
        m_scene->markers.moveMarker2({0.0, 41.0});
        m_scene.reset();
        makeScene();
        QVERIFY(!lines()[0]->isVisible() && lines()[1]->isVisible());
        QCOMPARE(lines()[1]->yValue(), 41.0);
    }

    void movesInHalfKilohertz()
    {
        QLocale::setDefault(QLocale(QLocale::German)); // which the label follows
        makeScene().spectrogram->setFrequencyLimits({10.0, 90.2});
        // Where the pointer is and the marker goes; a quarter goes up, and none leaves the axis.
        const std::pair<double, double> moves[] = {
            {16.26, 16.5}, {16.24, 16.0}, {16.25, 16.5}, {300.0, 90.2}, {3.0, 10.0}};
        for (const auto& [pointer, kilohertz] : moves) {
            m_scene->markers.moveMarker1({0.5, pointer});
            QCOMPARE(lines()[0]->yValue(), kilohertz);
            QCOMPARE(lines()[0]->label().text(), QString::asprintf("%.1f kHz", kilohertz).replace('.', ','));
            QCOMPARE(m_scene->settings.value(SettingKeys::valueMarker1), kilohertz);
            QCOMPARE(m_scene->settings.value(SettingKeys::valueMarker2), 33.0);
        }
    }

    void comesDownToTheAxis()
    {
        makeScene();
        m_scene->markers.moveMarker1({0.0, 100.0});
        m_scene->spectrogram->setFrequencyLimits({0.0, 48.0});
        m_scene->markers.limitToAxis();
        QCOMPARE(lines()[0]->yValue(), 48.0);
        QCOMPARE(lines()[0]->label().text(), QStringLiteral("48.0 kHz"));
        QCOMPARE(lines()[1]->yValue(), 33.0);
        // The choice of the user is not forgotten for the next recording.
        m_scene->spectrogram->setFrequencyLimits({0.0, 125.0});
        m_scene->markers.limitToAxis();
        QCOMPARE(lines()[0]->yValue(), 100.0);
    }

    void isDraggedWhereItIsShown()
    {
        makeScene();
        m_scene->tool.connectPickers(&m_scene->tool);
        CanvasMouse mouse(m_scene->spectrogram->canvas());
        m_scene->tool.setMode(SelectionTool::Mode::Selection);

        mouse.drag(onMarker1(16.0), onMarker1(60.0)); // hidden: the drag selects
        QCOMPARE(lines()[0]->yValue(), 16.0);
        QVERIFY(!m_scene->tool.selection().isNull());
        m_scene->tool.clearSelection();

        m_scene->markers.setMarker1Shown(true);
        mouse.drag(onMarker1(16.0), onMarker1(60.0));
        QVERIFY(std::abs(lines()[0]->yValue() - 60.0) <= 0.5);
        QCOMPARE(m_scene->settings.value(SettingKeys::valueMarker1), lines()[0]->yValue());
        QVERIFY(m_scene->tool.selection().isNull());

        mouse.drag(onMarker1(lines()[0]->yValue()), QPoint(100, -500)); // off the canvas
        QVERIFY(lines()[0]->yValue() > PlotScene::nyquist - 1);
    }

    void escapeTakesItBack()
    {
        makeScene();
        m_scene->tool.connectPickers(&m_scene->tool);
        m_scene->markers.setMarker1Shown(true);
        CanvasMouse mouse(m_scene->spectrogram->canvas());
        mouse.move(onMarker1(16.0));
        mouse.press(onMarker1(16.0));
        mouse.move(onMarker1(80.0));
        QVERIFY(lines()[0]->yValue() > 79.0);
        mouse.key(Qt::Key_Escape);
        mouse.release(onMarker1(80.0));
        QCOMPARE(lines()[0]->yValue(), 16.0);
        QCOMPARE(m_scene->settings.value(SettingKeys::valueMarker1), 16.0);
    }

private:
    PlotScene& makeScene()
    {
        m_scene = std::make_unique<PlotScene>(1.0, 125, 200, QSize(800, 600));
        m_scene->markers.connectPickers(&m_scene->markers);
        return *m_scene;
    }
    /// The horizontal lines on the spectrogram, marker 1 first.
    QList<const QwtPlotMarker*> lines() const
    {
        QList<const QwtPlotMarker*> found;
        for (QwtPlotItem* item : m_scene->spectrogram->itemList(QwtPlotItem::Rtti_PlotMarker)) {
            auto* marker = static_cast<const QwtPlotMarker*>(item);
            if (marker->lineStyle() == QwtPlotMarker::HLine)
                found.append(marker);
        }
        return found;
    }
    QPoint onMarker1(double kilohertz) const
    {
        return {100, qRound(m_scene->spectrogram->transform(QwtPlot::yLeft, kilohertz))};
    }

    TemporarySettings m_settings;
    std::unique_ptr<PlotScene> m_scene;
};

QTEST_MAIN(tst_FrequencyMarkers)
#include "tst_FrequencyMarkers.moc"
