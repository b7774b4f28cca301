#ifndef SONAVIA_APP_ABOUTBOX_H
#define SONAVIA_APP_ABOUTBOX_H

#include <QString>

class QWidget;

/// The rich text of the About box, with `year` as the current year.
QString aboutText(int year);

/// Shows the About box and returns when it has been closed.
void showAboutBox(QWidget* parent);

#endif
