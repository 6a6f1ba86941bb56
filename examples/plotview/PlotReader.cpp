// SPDX-License-Identifier: MIT
#include "PlotReader.h"

#include "PlotFile.h"
#include "PlotInterpreter.h"
#include "ResourceText.h"

#include <algorithm>

namespace {

constexpr int BytesAtOnce = 64 * 1024;

bool isBlank(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

PlotReading read(const PlotSource &source)
{
    PlotReading reading;
    bool blank = true;
    reading.plot = PlotInterpreter([&source, &blank](QByteArray &bytes) {
        const int before = bytes.size();
        const bool goesOn = source(bytes);
        blank = blank && std::all_of(bytes.cbegin() + before, bytes.cend(), isBlank);
        return goesOn;
    }).run();
    // Ordinary text holds a few letter pairs that happen to be instructions, and nothing comes of them.
    const bool mostlySkipped = reading.plot.instructionCount < reading.plot.skippedCount;
    if (blank)
        reading.result = PlotReading::Empty;
    else if (reading.plot.instructionCount == 0 || (reading.plot.isBlank() && mostlySkipped))
        reading.result = PlotReading::NoInstructions;
    return reading;
}

PlotReading failed(PlotReading::Result result)
{
    PlotReading reading;
    reading.result = result;
    return reading;
}

} // namespace

PlotReading PlotReader::readFile(const QString &path, const PlotProgress &progress)
{
    CPlotFile file;
    if (!file.OpenPlot(toCString(path)))
        return failed(PlotReading::Unreadable);
    const auto total = static_cast<qint64>(file.GetLength());
    if (total > LargestFile)
        return failed(PlotReading::TooLarge);

    qint64 done = 0;
    bool cancelled = false;
    PlotReading reading = read([&](QByteArray &bytes) {
        const int before = bytes.size();
        bool goesOn = true;
        while (goesOn && bytes.size() - before < BytesAtOnce)
            goesOn = file.ReadPiece(bytes);
        done += bytes.size() - before;
        cancelled = progress && !progress(done, total);
        return goesOn && !cancelled && done <= LargestFile;
    });
    if (cancelled)
        return failed(PlotReading::Cancelled);
    // Devices and pipes had no size to ask for.
    if (done > LargestFile)
        return failed(PlotReading::TooLarge);
    if (file.IsCutShort())
        return failed(PlotReading::Unreadable);
    return reading;
}

PlotReading PlotReader::readBytes(const QByteArray &bytes)
{
    if (bytes.size() > LargestFile)
        return failed(PlotReading::TooLarge);
    int at = 0;
    return read([&bytes, &at](QByteArray &window) {
        const int count = std::min(BytesAtOnce, bytes.size() - at);
        window.append(bytes.constData() + at, count);
        at += count;
        return at < bytes.size();
    });
}
