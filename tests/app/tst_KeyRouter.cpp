#include "app/KeyRouter.h"
#include "recordings/RecordingSession.h"

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <QtTest>

#include <memory>

/// Keys as they come from the window system, through the window to the widget with the focus.
class tst_KeyRouter : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanupTestCase() { qApp->removeEventFilter(this); }

    void keys_data();
    void keys();
    void autoRepeatOnlyMoves();
    void dialogsKeepTheirKeys();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        return m_router && m_router->handle(watched, event);
    }

private:
    KeyRouter::Command log(const char* text)
    {
        return [this, text] { m_done << text; };
    }
    void type(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(m_window.windowHandle(), static_cast<Qt::Key>(key), modifiers);
    }
    QWidget* widget(const QString& name) const { return m_window.findChild<QWidget*>(name); }

    QWidget m_window;
    QTreeWidget* m_list = nullptr;
    RecordingSession m_session;
    std::unique_ptr<KeyRouter> m_router;
    QStringList m_done;
    QString m_classKeys = "<A><Z>";
};

void tst_KeyRouter::initTestCase()
{
    QApplication::setKeyboardInputInterval(0); // each letter searches anew
    auto* layout = new QVBoxLayout(&m_window);
    const auto add = [&](QWidget* child, const char* name) {
        child->setObjectName(name);
        child->setFocusPolicy(Qt::StrongFocus);
        layout->addWidget(child);
    };
    m_list = new QTreeWidget;
    add(m_list, "list");
    add(new QTreeWidget, "folder");
    add(new QTreeWidget, "classes");
    add(new QWidget, "canvas");
    add(new QPushButton, "button");
    add(new QLineEdit, "line");
    for (const char* name : {"a.wav", "y.wav", "z.wav"})
        new QTreeWidgetItem(m_list, {name});

    m_router = std::make_unique<KeyRouter>(m_window, m_session);
    const auto assign = [this](const QString& shortcut) {
        if (!m_classKeys.contains(shortcut))
            return false;
        m_done << shortcut;
        return true;
    };
    m_router->addList(*m_list, {log("previous"), log("next"), log("load"), log("edit"), log("remove"),
                                log("accept"), assign});
    m_router->addList(*qobject_cast<QTreeWidget*>(widget("folder")),
                      {log("previous 2"), log("next 2"), log("load 2"), {}, {}, {}, {}});
    m_router->addClassTree(*qobject_cast<QTreeWidget*>(widget("classes")), log("assign class"),
                           log("activate"), log("remove class"));
    m_router->setPlayPause(log("play"));
    connect(qobject_cast<QPushButton*>(widget("button")), &QPushButton::clicked, this,
            [this] { m_done << "click"; });

    qApp->installEventFilter(this);
    m_window.show();
    m_window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&m_window));
}

void tst_KeyRouter::init()
{
    m_session.busy = false;
    m_done.clear();
    m_list->setCurrentItem(m_list->topLevelItem(0));
    m_list->setFocus();
}

void tst_KeyRouter::keys_data()
{
    QTest::addColumn<QString>("focus");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("done");

    const auto row = [](const char* focus, int key, const char* done, int modifiers = Qt::NoModifier) {
        const QString keys = QKeySequence(key | modifiers).toString();
        QTest::newRow(qPrintable(focus + (' ' + keys))) << focus << key << modifiers << done;
    };
    row("list", Qt::Key_Left, "previous");
    row("list", Qt::Key_Right, "next");
    row("list", Qt::Key_Right, "next", Qt::KeypadModifier);
    row("list", Qt::Key_Right, "", Qt::ShiftModifier);
    row("list", Qt::Key_Return, "load");
    row("list", Qt::Key_Enter, "load", Qt::KeypadModifier);
    row("list", Qt::Key_Return, "accept", Qt::ControlModifier);
    row("list", Qt::Key_F2, "edit");
    row("list", Qt::Key_Delete, "remove");
    row("list", Qt::Key_A, "<A>");
    row("list", Qt::Key_Z, "<Z>", Qt::ShiftModifier);
    row("list", Qt::Key_Y, "");
    row("list", Qt::Key_A, "", Qt::ControlModifier);
    row("list", Qt::Key_A, "", Qt::AltModifier);
    row("list", Qt::Key_Space, "play");
    row("folder", Qt::Key_Left, "previous 2");
    row("folder", Qt::Key_A, "");
    row("folder", Qt::Key_Delete, "");
    row("classes", Qt::Key_Return, "assign class");
    row("classes", Qt::Key_Return, "activate", Qt::ControlModifier);
    row("classes", Qt::Key_Delete, "remove class");
    row("classes", Qt::Key_Right, "");
    row("canvas", Qt::Key_Space, "play");
    row("button", Qt::Key_Space, "play");
    row("button", Qt::Key_Return, "click");
    row("line", Qt::Key_Space, "");
    row("line", Qt::Key_Right, "");
}

void tst_KeyRouter::keys()
{
    QFETCH(QString, focus);
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(QString, done);
    widget(focus)->setFocus();
    QVERIFY(widget(focus)->hasFocus());
    type(key, Qt::KeyboardModifiers(modifiers));
    QCOMPARE(m_done.join(' '), done); // once, however many widgets were offered the key

    m_done.clear();
    m_session.busy = true;
    type(key, Qt::KeyboardModifiers(modifiers));
    QCOMPARE(m_done.join(' '), done == QLatin1String("click") ? done : QString());
    if (focus == QLatin1String("list") && !done.isEmpty())
        QCOMPARE(m_list->currentItem(), m_list->topLevelItem(0)); // the list did not act instead
    if (key == Qt::Key_Y)
        QCOMPARE(m_list->currentItem(), m_list->topLevelItem(1)); // but here it did
}

void tst_KeyRouter::autoRepeatOnlyMoves()
{
    const auto repeat = [this](int key, const QString& text = QString()) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text, true);
        QApplication::sendEvent(m_list, &event);
    };
    repeat(Qt::Key_Right);
    repeat(Qt::Key_Right);
    repeat(Qt::Key_Space, " ");
    repeat(Qt::Key_Delete);
    repeat(Qt::Key_A, "a");
    QCOMPARE(m_done.join(' '), QString("next next"));
}

void tst_KeyRouter::dialogsKeepTheirKeys()
{
    QDialog dialog(&m_window);
    auto* inner = new QTreeWidget(&dialog);
    dialog.show();
    dialog.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    inner->setFocus();
    QTest::keyClick(dialog.windowHandle(), Qt::Key_Space);
    QCOMPARE(m_done, QStringList());
    dialog.hide();
    m_window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&m_window));
}

QTEST_MAIN(tst_KeyRouter)
#include "tst_KeyRouter.moc"
