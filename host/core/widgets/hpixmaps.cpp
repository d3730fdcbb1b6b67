// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/hpixmaps.h>

#include <QApplication>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

namespace {

// A number that was misread somewhere must not become a picture of gigabytes.
constexpr int largestSide = 4096;

void removeColours(QImage &image)
{
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const int grey = qGray(line[x]);
            line[x] = qRgba(grey, grey, grey, qAlpha(line[x]));
        }
    }
}

QString numbered(const QString &pattern, qint64 number)
{
    return QString(pattern).replace(QLatin1String("%1"), QString::number(number));
}

} // namespace

QPixmap hSvgPixmap(const QString &path, int size)
{
    return hSvgPixmapExt(path, size, size, true);
}

QPixmap hSvgPixmap(const QString &path, const QSize &size)
{
    return hSvgPixmapExt(path, size.width(), size.height(), true);
}

QPixmap hSvgPixmapExt(const QString &path, int width, int height, bool coloured)
{
    const QSize size(width, height);
    // The renderer warns about a file that is not there, which is no news to a caller that gets a null
    // pixmap.
    if (size.isEmpty() || width > largestSide || height > largestSide || !QFileInfo(path).isFile())
        return {};
    QSvgRenderer renderer(path);
    if (!renderer.isValid())
        return {};
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);

    const qreal ratio = qApp->devicePixelRatio();
    QImage image((QSizeF(size) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return {};
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    painter.end();
    if (!coloured)
        removeColours(image);
    image.setDevicePixelRatio(ratio);
    return QPixmap::fromImage(image);
}

QPixmap hRetinaPixmap3(const QString &pattern, int number, bool retina)
{
    if (retina && qApp->devicePixelRatio() > 1) {
        QPixmap pixmap(numbered(pattern, qint64(number) * 2));
        if (!pixmap.isNull()) {
            pixmap.setDevicePixelRatio(2);
            return pixmap;
        }
    }
    return {numbered(pattern, number)};
}

int hDockWidgetHeight()
{
    return 150;
}

int hSidebarWidth()
{
    return 220;
}
