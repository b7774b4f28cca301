#include "tests/support/CanvasMouse.h"
#include "tests/support/DrawCounter.h"
#include "tests/support/PlotScene.h"
#include "tests/support/Table.h"
#include "tests/support/TemporarySettings.h"
#include "viewer/PositionText.h"
#include "viewer/RangeMarker.h"

#include <QSignalSpy>
#include <QToolButton>
#include <QtTest>

using Mode = SelectionTool::Mode;

class tst_ZoomAndSelection : public QObject
{
    Q_OBJECT

    using ModeRow = Table<Mode, Qt::KeyboardModifiers, bool>;          // mode, modifiers; whether it zooms
    using ZoomRow = Table<QRectF, QRectF>;                             // wanted, shown
    using PointerRow = Table<double, double, QPoint, Qt::CursorShape>; // s, kHz, pixels off it; shape
    using EdgeRow = Table<QPointF, QPointF, QRectF>;                   // from, to; selection

private slots:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }

    void init()
    {
        m_settings.clear();
        m_scene = std::make_unique<PlotScene>(3.0, 255, 500, QSize(900, 600));
        m_scene->tool.connectPickers(&m_scene->tool);
        m_scene->markers.connectPickers(&m_scene->markers);
        m_mouse = std::make_unique<CanvasMouse>(m_scene->spectrogram->canvas());
        m_pixelSeconds = 3.0 / m_scene->spectrogram->canvas()->width();
        m_pixelKilohertz = PlotScene::nyquist * 1.0 / m_scene->spectrogram->canvas()->height();
    }

    void cleanup()
    {
        m_mouse.reset();
        m_scene.reset();
    }

    void dragZoomsOrSelects_data()
    {
        ModeRow row;
        row("zoom mode", Mode::Zoom, Qt::KeyboardModifiers(), true);
        row("zoom mode, Shift", Mode::Zoom, Qt::KeyboardModifiers(Qt::ShiftModifier), false);
        row("selection mode", Mode::Selection, Qt::KeyboardModifiers(), false);
        row("selection mode, Shift", Mode::Selection, Qt::KeyboardModifiers(Qt::ShiftModifier), true);
    }
    void dragZoomsOrSelects()
    {
        const auto& [mode, modifiers, zooms] = ModeRow::row();
        QSignalSpy zoomed(&m_scene->tool.zoomer(), &QwtPlotZoomer::zoomed);

        m_scene->tool.setMode(mode);
        m_mouse->drag(at(2.0, 30.0), at(1.0, 90.0), modifiers); // from the right to the left

        QVERIFY(isNear(zooms ? view() : selection(), rect(1.0, 30.0, 2.0, 90.0)));
        QCOMPARE(zoomed.count(), zooms ? 1 : 0);
        QCOMPARE(selection().isNull(), zooms);
        QVERIFY(m_scene->tool.zoomer().isEnabled());
    }

    void dragIsKeptOnTheCanvas()
    {
        for (const Mode mode : {Mode::Selection, Mode::Zoom}) {
            m_scene->tool.setMode(mode);
            m_mouse->drag(at(1.0, 50.0), QPoint(5000, -300));
            const QRectF found = mode == Mode::Zoom ? view() : selection();
            QVERIFY(isNear(found, rect(1.0, 50.0, 3.0, PlotScene::nyquist)));
            QVERIFY(m_scene->tool.zoomer().zoomBase().contains(found));
            m_scene->tool.clearSelection();
        }
    }

    void zoomStaysWithinTheBase_data()
    {
        ZoomRow row;
        row("inside", QRectF(1, 20, 1, 30), QRectF(1, 20, 1, 30));
        row("over the corner", QRectF(-1, -20, 2, 50), QRectF(0, 0, 1, 30));
        row("upside down", QRectF(2, 50, -1, -30), QRectF(1, 20, 1, 30));
        row("beside", QRectF(5, 20, 1, 30), QRectF(0, 0, 3, 125));
    }
    void zoomStaysWithinTheBase()
    {
        const auto& [wanted, shown] = ZoomRow::row();
        m_scene->tool.zoomer().zoom(wanted);
        QCOMPARE(view(), shown);
        QCOMPARE(m_scene->spectrogram->timeLimits().upper, shown.right());
        QCOMPARE(m_scene->spectrogram->frequencyLimits().upper, shown.bottom());
    }

    void rightClickGoesBackOneStep()
    {
        QVector<QRectF> views{view()};
        for (int step = 0; step < 4; ++step) {
            const QRect canvas = m_scene->spectrogram->canvas()->rect();
            m_mouse->drag(canvas.center() / 2, canvas.center() * 3 / 2);
            QVERIFY(view().width() < views.last().width());
            views.append(view());
        }
        m_mouse->drag(at(view().center().x(), view().center().y()), QPoint(5, 5)); // a fifth is too many
        QCOMPARE(view(), views.last());
        for (int step = 3; step >= 0; --step) {
            m_mouse->click(QPoint(50, 50), Qt::RightButton);
            QCOMPARE(view(), views[step]);
        }
        m_mouse->click(QPoint(50, 50), Qt::RightButton);
        QCOMPARE(view(), views[0]);
    }

    void unsteadyClickDoesNothing()
    {
        const QRectF before = view();
        for (const Mode mode : {Mode::Zoom, Mode::Selection}) {
            m_scene->tool.setMode(mode);
            m_mouse->drag(QPoint(100, 100), QPoint(103, 102));
        }
        QCOMPARE(view(), before);
        QVERIFY(selection().isNull());
    }

    void otherFrequenciesBecomeTheBase()
    {
        m_scene->tool.zoomer().zoom(QRectF(1.0, 20.0, 1.0, 30.0));
        m_scene->spectrogram->setFrequencyLimits({10.0, 60.0});
        m_scene->tool.frequencyLimitsChanged();
        QCOMPARE(view(), QRectF(1.0, 10.0, 1.0, 50.0));
        m_mouse->click(QPoint(50, 50), Qt::RightButton);
        QCOMPARE(view(), QRectF(0.0, 10.0, 3.0, 50.0));
    }

    void pointerFindsEdges_data()
    {
        PointerRow row;
        row("inside", 1.5, 60.0, QPoint(), Qt::CrossCursor);
        row("left", 1.0, 60.0, QPoint(-4, 0), Qt::SizeHorCursor);
        row("too far left", 1.0, 60.0, QPoint(-6, 0), Qt::CrossCursor);
        row("right", 2.0, 60.0, QPoint(4, 0), Qt::SizeHorCursor);
        row("above", 1.5, 80.0, QPoint(0, -4), Qt::SizeVerCursor);
        row("below", 1.5, 40.0, QPoint(0, 4), Qt::SizeVerCursor);
        row("top left", 1.0, 80.0, QPoint(1, 1), Qt::SizeFDiagCursor);
        row("bottom left", 1.0, 40.0, QPoint(1, 1), Qt::SizeBDiagCursor);
        row("in line with the left edge, far above", 1.0, 110.0, QPoint(), Qt::CrossCursor);
        row("marker 1", 0.5, 16.0, QPoint(0, 3), Qt::SizeVerCursor);
        row("marker 2, hidden", 0.5, 33.0, QPoint(), Qt::CrossCursor);
    }
    void pointerFindsEdges()
    {
        const auto& [seconds, kilohertz, offset, shape] = PointerRow::row();
        QSignalSpy pointer(&m_scene->tool, &SelectionTool::pointerMoved);
        m_scene->markers.setMarker1Shown(true);
        select();

        m_mouse->move(at(seconds, kilohertz) + offset);

        QCOMPARE(m_scene->spectrogram->canvas()->cursor().shape(), shape);
        QCOMPARE(m_scene->tool.zoomer().isEnabled(), shape == Qt::CrossCursor);
        QVERIFY(!pointer.isEmpty());
        const QPointF told = pointer.last().at(0).toPointF();
        QVERIFY(std::abs(told.x() - seconds) <= 7 * m_pixelSeconds);
        m_scene->tool.clearSelection();
        m_scene->markers.setMarker1Shown(false);
        m_mouse->move(at(seconds, kilohertz) + offset);
        QCOMPARE(m_scene->spectrogram->canvas()->cursor().shape(), Qt::CrossCursor);
        QVERIFY(m_scene->tool.zoomer().isEnabled());
    }

    void draggedEdgesMove_data()
    {
        EdgeRow row;
        row("left", QPointF(1, 60), QPointF(0.5, 10), rect(0.5, 40, 2, 80));
        row("right", QPointF(2, 60), QPointF(2.5, 60), rect(1, 40, 2.5, 80));
        row("top", QPointF(1.5, 80), QPointF(1.5, 100), rect(1, 40, 2, 100));
        row("bottom", QPointF(1.5, 40), QPointF(2.9, 20), rect(1, 20, 2, 80));
        row("corner", QPointF(2, 80), QPointF(2.5, 100), rect(1, 40, 2.5, 100));
        row("left, past the right one", QPointF(1, 60), QPointF(2.5, 60), rect(2, 40, 2, 80));
        row("bottom, past the top one", QPointF(1.5, 40), QPointF(1.5, 110), rect(1, 80, 2, 80));
        row("top, past the bottom one", QPointF(1.5, 80), QPointF(1.5, 5), rect(1, 40, 2, 40));
        row("right, off the canvas", QPointF(2, 60), QPointF(9, 60), rect(1, 40, 3, 80));
        row("bottom, off the canvas", QPointF(1.5, 40), QPointF(1.5, -50), rect(1, 0, 2, 80));
    }
    void draggedEdgesMove()
    {
        const auto& [from, to, selection] = EdgeRow::row();
        const QRectF before = view();
        select();
        m_mouse->drag(at(from.x(), from.y()), at(to.x(), to.y()));
        QVERIFY(isNear(this->selection(), selection));
        QCOMPARE(view(), before);
    }

    void selectionShowsOnTheTimePlot()
    {
        const RangeMarker& marked = m_scene->time->selectedRange();
        QVERIFY(!marked.range().isValid());
        select();
        QCOMPARE(marked.range().lower, selection().left());
        QCOMPARE(marked.range().upper, selection().right());
        m_mouse->drag(at(1.0, 60.0), at(0.2, 60.0));
        QCOMPARE(marked.range().lower, selection().left());
        m_scene->showResult(); // another recording
        QVERIFY(selection().isNull());
        QVERIFY(!marked.range().isValid());
    }

    void escapeAbortsADrag()
    {
        const QRectF before = view();
        for (const Mode mode : {Mode::Zoom, Mode::Selection}) {
            m_scene->tool.setMode(mode);
            pressAndMove(QPoint(50, 50), QPoint(200, 200));
            m_mouse->key(Qt::Key_Escape);
            moveAndRelease(QPoint(250, 250));
            QCOMPARE(view(), before);
            QVERIFY(selection().isNull());
            QVERIFY(m_scene->tool.zoomer().isEnabled());
        }
        m_mouse->drag(QPoint(50, 50), QPoint(200, 200)); // and the next one works
        QVERIFY(!selection().isNull());
    }

    void escapeHidesTheSelectionInZoomMode()
    {
        m_scene->tool.setMode(Mode::Selection);
        select();
        m_mouse->key(Qt::Key_Escape);
        QVERIFY(!selection().isNull());
        m_scene->tool.setMode(Mode::Zoom);
        m_scene->tool.zoomer().zoom(QRectF(0.5, 20.0, 2.0, 70.0));
        m_mouse->key(Qt::Key_Escape);
        QVERIFY(selection().isNull());
        QCOMPARE(view(), QRectF(0.5, 20.0, 2.0, 70.0)); // the zoom stays
    }

    void escapeTakesADraggedEdgeBack()
    {
        select();
        const QRectF before = selection();
        pressAndMove(at(1.0, 60.0), at(0.3, 60.0));
        QVERIFY(selection() != before);
        m_mouse->key(Qt::Key_Escape);
        moveAndRelease(at(0.1, 60.0));
        QCOMPARE(selection(), before);
    }

    void selectionThatGoesDuringADragStaysAway()
    {
        select();
        pressAndMove(at(1.0, 60.0), at(0.3, 60.0));
        m_scene->showResult();
        moveAndRelease(at(0.2, 60.0));
        m_mouse->move(at(0.4, 60.0));
        QVERIFY(selection().isNull());
    }

    void buttonsShowTheMode()
    {
        QToolButton zoom;
        QToolButton select;
        m_scene->tool.setButtons(zoom, select);
        // As the main window does it.
        connect(&zoom, &QToolButton::pressed, this, [this] { m_scene->tool.setMode(Mode::Zoom); });
        connect(&select, &QToolButton::pressed, this, [this] { m_scene->tool.setMode(Mode::Selection); });
        QVERIFY(zoom.isChecked() && !select.isChecked());
        for (QToolButton* button : {&select, &select, &zoom}) {
            button->click();
            QVERIFY(zoom.isChecked() == (button == &zoom) && select.isChecked() == (button == &select));
            QVERIFY(m_scene->tool.mode() == (button == &zoom ? Mode::Zoom : Mode::Selection));
        }
    }

    void positionTexts()
    {
        QCOMPARE(PositionText::timeAndFrequency({1.23456, 45.6789}), QStringLiteral("1.2346 s, 45.679 kHz"));
        QCOMPARE(PositionText::timeAndAmplitude({1.23456, -0.26}), QStringLiteral("1.2346 s, -0.3"));
    }

    void nothingIsDrawnAgainForThePointer()
    {
        QTest::qWait(100); // the curve is made for the last size of its plot
        m_scene->markers.setMarker1Shown(true);
        m_scene->playCursor.setVisible(true);
        select();
        auto* spectrogram = new DrawCounter(m_scene->spectrogram);
        auto* time = new DrawCounter(m_scene->time);
        m_scene->spectrogram->replot();
        m_scene->time->replot();
        PlotScene::settle();
        QVERIFY(spectrogram->count > 0 && time->count > 0);
        spectrogram->count = time->count = 0;

        for (int i = 0; i < 10; ++i) {
            m_mouse->move(QPoint(20 * i, 10 * i));
            m_scene->playCursor.moveTo(0.1 * i);
            PlotScene::settle();
        }
        m_mouse->drag(at(1.0, 60.0), at(0.5, 60.0));
        m_mouse->drag(at(0.4, 16.0), at(0.4, 90.0));
        PlotScene::settle();
        QVERIFY(m_scene->settings.value(SettingKeys::valueMarker1) > 80.0);
        QCOMPARE(spectrogram->count, 0);
        QCOMPARE(time->count, 0);
    }

private:
    QPoint at(double seconds, double kilohertz) const
    {
        return {qRound(m_scene->spectrogram->transform(QwtPlot::xBottom, seconds)),
                qRound(m_scene->spectrogram->transform(QwtPlot::yLeft, kilohertz))};
    }
    /// From 1 to 2 s and 40 to 80 kHz, in whole pixels.
    void select() { m_scene->tool.plotSelectionRect(QPolygon() << at(1.0, 80.0) << at(2.0, 40.0)); }
    static QRectF rect(double left, double bottom, double right, double top)
    {
        return QRectF(QPointF(left, bottom), QPointF(right, top));
    }
    /// To the pixel.
    bool isNear(const QRectF& a, const QRectF& b) const
    {
        return std::abs(a.left() - b.left()) <= m_pixelSeconds &&
               std::abs(a.right() - b.right()) <= m_pixelSeconds &&
               std::abs(a.top() - b.top()) <= m_pixelKilohertz &&
               std::abs(a.bottom() - b.bottom()) <= m_pixelKilohertz;
    }
    void pressAndMove(const QPoint& from, const QPoint& to)
    {
        m_mouse->move(from);
        m_mouse->press(from);
        m_mouse->move(to);
    }
    void moveAndRelease(const QPoint& at)
    {
        m_mouse->move(at);
        m_mouse->release(at);
    }
    QRectF selection() const { return m_scene->tool.selection(); }
    QRectF view() const { return m_scene->tool.zoomer().zoomRect(); }

    TemporarySettings m_settings;
    std::unique_ptr<PlotScene> m_scene;
    std::unique_ptr<CanvasMouse> m_mouse;
    double m_pixelSeconds = 0;   ///< width of a pixel
    double m_pixelKilohertz = 0; ///< height of a pixel
};

QTEST_MAIN(tst_ZoomAndSelection)
#include "tst_ZoomAndSelection.moc"
