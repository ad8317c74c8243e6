#include "toolkit/look/Pictures.h"

#include "toolkit/look/VectorPicture.h"

#include <QHash>
#include <QIconEngine>
#include <QImage>
#include <QPainter>
#include <QPixmapCache>

#include <cmath>
#include <memory>

/// A resource in a static library is linked only when somebody asks for it, from outside of any namespace.
static void LoadPictureResource()
{
    Q_INIT_RESOURCE(pictures);
}

namespace tsms {

namespace {

const VectorPicture& PictureOf(const QString& name)
{
    static QHash<QString, std::shared_ptr<const VectorPicture>> pictures;
    std::shared_ptr<const VectorPicture>& picture = pictures[name];
    if (!picture) {
        LoadPictureResource();
        picture = std::make_shared<VectorPicture>(QStringLiteral(":/toolkit/%1.svg").arg(name));
    }
    return *picture;
}

/// A picture in real pixels.
QPixmap Render(const QString& name, QSize pixels, const QColor& color)
{
    const QString key = QStringLiteral("tsms/%1/%2x%3/%4")
                            .arg(name)
                            .arg(pixels.width())
                            .arg(pixels.height())
                            .arg(color.isValid() ? color.name(QColor::HexArgb) : QString());
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    PictureOf(name).Draw(painter, image.rect());
    if (color.isValid()) {
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(image.rect(), color);
    }
    painter.end();
    pixmap = QPixmap::fromImage(std::move(image));
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

/// Draws itself anew for every size and scaling, where a stored pixmap would be blurred.
class PictureEngine final : public QIconEngine
{
public:
    explicit PictureEngine(QString name) : name_(std::move(name)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        if (mode == QIcon::Disabled)
            painter->setOpacity(painter->opacity() * 0.4);
        DrawPicture(*painter, rect, name_);
        if (mode == QIcon::Disabled)
            painter->setOpacity(painter->opacity() / 0.4);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        return scaledPixmap(size, mode, state, 1.0);
    }
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode, QIcon::State, qreal scale) override
    {
        // The size is in pixels up to Qt 6.7, and in the units of the desk since.
        return Render(name_, QT_VERSION < QT_VERSION_CHECK(6, 8, 0) ? size : size * scale, QColor());
    }
    QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override { return size; }
    bool isNull() override { return PictureOf(name_).IsEmpty(); }
    QIconEngine* clone() const override { return new PictureEngine(name_); }

private:
    QString name_;
};

} // namespace

QList<QIcon> CheckPictures()
{
    return {PictureIcon(QStringLiteral("check-empty")), PictureIcon(QStringLiteral("check-ticked")),
            PictureIcon(QStringLiteral("check-locked"))};
}

QList<QIcon> PlainCheckPictures()
{
    return CheckPictures().first(2);
}

QString CheckWords(int picture)
{
    switch (picture) {
    case CheckEmpty:
        return QStringLiteral("선택 안 됨");
    case CheckTicked:
        return QStringLiteral("선택됨");
    case CheckLocked:
        return QStringLiteral("선택할 수 없음");
    default:
        return {};
    }
}

QIcon PictureIcon(const QString& name)
{
    return QIcon(new PictureEngine(name));
}

void DrawPicture(QPainter& painter, const QRectF& place, const QString& name, const QColor& color)
{
    const double scale = painter.device()->devicePixelRatioF();
    const QSize pixels(static_cast<int>(std::ceil(place.width() * scale)),
                       static_cast<int>(std::ceil(place.height() * scale)));
    if (pixels.isEmpty())
        return;
    const QPixmap pixmap = Render(name, pixels, color);
    painter.drawPixmap(place, pixmap, QRectF(pixmap.rect()));
}

} // namespace tsms
