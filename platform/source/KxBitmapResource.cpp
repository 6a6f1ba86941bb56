// SPDX-License-Identifier: MIT
#include "KxWinResource.h"

#include "KxNativeName_p.h"
#include "KxPlatformServices.h"
#include "KxWinError_p.h"

#include <QtCore/QFile>
#include <QtGui/QImage>
#include <QtGui/QImageReader>

#include <map>
#include <unordered_map>

namespace {

using Bitmaps = std::map<QString, QImage>;

/// Never destroyed, as the services are.
std::unordered_map<HINSTANCE, Bitmaps> &bitmapsByModule()
{
    static auto *const bitmaps = new std::unordered_map<HINSTANCE, Bitmaps>;
    return *bitmaps;
}

QString keyOfNumber(UINT id)
{
    return QLatin1Char('#') + QString::number(id);
}

/// The name under which a bitmap is kept; null for none.
QString keyOf(const wchar_t *name)
{
    if (IS_INTRESOURCE(name))
        return keyOfNumber(LOWORD(name));
    const QString text = QString::fromWCharArray(name);
    if (text.startsWith(QLatin1Char('#'))) {
        bool isNumber = false;
        const ushort id = text.midRef(1).toUShort(&isNumber);
        if (isNumber)
            return keyOfNumber(id);
    }
    return text.toCaseFolded();
}

bool registerBitmap(HINSTANCE module, const QString &key, const QImage &image)
{
    if (key.isEmpty() || image.isNull())
        return false;
    bitmapsByModule()[module][key] = image;
    return true;
}

/// The null image and a reason in GetLastError() when there is none.
QImage registeredBitmap(HINSTANCE module, const wchar_t *name)
{
    const auto bitmaps = bitmapsByModule().find(module);
    if (bitmaps != bitmapsByModule().end()) {
        const auto bitmap = bitmaps->second.find(keyOf(name));
        if (bitmap != bitmaps->second.end())
            return bitmap->second;
    }
    SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
    return QImage();
}

/// The null image and a reason in GetLastError() when it cannot be read.
QImage bitmapOfFile(const wchar_t *wideName)
{
    if (IS_INTRESOURCE(wideName)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return QImage();
    }
    if (!KxNativeName(wideName).isValid())
        return QImage();
    // Not opened by the reader, which would try other endings of the name when there is no such file.
    QFile file(kxNameFromWide(wideName));
    if (!file.open(QIODevice::ReadOnly)) {
        SetLastError(ERROR_FILE_NOT_FOUND);
        return QImage();
    }
    QImageReader reader(&file);
    reader.setDecideFormatFromContent(true);
    QImage image = reader.read();
    if (image.isNull())
        SetLastError(ERROR_RESOURCE_DATA_NOT_FOUND);
    return image;
}

} // namespace

bool KxRegisterBitmap(HINSTANCE module, UINT id, const QImage &image)
{
    return id <= 0xFFFF && registerBitmap(module, keyOfNumber(id), image);
}

bool KxRegisterNamedBitmap(HINSTANCE module, const wchar_t *name, const QImage &image)
{
    return !IS_INTRESOURCE(name) && registerBitmap(module, keyOf(name), image);
}

bool KxUnregisterBitmap(HINSTANCE module, const wchar_t *name)
{
    const auto bitmaps = bitmapsByModule().find(module);
    return bitmaps != bitmapsByModule().end() && bitmaps->second.erase(keyOf(name)) != 0;
}

int KxUnregisterBitmaps(HINSTANCE module)
{
    const auto bitmaps = bitmapsByModule().find(module);
    if (bitmaps == bitmapsByModule().end())
        return 0;
    const auto count = static_cast<int>(bitmaps->second.size());
    bitmapsByModule().erase(bitmaps);
    return count;
}

HANDLE LoadImageW(HINSTANCE module, LPCWSTR name, UINT type, int width, int height, UINT flags)
{
    if (type != IMAGE_BITMAP || width < 0 || height < 0) {
        SetLastError(type != IMAGE_BITMAP ? ERROR_RESOURCE_TYPE_NOT_FOUND : ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    const QImage image = (flags & LR_LOADFROMFILE) ? bitmapOfFile(name) : registeredBitmap(module, name);
    if (image.isNull())
        return nullptr;
    const QSize size(width > 0 ? width : image.width(), height > 0 ? height : image.height());
    return platformServices()->imageService()->createBitmapFromImage(
        size == image.size() ? image : image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}
