#include "tests/support/PlotScene.h"
#include "tests/support/Table.h"
#include "tests/support/TemporarySettings.h"

#include <QtTest>
#include <qwt_scale_map.h>

#include <functional>

using Change = std::function<void(PlotScene&)>;

/// Runs twice, with one and with two device pixels per pixel.
class tst_PlotAlignment : public QObject
{
    Q_OBJECT

    using ChangeRow = Table<Change>;

private slots:
    void init() { m_scene = std::make_unique<PlotScene>(2.0, 125, 200, QSize(900, 600)); }
    void cleanup() { m_scene.reset(); }

    void followsWhateverMovesACanvas_data()
    {
        ChangeRow row;
        row("nothing", [](PlotScene&) {});
        row("larger", [](PlotScene& scene) { scene.window().resize(1411, 873); });
        row("smaller", [](PlotScene& scene) { scene.window().resize(620, 417); });
        row("splitter between the lower plots", [](PlotScene& scene) { scene.lower().setSizes({300, 600}); });
        row("splitter below the time plot", [](PlotScene& scene) { scene.upper().setSizes({330, 270}); });
        row("other modes", [](PlotScene& scene) {
            scene.settings.setValue(SettingKeys::timePlotMode, 2);
            scene.settings.setValue(SettingKeys::frequencyPlotMode, 2);
            scene.presenter.slotTimePlotChanged();
            scene.presenter.slotFrequencyPlotChanged();
        });
        row("long amplitude labels", [](PlotScene& scene) {
            scene.time->setView({0.0, 2.0}, {-0.000123, 0.000123});
            scene.time->replot();
        });
        row("long level labels", [](PlotScene& scene) {
            scene.spectrogram->setAmplitudeLimits({-1e7, -3e6});
        });
        row("long frequency labels", [](PlotScene& scene) {
            scene.frequency->setFrequencyLimits({0.0, 1e7});
            scene.frequency->replot();
        });
        row("long time labels",
            [](PlotScene& scene) { scene.tool.zoomer().zoom(QRectF(1.000012, 10.0, 0.000003, 20.0)); });
        row("a large font", [](PlotScene& scene) {
            QFont font = scene.frequency->font();
            font.setPointSize(24);
            scene.frequency->setAxisFont(QwtPlot::xBottom, font);
        });
        row("time plot hidden and shown", [](PlotScene& scene) {
            scene.time->hide();
            scene.settle();
            scene.window().resize(1000, 500);
            scene.settle();
            scene.time->show();
        });
    }
    void followsWhateverMovesACanvas()
    {
        const auto& [change] = ChangeRow::row();
        change(*m_scene);
        m_scene->settle();
        verifyAligned();
    }

    void hiddenPlotHasNoSay()
    {
        m_scene->time->setView({0.0, 2.0}, {-0.000123, 0.000123});
        m_scene->time->replot();
        m_scene->settle();
        const int together = canvasOf(m_scene->spectrogram).left();
        m_scene->time->hide();
        m_scene->settle();
        QVERIFY(canvasOf(m_scene->spectrogram).left() < together - 10);
        m_scene->time->show();
        m_scene->settle();
        QCOMPARE(canvasOf(m_scene->spectrogram).left(), together);
    }

    /// An adjustment leads to no other.
    void comesToRest()
    {
        struct LayoutCounter : QObject
        {
            bool eventFilter(QObject* /*object*/, QEvent* event) override
            {
                count += event->type() == QEvent::Resize || event->type() == QEvent::Move ? 1 : 0;
                return false;
            }
            int count = 0;
        } counter;
        for (QwtPlot* plot :
             {static_cast<QwtPlot*>(m_scene->spectrogram), static_cast<QwtPlot*>(m_scene->time),
              static_cast<QwtPlot*>(m_scene->frequency)})
            plot->canvas()->installEventFilter(&counter);
        m_scene->window().resize(700, 500);
        m_scene->settle();
        QVERIFY(counter.count > 0);
        counter.count = 0;
        for (int i = 0; i < 20; ++i)
            m_scene->settle();
        QCOMPARE(counter.count, 0);
    }

private:
    QRect canvasOf(const QwtPlot* plot) const
    {
        return {plot->canvas()->mapTo(&m_scene->window(), QPoint()), plot->canvas()->size()};
    }
    /// Canvases and scales: equal times and frequencies stand at equal pixels.
    void verifyAligned() const
    {
        const QRect spectrogram = canvasOf(m_scene->spectrogram);
        const QRect time = canvasOf(m_scene->time);
        const QRect frequency = canvasOf(m_scene->frequency);
        QVERIFY(spectrogram.width() > 20 && spectrogram.height() > 20);
        QCOMPARE(time.left(), spectrogram.left());
        QCOMPARE(time.right(), spectrogram.right());
        QCOMPARE(frequency.top(), spectrogram.top());
        QCOMPARE(frequency.bottom(), spectrogram.bottom());

        const auto ends = [](const QwtPlot* plot, int axis) {
            const QwtScaleMap map = plot->canvasMap(axis);
            return QPointF(map.p1(), map.p2());
        };
        QCOMPARE(ends(m_scene->time, QwtPlot::xBottom), ends(m_scene->spectrogram, QwtPlot::xBottom));
        QCOMPARE(ends(m_scene->frequency, QwtPlot::yLeft), ends(m_scene->spectrogram, QwtPlot::yLeft));
    }

    TemporarySettings m_settings;
    std::unique_ptr<PlotScene> m_scene;
};

QTEST_MAIN(tst_PlotAlignment)
#include "tst_PlotAlignment.moc"
