#ifndef SONAVIA_TESTS_CLASSES_CLASSDESK_H
#define SONAVIA_TESTS_CLASSES_CLASSDESK_H

#include "classes/AssignmentController.h"
#include "classes/ClassTreePane.h"
#include "recordings/RecordingSession.h"
#include "recordings/rows/WriteFileBextThread.h"
#include "tests/support/ScriptedPrompts.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeWidget>

#include <functional>
#include <memory>

/// A folder of small recordings, the widgets of the main window that show and classify them, and the real
/// worker behind it, which answers from the event loop. Connected as the main window does it.
///
/// Files are named a.wav, b.wav, ... and given by their records; one that starts with "raw:" gets the name
/// a.raw and no record.
class ClassDesk
{
public:
    /// `classes` holds one word for each class, with a dot before subclasses: "Pip<A> .Pnat<Q> Nyc".
    explicit ClassDesk(const QString& classes, const QStringList& records, bool showsProposals = false);
    ~ClassDesk();

    static ClassTree treeOf(const QString& classes);
    static QString shown(const ClassTree& classes);

    void select(const QString& rows); ///< "0 2"
    void removeFile(int row) { QFile::remove(path(row)); }
    QString path(int row) const;

    QString rows() const;   ///< the records of the rows, separated by blanks and slashes
    QString counts() const; ///< "Pip=1 Unassigned=2", without zeros
    /// Rows whose file says something else, by name. Files that are gone are left out.
    QString differingFiles() const;
    /// Whether no run is active any more after a while.
    bool waitForEnd() const;

    QTemporaryDir folder;
    QWidget window;
    QTreeWidget tree;
    QTreeWidget evaluation;
    QTreeWidget folderList;
    RecordingSession session;
    ScriptedPrompts prompts;
    ClassTreePane pane;
    WriteFileBextThread worker;
    std::unique_ptr<AssignmentController> controller;
    std::function<void(int index)> onRequest = [](int) {}; ///< before an assignment's request is answered

private:
    void addRow(const QString& record);
    void connectWorker();
    void connectAnswers();
};

/// Does something with the next modal dialog of a kind that comes up, once.
template <typename Dialog>
class NextModal : public QObject
{
public:
    explicit NextModal(std::function<void(Dialog&)> act) : m_act(std::move(act))
    {
        QObject::connect(&m_timer, &QTimer::timeout, this, [this] {
            auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            if (!dialog)
                return;
            m_timer.stop();
            m_act(*dialog);
        });
        m_timer.start(5);
    }
    bool happened() const { return !m_timer.isActive(); }

private:
    std::function<void(Dialog&)> m_act;
    QTimer m_timer;
};

#endif
