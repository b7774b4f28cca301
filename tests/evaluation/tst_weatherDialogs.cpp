#include "evaluation/LoadWindDialog.h"
#include "evaluation/core/ActivitySettings.h"
#include "evaluation/invalidTimesDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>
#include <QtTest>

/// The wind file and invalid periods dialogs, by their controls.
class tst_weatherDialogs : public QObject
{
    Q_OBJECT

private slots:
    void editsInvalidTimes()
    {
        const QString text =
            QStringLiteral("01.06.2026 23:00-02.06.2026 01:00;05.06.2026 00:00-06.06.2026 00:05");
        invalidTimesDialog dialog(nullptr, text);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QTest::mouseClick(button(dialog, "Delete Period"), Qt::LeftButton); // none is selected
        QCOMPARE(rows(dialog),
                 QStringLiteral("1|01.06.2026 23:00|02.06.2026 01:00;2|05.06.2026 00:00|06.06.2026 00:05"));
        // The field that one types in selects its row.
        editor(dialog, 0, 2)->setFocus();
        QTest::mouseClick(button(dialog, "Delete Period"), Qt::LeftButton);
        QTest::mouseClick(button(dialog, "Add Period"), Qt::LeftButton);
        const QString newYear = QStringLiteral("01.01.%1 00:00").arg(QDate::currentDate().year());
        QCOMPARE(rows(dialog), QStringLiteral("1|05.06.2026 00:00|06.06.2026 00:05;2|%1|%1").arg(newYear));
        editor(dialog, 0, 1)->setDateTime(QDateTime(QDate(2026, 7, 1), QTime(2, 30), Qt::UTC));
        editor(dialog, 1, 1)->setDateTime(QDateTime(QDate(2001, 7, 1), QTime(2, 30), Qt::UTC));
        for (int row = 0; row < 2; ++row) {
            editor(dialog, row, 1)->setFocus();
            QTest::keyClick(editor(dialog, row, 1), Qt::Key_Return);
        }
        QVERIFY(dialog.isVisible());           // Return is for the time alone
        QCOMPARE(dialog.invalidTimes(), text); // not yet accepted
        QTest::mouseClick(button(dialog, "OK"), Qt::LeftButton);
        const QString edited =
            QStringLiteral("01.07.2026 02:30-01.07.2026 02:30;01.07.2001 02:30-%1").arg(newYear);
        QCOMPARE(dialog.invalidTimes(), edited);

        invalidTimesDialog again(nullptr, edited);
        again.show();
        QTest::mouseClick(button(again, "Delete All"), Qt::LeftButton);
        QTest::mouseClick(button(again, "OK"), Qt::LeftButton);
        QCOMPARE(again.invalidTimes(), QString());
    }

    /// Shows the entries as they stand in the file, whatever is chosen, and stores the choices on OK.
    void previewsWindFiles()
    {
        const QString path = m_folder.filePath(QStringLiteral("wind.txt"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("date time;speed\n01.07.2026 22:10:00;3,5\n01.07.2026 22:07:30;4\n");
        file.close();
        ActivitySettings settings(m_folder.path(), m_folder.path());
        settings.setWind({}, QTimeZone("Africa/Algiers"), false);
        LoadWindDialog dialog(nullptr, path, settings);
        dialog.show();
        QCOMPARE(rows(dialog), QStringLiteral("01.07.2026|22:10:00|3.5;01.07.2026|22:07:30|4"));
        dialog.findChild<QRadioButton*>(QStringLiteral("radioButton_2"))->click();
        QCOMPARE(rows(dialog), QStringLiteral("01.07.2026|22:00:00|3.5;01.07.2026|22:07:30|4"));
        dialog.findChild<QRadioButton*>(QStringLiteral("radioButton_3"))->click();
        QCOMPARE(rows(dialog), QStringLiteral("01.07.2026|22:10:00|3.5;01.07.2026|22:00:00|4"));
        QCOMPARE(dialog.findChild<QLabel*>(QStringLiteral("labelRead"))->text(),
                 QStringLiteral("Begin of the file: 2 samples read, 1 line skipped."));
        const QStringList boxes{QStringLiteral("comboBox"), QStringLiteral("comboBox_3"),
                                QStringLiteral("comboBox_5"), QStringLiteral("comboBox_6")};
        for (const QString& name : boxes) { // date, time, separators: nothing fits any more, then all again
            auto* box = dialog.findChild<QComboBox*>(name);
            const int fitting = box->currentIndex();
            box->setCurrentIndex(fitting == 0 ? 1 : 0);
            QCOMPARE(rows(dialog), QString());
            box->setCurrentIndex(fitting);
            QVERIFY(!rows(dialog).isEmpty());
        }
        dialog.findChild<QComboBox*>(QStringLiteral("comboBox_4"))->setCurrentIndex(1);
        QCOMPARE(rows(dialog), QStringLiteral("01.07.2026|22:00:00|4"));
        QVERIFY(settings.windFormat().definition == WindFormat::Definition::Beginning);
        QTest::mouseClick(button(dialog, "OK"), Qt::LeftButton);
        QVERIFY(settings.windFormat().definition == WindFormat::Definition::Round);
        QCOMPARE(settings.windFormat().decimalSeparator, '.');
        QCOMPARE(settings.windZone().id(), QByteArray("Africa/Algiers")); // not another one of its name
        QVERIFY(!settings.windDaylightSaving());
    }

private:
    static QPushButton* button(const QDialog& dialog, const char* text)
    {
        for (QPushButton* each : dialog.findChildren<QPushButton*>())
            if (each->text().remove(QLatin1Char('&')) == QLatin1String(text))
                return each;
        return nullptr;
    }

    static QDateTimeEdit* editor(const QDialog& dialog, int row, int column)
    {
        const auto* tree = dialog.findChild<QTreeWidget*>();
        return qobject_cast<QDateTimeEdit*>(tree->itemWidget(tree->topLevelItem(row), column));
    }

    /// What is to be read in the rows.
    static QString rows(const QDialog& dialog)
    {
        const auto* tree = dialog.findChild<QTreeWidget*>();
        QStringList lines;
        for (int row = 0; row < tree->topLevelItemCount(); ++row) {
            QStringList texts;
            for (int column = 0; column < 3; ++column) {
                const QDateTimeEdit* edit = editor(dialog, row, column);
                texts << (edit != nullptr ? edit->text() : tree->topLevelItem(row)->text(column));
            }
            lines << texts.join(QLatin1Char('|'));
        }
        return lines.join(QLatin1Char(';'));
    }

    QTemporaryDir m_folder;
};

QTEST_MAIN(tst_weatherDialogs)
#include "tst_weatherDialogs.moc"
