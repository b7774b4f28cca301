#include "app/BenchmarkRun.h"
#include "app/CommandLine.h"
#include "app/MainWindow.h"
#include "app/QueuedTypes.h"
#include "app/ScreenshotRun.h"

#include <QApplication>
#include <QIcon>
#include <QTimer>

#include <cstdio>
#include <memory>

namespace {

/// Before there is an application: what was asked for may need no display.
QStringList argumentList(int argc, char* argv[])
{
#ifdef Q_OS_WIN
    // There argv is in the code page of the system, which lacks letters that paths may have.
    const QCoreApplication application(argc, argv);
    return QCoreApplication::arguments();
#else
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    return arguments;
#endif
}

} // namespace

int main(int argc, char* argv[])
{
    const CommandLine line = parseCommandLine(argumentList(argc, argv));
    if (!line.text.isEmpty()) {
        std::fputs(qPrintable(line.text), line.exitCode == 0 ? stdout : stderr);
        return line.exitCode;
    }

    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    const QApplication application(argc, argv);
    Q_INIT_RESOURCE(sonavia);
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/images/Icon.ico")));

    const auto window = std::make_unique<MainWindow>();
    window->show();
    window->activateWindow(); // where no window manager does it, shortcuts would wait for a first click
    registerQueuedTypes();

    if (line.automaticClassification)
        window->showAutomaticClassification();
    if (!line.screenshot.isEmpty()) // owned by the window, like the benchmark
        new ScreenshotRun(*window, line.screenshot, !line.path.isEmpty());
    if (!line.benchmark.isEmpty())
        new BenchmarkRun(*window, line.benchmark);
    if (!line.path.isEmpty())
        QTimer::singleShot(0, window.get(), [&] { window->open(line.path); });
    return QApplication::exec();
}
