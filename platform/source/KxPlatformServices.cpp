// SPDX-License-Identifier: MIT
#include "KxPlatformServices.h"

class KxPlatformServices::Private
{
public:
    KxKeyStateService defaultKeyState;
    KxImageService defaultImages;
    KxFileSystemService defaultFileSystem;

    KxKeyStateService *keyState = &defaultKeyState;
    KxImageService *images = &defaultImages;
    KxFileSystemService *fileSystem = &defaultFileSystem;
};

KxPlatformServices::KxPlatformServices()
    : d(std::make_unique<Private>())
{
}

KxPlatformServices::~KxPlatformServices() = default;

KxKeyStateService *KxPlatformServices::keyStateService() const
{
    return d->keyState;
}

KxImageService *KxPlatformServices::imageService() const
{
    return d->images;
}

KxFileSystemService *KxPlatformServices::fileSystemService() const
{
    return d->fileSystem;
}

void KxPlatformServices::setKeyStateService(KxKeyStateService *service)
{
    d->keyState = service ? service : &d->defaultKeyState;
}

void KxPlatformServices::setImageService(KxImageService *service)
{
    d->images = service ? service : &d->defaultImages;
}

void KxPlatformServices::setFileSystemService(KxFileSystemService *service)
{
    d->fileSystem = service ? service : &d->defaultFileSystem;
}

KxPlatformServices *platformServices()
{
    static auto *const services = new KxPlatformServices;
    return services;
}
