#ifndef SONAVIA_APP_SCREENSHOTRUN_H
#define SONAVIA_APP_SCREENSHOTRUN_H

#include <QObject>

class MainWindow;

/// Saves a picture of the screen when the recording has been drawn, at once where nothing is to be opened,
/// then ends the program: with 0, or with 1 where the recording cannot be shown or the picture not be saved.
/// Made for machines without a display. GUI thread; owned by the window.
class ScreenshotRun : public QObject
{
    Q_OBJECT

public:
    ScreenshotRun(MainWindow& window, const QString& picture, bool opensSomething);

private:
    void save(int exitCode);

    MainWindow& m_window;
    QString m_picture;
};

#endif
