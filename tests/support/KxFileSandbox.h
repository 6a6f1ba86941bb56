// SPDX-License-Identifier: MIT
#pragma once

#include "KxPlatformBase.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryDir>

#include <csignal>
#include <string>

#include <sys/resource.h>

/// \file
/// Files of a test's own, and a disk that is full.

inline const QString asciiName = QStringLiteral("file.txt");

inline std::wstring wide(const QString &text)
{
    return text.toStdWString();
}

inline QByteArray contentsOf(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(not there)");
}

inline bool write(const QString &name, const QByteArray &contents)
{
    QFile file(name);
    return file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size();
}

/// A directory of its own, which is the current one while it lives.
class Sandbox
{
public:
    Sandbox()
    {
        QDir::setCurrent(m_directory.path());
        SetLastError(0);
    }
    ~Sandbox() { QDir::setCurrent(m_before); }

    QString path() const { return QFileInfo(m_directory.path()).canonicalFilePath(); }
    QString path(const QString &name) const { return path() + QLatin1Char('/') + name; }
    std::wstring widePath(const QString &name) const { return wide(path(name)); }
    QStringList entries() const
    {
        return QDir(path()).entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
    }

private:
    const QString m_before = QDir::currentPath();
    const QTemporaryDir m_directory;
};

/// No file grows beyond `bytes` while it lives, as on a full disk.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit = {bytes, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    FileSizeLimit(const FileSizeLimit &) = delete;
    FileSizeLimit &operator=(const FileSizeLimit &) = delete;

private:
    rlimit m_before = {};
    void (*const m_handler)(int) = std::signal(SIGXFSZ, SIG_IGN);
};
