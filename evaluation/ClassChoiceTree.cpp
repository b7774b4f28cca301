#include "evaluation/ClassChoiceTree.h"

#include "classes/core/ClassTree.h"
#include "evaluation/core/ClassChoice.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QShortcut>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include <algorithm>

namespace {

enum Column { Name, Count, Export };
constexpr int columnWidths[] = {150, 40, 30}; // pixels, more where a header needs it
constexpr int checkedRole = Qt::UserRole;

void setColumnWidths(QTreeWidget& tree)
{
    tree.header()->setStretchLastSection(false);
    for (const int column : {Name, Count, Export})
        tree.setColumnWidth(column, std::max(columnWidths[column], tree.header()->sectionSizeHint(column)));
    tree.header()->setSectionResizeMode(Name, QHeaderView::Stretch);
    tree.setMinimumWidth(tree.header()->length() + 2 * tree.frameWidth());
}

QTreeWidgetItem* makeRow(QTreeWidget& tree, QTreeWidgetItem* parent, const ClassChoice::Line& line)
{
    const QStringList texts{line.name, QString::number(line.count)};
    auto* row = parent ? new QTreeWidgetItem(parent, texts) : new QTreeWidgetItem(&tree, texts);
    row->setToolTip(Name, line.name);
    if (line.name == ClassTree::unassigned())
        row->setForeground(Name, Qt::red);
    else if (line.name == ClassChoice::detectedNoCall())
        row->setForeground(Name, Qt::blue);
    return row;
}

QTreeWidgetItem* rowOf(QTreeWidget& tree, const QObject* checkBox)
{
    for (QTreeWidgetItemIterator it(&tree); *it; ++it)
        if (tree.itemWidget(*it, Export) == checkBox)
            return *it;
    return nullptr;
}

} // namespace

QVector<QCheckBox*> ClassChoiceTree::fill(const QString& classText)
{
    m_tree.setHeaderLabels({QStringLiteral("class"), QStringLiteral("count"), QStringLiteral("export")});
    QVector<QCheckBox*> boxes;
    QTreeWidgetItem* parent = nullptr;
    const QVector<ClassChoice::Line> lines = ClassChoice::lines(classText);
    for (const ClassChoice::Line& line : lines) {
        QTreeWidgetItem* row = makeRow(m_tree, line.isSubclass ? parent : nullptr, line);
        if (!line.isSubclass)
            parent = row;
        auto* box = new QCheckBox;
        box->setChecked(true);
        box->setToolTip(line.name);
        box->setFocusPolicy(Qt::NoFocus); // the space key does it, and the Tab key leads on from the tree
        row->setData(Export, checkedRole, true);
        m_tree.setItemWidget(row, Export, box);
        boxes.append(box);
    }
    m_tree.expandAll();
    m_tree.setRootIsDecorated(
        std::any_of(lines.cbegin(), lines.cend(), [](const auto& line) { return line.isSubclass; }));
    setColumnWidths(m_tree);
    auto* space = new QShortcut(Qt::Key_Space, &m_tree, nullptr, nullptr, Qt::WidgetShortcut);
    QObject::connect(space, &QShortcut::activated, &m_tree, [this] {
        if (m_tree.currentItem())
            toggle(m_tree.currentItem());
    });
    return boxes;
}

void ClassChoiceTree::setChecked(const QObject* checkBox, int state)
{
    if (QTreeWidgetItem* row = rowOf(m_tree, checkBox))
        row->setData(Export, checkedRole, state == Qt::Checked);
}

void ClassChoiceTree::toggle(QTreeWidgetItem* row)
{
    static_cast<QCheckBox*>(m_tree.itemWidget(row, Export))->toggle();
}

QStringList ClassChoiceTree::checkedNames() const
{
    QStringList names;
    for (QTreeWidgetItemIterator it(&m_tree); *it; ++it)
        if ((*it)->data(Export, checkedRole).toBool())
            names.append((*it)->text(Name));
    return names;
}
