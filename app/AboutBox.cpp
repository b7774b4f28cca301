#include "app/AboutBox.h"

#include "app/ProgramVersion.h"

#include <QDate>
#include <QMessageBox>

QString aboutText(int year)
{
    return QStringLiteral(
               "<b>Sonavia</b><br><br>Version %1, 14. December 2020<br>"
               " 2016-%2 Fennmoor<br><br>"
               "A free program under the GNU General Public License, version 3 or later<br>"
               "<a href=\"https://fennmoor.example/sonavia\">https://fennmoor.example/sonavia</a><br>"
               "<a href=\"mailto:sonavia@fennmoor.example\">sonavia@fennmoor.example</a>")
        .arg(QLatin1String(programVersion), QStringLiteral("%1").arg(year, 4, 10, QLatin1Char('0')));
}

void showAboutBox(QWidget* parent)
{
    QMessageBox box(QMessageBox::Information, QStringLiteral("About"), aboutText(QDate::currentDate().year()),
                    QMessageBox::Ok, parent);
    box.setTextFormat(Qt::RichText);
    box.setDefaultButton(QMessageBox::Ok);
    box.exec();
}
