// SPDX-License-Identifier: MIT
#include "KxFileSandbox.h"
#include "KxPlotProgram.h"
#include "KxTestCase.h"

#include "PlotDocument.h"
#include "RecentPlots.h"

#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

namespace {

constexpr const char *SmallPlot = "IN;SP1;PU0,0;PD4000,0;PU;";

/// What the File menu shows of the recent plots.
QStringList recentTexts(const PlotProgram &program)
{
    QStringList texts;
    for (UINT id = ID_RECENT_FIRST; id <= ID_RECENT_LAST; ++id) {
        if (program.command(id)->isVisible())
            texts.append(program.command(id)->text());
    }
    return texts;
}

/// What message boxes said that came up during `run`, each ended by `button`; a file dialog gets `name` typed
/// into it, or Escape where that is null.
QStringList messagesDuring(const std::function<void()> &run, const QString &name = QString(),
                           QMessageBox::StandardButton button = QMessageBox::Ok)
{
    QStringList texts;
    const KxWatchdog watchdog;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        QWidget *modal = QApplication::activeModalWidget();
        if (auto *box = qobject_cast<QMessageBox *>(modal)) {
            texts.append(box->text());
            QTest::mouseClick(box->button(button), Qt::LeftButton);
        } else if (auto *dialog = qobject_cast<QFileDialog *>(modal)) {
            auto *edit = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
            if (name.isNull()) {
                QTest::keyClick(dialog, Qt::Key_Escape);
            } else {
                edit->selectAll();
                QTest::keyClicks(edit, name);
                QTest::keyClick(edit, Qt::Key_Return);
            }
        }
    });
    timer.start(0);
    run();
    return texts;
}

} // namespace

Q_DECLARE_METATYPE(QMessageBox::StandardButton)

class PlotPathsTest : public KxTestCase
{
    Q_OBJECT

public:
    PlotPathsTest() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

private slots:
    void init();

    void displayName_data();
    void displayName();
    void recentPlots();
    void recentPlotTwice();
    void mostRecentPlots();
    void recentPlotsAreRemembered();
    void recentPlotThatIsGone();
    void recentPlotsOfAnUnattendedRun();
    void recentPlotWithAnAmpersand();
    void damagedRecentPlots();

    void summaryAs_data();
    void summaryAs();
    void summaryAsNothing();
    void summaryAsThatExists_data();
    void summaryAsThatExists();

    void exportCopy_data();
    void exportCopy();
    void exportCopyOfASample();
    void exportCopyOfABareName();
    void exportCopyThatFails();
    void exportCopyOnAFullDisk();
};

void PlotPathsTest::init()
{
    KxTestCase::init();
    plotStore().clear();
}

void PlotPathsTest::displayName_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("shown");
    QTest::newRow("short") << "/plots/site.hpgl"
                           << "/plots/site.hpgl";
    QTest::newRow("40 characters") << "/plots/of/the/northern/part/of/site.hpgl"
                                   << "/plots/of/the/northern/part/of/site.hpgl";
    QTest::newRow("41 characters") << "/plots/of/the/northern/parts/of/site.hpgl"
                                   << ".../of/the/northern/parts/of/site.hpgl";
    QTest::newRow("much longer") << "/home/somebody/projects/railway/bridges/2021/drawings/pier.hpgl"
                                 << ".../bridges/2021/drawings/pier.hpgl";
    QTest::newRow("a long name") << "/plots/" + QString(50, QLatin1Char('x')) + ".hpgl"
                                 << QString(34, QLatin1Char('x')) + "~.hpgl";
    QTest::newRow("a colon, which no path name has") << "/plots/a:b.hpgl"
                                                     << "/plots/a:b.hpgl";
}

void PlotPathsTest::displayName()
{
    QFETCH(QString, path);
    QFETCH(QString, shown);
    QCOMPARE(toQString(CRecentPlots::GetDisplayName(toCString(path))), shown);
}

void PlotPathsTest::recentPlots()
{
    const Sandbox sandbox;
    QVERIFY(write(sandbox.path(QStringLiteral("a.hpgl")), SmallPlot));
    QVERIFY(write(sandbox.path(QStringLiteral("b.hpgl")), SmallPlot));
    const PlotProgram program;
    QCOMPARE(recentTexts(program), QStringList()); // samples do not count
    QVERIFY(program.open(sandbox.path(QStringLiteral("a.hpgl"))));
    QVERIFY(program.open(QStringLiteral("b.hpgl"))); // in the current folder
    const auto shown = [&sandbox](const char *name) {
        return toQString(CRecentPlots::GetDisplayName(toCString(sandbox.path(QLatin1String(name)))));
    };
    QCOMPARE(recentTexts(program), QStringList({QStringLiteral("&1  ") + shown("b.hpgl"),
                                                QStringLiteral("&2  ") + shown("a.hpgl")}));
    program.command(ID_RECENT_FIRST + 1)->trigger();
    QCOMPARE(program.text(IDC_STATUS_MESSAGE), sandbox.path(QStringLiteral("a.hpgl")));
    QCOMPARE(recentTexts(program), QStringList({QStringLiteral("&1  ") + shown("a.hpgl"),
                                                QStringLiteral("&2  ") + shown("b.hpgl")}));
}

void PlotPathsTest::recentPlotTwice()
{
    const Sandbox sandbox;
    QVERIFY(write(sandbox.path(QStringLiteral("a.hpgl")), SmallPlot));
    const PlotProgram program;
    QVERIFY(program.open(QStringLiteral("a.hpgl")));
    QVERIFY(program.open(sandbox.path(QStringLiteral("a.hpgl"))));
    QVERIFY(program.open(QStringLiteral("./a.hpgl")));
    QCOMPARE(recentTexts(program).size(), 1);
}

void PlotPathsTest::mostRecentPlots()
{
    const Sandbox sandbox;
    const PlotProgram program;
    for (int i = 0; i < 10; ++i) {
        const QString path = sandbox.path(QStringLiteral("%1.hpgl").arg(i));
        QVERIFY(write(path, SmallPlot));
        QVERIFY(program.open(path));
    }
    QCOMPARE(recentTexts(program).size(), 4); // as the options say
    QVERIFY(recentTexts(program).at(3).endsWith(QStringLiteral("/6.hpgl")));
    const CRecentPlots recent;
    QCOMPARE(recent.GetPaths().size(), std::size_t(8));
    QCOMPARE(toQString(recent.GetPaths().back()), sandbox.path(QStringLiteral("2.hpgl")));
}

void PlotPathsTest::recentPlotsAreRemembered()
{
    const Sandbox sandbox;
    const QString name = QString::fromUtf8("Plan Ø – 図面.hpgl");
    QVERIFY(write(sandbox.path(name), SmallPlot));
    {
        const PlotProgram program(sandbox.path(name));
    }
    const PlotProgram program;
    QCOMPARE(recentTexts(program).size(), 1);
    program.command(ID_RECENT_FIRST)->trigger();
    QCOMPARE(program.text(IDC_STATUS_MESSAGE), sandbox.path(name));
}

void PlotPathsTest::recentPlotThatIsGone()
{
    const Sandbox sandbox;
    const QString path = sandbox.path(QStringLiteral("a.hpgl"));
    QVERIFY(write(path, SmallPlot));
    const PlotProgram program(path);
    QVERIFY(program.command(ID_SAMPLE_ISLAND)->isEnabled());
    program.command(ID_SAMPLE_ISLAND)->trigger();
    // One that is there but is no plot any more stays.
    QVERIFY(write(path, QByteArray()));
    QCOMPARE(messagesDuring([&] { program.command(ID_RECENT_FIRST)->trigger(); }),
             QStringList(path + QStringLiteral("\nis empty.")));
    QCOMPARE(recentTexts(program).size(), 1);
    QVERIFY(QFile::remove(path));
    QCOMPARE(messagesDuring([&] { program.command(ID_RECENT_FIRST)->trigger(); }).size(), 1);
    QCOMPARE(recentTexts(program), QStringList());
    QVERIFY(CRecentPlots().GetPaths().empty());
}

void PlotPathsTest::recentPlotsOfAnUnattendedRun()
{
    const Sandbox sandbox;
    QVERIFY(write(sandbox.path(QStringLiteral("a.hpgl")), SmallPlot));
    CPlotViewApp app;
    app.SetUnattended();
    QVERIFY(app.InitInstance({L"a.hpgl"}));
    app.ExitInstance();
    QCOMPARE(plotStore().allKeys(), QStringList());
}

void PlotPathsTest::recentPlotWithAnAmpersand()
{
    const Sandbox sandbox;
    QVERIFY(write(sandbox.path(QStringLiteral("a&b.hpgl")), SmallPlot));
    const PlotProgram program(sandbox.path(QStringLiteral("a&b.hpgl")));
    QCOMPARE(recentTexts(program).size(), 1);
    QVERIFY(recentTexts(program).first().endsWith(QStringLiteral("a&&b.hpgl")));
}

void PlotPathsTest::damagedRecentPlots()
{
    plotStore().setValue(QStringLiteral("Software/plotview/Recent Plots/Plot1"),
                         QString(9000, QLatin1Char('x')));
    plotStore().setValue(QStringLiteral("Software/plotview/Recent Plots/Plot3"),
                         QStringLiteral("/there.hpgl"));
    const PlotProgram program;
    QCOMPARE(recentTexts(program), QStringList(QStringLiteral("&1  /there.hpgl")));
}

void PlotPathsTest::summaryAs_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("written");
    QTest::newRow("txt") << "out.txt"
                         << "out.txt";
    QTest::newRow("TXT") << "out.TXT"
                         << "out.TXT";
    QTest::newRow("no extension") << "out"
                                  << "out.txt";
    QTest::newRow("another extension") << "out.hpgl"
                                       << "out.txt";
    QTest::newRow("two extensions") << "out.tar.gz"
                                    << "out.tar.txt";
    QTest::newRow("blanks, not ASCII")
        << QString::fromUtf8("mein Plan Ø") << QString::fromUtf8("mein Plan Ø.txt");
}

void PlotPathsTest::summaryAs()
{
    QFETCH(QString, typed);
    QFETCH(QString, written);
    const Sandbox sandbox;
    QVERIFY(write(sandbox.path(QStringLiteral("plot.hpgl")), SmallPlot));
    const PlotProgram program(sandbox.path(QStringLiteral("plot.hpgl")));
    const QString path = sandbox.path(typed);
    QCOMPARE(messagesDuring([&] { program.command(ID_PLOT_SUMMARY_AS)->trigger(); }, path), QStringList());
    QVERIFY(contentsOf(sandbox.path(written)).startsWith("Plot:         plot.hpgl\n"));
    QCOMPARE(program.text(IDC_STATUS_MESSAGE), QStringLiteral("Summary saved as ") + sandbox.path(written));
    QCOMPARE(sandbox.entries().size(), 2);
}

void PlotPathsTest::summaryAsNothing()
{
    const Sandbox sandbox;
    const PlotProgram program;
    QCOMPARE(messagesDuring([&] { program.command(ID_PLOT_SUMMARY_AS)->trigger(); }), QStringList());
    QCOMPARE(sandbox.entries(), QStringList());
}

void PlotPathsTest::summaryAsThatExists_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QMessageBox::StandardButton>("button");
    QTest::addColumn<bool>("replaced");
    QTest::newRow("named, Yes") << "out.txt" << QMessageBox::Yes << true;
    QTest::newRow("named, No") << "out.txt" << QMessageBox::No << false;
    QTest::newRow("meant, Yes") << "out" << QMessageBox::Yes << true;
    QTest::newRow("meant, No") << "out" << QMessageBox::No << false;
}

void PlotPathsTest::summaryAsThatExists()
{
    QFETCH(QString, typed);
    QFETCH(QMessageBox::StandardButton, button);
    QFETCH(bool, replaced);
    const Sandbox sandbox;
    const QString out = sandbox.path(QStringLiteral("out.txt"));
    QVERIFY(write(out, "old"));
    const PlotProgram program;
    QCOMPARE(
        messagesDuring([&] { program.command(ID_PLOT_SUMMARY_AS)->trigger(); }, sandbox.path(typed), button),
        QStringList(out + QStringLiteral("\nexists already. Do you want to replace it?")));
    QCOMPARE(contentsOf(out) == "old", !replaced);
}

void PlotPathsTest::exportCopy_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("pattern");
    QTest::newRow("an extension") << "plot.hpgl"
                                  << "^plot[0-9]{5}\\.hpgl$";
    QTest::newRow("none") << "plot"
                          << "^plot[0-9]{5}$";
    QTest::newRow("two") << "plot.v2.plt"
                         << "^plot\\.v2[0-9]{5}\\.plt$";
    QTest::newRow("blanks, not ASCII")
        << QString::fromUtf8("Plan Ø.plt") << QString::fromUtf8("^Plan Ø[0-9]{5}\\.plt$");
}

void PlotPathsTest::exportCopy()
{
    QFETCH(QString, name);
    QFETCH(QString, pattern);
    const Sandbox sandbox;
    const QByteArray bytes = SmallPlot + QByteArray("\xff\0\r\n", 4) + QByteArray(200000, ' ');
    QVERIFY(write(sandbox.path(name), bytes));
    const PlotProgram program;
    messagesDuring([&] { QVERIFY(program.open(sandbox.path(name))); });
    QCOMPARE(messagesDuring([&] { program.command(ID_PLOT_EXPORT)->trigger(); }), QStringList());
    QStringList entries = sandbox.entries();
    QVERIFY(entries.removeOne(name));
    QCOMPARE(entries.size(), 1);
    QVERIFY2(QRegularExpression(pattern).match(entries.first()).hasMatch(), qPrintable(entries.first()));
    QCOMPARE(contentsOf(sandbox.path(entries.first())), bytes);
    QCOMPARE(program.text(IDC_STATUS_MESSAGE), QStringLiteral("Copied as ") + sandbox.path(entries.first()));
    // Once more, beside the first.
    program.command(ID_PLOT_EXPORT)->trigger();
    QCOMPARE(sandbox.entries().size(), 3);
    QCOMPARE(contentsOf(sandbox.path(name)), bytes);
}

void PlotPathsTest::exportCopyOfASample()
{
    const Sandbox sandbox;
    const PlotProgram program;
    program.command(ID_PLOT_EXPORT)->trigger();
    QCOMPARE(sandbox.entries().size(), 1);
    const QRegularExpression pattern(QStringLiteral("^housing[0-9]{5}\\.hpgl$"));
    QVERIFY2(pattern.match(sandbox.entries().first()).hasMatch(), qPrintable(sandbox.entries().first()));
    QFile sample(QStringLiteral(":/plotview/plots/housing.hpgl"));
    QVERIFY(sample.open(QIODevice::ReadOnly));
    QCOMPARE(contentsOf(sandbox.path(sandbox.entries().first())), sample.readAll());
}

constexpr const char *CannotBeCopied =
    "\ncannot be copied. You may not have permission to write there, or the disk may be full.";

void PlotPathsTest::exportCopyOfABareName()
{
    const Sandbox sandbox;
    QVERIFY(write(sandbox.path(QStringLiteral("plot.hpgl")), SmallPlot));
    const PlotProgram program(QStringLiteral("plot.hpgl"));
    QCOMPARE(messagesDuring([&] { program.command(ID_PLOT_EXPORT)->trigger(); }), QStringList());
    QCOMPARE(sandbox.entries().size(), 2);
    for (const QString &entry : sandbox.entries()) {
        QVERIFY(QRegularExpression(QStringLiteral("^plot([0-9]{5})?\\.hpgl$")).match(entry).hasMatch());
        QCOMPARE(contentsOf(sandbox.path(entry)), QByteArray(SmallPlot));
    }
}

void PlotPathsTest::exportCopyThatFails()
{
    const Sandbox sandbox;
    const QString path = sandbox.path(QStringLiteral("plot.hpgl"));
    QVERIFY(write(path, SmallPlot));
    const PlotProgram program(path);
    QVERIFY(QFile::remove(path));
    QCOMPARE(messagesDuring([&] { program.command(ID_PLOT_EXPORT)->trigger(); }),
             QStringList(path + QLatin1String(CannotBeCopied)));
    QCOMPARE(sandbox.entries(), QStringList());
}

void PlotPathsTest::exportCopyOnAFullDisk()
{
    const Sandbox sandbox;
    const QString path = sandbox.path(QStringLiteral("plot.hpgl"));
    const QByteArray bytes = SmallPlot + QByteArray(100000, ' ');
    QVERIFY(write(path, bytes));
    const PlotProgram program(path);
    for (const int room : {0, 5, bytes.size() - 1}) {
        const FileSizeLimit limit(static_cast<rlim_t>(room));
        QCOMPARE(messagesDuring([&] { program.command(ID_PLOT_EXPORT)->trigger(); }),
                 QStringList(path + QLatin1String(CannotBeCopied)));
        QCOMPARE(sandbox.entries(), QStringList(QStringLiteral("plot.hpgl")));
    }
    const FileSizeLimit limit(static_cast<rlim_t>(bytes.size()));
    QCOMPARE(messagesDuring([&] { program.command(ID_PLOT_EXPORT)->trigger(); }), QStringList());
    QCOMPARE(sandbox.entries().size(), 2);
}

KX_TEST_MAIN(PlotPathsTest)

#include "tst_plot_paths.moc"
