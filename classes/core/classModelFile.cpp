#include "classes/core/classModelFile.h"

#include <QFile>
#include <QSaveFile>

ClassTree readClassModel(const QString& path, QStringList* leftOut)
{
    constexpr qint64 sizeLimit = 1 << 20;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return ClassTree::fromText(QString::fromUtf8(file.read(sizeLimit)), leftOut);
}

bool writeClassModel(const QString& path, const ClassTree& tree)
{
    QSaveFile file(path);
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write(tree.text().toUtf8());
    return file.commit();
}
