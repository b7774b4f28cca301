#include "evaluation/ClassColorsDialog.h"

#include <QColorDialog>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

void showColor(QPushButton* button, const QColor& color)
{
    QPixmap sample(48, 14);
    sample.fill(color);
    button->setIcon(sample);
    button->setIconSize(sample.size());
    button->setProperty("color", color);
    button->setToolTip(color.name());
}

} // namespace

ClassColorsDialog::ClassColorsDialog(const QVector<Entry>& entries, QWidget* parent) : QDialog(parent)
{
    setWindowTitle(QStringLiteral("Define Class Colors"));
    auto* layout = new QVBoxLayout(this);
    auto* tree = new QTreeWidget;
    tree->setObjectName(QStringLiteral("treeWidget"));
    tree->setHeaderLabels({QStringLiteral("class"), QStringLiteral("color")});
    tree->setRootIsDecorated(false);
    tree->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    tree->header()->setStretchLastSection(false);
    layout->addWidget(tree);
    for (const Entry& entry : entries) {
        auto* item = new QTreeWidgetItem(tree, {entry.name});
        auto* button = new QPushButton;
        button->setAutoDefault(false);
        button->setAccessibleName(entry.name);
        showColor(button, entry.color);
        tree->setItemWidget(item, 1, button);
        connect(button, &QPushButton::clicked, this, [=] { chooseColor(button, entry.name); });
    }
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    resize(480, 420);
}

void ClassColorsDialog::chooseColor(QPushButton* button, const QString& name)
{
    const QColor color = QColorDialog::getColor(button->property("color").value<QColor>(), this, name);
    if (!color.isValid())
        return;
    showColor(button, color);
    m_changed.insert(name, color);
}
