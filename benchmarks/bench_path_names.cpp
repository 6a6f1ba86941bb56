// SPDX-License-Identifier: MIT
#include "QRmUiPathname.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <benchmark/benchmark.h>

#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <clocale>
#include <string>

// Parse() beside the system calls that it must make: getcwd() and one stat() of the path. It looks at the
// current directory too, so the same with two calls of stat() is told as well. What making the names wide and
// narrow costs is a line of its own.

namespace {

enum Name { ExistingRelative, ExistingAbsolute, MissingRelative, MissingAbsolute };

/// A directory with one file, and the process in it.
class Surroundings
{
public:
    Surroundings()
    {
        std::setlocale(LC_ALL, "C.UTF-8");
        QFile file(m_directory.filePath(QStringLiteral("plan of the house.dwg")));
        file.open(QIODevice::WriteOnly);
        QDir::setCurrent(m_directory.path());
    }

    std::string narrow(Name name) const
    {
        const bool isRelative = name == ExistingRelative || name == MissingRelative;
        const bool isExisting = name == ExistingRelative || name == ExistingAbsolute;
        const std::string folder = isRelative ? std::string() : m_directory.path().toStdString() + "/";
        return folder + (isExisting ? "plan of the house.dwg" : "plan of the barn.dwg");
    }
    std::wstring wide(Name name) const { return QString::fromStdString(narrow(name)).toStdWString(); }

private:
    QTemporaryDir m_directory;
};

const Surroundings &surroundings()
{
    static const Surroundings made;
    return made;
}

void systemCalls(benchmark::State &state, Name name)
{
    const std::string path = surroundings().narrow(name);
    char directory[PATH_MAX];
    struct stat status = {};
    for (auto _ : state) {
        benchmark::DoNotOptimize(getcwd(directory, sizeof directory));
        benchmark::DoNotOptimize(stat(path.c_str(), &status));
    }
}
BENCHMARK_CAPTURE(systemCalls, existingRelative, ExistingRelative);
BENCHMARK_CAPTURE(systemCalls, existingAbsolute, ExistingAbsolute);
BENCHMARK_CAPTURE(systemCalls, missingRelative, MissingRelative);
BENCHMARK_CAPTURE(systemCalls, missingAbsolute, MissingAbsolute);

void systemCallsWithDirectory(benchmark::State &state, Name name)
{
    const std::string path = surroundings().narrow(name);
    char directory[PATH_MAX];
    struct stat status = {};
    for (auto _ : state) {
        benchmark::DoNotOptimize(getcwd(directory, sizeof directory));
        benchmark::DoNotOptimize(stat(directory, &status));
        benchmark::DoNotOptimize(stat(path.c_str(), &status));
    }
}
BENCHMARK_CAPTURE(systemCallsWithDirectory, existingRelative, ExistingRelative);
BENCHMARK_CAPTURE(systemCallsWithDirectory, existingAbsolute, ExistingAbsolute);
BENCHMARK_CAPTURE(systemCallsWithDirectory, missingRelative, MissingRelative);
BENCHMARK_CAPTURE(systemCallsWithDirectory, missingAbsolute, MissingAbsolute);

void parse(benchmark::State &state, Name name)
{
    const std::wstring text = surroundings().wide(name);
    const bool isExisting = name == ExistingRelative || name == ExistingAbsolute;
    CRmUiPathname path;
    for (auto _ : state) {
        benchmark::DoNotOptimize(path.Parse(text.c_str()));
        if (path.GetPathType() != (isExisting ? kFilePath : kNewPath))
            state.SkipWithError("the path is not what it should be");
    }
}
BENCHMARK_CAPTURE(parse, existingRelative, ExistingRelative);
BENCHMARK_CAPTURE(parse, existingAbsolute, ExistingAbsolute);
BENCHMARK_CAPTURE(parse, missingRelative, MissingRelative);
BENCHMARK_CAPTURE(parse, missingAbsolute, MissingAbsolute);

/// Without the current directory: one stat().
void parseRelative(benchmark::State &state, Name name)
{
    const std::wstring text = surroundings().wide(name);
    CRmUiPathname directory;
    directory.Parse(QDir::currentPath().toStdWString().c_str());
    CRmUiPathname path;
    for (auto _ : state)
        benchmark::DoNotOptimize(path.ParseRelative(text.c_str(), &directory));
}
BENCHMARK_CAPTURE(parseRelative, existingRelative, ExistingRelative);
BENCHMARK_CAPTURE(parseRelative, existingAbsolute, ExistingAbsolute);

/// The current directory made wide, it and the path made narrow again for the disk.
void conversions(benchmark::State &state)
{
    const QByteArray directory = QFile::encodeName(QDir::currentPath());
    const std::wstring path = surroundings().wide(ExistingAbsolute);
    for (auto _ : state) {
        const std::wstring wide = QFile::decodeName(directory).toStdWString();
        benchmark::DoNotOptimize(QFile::encodeName(QString::fromStdWString(wide)));
        benchmark::DoNotOptimize(QFile::encodeName(QString::fromStdWString(path)));
    }
}
BENCHMARK(conversions);

} // namespace

BENCHMARK_MAIN();
