#ifndef SONAVIA_EVALUATION_CLASSCOLORSDIALOG_H
#define SONAVIA_EVALUATION_CLASSCOLORSDIALOG_H

#include <QColor>
#include <QDialog>
#include <QMap>
#include <QVector>

class QPushButton;

/// Lets the user give each class the colour of its curve: a list of the classes with a button each. GUI
/// thread only.
class ClassColorsDialog : public QDialog
{
    Q_OBJECT

public:
    struct Entry
    {
        QString name;
        QColor color;
    };

    explicit ClassColorsDialog(const QVector<Entry>& entries, QWidget* parent = nullptr);

    /// Those that were changed.
    QMap<QString, QColor> changedColors() const { return m_changed; }

private:
    void chooseColor(QPushButton* button, const QString& name);

    QMap<QString, QColor> m_changed;
};

#endif
