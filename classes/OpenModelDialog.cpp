#include "classes/OpenModelDialog.h"

#include "base/UserPrompts.h"
#include "classes/ClassTreeEditor.h"
#include "classes/core/classModelFile.h"
#include "ui_OpenModelDialog.h"

#include <QFileDialog>
#include <QKeyEvent>

namespace {

constexpr int shortcutColumn = 1;

using Answer = UserPrompts::Answer;

} // namespace

OpenModelDialog::OpenModelDialog(const ClassTree& present, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::OpenModelDialog>()), m_prompts(prompts)
{
    m_ui->setupUi(this);
    QTreeWidget* tree = m_ui->treeWidget;
    tree->setHeaderLabels({QStringLiteral("class"), QStringLiteral("shortcut")});
    tree->header()->setStretchLastSection(false);
    tree->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_editor = new ClassTreeEditor(*tree, shortcutColumn, ClassTreeEditor::Saving::Elsewhere, prompts);
    m_editor->show(present);
    tree->installEventFilter(this);
    tree->setFocus();
    connect(tree, &QTreeWidget::customContextMenuRequested, this, &OpenModelDialog::rightClickMenu);
    connect(m_editor, &ClassTreeEditor::removalWanted, this, &OpenModelDialog::remove);
    connect(m_editor, &ClassTreeEditor::renamingWanted, this,
            [](QTreeWidgetItem* item, const QString& newName) { item->setText(0, newName); });
}

OpenModelDialog::~OpenModelDialog() = default;

ClassTree OpenModelDialog::classTree() const
{
    return m_editor->classTree();
}

bool OpenModelDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || static_cast<QKeyEvent*>(event)->key() != Qt::Key_Delete)
        return QDialog::eventFilter(watched, event);
    if (m_ui->treeWidget->currentItem())
        remove(m_ui->treeWidget->currentItem());
    return true;
}

void OpenModelDialog::on_pushButton_clicked()
{
    replaceBy(ClassTree::advancedDefault());
}

void OpenModelDialog::on_pushButton_2_clicked()
{
    const QString path = QFileDialog::getOpenFileName(this, QStringLiteral("Open Model File"), QString(),
                                                      QStringLiteral("TXT Files (*.txt)"));
    if (path.isEmpty())
        return;
    QStringList leftOut;
    m_editor->show(readClassModel(path, &leftOut));
    constexpr int shownNames = 20;
    if (!leftOut.isEmpty())
        m_prompts.warn(
            QStringLiteral("Warning"),
            QStringLiteral("Some classes of the file are left out, because their name is there twice "
                           "or cannot be stored in recordings:\n") +
                leftOut.mid(0, shownNames).join(QLatin1Char('\n')));
}

void OpenModelDialog::on_pushButton_3_clicked()
{
    m_editor->show({});
}

void OpenModelDialog::on_pushButton_4_clicked()
{
    m_editor->saveModel();
}

void OpenModelDialog::on_pushButton_5_clicked()
{
    replaceBy(ClassTree::simpleDefault());
}

void OpenModelDialog::on_buttonBox_accepted()
{
    accept();
}

void OpenModelDialog::on_buttonBox_rejected()
{
    reject();
}

void OpenModelDialog::rightClickMenu(QPoint pos)
{
    m_editor->showMenu(pos);
}

void OpenModelDialog::replaceBy(const ClassTree& tree)
{
    if (m_prompts.ask({UserPrompts::Icon::Warning,
                       QStringLiteral("Warning"),
                       QStringLiteral("Do you really want to load default model?"),
                       QStringLiteral("The current model will be deleted!"),
                       {Answer::Yes, Answer::No},
                       Answer::No}) == Answer::Yes)
        m_editor->show(tree);
}

void OpenModelDialog::remove(QTreeWidgetItem* item)
{
    const QString name = item->text(0);
    const QString question =
        ClassTreeEditor::isSubclass(item)
            ? QStringLiteral("Do you really want to delete subclass %1?").arg(name)
            : QStringLiteral("Do you really want to delete class %1 and all its subclasses?").arg(name);
    if (m_prompts.ask({UserPrompts::Icon::Warning,
                       QStringLiteral("Warning"),
                       question,
                       {},
                       {Answer::Ok, Answer::Cancel},
                       Answer::Cancel}) == Answer::Ok)
        delete item;
}
