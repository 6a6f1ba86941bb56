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

    /// As in QSettings, except that a value without a name is missing and cannot be stored, without a word.
    QVariant value(const QString &name, const QVariant &fallback = QVariant()) const
    {
        return name.isEmpty() ? fallback : QSettings::value(name, fallback);
    }
    void setValue(const QString &name, const QVariant &value)
    {
        if (!name.isEmpty())
            QSettings::setValue(name, value);
    }
};
