#include "classes/FileRun.h"

#include <QApplication>
#include <QKeyEvent>
#include <QProgressDialog>
#include <QWindow>

#include <utility>

namespace {

constexpr int minimumDuration = 500; // ms
constexpr int progressInterval = 25; // ms between two values shown; a shown dialog runs the event loop
constexpr int workSlice = 15;        // ms

using Answer = UserPrompts::Answer;

bool isInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::ContextMenu:
    case QEvent::DragEnter:
    case QEvent::Drop:
        return true;
    default:
        return false;
    }
}

} // namespace

FileRun::FileRun(QWidget& window, UserPrompts& prompts)
    : QObject(&window), m_window(window), m_prompts(prompts)
{
    m_workTimer.setSingleShot(true);
    m_workTimer.setInterval(0);
    connect(&m_workTimer, &QTimer::timeout, this, &FileRun::workOn);
}

FileRun::~FileRun() = default;

void FileRun::start(Setup setup, std::function<void(int)> request)
{
    m_request = std::move(request);
    m_work = nullptr;
    begin(std::move(setup));
}

void FileRun::startHere(Setup setup, std::function<bool(int)> work)
{
    m_request = nullptr;
    m_work = std::move(work);
    begin(std::move(setup));
}

void FileRun::useRows()
{
    if (++m_rowUsers == 1)
        emit rowsInUseChanged(true);
}

void FileRun::releaseRows()
{
    if (--m_rowUsers == 0)
        emit rowsInUseChanged(false);
}

void FileRun::begin(Setup setup)
{
    m_setup = std::move(setup);
    const FileChain::Step step = m_chain.begin(m_setup.count);
    if (m_chain.isActive()) {
        makeProgress();
        qApp->installEventFilter(this);
        useRows();
    }
    if (m_work && step == FileChain::Step::Request)
        workOn();
    else
        follow(step);
}

void FileRun::answered(int index, bool success)
{
    if (!m_chain.expects(index))
        return;
    // The row of this file is up to date; the value may run the event loop, so the next request comes last.
    showProgress(index);
    if (m_progress->wasCanceled())
        m_chain.stop();
    follow(m_chain.answered(index, success));
}

void FileRun::follow(FileChain::Step step)
{
    if (step == FileChain::Step::AskAboutError)
        step = m_chain.resolve(askAboutError());
    switch (step) {
    case FileChain::Step::Request:
        if (m_request)
            m_request(m_chain.index());
        else
            m_workTimer.start();
        break;
    case FileChain::Step::Done:
        end(true);
        break;
    case FileChain::Step::Stopped:
        end(false);
        break;
    case FileChain::Step::AskAboutError:
    case FileChain::Step::Ignored:
        break;
    }
}

void FileRun::workOn()
{
    QElapsedTimer elapsed;
    elapsed.start();
    do {
        m_workTimer.stop(); // progress may run the event loop, and this must not start again in it
        const int index = m_chain.index();
        answered(index, m_work(index));
    } while (m_workTimer.isActive() && elapsed.elapsed() < workSlice);
}

FileChain::ErrorChoice FileRun::askAboutError()
{
    // A progress dialog that came up later would block the question.
    m_progress->show();
    if (m_setup.askAboutError)
        return m_setup.askAboutError(m_chain.index());
    UserPrompts::Question question{UserPrompts::Icon::Critical, QStringLiteral("Error"),
                                   m_setup.errorText(m_chain.index())};
    if (m_request) {
        question.answers = {Answer::Skip, Answer::SkipForAll, Answer::Cancel};
        question.preset = Answer::Skip;
    } else if (m_chain.index() + 1 < m_chain.count())
        question.answers = {Answer::Ok, Answer::SkipForAll};
    switch (m_prompts.ask(question)) {
    case Answer::Cancel:
        return FileChain::ErrorChoice::Cancel;
    case Answer::SkipForAll:
        return FileChain::ErrorChoice::SkipForAll;
    default:
        return FileChain::ErrorChoice::Skip;
    }
}

void FileRun::makeProgress()
{
    m_progress = std::make_unique<QProgressDialog>(m_setup.label, QStringLiteral("Cancel"), 0,
                                                   m_setup.count - 1, &m_window);
    m_progress->setWindowTitle(QStringLiteral("Please wait"));
    m_progress->setWindowModality(Qt::WindowModal);
    m_progress->setAutoClose(false);
    m_progress->setAutoReset(false);
    if (!m_setup.cancellable)
        m_progress->setCancelButton(nullptr);
    m_progress->setMinimumDuration(minimumDuration);
    m_progress->setValue(0);
    m_sinceProgress.start();
}

void FileRun::showProgress(int index)
{
    if (m_sinceProgress.elapsed() < progressInterval && index + 1 < m_setup.count)
        return;
    m_progress->setValue(index);
    m_sinceProgress.start();
}

void FileRun::end(bool completed)
{
    qApp->removeEventFilter(this);
    QProgressDialog* progress = m_progress.release();
    if (progress) {
        progress->hide();
        progress->deleteLater(); // a click on "Cancel" may still be on its way through the dialog
    }
    m_request = nullptr;
    const auto ended = std::exchange(m_setup, {}).ended;
    ended(completed);
    if (progress) // there were files
        releaseRows();
}

bool FileRun::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_progress.get() && !m_setup.cancellable) {
        const bool closes =
            event->type() == QEvent::Close ||
            (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape);
        if (closes)
            event->ignore();
        return closes;
    }
    if (!isInput(event->type()))
        return false;
    const auto* widget = qobject_cast<const QWidget*>(watched);
    return watched == m_window.window()->windowHandle() || (widget && widget->window() == m_window.window());
}
