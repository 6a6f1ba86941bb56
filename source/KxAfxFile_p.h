// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QTextStream>

class CFileImpl
{
public:
    QFile file; // first: whoever is given the private part may take it for the QFile
    QFileInfo info;
};

class CStdioFileImpl
{
public:
    QTextStream stream;
    QString line; // a line's memory serves the next one
};
