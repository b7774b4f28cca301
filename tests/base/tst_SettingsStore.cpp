#include "base/SettingsStore.h"
#include "tests/support/TemporarySettings.h"

#include <QtTest>

class tst_SettingsStore : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_temporary.clear(); }
    void freshStoreGivesDefaults()
    {
        const SettingsStore store;
        QCOMPARE(store.value(SettingKeys::valueMarker1), 16.0);
        QCOMPARE(store.value(SettingKeys::showAmplitude), true);
        QCOMPARE(store.value(SettingKeys::volume), 99);
        QCOMPARE(store.value(SettingKeys::filePath), QStringLiteral("C:/"));
        QCOMPARE(store.geometry(QRect(1, 2, 3, 4)), QRect(1, 2, 3, 4));
        QVERIFY(!store.contains(SettingKeys::geometry));
    }

    void keysWithTwoDefaultsShareOneValue()
    {
        SettingsStore store;
        QCOMPARE(store.value(SettingKeys::upperScaleLimitOfResult), -30.0);
        QCOMPARE(store.value(SettingKeys::upperScaleLimitOfChange), -33.0);
        store.setValue(SettingKeys::upperScaleLimitOfResult, -12.5);
        QCOMPARE(store.value(SettingKeys::upperScaleLimitOfChange), -12.5);
    }

    void unconvertibleTextReadsAsZero()
    {
        QSettings().setValue(QStringLiteral("valueMarker1"), QStringLiteral("loud"));
        QCOMPARE(SettingsStore().value(SettingKeys::valueMarker1), 0.0);
    }

    void twoStoresSeeEachOther()
    {
        SettingsStore first;
        const SettingsStore second;
        first.setValue(SettingKeys::colormap, 2);
        QCOMPARE(second.value(SettingKeys::colormap), 2);
    }

    void writesWhileItLives()
    {
        const auto written = [] {
            QFile file(QSettings().fileName());
            return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        };
        SettingsStore store;
        store.setValue(SettingKeys::colormap, 1);
        QTRY_VERIFY(written().contains("colormap=1"));
        store.setValue(SettingKeys::colormap, 2); // and again after the first time
        QTRY_VERIFY(written().contains("colormap=2"));
    }

private:
    TemporarySettings m_temporary;
};

QTEST_GUILESS_MAIN(tst_SettingsStore)
#include "tst_SettingsStore.moc"
