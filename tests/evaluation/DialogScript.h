#ifndef SONAVIA_TESTS_EVALUATION_DIALOGSCRIPT_H
#define SONAVIA_TESTS_EVALUATION_DIALOGSCRIPT_H

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QTimer>

#include <deque>
#include <functional>

/// Works the modal dialogs that come up while it lives, each by the next step that knows its kind.
class DialogScript
{
public:
    DialogScript()
    {
        QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        QObject::connect(&m_timer, &QTimer::timeout, [this] { work(); });
        m_timer.start(10);
    }

    /// `work` is to end the dialog.
    template <typename Dialog>
    void on(const std::function<void(Dialog&)>& work)
    {
        m_steps.push_back([work](QWidget* widget) {
            auto* dialog = qobject_cast<Dialog*>(widget);
            if (dialog)
                work(*dialog);
            return dialog != nullptr;
        });
    }

    /// Chooses a file or a folder; notes title, start folder and filter in `asked`.
    void choosePath(const QString& path)
    {
        on<QFileDialog>([this, path](QFileDialog& dialog) {
            asked.append(dialog.windowTitle() + '|' + dialog.directory().path() + '|' +
                         dialog.nameFilters().join(','));
            dialog.findChild<QLineEdit*>("fileNameEdit")->setText(path);
            QMetaObject::invokeMethod(&dialog, "accept");
        });
    }

    template <typename Dialog>
    void accept()
    {
        on<Dialog>([](Dialog& dialog) { dialog.accept(); });
    }
    template <typename Dialog>
    void cancel()
    {
        on<Dialog>([](Dialog& dialog) { dialog.reject(); });
    }

    /// No step is left.
    bool isDone() const { return m_steps.empty(); }

    QStringList asked;

private:
    void work()
    {
        QWidget* widget = QApplication::activeModalWidget();
        if (!widget || m_steps.empty())
            return;
        const auto step = m_steps.front();
        m_steps.pop_front(); // a step may bring up the next dialog itself
        if (!step(widget))
            m_steps.push_front(step);
    }

    QTimer m_timer;
    std::deque<std::function<bool(QWidget*)>> m_steps;
};

#endif
