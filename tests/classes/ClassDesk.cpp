#include "tests/classes/ClassDesk.h"

#include "classes/DirectEdits.h"
#include "classes/FileListMenus.h"
#include "recordings/WavReader.h"
#include "recordings/rows/RowItem.h"
#include "tests/support/waitUntil.h"
#include "tools/WavBytes.h"

#include <QTreeWidgetItemIterator>
#include <QtTest>

ClassDesk::ClassDesk(const QString& classes, const QStringList& records, bool showsProposals)
    : tree(&window), evaluation(&window), folderList(&window), pane(tree, prompts)
{
    qRegisterMetaType<QTreeWidgetItem*>("QTreeWidgetItem*");
    qRegisterMetaType<QList<QTreeWidgetItem*>>("QList<QTreeWidgetItem*>");
    session.folder = folder.path();
    session.viewMode = 2;
    for (QTreeWidget* list : {&evaluation, &folderList}) {
        list->setHeaderLabels(RowItem::headerTexts());
        list->setSelectionMode(QAbstractItemView::ExtendedSelection);
        list->setUniformRowHeights(true);
        list->setColumnHidden(RowItem::Accepted, !showsProposals);
    }
    controller = std::make_unique<AssignmentController>(
        window, AssignmentController::Lists{evaluation, folderList}, pane, session, prompts);
    pane.setClassTree(treeOf(classes));
    for (const QString& record : records)
        addRow(record);
    pane.showCounts();
    connectWorker();
    connectAnswers();
}

ClassDesk::~ClassDesk() = default;

void ClassDesk::addRow(const QString& record)
{
    const bool isRaw = record.startsWith("raw:");
    RecordingRow row;
    row.name = QChar('a' + evaluation.topLevelItemCount()) + QString(isRaw ? ".raw" : ".wav");
    row.date = "01/06/20";
    row.record = ClassRecord::parse(isRaw ? record.mid(4) : record);
    WavBytes::Bext bext;
    bext.description = record.toUtf8();
    QFile file(folder.filePath(row.name));
    if (file.open(QIODevice::WriteOnly))
        file.write(isRaw ? QByteArray("samples") : WavBytes().fmt(300000).data({1, 2}).bext(bext).bytes());
    auto* item = new QTreeWidgetItem(&evaluation, {row.name});
    item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemIsEnabled);
    RowItem::write(*item, row);
    pane.countAdded(row);
}

void ClassDesk::connectWorker()
{
    using Controller = AssignmentController;
    using Worker = WriteFileBextThread;
    const Qt::ConnectionType queued = Qt::QueuedConnection;
    Controller* from = controller.get();
    QObject::connect(from, &Controller::signalWriteFileBextExtended, &worker,
                     [this](int index) { onRequest(index); });
    QObject::connect(from, &Controller::signalWriteFileBextExtended, &worker, &Worker::writeFileBextExtended,
                     queued);
    QObject::connect(from, &Controller::signalRenameClassFile, &worker, &Worker::renameClassFile, queued);
    QObject::connect(from, &Controller::signalDeleteClassFile, &worker, &Worker::deleteClassFile, queued);
    QObject::connect(from, &Controller::signalUnassignFile, &worker, &Worker::unassignFile, queued);
    QObject::connect(from, &Controller::signalResetFile, &worker, &Worker::resetFile, queued);
    QObject::connect(&from->menus(), &FileListMenus::reassigningWanted, &from->directEdits(),
                     &DirectEdits::reassign);
    QObject::connect(&from->menus(), &FileListMenus::unassigningWanted, &from->directEdits(),
                     &DirectEdits::unassign);
    QObject::connect(&pane, &ClassTreePane::assignButtonClicked, from, &Controller::assignFileToClass);
}

void ClassDesk::connectAnswers()
{
    using Controller = AssignmentController;
    using Worker = WriteFileBextThread;
    Controller* to = controller.get();
    QObject::connect(&worker, &Worker::signalFileBextFinishedExtended, to,
                     &Controller::fileBextFinishedExtended);
    QObject::connect(&worker, &Worker::signalRenameClassFile, to, &Controller::renameClassFileFinished);
    QObject::connect(&worker, &Worker::signalDeleteClassFile, to, &Controller::deleteClassFileFinished);
    QObject::connect(&worker, &Worker::signalUnassignFile, to, &Controller::unassignFileFinished);
    QObject::connect(&worker, &Worker::signalResetFile, to, &Controller::resetFileFinished);
}

ClassTree ClassDesk::treeOf(const QString& classes)
{
    ClassTree tree;
    for (const QString& word : classes.split(' ', Qt::SkipEmptyParts)) {
        const int shortcut = word.indexOf('<');
        const bool isSubclass = word.startsWith('.');
        tree.append({word.left(shortcut).mid(isSubclass ? 1 : 0),
                     shortcut < 0 ? QString() : word.mid(shortcut), isSubclass});
    }
    return tree;
}

QString ClassDesk::shown(const ClassTree& classes)
{
    QStringList words;
    for (const ClassTree::Entry& entry : classes.entries())
        words.append((entry.isSubclass ? "." : "") + entry.name + entry.shortcut);
    return words.join(' ');
}

void ClassDesk::select(const QString& rows)
{
    evaluation.clearSelection();
    for (const QString& row : rows.split(' ', Qt::SkipEmptyParts))
        evaluation.topLevelItem(row.toInt())->setSelected(true);
}

QString ClassDesk::path(int row) const
{
    return folder.filePath(evaluation.topLevelItem(row)->text(RowItem::Name));
}

QString ClassDesk::rows() const
{
    QStringList records;
    for (int row = 0; row < evaluation.topLevelItemCount(); ++row)
        records.append(RowItem::read(*evaluation.topLevelItem(row)).record.text());
    return records.join(" / ");
}

QString ClassDesk::counts() const
{
    QStringList counts;
    for (QTreeWidgetItemIterator it(const_cast<QTreeWidget*>(&tree)); *it; ++it)
        if ((*it)->text(ClassTreePane::Count) != "0")
            counts.append((*it)->text(ClassTreePane::Name) + '=' + (*it)->text(ClassTreePane::Count));
    return counts.join(' ');
}

QString ClassDesk::differingFiles() const
{
    QStringList names;
    for (int number = 0; number < evaluation.topLevelItemCount(); ++number) {
        const RecordingRow row = RowItem::read(*evaluation.topLevelItem(number));
        if (!row.isWav() || !QFile::exists(path(number)))
            continue;
        WavReader reader;
        reader.load(path(number), true);
        if (ClassRecord::parse(reader.bextDescription) != row.record)
            names.append(row.name);
    }
    return names.join(' ');
}

bool ClassDesk::waitForEnd() const
{
    return waitUntil([this] { return !controller->isRunning(); }, 5000);
}
