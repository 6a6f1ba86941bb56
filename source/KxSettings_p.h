// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QSettings>

/// The per-user store in which everything lasting is kept.
class KxSettings : public QSettings
{
public:
    KxSettings()
        : QSettings(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("Drumal"), QStringLiteral("TORVA"))
    {
    }
};
