#include "tests/support/CanvasMouse.h"
#include "tests/support/DrawCounter.h"
#include "tests/support/PlotScene.h"
#include "tests/support/TemporarySettings.h"
#include "viewer/PositionText.h"
#include "viewer/RangeMarker.h"

#include <QSignalSpy>
#include <QToolButton>
#include <QtTest>

using Mode = SelectionTool::Mode;

Q_DECLARE_METATYPE(SelectionTool::Mode)

class tst_ZoomAndSelection : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void dragZoomsOrSelects_data();
    void dragZoomsOrSelects();
    void dragIsKeptOnTheCanvas();
    void zoomStaysWithinTheBase_data();
    void zoomStaysWithinTheBase();
    void rightClickGoesBackOneStep();
    void unsteadyClickDoesNothing();
    void otherFrequenciesBecomeTheBase();

    void pointerFindsEdges_data();
    void pointerFindsEdges();
    void draggedEdgesMove_data();
    void draggedEdgesMove();
    void selectionShowsOnTheTimePlot();

    void escapeAbortsADrag();
    void escapeHidesTheSelectionInZoomMode();
    void escapeTakesADraggedEdgeBack();
    void selectionThatGoesDuringADragStaysAway();

    void buttonsShowTheMode();
    void positionTexts();
    void nothingIsDrawnAgainForThePointer();

private:
    QPoint at(double seconds, double kilohertz) const
    {
        return {qRound(m_scene->spectrogram->transform(QwtPlot::xBottom, seconds)),
                qRound(m_scene->spectrogram->transform(QwtPlot::yLeft, kilohertz))};
    }
    /// From 1 to 2 s and 40 to 80 kHz, in whole pixels.
    void select() { m_scene->tool.plotSelectionRect(QPolygon() << at(1.0, 80.0) << at(2.0, 40.0)); }
    QRectF selection() const { return m_scene->tool.selection(); }
    QRectF view() const { return m_scene->tool.zoomer().zoomRect(); }

    TemporarySettings m_settings;
    std::unique_ptr<PlotScene> m_scene;
    std::unique_ptr<CanvasMouse> m_mouse;
    double m_pixelSeconds = 0;   ///< width of a pixel
    double m_pixelKilohertz = 0; ///< height of a pixel
};

void tst_ZoomAndSelection::initTestCase()
{
    QLocale::setDefault(QLocale::c());
}

void tst_ZoomAndSelection::init()
{
    m_settings.clear();
    m_scene = std::make_unique<PlotScene>(3.0, 255, 500, QSize(900, 600));
    m_scene->tool.connectPickers(&m_scene->tool);
    m_scene->markers.connectPickers(&m_scene->markers);
    m_mouse = std::make_unique<CanvasMouse>(m_scene->spectrogram->canvas());
    m_pixelSeconds = 3.0 / m_scene->spectrogram->canvas()->width();
    m_pixelKilohertz = PlotScene::nyquist * 1.0 / m_scene->spectrogram->canvas()->height();
}

void tst_ZoomAndSelection::cleanup()
{
    m_mouse.reset();
    m_scene.reset();
}

void tst_ZoomAndSelection::dragZoomsOrSelects_data()
{
    QTest::addColumn<Mode>("mode");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<bool>("zooms");
    QTest::newRow("zoom mode") << Mode::Zoom << Qt::KeyboardModifiers() << true;
    QTest::newRow("zoom mode, Shift") << Mode::Zoom << Qt::KeyboardModifiers(Qt::ShiftModifier) << false;
    QTest::newRow("selection mode") << Mode::Selection << Qt::KeyboardModifiers() << false;
    QTest::newRow("selection mode, Shift")
        << Mode::Selection << Qt::KeyboardModifiers(Qt::ShiftModifier) << true;
}

void tst_ZoomAndSelection::dragZoomsOrSelects()
{
    QFETCH(Mode, mode);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(bool, zooms);
    QSignalSpy zoomed(&m_scene->tool.zoomer(), &QwtPlotZoomer::zoomed);

    m_scene->tool.setMode(mode);
    m_mouse->drag(at(2.0, 30.0), at(1.0, 90.0), modifiers); // from the right to the left

    const QRectF found = zooms ? view() : selection();
    QVERIFY(std::abs(found.left() - 1.0) <= m_pixelSeconds);
    QVERIFY(std::abs(found.right() - 2.0) <= m_pixelSeconds);
    QVERIFY(std::abs(found.top() - 30.0) <= m_pixelKilohertz);
    QVERIFY(std::abs(found.bottom() - 90.0) <= m_pixelKilohertz);
    QCOMPARE(zoomed.count(), zooms ? 1 : 0);
    QCOMPARE(selection().isNull(), zooms);
    QVERIFY(m_scene->tool.zoomer().isEnabled());
}

void tst_ZoomAndSelection::dragIsKeptOnTheCanvas()
{
    const QPoint outside(5000, -300);
    m_scene->tool.setMode(Mode::Selection);
    m_mouse->drag(at(1.0, 50.0), outside);
    QVERIFY(std::abs(selection().right() - 3.0) <= m_pixelSeconds);
    QVERIFY(std::abs(selection().bottom() - PlotScene::nyquist) <= m_pixelKilohertz);

    m_scene->tool.setMode(Mode::Zoom);
    m_scene->tool.clearSelection();
    m_mouse->drag(at(2.0, 50.0), outside);
    QVERIFY(std::abs(view().right() - 3.0) <= m_pixelSeconds);
    QVERIFY(std::abs(view().bottom() - PlotScene::nyquist) <= m_pixelKilohertz);
    QVERIFY(m_scene->tool.zoomer().zoomBase().contains(view()));
}

void tst_ZoomAndSelection::zoomStaysWithinTheBase_data()
{
    QTest::addColumn<QRectF>("wanted");
    QTest::addColumn<QRectF>("shown");
    QTest::newRow("inside") << QRectF(1, 20, 1, 30) << QRectF(1, 20, 1, 30);
    QTest::newRow("over the corner") << QRectF(-1, -20, 2, 50) << QRectF(0, 0, 1, 30);
    QTest::newRow("upside down") << QRectF(2, 50, -1, -30) << QRectF(1, 20, 1, 30);
    QTest::newRow("beside") << QRectF(5, 20, 1, 30) << QRectF(0, 0, 3, 125);
}

void tst_ZoomAndSelection::zoomStaysWithinTheBase()
{
    QFETCH(QRectF, wanted);
    QFETCH(QRectF, shown);
    m_scene->tool.zoomer().zoom(wanted);
    QCOMPARE(view(), shown);
    QCOMPARE(m_scene->spectrogram->timeLimits().upper, shown.right());
    QCOMPARE(m_scene->spectrogram->frequencyLimits().upper, shown.bottom());
}

void tst_ZoomAndSelection::rightClickGoesBackOneStep()
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

void tst_ZoomAndSelection::unsteadyClickDoesNothing()
{
    const QRectF before = view();
    for (const Mode mode : {Mode::Zoom, Mode::Selection}) {
        m_scene->tool.setMode(mode);
        m_mouse->drag(QPoint(100, 100), QPoint(103, 102));
    }
    QCOMPARE(view(), before);
    QVERIFY(selection().isNull());
}

void tst_ZoomAndSelection::otherFrequenciesBecomeTheBase()
{
    m_scene->tool.zoomer().zoom(QRectF(1.0, 20.0, 1.0, 30.0));
    m_scene->spectrogram->setFrequencyLimits({10.0, 60.0});
    m_scene->tool.frequencyLimitsChanged();
    QCOMPARE(view(), QRectF(1.0, 10.0, 1.0, 50.0));
    m_mouse->click(QPoint(50, 50), Qt::RightButton);
    QCOMPARE(view(), QRectF(0.0, 10.0, 3.0, 50.0));
}

void tst_ZoomAndSelection::pointerFindsEdges_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<double>("kilohertz");
    QTest::addColumn<QPoint>("offset"); ///< pixels
    QTest::addColumn<Qt::CursorShape>("shape");
    QTest::newRow("inside") << 1.5 << 60.0 << QPoint() << Qt::CrossCursor;
    QTest::newRow("left") << 1.0 << 60.0 << QPoint(-4, 0) << Qt::SizeHorCursor;
    QTest::newRow("too far left") << 1.0 << 60.0 << QPoint(-6, 0) << Qt::CrossCursor;
    QTest::newRow("right") << 2.0 << 60.0 << QPoint(4, 0) << Qt::SizeHorCursor;
    QTest::newRow("above") << 1.5 << 80.0 << QPoint(0, -4) << Qt::SizeVerCursor;
    QTest::newRow("below") << 1.5 << 40.0 << QPoint(0, 4) << Qt::SizeVerCursor;
    QTest::newRow("top left") << 1.0 << 80.0 << QPoint(1, 1) << Qt::SizeFDiagCursor;
    QTest::newRow("bottom left") << 1.0 << 40.0 << QPoint(1, 1) << Qt::SizeBDiagCursor;
    QTest::newRow("in line with the left edge, far above") << 1.0 << 110.0 << QPoint() << Qt::CrossCursor;
    QTest::newRow("marker 1") << 0.5 << 16.0 << QPoint(0, 3) << Qt::SizeVerCursor;
    QTest::newRow("marker 2, hidden") << 0.5 << 33.0 << QPoint() << Qt::CrossCursor;
}

void tst_ZoomAndSelection::pointerFindsEdges()
{
    QFETCH(double, seconds);
    QFETCH(double, kilohertz);
    QFETCH(QPoint, offset);
    QFETCH(Qt::CursorShape, shape);
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

void tst_ZoomAndSelection::draggedEdgesMove_data()
{
    QTest::addColumn<QPointF>("from");
    QTest::addColumn<QPointF>("to");
    QTest::addColumn<QRectF>("selection");
    const auto rect = [](double left, double bottom, double right, double top) {
        return QRectF(QPointF(left, bottom), QPointF(right, top));
    };
    QTest::newRow("left") << QPointF(1, 60) << QPointF(0.5, 10) << rect(0.5, 40, 2, 80);
    QTest::newRow("right") << QPointF(2, 60) << QPointF(2.5, 60) << rect(1, 40, 2.5, 80);
    QTest::newRow("top") << QPointF(1.5, 80) << QPointF(1.5, 100) << rect(1, 40, 2, 100);
    QTest::newRow("bottom") << QPointF(1.5, 40) << QPointF(2.9, 20) << rect(1, 20, 2, 80);
    QTest::newRow("corner") << QPointF(2, 80) << QPointF(2.5, 100) << rect(1, 40, 2.5, 100);
    QTest::newRow("left, past the right one") << QPointF(1, 60) << QPointF(2.5, 60) << rect(2, 40, 2, 80);
    QTest::newRow("top, past the bottom one") << QPointF(1.5, 80) << QPointF(1.5, 5) << rect(1, 40, 2, 40);
    QTest::newRow("right, off the canvas") << QPointF(2, 60) << QPointF(9, 60) << rect(1, 40, 3, 80);
    QTest::newRow("bottom, off the canvas") << QPointF(1.5, 40) << QPointF(1.5, -50) << rect(1, 0, 2, 80);
}

void tst_ZoomAndSelection::draggedEdgesMove()
{
    QFETCH(QPointF, from);
    QFETCH(QPointF, to);
    QFETCH(QRectF, selection);
    const QRectF before = view();
    select();
    m_mouse->drag(at(from.x(), from.y()), at(to.x(), to.y()));
    const QRectF found = this->selection();
    QVERIFY(std::abs(found.left() - selection.left()) <= m_pixelSeconds);
    QVERIFY(std::abs(found.right() - selection.right()) <= m_pixelSeconds);
    QVERIFY(std::abs(found.top() - selection.top()) <= m_pixelKilohertz);
    QVERIFY(std::abs(found.bottom() - selection.bottom()) <= m_pixelKilohertz);
    QCOMPARE(view(), before);
}

void tst_ZoomAndSelection::selectionShowsOnTheTimePlot()
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

void tst_ZoomAndSelection::escapeAbortsADrag()
{
    const QRectF before = view();
    for (const Mode mode : {Mode::Zoom, Mode::Selection}) {
        m_scene->tool.setMode(mode);
        m_mouse->press(QPoint(50, 50));
        m_mouse->move(QPoint(200, 200));
        m_mouse->key(Qt::Key_Escape);
        m_mouse->move(QPoint(250, 250));
        m_mouse->release(QPoint(250, 250));
        QCOMPARE(view(), before);
        QVERIFY(selection().isNull());
        QVERIFY(m_scene->tool.zoomer().isEnabled());
    }
    m_mouse->drag(QPoint(50, 50), QPoint(200, 200)); // and the next one works
    QVERIFY(!selection().isNull());
}

void tst_ZoomAndSelection::escapeHidesTheSelectionInZoomMode()
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

void tst_ZoomAndSelection::escapeTakesADraggedEdgeBack()
{
    select();
    const QRectF before = selection();
    m_mouse->move(at(1.0, 60.0));
    m_mouse->press(at(1.0, 60.0));
    m_mouse->move(at(0.3, 60.0));
    QVERIFY(selection() != before);
    m_mouse->key(Qt::Key_Escape);
    m_mouse->move(at(0.1, 60.0));
    m_mouse->release(at(0.1, 60.0));
    QCOMPARE(selection(), before);
}

void tst_ZoomAndSelection::selectionThatGoesDuringADragStaysAway()
{
    select();
    m_mouse->move(at(1.0, 60.0));
    m_mouse->press(at(1.0, 60.0));
    m_mouse->move(at(0.3, 60.0));
    m_scene->showResult();
    m_mouse->move(at(0.2, 60.0));
    m_mouse->release(at(0.2, 60.0));
    m_mouse->move(at(0.4, 60.0));
    QVERIFY(selection().isNull());
}

void tst_ZoomAndSelection::buttonsShowTheMode()
{
    QToolButton zoom;
    QToolButton select;
    m_scene->tool.setButtons(zoom, select);
    // As the main window does it.
    connect(&zoom, &QToolButton::pressed, this, [this] { m_scene->tool.setMode(Mode::Zoom); });
    connect(&select, &QToolButton::pressed, this, [this] { m_scene->tool.setMode(Mode::Selection); });
    QVERIFY(zoom.isChecked() && !select.isChecked());
    for (int clicks = 0; clicks < 2; ++clicks) {
        select.click();
        QVERIFY(!zoom.isChecked() && select.isChecked());
        QVERIFY(m_scene->tool.mode() == Mode::Selection);
    }
    zoom.click();
    QVERIFY(zoom.isChecked() && !select.isChecked());
    QVERIFY(m_scene->tool.mode() == Mode::Zoom);
}

void tst_ZoomAndSelection::positionTexts()
{
    QCOMPARE(PositionText::timeAndFrequency({1.23456, 45.6789}), QStringLiteral("1.2346 s, 45.679 kHz"));
    QCOMPARE(PositionText::timeAndAmplitude({1.23456, -0.26}), QStringLiteral("1.2346 s, -0.3"));
}

void tst_ZoomAndSelection::nothingIsDrawnAgainForThePointer()
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

QTEST_MAIN(tst_ZoomAndSelection)
#include "tst_ZoomAndSelection.moc"
