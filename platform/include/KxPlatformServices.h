// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// The services that stand between Win32 handles and Qt: key state, images and brushes, path normalisation.
///
/// platformServices() is the one object; each of its services has a default that works on Qt, and a host may
/// put its own in the place of any of them. All calls belong to the GUI thread.
///
/// @code
/// HBITMAP bitmap = platformServices()->imageService()->createBitmap(32, 32);
/// platformServices()->imageService()->image(bitmap)->fill(Qt::red);
/// @endcode

#include "KxPlatformExport.h"
#include "KxWinTypes.h"

#include <memory>
#include <string>

class QImage;
class QPaintDevice;

/// Which keys and mouse buttons are down. The base class answers from Qt.
class KX_PLATFORM_EXPORT KxKeyStateService
{
public:
    KxKeyStateService();
    KxKeyStateService(const KxKeyStateService &) = delete;
    KxKeyStateService &operator=(const KxKeyStateService &) = delete;
    virtual ~KxKeyStateService();

    /// The state of one key or mouse button (VK_*), as GetKeyState in Win32 lays it out: the sign bit of the
    /// 16 is set while it is down, the lowest bit while it is toggled on.
    ///
    /// - VK_SHIFT, VK_CONTROL, VK_MENU (Alt) and their left and right forms, VK_LWIN and VK_RWIN (Meta):
    ///   Qt's keyboard modifiers. Qt does not tell left from right, so both sides answer for either.
    /// - VK_LBUTTON, VK_RBUTTON, VK_MBUTTON, VK_XBUTTON1 (back), VK_XBUTTON2 (forward): Qt's mouse buttons.
    /// - VK_CAPITAL: Qt has no query for it. It is known from the last key event that carried the window
    ///   system's own modifier state (X11, Wayland), and 0 before the first one.
    ///
    /// Every other code answers 0, and so does every code while there is no QGuiApplication.
    ///
    /// As in Win32 the answer belongs to the event that is being handled, not to the moment of the call. One
    /// difference is Qt's: while the press or release of a modifier key itself is being delivered, the
    /// answer for that key is still the one from before it.
    virtual SHORT keyState(int virtualKey) const;
};

/// Bitmaps and brushes behind Win32 handles. The base class keeps bitmaps as QImage.
///
/// A handle that was never given out, was deleted or is of another kind is never dereferenced: every query
/// says what it answers then. The handle of a deleted bitmap or brush is not given out again.
class KX_PLATFORM_EXPORT KxImageService
{
public:
    KxImageService();
    KxImageService(const KxImageService &) = delete;
    KxImageService &operator=(const KxImageService &) = delete;
    virtual ~KxImageService();

    /// A new bitmap, in pixels, opaque black, of the format QImage::Format_ARGB32_Premultiplied. The service
    /// owns the image until deleteHandle(). Null when a side is not positive or memory does not suffice.
    virtual HBITMAP createBitmap(int width, int height);

    /// A new bitmap with the contents of `image`, transparency included; as createBitmap() otherwise. Null
    /// for a null image. The base class makes it with createBitmap() and image().
    virtual HBITMAP createBitmapFromImage(const QImage &image);

    /// A new solid brush. The top byte of the colour is dropped; 0xFFFFFFFF, no colour, gives null.
    virtual HBRUSH createSolidBrush(COLORREF color);

    /// The image behind a bitmap handle, made here or adopted. The owner stays who it was; the pointer holds
    /// until the handle is deleted or released. Null for everything that is no bitmap handle.
    virtual QImage *image(HGDIOBJ handle) const;

    /// What a painter opens to draw into the bitmap: the image of image(), null where that is null.
    virtual QPaintDevice *paintDevice(HGDIOBJ handle) const;

    /// The colour of a brush; CLR_INVALID (0xFFFFFFFF) for everything that is no brush handle.
    virtual COLORREF brushColor(HGDIOBJ handle) const;

    /// Deletes a bitmap or a brush, as DeleteObject in Win32. An adopted image is let go and stays its
    /// owner's. False for everything that is neither.
    virtual bool deleteHandle(HGDIOBJ handle);

    /// Makes somebody else's image answer as a bitmap; the handle's value is the image's address. The caller
    /// keeps the image and calls release() before it dies. Adopting it again gives the same handle, and an
    /// image that the service made itself has the handle it was made with. Null for null.
    virtual HBITMAP adopt(QImage *image);

    /// Takes an adoption back, however often it was asked for. False when the image is not an adopted one.
    virtual bool release(QImage *image);

private:
    class Private;
    const std::unique_ptr<Private> d;
};

/// What there is to know about paths without asking the disk.
class KX_PLATFORM_EXPORT KxFileSystemService
{
public:
    KxFileSystemService();
    KxFileSystemService(const KxFileSystemService &) = delete;
    KxFileSystemService &operator=(const KxFileSystemService &) = delete;
    virtual ~KxFileSystemService();

    /// Resolves `.`, `..` and repeated separators by the text alone; no file is looked at, so that a `..`
    /// after a symbolic link leads to the folder that the text names.
    ///
    /// - The separator is `/`; a backslash is a character of a name.
    /// - `..` at the root stays at the root; the leading `..` of a relative path stay in place.
    /// - A separator at the end is kept, as one, and none is added. `a/.` and `a/b/..` are `a`.
    /// - A relative path of which nothing remains is `.` (`./` with a separator at the end).
    /// - A letter and a colon in front are kept and never climbed over: `C:/..` is `C:/`.
    ///
    /// `path` may be the text of `normalized` itself. False for null and for an empty path; `normalized` is
    /// left as it was then.
    virtual bool normalizePath(const wchar_t *path, std::wstring &normalized) const;
};

/// The services object. There is one, platformServices().
class KX_PLATFORM_EXPORT KxPlatformServices
{
public:
    KxPlatformServices();
    KxPlatformServices(const KxPlatformServices &) = delete;
    KxPlatformServices &operator=(const KxPlatformServices &) = delete;
    virtual ~KxPlatformServices();

    /// The services in use; never null.
    virtual KxKeyStateService *keyStateService() const;
    virtual KxImageService *imageService() const;
    virtual KxFileSystemService *fileSystemService() const;

    /// Puts a service of the host's own in place. It is not owned: the host keeps it alive until another one
    /// takes its place. Null brings the default back, in the state it was left in. Handles of one image
    /// service mean nothing to another.
    void setKeyStateService(KxKeyStateService *service);
    void setImageService(KxImageService *service);
    void setFileSystemService(KxFileSystemService *service);

private:
    class Private;
    const std::unique_ptr<Private> d;
};

/// The services of this process. Made on the first call and never destroyed, so that objects which die at
/// exit can still let their handles go.
KX_PLATFORM_EXPORT KxPlatformServices *platformServices();
