// SPDX-License-Identifier: MIT
#include "KxAfxFile.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTextStream>

#include <benchmark/benchmark.h>

#include <vector>

// CFile beside QFile and CStdioFile beside QTextStream, on the same file in the same run. The lines read by
// QTextStream are counted once as they are and once made wide, which a host has to do there itself.

namespace {

constexpr int lineCount = 20000;

const QTemporaryDir &directory()
{
    static const QTemporaryDir made;
    return made;
}

/// A file of lines of that length.
QString linesFile(int length)
{
    const QString name = directory().filePath(QStringLiteral("lines%1").arg(length));
    QFile file(name);
    if (!file.exists() && file.open(QIODevice::WriteOnly)) {
        const QByteArray line = QByteArray(length, 'x') + '\n';
        for (int i = 0; i < lineCount; ++i)
            file.write(line);
    }
    return name;
}

void readLinesTextStream(benchmark::State &state)
{
    QFile file(linesFile(static_cast<int>(state.range(0))));
    for (auto _ : state) {
        file.open(QIODevice::ReadOnly);
        QTextStream stream(&file);
        for (int i = 0; i < lineCount; ++i) {
            const QString line = stream.readLine();
            benchmark::DoNotOptimize(line.constData());
        }
        file.close();
    }
}
BENCHMARK(readLinesTextStream)->Arg(20)->Arg(80)->Arg(1000);

void readWideLinesTextStream(benchmark::State &state)
{
    QFile file(linesFile(static_cast<int>(state.range(0))));
    for (auto _ : state) {
        file.open(QIODevice::ReadOnly);
        QTextStream stream(&file);
        for (int i = 0; i < lineCount; ++i) {
            const std::wstring line = stream.readLine().toStdWString();
            benchmark::DoNotOptimize(line.data());
        }
        file.close();
    }
}
BENCHMARK(readWideLinesTextStream)->Arg(20)->Arg(80)->Arg(1000);

void readLinesStdioFile(benchmark::State &state)
{
    const std::wstring name = linesFile(static_cast<int>(state.range(0))).toStdWString();
    CStdioFile file;
    CString line;
    for (auto _ : state) {
        file.Open(name.c_str(), CFile::modeRead);
        for (int i = 0; i < lineCount; ++i) {
            file.ReadString(line);
            benchmark::DoNotOptimize(line.data());
        }
        file.Close();
    }
}
BENCHMARK(readLinesStdioFile)->Arg(20)->Arg(80)->Arg(1000);

void readBufferLinesStdioFile(benchmark::State &state)
{
    const std::wstring name = linesFile(static_cast<int>(state.range(0))).toStdWString();
    CStdioFile file;
    wchar_t line[1024];
    for (auto _ : state) {
        file.Open(name.c_str(), CFile::modeRead);
        for (int i = 0; i < lineCount; ++i)
            benchmark::DoNotOptimize(file.ReadString(line, static_cast<unsigned int>(std::size(line))));
        file.Close();
    }
}
BENCHMARK(readBufferLinesStdioFile)->Arg(20)->Arg(80)->Arg(1000);

void writeLinesTextStream(benchmark::State &state)
{
    QFile file(directory().filePath(QStringLiteral("written")));
    const std::wstring line(80, L'x');
    for (auto _ : state) {
        file.open(QIODevice::WriteOnly);
        QTextStream stream(&file);
        for (int i = 0; i < lineCount; ++i)
            stream << QString::fromWCharArray(line.c_str());
        stream.flush();
        file.close();
    }
}
BENCHMARK(writeLinesTextStream);

void writeLinesStdioFile(benchmark::State &state)
{
    const std::wstring name = directory().filePath(QStringLiteral("written")).toStdWString();
    const std::wstring line(80, L'x');
    CStdioFile file;
    for (auto _ : state) {
        file.Open(name.c_str(), CFile::modeWrite);
        for (int i = 0; i < lineCount; ++i)
            file.WriteString(line.c_str());
        file.Close();
    }
}
BENCHMARK(writeLinesStdioFile);

void readBytesQFile(benchmark::State &state)
{
    QFile file(linesFile(1000));
    std::vector<char> buffer(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        file.open(QIODevice::ReadOnly);
        while (file.read(buffer.data(), state.range(0)) > 0)
            benchmark::ClobberMemory();
        file.close();
    }
}
BENCHMARK(readBytesQFile)->Arg(16)->Arg(4096);

void readBytesFile(benchmark::State &state)
{
    const std::wstring name = linesFile(1000).toStdWString();
    std::vector<char> buffer(static_cast<std::size_t>(state.range(0)));
    CFile file;
    for (auto _ : state) {
        file.Open(name.c_str(), CFile::modeRead);
        while (file.Read(buffer.data(), static_cast<unsigned int>(state.range(0))) > 0)
            benchmark::ClobberMemory();
        file.Close();
    }
}
BENCHMARK(readBytesFile)->Arg(16)->Arg(4096);

void writeBytesQFile(benchmark::State &state)
{
    QFile file(directory().filePath(QStringLiteral("written")));
    const std::vector<char> buffer(64, 'x');
    for (auto _ : state) {
        file.open(QIODevice::WriteOnly);
        for (int i = 0; i < lineCount; ++i)
            file.write(buffer.data(), static_cast<qint64>(buffer.size()));
        file.close();
    }
}
BENCHMARK(writeBytesQFile);

void writeBytesFile(benchmark::State &state)
{
    const std::wstring name = directory().filePath(QStringLiteral("written")).toStdWString();
    const std::vector<char> buffer(64, 'x');
    CFile file;
    for (auto _ : state) {
        file.Open(name.c_str(), CFile::modeWrite);
        for (int i = 0; i < lineCount; ++i)
            file.Write(buffer.data(), static_cast<unsigned int>(buffer.size()));
        file.Close();
    }
}
BENCHMARK(writeBytesFile);

} // namespace

BENCHMARK_MAIN();
