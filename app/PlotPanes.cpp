#include "app/PlotPanes.h"

#include "base/SettingsStore.h"
#include "ui_MainWindow.h"

#include <QEvent>

PlotPanes::PlotPanes(const Ui::MainWindow& form, SettingsStore& settings, QObject* parent)
    : QObject(parent), m_form(form), m_settings(settings)
{
    m_form.splitter->setStretchFactor(0, 3);
    m_form.splitter->setStretchFactor(1, 2);
    m_form.splitter->setCollapsible(0, false);
    m_form.splitter->setSizes({600, 280});
    m_form.splitterLists->setStretchFactor(0, 1);
    m_form.splitterLists->setStretchFactor(1, 2);
    m_form.splitterLists->setSizes({300, 800, 800});
    m_form.splitter_2->setStretchFactor(0, 1);
    m_form.splitter_2->setStretchFactor(1, 3);
    m_form.splitter_2->setSizes({150, 450});
    m_form.splitter_3->setStretchFactor(0, 0);
    m_form.splitter_3->setStretchFactor(1, 1);
    m_form.splitter_3->setCollapsible(1, false);
    // The pane of the frequency plot also changes its width when the lists or the bar beside it do.
    m_form.frame->installEventFilter(this);
}

void PlotPanes::setTimePlotShown(bool shown)
{
    m_settings.setValue(SettingKeys::showAmplitude, shown);
    showTimePlot(shown);
}

void PlotPanes::setFrequencyPlotShown(bool shown)
{
    m_settings.setValue(SettingKeys::showFrequency, shown);
    showFrequencyPlot(shown);
}

void PlotPanes::restore()
{
    const bool time = m_settings.value(SettingKeys::showAmplitude);
    m_form.actionAmplitude_Plot->setChecked(time);
    showTimePlot(time);
    const bool frequency = m_settings.value(SettingKeys::showFrequency);
    m_form.actionFrequency_Axis_Plot->setChecked(frequency);
    showFrequencyPlot(frequency);
}

void PlotPanes::showTimePlot(bool shown)
{
    m_form.frame_3->setVisible(shown);
    m_form.timePlotRow->setVisible(shown);
}

void PlotPanes::showFrequencyPlot(bool shown)
{
    m_form.frame->setVisible(shown);
    m_form.widget_2->setVisible(shown);
    align();
}

void PlotPanes::showListsOf(int viewMode)
{
    m_form.groupBox_8->setVisible(viewMode == 1);
    m_form.groupBox_6->setVisible(viewMode > 1);
    m_form.treeWidget_fileView->setVisible(viewMode > 1);
    m_form.label_9->setVisible(viewMode > 1);
    m_form.splitterLists->setVisible(viewMode > 0);
}

void PlotPanes::align()
{
    if (!m_settings.value(SettingKeys::showFrequency))
        return;
    const int pane = m_form.splitter_3->sizes().constFirst();
    m_form.timePlotRow->layout()->setSpacing(m_form.splitter_3->handleWidth());
    m_form.widget_2->setMinimumSize(pane, m_form.widget_2->height());
}

bool PlotPanes::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        align();
    return QObject::eventFilter(object, event);
}
