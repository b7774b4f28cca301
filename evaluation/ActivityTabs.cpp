#include "evaluation/ActivityTabs.h"

#include <QStyleOptionTab>
#include <QStylePainter>
#include <QTabBar>

namespace {

QString inTwoLines(const QString& text)
{
    return text.section(QLatin1Char(' '), 0, 1) + QLatin1Char('\n') + text.section(QLatin1Char(' '), 2);
}

class TwoLineTabBar : public QTabBar
{
public:
    TwoLineTabBar() { setElideMode(Qt::ElideNone); }

protected:
    QSize tabSizeHint(int index) const override
    {
        const auto textSize = [this](const QString& text) {
            return fontMetrics().size(Qt::TextShowMnemonic, text);
        };
        return QTabBar::tabSizeHint(index) - textSize(tabText(index)) + textSize(inTwoLines(tabText(index)));
    }

    void paintEvent(QPaintEvent* /*event*/) override
    {
        QStylePainter painter(this);
        const auto draw = [&](int index) {
            QStyleOptionTab option;
            initStyleOption(&option, index);
            option.text = inTwoLines(tabText(index));
            painter.drawControl(QStyle::CE_TabBarTab, option);
        };
        for (int i = 0; i < count(); ++i)
            if (i != currentIndex())
                draw(i);
        if (currentIndex() >= 0) // its edges lie over those of its neighbours
            draw(currentIndex());
    }
};

} // namespace

ActivityTabs::ActivityTabs(QWidget* parent) : QTabWidget(parent)
{
    setTabBar(new TwoLineTabBar);
}
