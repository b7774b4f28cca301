// The compiled-in pictures: all there, crisp at the display's scale, visible on light and dark windows.
#include "tests/support/Table.h"

#include <QColor>
#include <QGuiApplication>
#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <QtTest>

#include <algorithm>
#include <cmath>

namespace {

QString pathOf(const QString& name)
{
    return QStringLiteral(":/images/%1.png").arg(name);
}

/// The mean colour of the clearly visible pixels; invalid when there are hardly any.
QColor meanColour(const QImage& image)
{
    double red = 0.0;
    double green = 0.0;
    double blue = 0.0;
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            if (pixel.alpha() > 200) {
                red += pixel.redF();
                green += pixel.greenF();
                blue += pixel.blueF();
                ++count;
            }
        }
    }
    return count > 20 ? QColor::fromRgbF(red / count, green / count, blue / count) : QColor();
}

double linear(double channel)
{
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

/// Contrast of two colours, 1 to 21, as the Web Content Accessibility Guidelines 2 define it.
double contrast(const QColor& one, const QColor& other)
{
    const auto luminance = [](const QColor& c) {
        return 0.2126 * linear(c.redF()) + 0.7152 * linear(c.greenF()) + 0.0722 * linear(c.blueF());
    };
    const double first = luminance(one) + 0.05;
    const double second = luminance(other) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

} // namespace

class tst_Resources : public QObject
{
    Q_OBJECT

    using PictureRow = Table<QString, QSize>; // name, size

private slots:
    void initTestCase()
    {
        Q_INIT_RESOURCE(sonavia);
        QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps); // without it icons come in 100 % only
    }

    void picturesFitTheDisplay_data()
    {
        PictureRow row;
        for (const char* name : {"zoom", "select", "spectro_ohne", "amplitude", "black_arrow_down",
                                 "black_arrow_up", "green_arrow_left", "orange_arrows", "red_arrow_right",
                                 "red_cross", "csv_export", "vantor_export", "player_play", "player_pause",
                                 "player_stop", "player_volume", "player_muted"}) {
            row(name, name, QSize(32, 32));
        }
        row("logo", "logo", QSize(200, 56));
    }
    void picturesFitTheDisplay()
    {
        const auto& [name, size] = PictureRow::row();
        const double scale = qApp->devicePixelRatio();
        QCOMPARE(scale, qEnvironmentVariableIsSet("QT_SCALE_FACTOR") ? 2.0 : 1.0);

        QCOMPARE(QPixmap(pathOf(name)).size(), size); // a pixmap from the path alone is always the small one
        const QPixmap pixmap = QIcon(pathOf(name)).pixmap(size);
        QCOMPARE(pixmap.devicePixelRatio(), scale);
        QCOMPARE(pixmap.size(), size * scale);
        const QImage drawn(pathOf(scale > 1.0 ? name + QStringLiteral("@2x") : name));
        const auto format = QImage::Format_ARGB32_Premultiplied;
        QVERIFY(pixmap.toImage().convertToFormat(format) == drawn.convertToFormat(format)); // not scaled
        QCOMPARE(QImage(pathOf(name)).size(), size);
        QCOMPARE(QImage(pathOf(name + QStringLiteral("@2x"))).size(), 2 * size);
    }

    void picturesAreSeenOnLightAndDark_data() { picturesFitTheDisplay_data(); }
    void picturesAreSeenOnLightAndDark()
    {
        const QString& name = std::get<0>(PictureRow::row());
        for (const QString& path : {pathOf(name), pathOf(name + QStringLiteral("@2x"))}) {
            const QImage image(path);
            QCOMPARE(image.pixelColor(0, 0).alpha(), 0); // no background of its own
            const QColor colour = meanColour(image);
            QVERIFY2(colour.isValid(), "nearly empty");
            QVERIFY2(contrast(colour, QColor(0xf0, 0xf0, 0xf0)) > 2.4, qPrintable(colour.name()));
            QVERIFY2(contrast(colour, QColor(0x2b, 0x2b, 0x2b)) > 2.4, qPrintable(colour.name()));
        }
    }

    void applicationIconHasAllSizes()
    {
        const QIcon icon(QStringLiteral(":/images/Icon.ico"));
        const QList<QSize> sizes = icon.availableSizes();
        for (const int side : {16, 24, 32, 48, 64, 256}) {
            QVERIFY2(sizes.contains(QSize(side, side)), qPrintable(QString::number(side)));
            const double scale = qApp->devicePixelRatio();
            const QImage image = icon.pixmap(qRound(side / scale), qRound(side / scale)).toImage();
            QCOMPARE(image.size(), QSize(side, side));
            QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
            const QColor call = image.pixelColor(side * 88 / 256, side * 132 / 256); // on the curve
            QVERIFY2(call.green() > 2 * call.blue() && call.green() > call.red(), qPrintable(call.name()));
        }
        QCOMPARE(QPixmap(pathOf(QStringLiteral("Icon"))).size(), QSize(256, 256));
    }
};

QTEST_MAIN(tst_Resources)
#include "tst_Resources.moc"
