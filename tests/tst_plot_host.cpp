// SPDX-License-Identifier: MIT
#include "KxChildOutcome.h"
#include "KxFileSandbox.h"
#include "KxModalRun.h"
#include "KxTestCase.h"

#include "MainWindow.h"
#include "PlotCanvas.h"
#include "PlotMainForm.h"
#include "PlotProgressDialog.h"
#include "PlotProgressForm.h"
#include "PlotReader.h"
#include "PlotSummary.h"
#include "PlotViewApp.h"
#include "ResourceText.h"

#include <QtCore/QProcess>
#include <QtWidgets/QAction>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>

#include <sys/stat.h>

namespace {

constexpr qint64 Megabyte = 1024 * 1024;
#ifdef __SANITIZE_ADDRESS__
constexpr qint64 LargeSize = 10 * Megabyte;    // each allocation takes its time there
#else
constexpr qint64 LargeSize = 50 * Megabyte;
#endif

/// The running program, with its main window open and a sample in it.
class Program
{
public:
    Program() { m_app.InitInstance(); }
    ~Program() { m_app.ExitInstance(); }

    CMainWindow &window() const { return *m_app.GetMainWindow(); }
    PlotMainForm &form() const { return *window().GetForm(); }
    bool open(const QString &path) const { return window().OpenPlot(toCString(path)); }
    bool saveSummary(const QString &path) const { return window().SaveSummary(toCString(path)); }
    QAction *command(UINT id) const { return form().commands().at(id); }
    QString status(UINT id) const { return static_cast<QLabel *>(form().controls().at(id))->text(); }

    /// Everything that tells which plot is shown.
    QString shown() const
    {
        return QStringList({form().windowTitle(), status(IDC_STATUS_MESSAGE), status(IDC_STATUS_PENS),
                            status(IDC_STATUS_STROKES), status(IDC_STATUS_LABELS)})
            .join(QLatin1Char('|'));
    }

    /// The identifiers of the commands that can be chosen.
    QList<UINT> enabledCommands() const
    {
        QList<UINT> enabled;
        for (const auto &[id, action] : form().commands()) {
            if (action->isEnabled())
                enabled.append(id);
        }
        return enabled;
    }

private:
    CPlotViewApp m_app;
};

QProgressBar *bar(const PlotProgressForm &dialog)
{
    return qobject_cast<QProgressBar *>(dialog.controls().at(IDC_PROGRESS_BAR));
}

QString text(const PlotProgressForm &dialog, UINT id)
{
    return qobject_cast<QLabel *>(dialog.controls().at(id))->text();
}

QPushButton *cancelButton(const PlotProgressForm &dialog)
{
    return qobject_cast<QPushButton *>(dialog.controls().at(IDCANCEL));
}

/// Watches progress dialogs: how often one came up, what it showed, and what was painted of it.
class ProgressWatch : public QObject
{
public:
    using Step = std::function<void(PlotProgressForm &)>;

    /// `step` is done once, as soon as the bar stands at a fifth.
    explicit ProgressWatch(const Step &step = Step()) : m_step(step)
    {
        qApp->installEventFilter(this);
        connect(&m_timer, &QTimer::timeout, this, [this] { look(); });
        m_timer.start(0);
    }

    int shows = 0;
    int paints = 0;
    int stepAt = -1;
    QVector<int> values;
    QString plot;
    QString amount;

protected:
    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (event->type() == QEvent::Show && qobject_cast<PlotProgressForm *>(object))
            ++shows;
        if (event->type() == QEvent::Paint && qobject_cast<QProgressBar *>(object))
            ++paints;
        return false;
    }

private:
    void look()
    {
        auto *dialog = qobject_cast<PlotProgressForm *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        const int value = bar(*dialog)->value();
        values.append(value);
        plot = text(*dialog, IDC_PROGRESS_PLOT);
        amount = text(*dialog, IDC_PROGRESS_AMOUNT);
        if (m_step && stepAt < 0 && value >= 20) {
            stepAt = value;
            m_step(*dialog);
        }
    }

    Step m_step;
    QTimer m_timer;
};

/// What message boxes said that came up during `run`, each ended by `button`.
QStringList messagesDuring(const std::function<void()> &run,
                           QMessageBox::StandardButton button = QMessageBox::Ok)
{
    QStringList texts;
    const KxWatchdog watchdog;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box)
            return;
        texts.append(box->text());
        QAbstractButton *wanted = box->button(texts.size() == 1 ? button : QMessageBox::Ok);
        if (wanted)
            QTest::mouseClick(wanted, Qt::LeftButton);
        else
            QTest::keyClick(box, Qt::Key_Escape);
    });
    timer.start(0);
    run();
    return texts;
}

/// The summary without the line of its date.
QString withoutDate(const QByteArray &summary)
{
    QStringList lines = QString::fromUtf8(summary).split(QLatin1Char('\n'));
    for (int i = lines.size(); i-- > 0;) {
        if (lines.at(i).startsWith(QStringLiteral("Date:")))
            lines.removeAt(i);
    }
    return lines.join(QLatin1Char('\n'));
}

constexpr const char *SmallPlot = "IN;SP2;PU0,0;PD400,0,400,800;PU;LBHi\x03;SP3;PU0,0;RA40,40;SP0;ZZ5;";

QString smallSummary(const QString &name)
{
    return QStringLiteral("Plot:         ") + name
           + QStringLiteral("\nBounds:       x from 0.0 to 14.7 mm, y from 0.0 to 22.7 mm\n"
                            "Size:         14.7 x 22.7 mm\n"
                            "Strokes:      1\nAreas:        1\nLabels:       1\n"
                            "Instructions: 10 understood, 1 skipped\n"
                            "Marks, pen 2: 2\nMarks, pen 3: 1\n");
}

} // namespace

using DialogEnd = ProgressWatch::Step;
Q_DECLARE_METATYPE(DialogEnd)
Q_DECLARE_METATYPE(QMessageBox::StandardButton)

class PlotHostTest : public KxTestCase
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    QString m_large;
    const QString m_largeShown = QStringLiteral("Pens: 1|Strokes: 1|Labels: 0");

private slots:
    void initTestCase();

    void cancel_data();
    void cancel();
    void cancelTheFirst();
    void readsToTheEnd();
    void smallPlotShowsNoDialog();
    void unattendedShowsNoDialog();
    void isWorthwhile_data();
    void isWorthwhile();
    void nothingElseMeanwhile();
    void unknownTotal();
    void longTitle();

    void summaryLines_data();
    void summaryLines();
    void summaryCommand_data();
    void summaryCommand();
    void summaryMenu();
    void summaryDate();
    void summaryOfASample();
    void summaryThatExists_data();
    void summaryThatExists();
    void summaryThatFails_data();
    void summaryThatFails();
    void summaryOnAFullDisk();
    void summaryWhereNobodyMayWrite();
    void summaryWithoutAPlot();
    void summaryOption();
    void summaryOptionThatFails();
    void printOption();
};

void PlotHostTest::initTestCase()
{
    m_large = m_folder.filePath(QStringLiteral("large.hpgl"));
    QFile file(m_large);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("IN;SP1;PU0,0;PD9,9;PU;\n");
    const QByteArray block = QByteArray("PU123,456;VS10;\n").repeated(4096);
    while (file.size() < LargeSize)
        QVERIFY(file.write(block) == block.size());
}

void PlotHostTest::cancel_data()
{
    QTest::addColumn<DialogEnd>("end");

    QTest::newRow("Cancel, mouse") << DialogEnd(
        [](PlotProgressForm &d) { QTest::mouseClick(cancelButton(d), Qt::LeftButton); });
    QTest::newRow("Cancel, Space") << DialogEnd(
        [](PlotProgressForm &d) { QTest::keyClick(cancelButton(d), Qt::Key_Space); });
    QTest::newRow("Return") << DialogEnd([](PlotProgressForm &d) { QTest::keyClick(&d, Qt::Key_Return); });
    QTest::newRow("Escape") << DialogEnd([](PlotProgressForm &d) { QTest::keyClick(&d, Qt::Key_Escape); });
    QTest::newRow("the window's close button") << DialogEnd([](PlotProgressForm &d) { d.close(); });
    QTest::newRow("Escape twice") << DialogEnd([](PlotProgressForm &d) {
        QTest::keyClick(&d, Qt::Key_Escape);
        QTest::keyClick(&d, Qt::Key_Escape);
    });
}

void PlotHostTest::cancel()
{
    QFETCH(DialogEnd, end);
    const Program program;
    const QString before = program.shown();
    const QList<UINT> commands = program.enabledCommands();
    QVERIFY(QTest::qWaitForWindowActive(&program.form()));
    const QImage picture = program.form().canvas()->grab().toImage();
    {
        ProgressWatch watch(end);
        QCOMPARE(messagesDuring([&] { QVERIFY(!program.open(m_large)); }), QStringList());
        QCOMPARE(watch.shows, 1);
        QVERIFY(watch.stepAt >= 20 && watch.stepAt < 100);
        QVERIFY(watch.values.last() <= watch.stepAt + 1);
    }
    QCOMPARE(program.shown(), before);
    QCOMPARE(program.form().canvas()->grab().toImage(), picture);
    QCOMPARE(program.enabledCommands(), commands);
    QVERIFY(program.form().findChildren<PlotProgressForm *>().isEmpty());
    QVERIFY(!QApplication::activeModalWidget());

    QVERIFY(program.open(m_large));
    QVERIFY(program.shown().endsWith(m_largeShown));
}

void PlotHostTest::cancelTheFirst()
{
    CPlotViewApp app;
    ProgressWatch watch([](PlotProgressForm &d) { QTest::keyClick(&d, Qt::Key_Escape); });
    QVERIFY(app.InitInstance({toCString(m_large)}));
    QVERIFY(watch.stepAt >= 20);
    const PlotMainForm &form = *app.GetMainWindow()->GetForm();
    QCOMPARE(form.windowTitle(), QStringLiteral("Plot Viewer"));
    QVERIFY(!form.commands().at(ID_PLOT_SUMMARY)->isEnabled());
    QVERIFY(form.commands().at(ID_PLOT_OPEN)->isEnabled());
    app.ExitInstance();
}

void PlotHostTest::readsToTheEnd()
{
    const Program program;
    ProgressWatch watch;
    QVERIFY(program.open(m_large));
    QVERIFY(program.shown().endsWith(m_largeShown));
    QCOMPARE(watch.shows, 1);
    QVERIFY(std::is_sorted(watch.values.begin(), watch.values.end()));
    QVERIFY(watch.values.first() <= 10);
    QVERIFY(watch.values.last() >= 99);
    QVERIFY(watch.paints >= 10);
    QCOMPARE(watch.plot, QStringLiteral("Reading large.hpgl"));
    QCOMPARE(watch.amount, QStringLiteral("%1.0 of %1.0 MB").arg(LargeSize / Megabyte));
    QVERIFY(program.form().findChildren<PlotProgressForm *>().isEmpty());
}

void PlotHostTest::smallPlotShowsNoDialog()
{
    const Program program;
    const QString path = m_folder.filePath(QStringLiteral("small.hpgl"));
    QVERIFY(write(path, SmallPlot));
    ProgressWatch watch;
    QVERIFY(program.open(path));
    program.command(ID_SAMPLE_CURVES)->trigger();
    QCOMPARE(watch.shows, 0);
}

void PlotHostTest::unattendedShowsNoDialog()
{
    const Program program;
    theApp().SetUnattended();
    ProgressWatch watch;
    QVERIFY(program.open(m_large));
    QCOMPARE(watch.shows, 0);
}

void PlotHostTest::isWorthwhile_data()
{
    QTest::addColumn<qint64>("total");
    QTest::addColumn<int>("milliseconds");
    QTest::addColumn<bool>("expected");
    QTest::newRow("a small file") << qint64(1000) << 0 << false;
    QTest::newRow("just below 8 MB, just below half a second") << 8 * Megabyte - 1 << 499 << false;
    QTest::newRow("8 MB") << 8 * Megabyte << 0 << true;
    QTest::newRow("half a second") << qint64(1000) << 500 << true;
    QTest::newRow("a pipe at once") << qint64(0) << 0 << false;
    QTest::newRow("a pipe after half a second") << qint64(0) << 500 << true;
}

void PlotHostTest::isWorthwhile()
{
    QFETCH(qint64, total);
    QFETCH(int, milliseconds);
    QFETCH(bool, expected);
    const auto bytes = static_cast<ULONGLONG>(total);
    QCOMPARE(CPlotProgressDialog::IsWorthwhile(bytes, static_cast<DWORD>(milliseconds)), expected);
}

// The dialog is a tool window, in which the shortcuts of the main window would work.
void PlotHostTest::nothingElseMeanwhile()
{
    const Program program;
    const QString other = m_folder.filePath(QStringLiteral("other.hpgl"));
    QVERIFY(write(other, SmallPlot));
    QList<UINT> enabled = {0};
    bool opened = true;
    bool dialogStayed = false;
    ProgressWatch watch([&](PlotProgressForm &dialog) {
        enabled = program.enabledCommands();
        opened = program.open(other);
        for (const auto &[id, action] : program.form().commands()) {
            action->trigger();
            const QKeySequence keys = action->shortcut();
            if (!keys.isEmpty()) {
                const auto key = static_cast<Qt::Key>(keys[0] & ~int(Qt::KeyboardModifierMask));
                const auto modifiers = Qt::KeyboardModifiers(keys[0] & int(Qt::KeyboardModifierMask));
                QTest::keyClick(&dialog, key, modifiers);
                QTest::keyClick(&program.form(), key, modifiers);
            }
        }
        dialogStayed = QApplication::activeModalWidget() == &dialog;
    });
    QCOMPARE(messagesDuring([&] { QVERIFY(program.open(m_large)); }), QStringList());
    QVERIFY(watch.stepAt >= 20);
    QCOMPARE(enabled, QList<UINT>());
    QVERIFY(!opened);
    QVERIFY(dialogStayed);
    QCOMPARE(watch.shows, 1);
    QVERIFY(program.form().isVisible());
    QVERIFY(program.shown().endsWith(m_largeShown));
    QVERIFY(program.command(ID_PLOT_OPEN)->isEnabled());
    QVERIFY(program.open(other));
}

void PlotHostTest::unknownTotal()
{
    const Program program;
    CPlotProgressDialog dialog(L"pipe", &program.window());
    QVERIFY(dialog.Advance(5 * Megabyte / 2, 0));
    QCOMPARE(bar(*dialog.GetForm())->maximum(), 0);
    QCOMPARE(text(*dialog.GetForm(), IDC_PROGRESS_AMOUNT), QStringLiteral("2.5 MB"));
    QVERIFY(dialog.GetForm()->isModal());
}

void PlotHostTest::longTitle()
{
    const Program program;
    const CString title = CString(L'x', 200) + L"end.hpgl";
    CPlotProgressDialog dialog(title, &program.window());
    const int width = dialog.GetForm()->width();
    const QString shown = text(*dialog.GetForm(), IDC_PROGRESS_PLOT);
    QVERIFY(shown.startsWith(QString::fromUtf8("Reading …x")));
    QVERIFY(shown.endsWith(QStringLiteral("xend.hpgl")));
    QVERIFY(dialog.Advance(1, 2));
    QCOMPARE(dialog.GetForm()->width(), width);
}

void PlotHostTest::summaryLines_data()
{
    QTest::addColumn<QByteArray>("instructions");
    QTest::addColumn<QString>("expected");

    const QString head =
        QStringLiteral("Plot:         p.hpgl\nDate:         2021-03-04 05:06:07\nBounds:       ");
    QTest::newRow("a plot with everything")
        << QByteArray("IN;SP2;PU0,0;PD400,0,400,800;PU;SP3;PU40,40;RA80,80;SP2;SI.1,.2;PU-40,-80;LBAB\x03"
                      "ZZ;YY;")
        << head
               + "x from -1.0 to 10.0 mm, y from -2.0 to 20.0 mm\nSize:         11.0 x 22.0 mm\n"
                 "Strokes:      1\nAreas:        1\nLabels:       1\n"
                 "Instructions: 12 understood, 2 skipped\nMarks, pen 2: 2\nMarks, pen 3: 1";
    QTest::newRow("one that draws nothing")
        << QByteArray("IN;SP1;")
        << head
               + "nothing is drawn\nStrokes:      0\nAreas:        0\nLabels:       0\n"
                 "Instructions: 2 understood, 0 skipped";
    QTest::newRow("one that is cut short")
        << "PU0,0;PD;PU;" + QByteArray("CI40,.5;").repeated(4000)
        << head
               + "x from -1.0 to 1.0 mm, y from -1.0 to 1.0 mm\nSize:         2.0 x 2.0 mm\n"
                 "Strokes:      2774\nAreas:        0\nLabels:       0\n"
                 "Instructions: 2776 understood, 1 skipped\n"
                 "The plot has more in it than can be shown; this is its beginning.\nMarks, pen 1: 2774";
}

void PlotHostTest::summaryLines()
{
    QFETCH(QByteArray, instructions);
    QFETCH(QString, expected);
    const Program program;
    const Plot plot = PlotReader::readBytes(instructions).plot;
    const CPlotSummary summary(plot, L"p.hpgl", CTime(2021, 3, 4, 5, 6, 7));
    QStringList lines;
    for (long i = 0; i < summary.GetLines().GetSize(); ++i)
        lines.append(toQString(summary.GetLines()[i]));
    QCOMPARE(lines.join(QLatin1Char('\n')), expected);
}

void PlotHostTest::summaryCommand_data()
{
    QTest::addColumn<QString>("plot");
    QTest::addColumn<QString>("summary");
    QTest::newRow("an extension") << "plot.hpgl"
                                  << "plot.txt";
    QTest::newRow("two") << "site.v2.plt"
                         << "site.v2.txt";
    QTest::newRow("none") << "plot"
                          << "plot.txt";
    QTest::newRow("a hidden file") << ".plot"
                                   << ".plot.txt";
    QTest::newRow("a folder with a dot") << "v1.2/plot"
                                         << "v1.2/plot.txt";
    QTest::newRow("blanks, not ASCII") << QString::fromUtf8("Plan Ø – 図面.hpgl")
                                       << QString::fromUtf8("Plan Ø – 図面.txt");
}

void PlotHostTest::summaryCommand()
{
    QFETCH(QString, plot);
    QFETCH(QString, summary);
    const Sandbox sandbox;
    QVERIFY(QDir(sandbox.path()).mkpath(QFileInfo(sandbox.path(plot)).path()));
    QVERIFY(write(sandbox.path(plot), SmallPlot));
    const Program program;
    QVERIFY(program.open(sandbox.path(plot)));
    QCOMPARE(messagesDuring([&] { program.command(ID_PLOT_SUMMARY)->trigger(); }), QStringList());
    QCOMPARE(withoutDate(contentsOf(sandbox.path(summary))), smallSummary(QFileInfo(plot).fileName()));
    QCOMPARE(program.status(IDC_STATUS_MESSAGE), QStringLiteral("Summary saved as ") + sandbox.path(summary));
    QCOMPARE(contentsOf(sandbox.path(plot)), QByteArray(SmallPlot));
}

void PlotHostTest::summaryMenu()
{
    const Sandbox sandbox;
    QVERIFY(write(sandbox.path(QStringLiteral("plot.hpgl")), SmallPlot));
    const Program program;
    QVERIFY(program.open(sandbox.path(QStringLiteral("plot.hpgl"))));
    QMenuBar *menuBar = program.form().menuBar();
    const QPoint title = menuBar->actionGeometry(menuBar->actions().first()).center();
    QTest::mouseClick(menuBar, Qt::LeftButton, {}, title);
    auto *menu = menuBar->actions().first()->menu();
    QTRY_VERIFY(menu->isVisible());
    QTest::keyClick(menu, Qt::Key_U);
    QVERIFY(QFileInfo::exists(sandbox.path(QStringLiteral("plot.txt"))));
}

void PlotHostTest::summaryDate()
{
    const Sandbox sandbox;
    QVERIFY(write(sandbox.path(QStringLiteral("plot.hpgl")), SmallPlot));
    const Program program;
    QVERIFY(program.open(sandbox.path(QStringLiteral("plot.hpgl"))));
    const QDateTime before = QDateTime::currentDateTime();
    program.command(ID_PLOT_SUMMARY)->trigger();
    const QDateTime after = QDateTime::currentDateTime();
    const QStringList lines =
        QString::fromUtf8(contentsOf(sandbox.path(QStringLiteral("plot.txt")))).split(QLatin1Char('\n'));
    QVERIFY(lines.at(1).startsWith(QStringLiteral("Date:         ")));
    const QDateTime date = QDateTime::fromString(lines.at(1).mid(14), QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    QVERIFY(date.isValid() && date.addSecs(1) > before && date <= after);
}

void PlotHostTest::summaryOfASample()
{
    const Sandbox sandbox;
    const Program program;
    program.command(ID_SAMPLE_ISLAND)->trigger();
    QCOMPARE(messagesDuring([&] { program.command(ID_PLOT_SUMMARY)->trigger(); }), QStringList());
    QCOMPARE(sandbox.entries(), QStringList(QStringLiteral("island.txt")));
    const QByteArray summary = contentsOf(sandbox.path(QStringLiteral("island.txt")));
    QVERIFY(summary.startsWith("Plot:         island.hpgl\n"));
    QVERIFY(summary.contains("\nStrokes:      180\n"));
    QVERIFY(summary.contains("\nLabels:       66\n"));
}

void PlotHostTest::summaryThatExists_data()
{
    QTest::addColumn<QMessageBox::StandardButton>("button");
    QTest::addColumn<bool>("replaced");
    QTest::newRow("Yes") << QMessageBox::Yes << true;
    QTest::newRow("No") << QMessageBox::No << false;
    QTest::newRow("Escape") << QMessageBox::NoButton << false;
}

void PlotHostTest::summaryThatExists()
{
    QFETCH(QMessageBox::StandardButton, button);
    QFETCH(bool, replaced);
    const Sandbox sandbox;
    const QString summary = sandbox.path(QStringLiteral("plot.txt"));
    QVERIFY(write(sandbox.path(QStringLiteral("plot.hpgl")), SmallPlot));
    QVERIFY(write(summary, QByteArray(5000, 'x')));
    const Program program;
    QVERIFY(program.open(sandbox.path(QStringLiteral("plot.hpgl"))));
    QCOMPARE(messagesDuring([&] { program.command(ID_PLOT_SUMMARY)->trigger(); }, button),
             QStringList(summary + QStringLiteral("\nexists already. Do you want to replace it?")));
    QCOMPARE(contentsOf(summary) == QByteArray(5000, 'x'), !replaced);
    if (replaced)
        QCOMPARE(withoutDate(contentsOf(summary)), smallSummary(QStringLiteral("plot.hpgl")));
}

constexpr const char *CannotBeWritten =
    "\ncannot be written. You may not have permission to write there, or the disk may be full.";

void PlotHostTest::summaryThatFails_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("a folder that is not there") << QStringLiteral("missing/summary.txt");
    QTest::newRow("a folder") << QStringLiteral("folder");
    QTest::newRow("in a file") << QStringLiteral("plot.hpgl/summary.txt");
    QTest::newRow("a name too long") << QString(300, QLatin1Char('x'));
}

void PlotHostTest::summaryThatFails()
{
    QFETCH(QString, name);
    const Sandbox sandbox;
    QVERIFY(QDir(sandbox.path()).mkdir(QStringLiteral("folder")));
    QVERIFY(write(sandbox.path(QStringLiteral("plot.hpgl")), SmallPlot));
    const Program program;
    QVERIFY(program.open(sandbox.path(QStringLiteral("plot.hpgl"))));
    const QStringList before = sandbox.entries();
    QCOMPARE(messagesDuring([&] { QVERIFY(!program.saveSummary(sandbox.path(name))); }),
             QStringList(sandbox.path(name) + QLatin1String(CannotBeWritten)));
    QCOMPARE(sandbox.entries(), before);
    QCOMPARE(program.status(IDC_STATUS_MESSAGE), sandbox.path(QStringLiteral("plot.hpgl")));
}

void PlotHostTest::summaryOnAFullDisk()
{
    const Sandbox sandbox;
    QVERIFY(write(sandbox.path(QStringLiteral("plot.hpgl")), SmallPlot));
    const Program program;
    QVERIFY(program.open(sandbox.path(QStringLiteral("plot.hpgl"))));
    const QString summary = sandbox.path(QStringLiteral("plot.txt"));
    const int size = smallSummary(QStringLiteral("plot.hpgl")).size() + 34; // the line of the date
    for (int room : {0, 10, size - 1}) {
        const FileSizeLimit limit(static_cast<rlim_t>(room));
        QCOMPARE(messagesDuring([&] { QVERIFY(!program.saveSummary(summary)); }),
                 QStringList(summary + QLatin1String(CannotBeWritten)));
    }
    const FileSizeLimit limit(static_cast<rlim_t>(size));
    QCOMPARE(messagesDuring([&] { QVERIFY(program.saveSummary(summary)); }), QStringList());
    QCOMPARE(QFileInfo(summary).size(), qint64(size));
}

// Everybody but root may be refused; root becomes nobody for it, in a child process.
void PlotHostTest::summaryWhereNobodyMayWrite()
{
    const Program program;
    const Sandbox sandbox;
    const QByteArray folder = QFile::encodeName(sandbox.path());
    const CPlotSummary summary(PlotReader::readBytes(SmallPlot).plot, L"plot.hpgl", CTime(0));
    const CString path = toCString(sandbox.path(QStringLiteral("plot.txt")));
    const auto save = [&] {
        if (geteuid() == 0 && seteuid(65534) != 0)
            std::fprintf(stderr, "still root");
        std::fprintf(stderr, "%d", int(summary.Save(path)));
    };
    QCOMPARE(chmod(folder.constData(), 0555), 0);
    QCOMPARE(kxRunInChild(save).standardError, QByteArray("0"));
    QCOMPARE(chmod(folder.constData(), 0777), 0);
    QCOMPARE(kxRunInChild(save).standardError, QByteArray("1"));
}

void PlotHostTest::summaryWithoutAPlot()
{
    const Sandbox sandbox;
    CPlotViewApp app;
    app.SetUnattended();
    QVERIFY(app.InitInstance({L"missing.hpgl"}));
    QVERIFY(!app.GetMainWindow()->GetForm()->commands().at(ID_PLOT_SUMMARY)->isEnabled());
    QVERIFY(!app.GetMainWindow()->SaveSummary(L"summary.txt"));
    QCOMPARE(sandbox.entries(), QStringList());
    app.ExitInstance();
}

static QString program()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/../examples/plotview/plotview");
}

void PlotHostTest::summaryOption()
{
    const Sandbox sandbox;
    QVERIFY(write(sandbox.path(QStringLiteral("plot.hpgl")), SmallPlot));
    QProcess process;
    process.start(program(),
                  {QStringLiteral("--summary"), QStringLiteral("out.txt"), QStringLiteral("plot.hpgl")});
    QVERIFY2(process.waitForFinished(), qPrintable(process.errorString()));
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 0);
    QCOMPARE(withoutDate(contentsOf(sandbox.path(QStringLiteral("out.txt")))),
             smallSummary(QStringLiteral("plot.hpgl")));
    QCOMPARE(process.readAllStandardOutput(), sandbox.path(QStringLiteral("out.txt")).toUtf8() + "\n");
}

void PlotHostTest::summaryOptionThatFails()
{
    const Sandbox sandbox;
    QVERIFY(write(sandbox.path(QStringLiteral("plot.hpgl")), SmallPlot));
    const QList<QStringList> arguments = {{QStringLiteral("missing/out.txt"), QStringLiteral("plot.hpgl")},
                                          {QStringLiteral("out.txt"), QStringLiteral("missing.hpgl")}};
    for (const QStringList &names : arguments) {
        QProcess process;
        process.start(program(), QStringList(QStringLiteral("--summary")) + names);
        QVERIFY2(process.waitForFinished(), qPrintable(process.errorString()));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 1);
        QVERIFY(process.readAllStandardError().contains("cannot be"));
        QVERIFY(!QFileInfo::exists(sandbox.path(QStringLiteral("out.txt"))));
    }
}

void PlotHostTest::printOption()
{
    const Sandbox sandbox;
    QVERIFY(write(sandbox.path(QStringLiteral("plot.hpgl")), SmallPlot));
    for (const bool succeeds : {true, false}) {
        const QString pdf = succeeds ? QStringLiteral("out.pdf") : QStringLiteral("missing/out.pdf");
        QProcess process;
        process.start(program(), {QStringLiteral("--print"), pdf, QStringLiteral("plot.hpgl")});
        QVERIFY2(process.waitForFinished(), qPrintable(process.errorString()));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), succeeds ? 0 : 1);
        const QByteArray said = succeeds ? sandbox.path(pdf).toUtf8() + "\n" : QByteArray();
        QCOMPARE(process.readAllStandardOutput(), said);
        QCOMPARE(contentsOf(sandbox.path(pdf)).startsWith("%PDF"), succeeds);
    }
}

KX_TEST_MAIN(PlotHostTest)

#include "tst_plot_host.moc"
