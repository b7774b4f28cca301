#include "app/ScreenshotRun.h"

#include "app/MainWindow.h"

#include <QApplication>
#include <QDebug>
#include <QScreen>
#include <QTimer>

namespace {

constexpr QSize pictureSize(1240, 900);
/// After the first recording and a change of size everything finds its place in a moment.
constexpr int settlingMilliseconds = 500;
/// A box that says why nothing is drawn stands on the screen by then, and comes into the picture.
constexpr int patienceMilliseconds = 60000;

} // namespace

ScreenshotRun::ScreenshotRun(MainWindow& window, const QString& picture, bool opensSomething)
    : QObject(&window), m_window(window), m_picture(picture)
{
    if (!opensSomething)
        QTimer::singleShot(settlingMilliseconds, this, [this] { save(0); });
    connect(&window, &MainWindow::spectrogramPainted, this, [this] {
        m_window.setGeometry(QRect(QPoint(10, 30), pictureSize));
        QTimer::singleShot(settlingMilliseconds, this, [this] { save(0); });
    });
    QTimer::singleShot(patienceMilliseconds, this, [this] { save(1); });
}

void ScreenshotRun::save(int exitCode)
{
    QPixmap picture;
    if (QScreen* screen = m_window.screen())
        picture = screen->grabWindow(0);
    if (picture.isNull())
        picture = m_window.grab();
    const bool saved = picture.save(m_picture);
    if (!saved)
        qWarning().noquote() << "The picture could not be written to" << m_picture;
    QCoreApplication::exit(saved ? exitCode : 1);
}
