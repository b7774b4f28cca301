#ifndef SONAVIA_EVALUATION_ACTIVITYTABS_H
#define SONAVIA_EVALUATION_ACTIVITYTABS_H

#include <QTabWidget>

/// A tab widget whose tabs have their texts in two lines, the first two words and the rest: seven long names
/// fit side by side, also in a large font. tabText() gives a text as it was set.
class ActivityTabs : public QTabWidget
{
    Q_OBJECT

public:
    explicit ActivityTabs(QWidget* parent = nullptr);
};

#endif
