// SPDX-License-Identifier: MIT
// What the clipboard of a fresh process tells, and what becomes of its blocks when the process ends. Each row
// runs this program once more, with the name of a part: the copy does its part, returns from main() and
// writes a letter for each block that is freed while the libraries go. A build with the sanitizers also fails
// a row by the exit code and standard error of the copy, for a leak or a use after free anywhere in it.

#include "KxClipboardBlocks.h"
#include "KxClipboardExitParts.h"
#include "KxTestCase.h"

#include <QtCore/QProcess>

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace {

struct Outcome
{
    QByteArray told;
    QByteArray atExit;
    QByteArray standardError;
    bool finished = false; ///< With an exit code of 0.
};

Outcome runCopy(const char *part, bool atStart = false)
{
    QProcess process;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QLatin1String(atStartVariable));
    if (atStart)
        environment.insert(QLatin1String(atStartVariable), QStringLiteral("1"));
    const QTemporaryDir folder; // Qt warns of a missing one
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), folder.path());
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(),
                  {QStringLiteral("--part"), QString::fromUtf8(part)});
    process.waitForFinished(300000);

    Outcome outcome;
    outcome.finished = process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    outcome.standardError = process.readAllStandardError();
    const QByteArray output = process.readAllStandardOutput();
    const int colon = output.lastIndexOf(':');
    outcome.told = output.left(colon);
    outcome.atExit = output.mid(colon + 1);
    return outcome;
}

/// The letters in the order of the alphabet, each capital in front of its small one, signs in front of all.
QByteArray sorted(QByteArray letters)
{
    std::sort(letters.begin(), letters.end(), [](char left, char right) {
        const int leftBase = left | 0x20;
        const int rightBase = right | 0x20;
        return leftBase != rightBase ? leftBase < rightBase : left < right;
    });
    return letters;
}

template<std::size_t count>
void addRows(const Part (&parts)[count])
{
    QTest::addColumn<QByteArray>("told");
    QTest::addColumn<QByteArray>("atExit");
    for (const Part &part : parts)
        QTest::newRow(part.name) << QByteArray(part.told) << QByteArray(part.atExit);
}

void checkRow()
{
    QFETCH(QByteArray, told);
    QFETCH(QByteArray, atExit);
    const Outcome outcome = runCopy(QTest::currentDataTag());
    QCOMPARE(outcome.standardError, QByteArray());
    QVERIFY(outcome.finished);
    QCOMPARE(outcome.told, told);
    QCOMPARE(sorted(outcome.atExit), atExit);
}

} // namespace

class tst_ClipboardExit : public KxTestCase
{
    Q_OBJECT

private slots:
    void freshProcess_data() { addRows(freshParts); }
    void freshProcess() { checkRow(); }
    void exit_data() { addRows(exitParts); }
    void exit() { checkRow(); }
    void usedBeforeMain();
    void blocksGoBeforeTheData();
    void unseenByAnotherProcess();
    void leakIsSeen();
    void secondFreeIsSeen();
};

void tst_ClipboardExit::usedBeforeMain()
{
    const Outcome outcome = runCopy("at start", true);
    QCOMPARE(outcome.standardError, QByteArray());
    QVERIFY(outcome.finished);
    QCOMPARE(outcome.told, QByteArray("3456 yes:early 3457 yes:early 13 2 3456 3457 end"));
    QCOMPARE(outcome.atExit, QByteArray("aA"));
}

void tst_ClipboardExit::blocksGoBeforeTheData()
{
    const Outcome outcome = runCopy("order at exit");
    QCOMPARE(outcome.standardError, QByteArray());
    QVERIFY(outcome.finished);
    QCOMPARE(outcome.atExit, QByteArray("aA!"));
}

void tst_ClipboardExit::unseenByAnotherProcess()
{
    cache(one(), kxMovableBlock('A', "of this process"));
    attach();
    const Outcome outcome = runCopy("starts empty");
    QVERIFY(outcome.finished);
    QCOMPARE(outcome.told, QByteArray("3456 0 0 -1 3455 unattached"));
    COleDataObject data;
    QVERIFY(kxContentsOf(data.GetGlobalData(cf(one()))) == "of this process");
}

// The rows above could not fail if these two did.
void tst_ClipboardExit::leakIsSeen()
{
    const Outcome outcome = runCopy("leak");
    QCOMPARE(outcome.atExit, QByteArray());
    QCOMPARE(outcome.finished, !KX_HAS_ADDRESS_SANITIZER);
    QCOMPARE(outcome.standardError.contains("LeakSanitizer"), bool(KX_HAS_ADDRESS_SANITIZER));
}

void tst_ClipboardExit::secondFreeIsSeen()
{
    const Outcome outcome = runCopy("free twice");
    if (KX_HAS_ADDRESS_SANITIZER) {
        QVERIFY(!outcome.finished);
        QVERIFY(outcome.standardError.contains("AddressSanitizer"));
    } else {
        QCOMPARE(outcome.atExit, QByteArray("aA"));
    }
}

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (argc == 3 && std::strcmp(argv[1], "--part") == 0)
        return runPart(argv[2]);
    return kxRunTest<tst_ClipboardExit>(argc, argv);
}
#include "tst_clipboard_exit.moc"
