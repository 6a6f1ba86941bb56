// SPDX-License-Identifier: MIT
#include "PlotReader.h"

#include "PlotInterpreter.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

PlotReading PlotReader::readFile(const QString &path)
{
    PlotReading reading;
    QFile file(path);
    if (QFileInfo(path).isDir() || !file.open(QIODevice::ReadOnly)) {
        reading.result = PlotReading::Unreadable;
        return reading;
    }
    // Devices and pipes have no size to ask for.
    const QByteArray bytes = file.read(static_cast<qint64>(LargestFile) + 1);
    if (file.error() != QFileDevice::NoError) {
        reading.result = PlotReading::Unreadable;
        return reading;
    }
    return readBytes(bytes);
}

PlotReading PlotReader::readBytes(const QByteArray &bytes)
{
    PlotReading reading;
    if (bytes.size() > LargestFile) {
        reading.result = PlotReading::TooLarge;
    } else if (bytes.trimmed().isEmpty()) {
        reading.result = PlotReading::Empty;
    } else {
        reading.plot = PlotInterpreter(bytes).run();
        // Ordinary text holds a few letter pairs that happen to be instructions, and nothing comes of them.
        const bool mostlySkipped = reading.plot.instructionCount < reading.plot.skippedCount;
        if (reading.plot.instructionCount == 0 || (reading.plot.isBlank() && mostlySkipped))
            reading.result = PlotReading::NoInstructions;
    }
    return reading;
}
