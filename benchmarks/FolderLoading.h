#ifndef SONAVIA_BENCHMARKS_FOLDERLOADING_H
#define SONAVIA_BENCHMARKS_FOLDERLOADING_H

#include "recordings/GetFileInfoThread.h"
#include "recordings/RecordingSession.h"
#include "tests/support/ScriptedPrompts.h"
#include "viewer/FileListPane.h"
#include "viewer/HeaderChain.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QLabel>
#include <QProgressBar>
#include <QThread>
#include <QTimer>
#include <QTreeWidget>

/// A window's list, its chain and the header worker on a thread of its own.
class FolderLoading
{
public:
    explicit FolderLoading(FileListPane::Purpose purpose)
        : m_pane({list, m_progress, m_count}, purpose, m_session, nullptr),
          m_chain(m_session, m_pane, m_pane, m_prompts,
                  {[this] { m_thread.start(); },
                   [this] {
                       m_thread.quit();
                       m_thread.wait();
                   }}),
          m_worker(m_prompts)
    {
        list.resize(700, 500);
        list.show();
        m_worker.moveToThread(&m_thread);
        QObject::connect(&m_chain, &HeaderChain::signalGetFileHeaderInfo, &m_worker,
                         &GetFileInfoThread::getFileHeaderInfo);
        QObject::connect(&m_worker, &GetFileInfoThread::signalFileInfoHeaderFinished, &m_chain,
                         &HeaderChain::fileInfoHeaderFinished);
        QApplication::processEvents();
    }

    /// Fills the list. Returns the seconds that this took.
    double run(const FolderTask& task)
    {
        QEventLoop loop;
        QObject::connect(&m_chain, &HeaderChain::listCompleteChanged, &loop, [&](bool complete) {
            if (complete)
                loop.quit();
        });
        QElapsedTimer timer;
        timer.start();
        QTimer::singleShot(0, &loop, [&] { m_chain.open(task); });
        loop.exec();
        return static_cast<double>(timer.nsecsElapsed()) * 1e-9;
    }

    FileListPane& pane() { return m_pane; }

    QTreeWidget list;

private:
    ScriptedPrompts m_prompts;
    RecordingSession m_session;
    QProgressBar m_progress;
    QLabel m_count;
    FileListPane m_pane;
    HeaderChain m_chain;
    QThread m_thread;
    GetFileInfoThread m_worker;
};

#endif
