#ifndef SONAVIA_APP_PAINTWATCH_H
#define SONAVIA_APP_PAINTWATCH_H

#include <QObject>

class QWidget;

/// Tells when a widget has been painted: after arm(), painted() follows the next complete paint event. Used
/// to measure and to take pictures of what a user really sees. GUI thread; lives as long as the widget.
class PaintWatch : public QObject
{
    Q_OBJECT

public:
    explicit PaintWatch(QWidget* widget);

    void arm();

signals:
    void painted();

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    bool m_armed = false;
};

#endif
