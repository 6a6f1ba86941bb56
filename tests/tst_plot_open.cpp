// SPDX-License-Identifier: MIT
#include "KxFileSandbox.h"
#include "KxPlotProgram.h"
#include "KxTestCase.h"

#include <QtWidgets/QComboBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QMessageBox>

namespace {

constexpr const char *SmallPlot = "IN;SP1;PU0,0;PD4000,0;PU;";

QFileDialog &openDialog()
{
    auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
    if (!dialog)
        qFatal("there is no file dialog");
    return *dialog;
}

QLineEdit &nameEdit()
{
    return *openDialog().findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
}

QComboBox &filterBox()
{
    return *openDialog().findChild<QComboBox *>(QStringLiteral("fileTypeCombo"));
}

/// Types into the dialog, once it has the keyboard, and presses Return.
void type(const QString &text)
{
    QTRY_COMPARE(QApplication::activeWindow(), &openDialog());
    QLineEdit &edit = nameEdit();
    QTest::mouseClick(&edit, Qt::LeftButton);
    QVERIFY(edit.hasFocus());   // otherwise it shows what is selected in the list
    edit.selectAll();
    QTest::keyClicks(&edit, text);
    QTest::keyClick(&edit, Qt::Key_Return);
}

/// Does the step in the dialog that the command brings up.
void runCommand(const PlotProgram &program, UINT id, const std::function<void()> &step)
{
    kxRunModal([&] { program.command(id)->trigger(); }, step);
}

/// What message boxes said that came up during `run`.
QStringList messagesDuring(const std::function<void()> &run)
{
    QStringList texts;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&texts] {
        if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            texts.append(box->text());
            QTest::keyClick(box, Qt::Key_Return);
        }
    });
    timer.start(0);
    run();
    return texts;
}

/// The open plots as the Window menu lists them, without their folders; the active one has a star.
QString openPlots(const PlotProgram &program)
{
    QStringList names;
    for (UINT id = ID_WINDOW_FIRST; id <= ID_WINDOW_LAST; ++id) {
        const QAction *action = program.command(id);
        if (action->isVisible())
            names.append(action->text().section(QLatin1Char('/'), -1).section(QStringLiteral("  "), -1)
                         + (action->isChecked() ? QStringLiteral("*") : QString()));
    }
    return names.join(QLatin1Char(' '));
}

} // namespace

class PlotOpenTest : public KxTestCase
{
    Q_OBJECT

public:
    PlotOpenTest() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

private slots:
    void init();

    void dialog();
    void oneFile();
    void commandLine();
    void threeFiles();
    void cancel();
    void noFile();
    void badFiles_data();
    void badFiles();
    void startFolder_data();
    void startFolder();
    void filterIsRemembered();

    void nextAndPrevious();
    void windowMenu();
    void menuNumbers();
    void openTwice();
    void close();
    void closeTheLast();
    void closeAll();
    void moreThanTheMenuHolds();
    void sheetOfEachPlot();

    void saveDialog_data();
    void saveDialog();
    void saveAddsTheExtension_data();
    void saveAddsTheExtension();
    void saveCancelled();
};

void PlotOpenTest::init()
{
    KxTestCase::init();
    plotStore().clear();
}

void PlotOpenTest::dialog()
{
    const PlotProgram program;
    runCommand(program, ID_PLOT_OPEN, [&program] {
        const QFileDialog &dialog = openDialog();
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Open Plot"));
        QCOMPARE(dialog.parentWidget(), &program.form());
        QCOMPARE(dialog.acceptMode(), QFileDialog::AcceptOpen);
        QCOMPARE(dialog.fileMode(), QFileDialog::ExistingFiles);
        QCOMPARE(dialog.nameFilters(), QStringList({QStringLiteral("*.hpgl *.hpg *.hgl *.plt *.gl *.hp"),
                                                    QStringLiteral("*")}));
        QCOMPARE(filterBox().currentIndex(), 0);
        QCOMPARE(nameEdit().text(), QString());
        QTest::keyClick(&openDialog(), Qt::Key_Escape);
    });
    QVERIFY(program.form().findChildren<QFileDialog *>().isEmpty());
}

void PlotOpenTest::oneFile()
{
    const Sandbox sandbox;
    QVERIFY(write(sandbox.path(QStringLiteral("a.hpgl")), SmallPlot));
    const PlotProgram program;
    runCommand(program, ID_PLOT_OPEN, [&] { type(sandbox.path(QStringLiteral("a.hpgl"))); });
    QCOMPARE(openPlots(program), QStringLiteral("housing.hpgl a.hpgl*"));
    QCOMPARE(program.text(IDC_STATUS_MESSAGE), sandbox.path(QStringLiteral("a.hpgl")));
    QCOMPARE(program.form().windowTitle(), QString::fromUtf8("a.hpgl – Plot Viewer"));
}

void PlotOpenTest::commandLine()
{
    const Sandbox sandbox;
    QStringList paths;
    for (const char *name : {"a.hpgl", "b.hpgl"}) {
        paths.append(sandbox.path(QLatin1String(name)));
        QVERIFY(write(paths.last(), SmallPlot));
    }
    const PlotProgram program(paths);
    QCOMPARE(openPlots(program), QStringLiteral("a.hpgl* b.hpgl"));
}

void PlotOpenTest::threeFiles()
{
    const Sandbox sandbox;
    for (const char *name : {"a.hpgl", "b.hpgl", "c.plt"})
        QVERIFY(write(sandbox.path(QLatin1String(name)), SmallPlot));
    const PlotProgram program;
    runCommand(program, ID_PLOT_OPEN, [] { type(QStringLiteral("\"a.hpgl\" \"b.hpgl\" \"c.plt\"")); });
    QCOMPARE(openPlots(program), QStringLiteral("housing.hpgl a.hpgl* b.hpgl c.plt"));
    QCOMPARE(program.text(IDC_STATUS_MESSAGE), sandbox.path(QStringLiteral("a.hpgl")));
    QVERIFY(program.command(ID_RECENT_FIRST + 2)->isVisible());
    QVERIFY(!program.command(ID_RECENT_FIRST + 3)->isVisible());
    QVERIFY(program.command(ID_RECENT_FIRST)->text().endsWith(QStringLiteral("/c.plt")));
}

void PlotOpenTest::cancel()
{
    const PlotProgram program;
    const QImage before = program.picture();
    runCommand(program, ID_PLOT_OPEN, [] {
        QTest::keyClicks(&nameEdit(), QStringLiteral("a.hpgl"));
        QTest::keyClick(&openDialog(), Qt::Key_Escape);     // the completer's, if it is there
        if (QApplication::activeModalWidget())
            QTest::keyClick(&openDialog(), Qt::Key_Escape);
    });
    QCOMPARE(openPlots(program), QStringLiteral("housing.hpgl*"));
    QCOMPARE(program.picture(), before);
}

void PlotOpenTest::noFile()
{
    const PlotProgram program;
    QVERIFY(program.window().OpenPlots({}));
    QCOMPARE(openPlots(program), QStringLiteral("housing.hpgl*"));
}

void PlotOpenTest::badFiles_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("open");
    QTest::newRow("the second of three") << QStringList({"a.hpgl", "empty.hpgl", "b.hpgl"})
                                         << "%1/empty.hpgl\nis empty."
                                         << "housing.hpgl a.hpgl* b.hpgl";
    QTest::newRow("the first of two") << QStringList({"text.hpgl", "b.hpgl"})
                                      << "%1/text.hpgl\nis not a plot: there is no HP-GL instruction in it."
                                      << "housing.hpgl b.hpgl*";
    QTest::newRow("both, told at once") << QStringList({"empty.hpgl", "text.hpgl"})
                                        << "%1/empty.hpgl\nis empty.\n\n%1/text.hpgl\nis not a plot: there "
                                           "is no HP-GL instruction in it."
                                        << "housing.hpgl*";
}

void PlotOpenTest::badFiles()
{
    QFETCH(QStringList, names);
    QFETCH(QString, message);
    QFETCH(QString, open);
    const Sandbox sandbox;
    QVERIFY(write(sandbox.path(QStringLiteral("a.hpgl")), SmallPlot));
    QVERIFY(write(sandbox.path(QStringLiteral("b.hpgl")), SmallPlot));
    QVERIFY(write(sandbox.path(QStringLiteral("empty.hpgl")), QByteArray()));
    QVERIFY(write(sandbox.path(QStringLiteral("text.hpgl")), "\x89PNG"));
    const PlotProgram program;
    const QStringList messages = messagesDuring([&] {
        runCommand(program, ID_PLOT_OPEN,
                   [&] { type(QLatin1Char('"') + names.join(QStringLiteral("\" \"")) + QLatin1Char('"')); });
    });
    QCOMPARE(messages, QStringList(message.replace(QStringLiteral("%1"), sandbox.path())));
    QCOMPARE(openPlots(program), open);
}

void PlotOpenTest::startFolder_data()
{
    QTest::addColumn<QString>("folder");
    QTest::newRow("plain") << "plans";
    QTest::newRow("with a dot") << "plans.2021";
    QTest::newRow("with a blank") << "my plans";
}

void PlotOpenTest::startFolder()
{
    QFETCH(QString, folder);
    const Sandbox sandbox;
    QVERIFY(QDir(sandbox.path()).mkdir(folder));
    const QString path = sandbox.path(folder + QStringLiteral("/a.hpgl"));
    QVERIFY(write(path, SmallPlot));
    const PlotProgram program;
    runCommand(program, ID_PLOT_OPEN, [&] {
        QCOMPARE(openDialog().directory().path(), sandbox.path());  // a sample has no folder
        type(path);
    });
    runCommand(program, ID_PLOT_OPEN, [&] {
        QCOMPARE(openDialog().directory().path(), sandbox.path(folder));
        QTest::keyClick(&openDialog(), Qt::Key_Escape);
    });
}

void PlotOpenTest::filterIsRemembered()
{
    const Sandbox sandbox;
    QVERIFY(write(sandbox.path(QStringLiteral("a.txt")), SmallPlot));
    const PlotProgram program;
    runCommand(program, ID_PLOT_OPEN, [] {
        QTest::keyClick(&filterBox(), Qt::Key_Down);
        QTest::keyClick(&openDialog(), Qt::Key_Escape);
    });
    runCommand(program, ID_PLOT_OPEN, [] {
        QCOMPARE(filterBox().currentText(), QStringLiteral("*.hpgl *.hpg *.hgl *.plt *.gl *.hp"));
        QTest::keyClick(&filterBox(), Qt::Key_Down);
        type(QStringLiteral("a.txt"));
    });
    QCOMPARE(openPlots(program), QStringLiteral("housing.hpgl a.txt*"));
    runCommand(program, ID_PLOT_OPEN, [] {
        QCOMPARE(filterBox().currentText(), QStringLiteral("*"));
        QTest::keyClick(&openDialog(), Qt::Key_Escape);
    });
}

void PlotOpenTest::nextAndPrevious()
{
    const PlotProgram program;
    program.command(ID_SAMPLE_CURVES)->trigger();
    program.command(ID_SAMPLE_ISLAND)->trigger();
    QVERIFY(QTest::qWaitForWindowActive(&program.form()));
    QCOMPARE(openPlots(program), QStringLiteral("housing.hpgl curves.hpgl island.hpgl*"));
    const auto press = [&program](Qt::KeyboardModifiers modifiers) {
        QTest::keyClick(&program.form(), Qt::Key_F6, modifiers);
        return openPlots(program) + QLatin1Char('|') + program.text(IDC_STATUS_MESSAGE);
    };
    QCOMPARE(press(Qt::ControlModifier),
             QStringLiteral("housing.hpgl* curves.hpgl island.hpgl|housing.hpgl"));
    QCOMPARE(press(Qt::ControlModifier), QStringLiteral("housing.hpgl curves.hpgl* island.hpgl|curves.hpgl"));
    QCOMPARE(press(Qt::ControlModifier | Qt::ShiftModifier),
             QStringLiteral("housing.hpgl* curves.hpgl island.hpgl|housing.hpgl"));
    QCOMPARE(press(Qt::ControlModifier | Qt::ShiftModifier),
             QStringLiteral("housing.hpgl curves.hpgl island.hpgl*|island.hpgl"));
}

void PlotOpenTest::windowMenu()
{
    const PlotProgram program;
    const QImage housing = program.picture();
    program.command(ID_SAMPLE_CURVES)->trigger();
    QVERIFY(QTest::qWaitForWindowActive(&program.form()));
    const auto choose = [&program](Qt::Key key) {
        QMenuBar *bar = program.form().menuBar();
        QAction *title = bar->actions().last();
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(title).center());
        QTRY_VERIFY(title->menu()->isVisible());
        QTest::keyClick(title->menu(), key);
    };
    choose(Qt::Key_1);
    QCOMPARE(openPlots(program), QStringLiteral("housing.hpgl* curves.hpgl"));
    QCOMPARE(program.picture(), housing);
    QCOMPARE(program.tree().topLevelItem(0)->text(0), QStringLiteral("All pens (169)"));
    choose(Qt::Key_1);      // the mark stays
    QCOMPARE(openPlots(program), QStringLiteral("housing.hpgl* curves.hpgl"));
    choose(Qt::Key_2);
    QCOMPARE(openPlots(program), QStringLiteral("housing.hpgl curves.hpgl*"));
}

void PlotOpenTest::menuNumbers()
{
    const Sandbox sandbox;
    QVERIFY(write(sandbox.path(QStringLiteral("a&b.hpgl")), SmallPlot));
    const PlotProgram program;
    QCOMPARE(program.command(ID_WINDOW_FIRST)->text(), QStringLiteral("&1  housing.hpgl"));
    QVERIFY(program.open(QStringLiteral("a&b.hpgl")));
    QVERIFY(program.command(ID_WINDOW_FIRST + 1)->text().startsWith(QStringLiteral("&2  ")));
    QVERIFY(program.command(ID_WINDOW_FIRST + 1)->text().endsWith(QStringLiteral("a&&b.hpgl")));
}

void PlotOpenTest::openTwice()
{
    const Sandbox sandbox;
    QVERIFY(write(sandbox.path(QStringLiteral("a.hpgl")), SmallPlot));
    const PlotProgram program;
    QVERIFY(program.open(sandbox.path(QStringLiteral("a.hpgl"))));
    program.command(ID_SAMPLE_HOUSING)->trigger();
    QCOMPARE(openPlots(program), QStringLiteral("housing.hpgl* a.hpgl"));
    // It is read anew.
    QVERIFY(write(sandbox.path(QStringLiteral("a.hpgl")), QByteArray(SmallPlot) + "SP2;PU0,99;PD99,99;"));
    QVERIFY(program.open(QStringLiteral("./a.hpgl")));
    QCOMPARE(openPlots(program), QStringLiteral("housing.hpgl a.hpgl*"));
    QCOMPARE(program.text(IDC_STATUS_STROKES), QStringLiteral("Strokes: 2"));
}

void PlotOpenTest::close()
{
    const PlotProgram program;
    program.command(ID_SAMPLE_CURVES)->trigger();
    program.command(ID_SAMPLE_ISLAND)->trigger();
    program.command(ID_WINDOW_FIRST)->trigger();
    QVERIFY(QTest::qWaitForWindowActive(&program.form()));
    QTest::keyClick(&program.form(), Qt::Key_W, Qt::ControlModifier);
    QCOMPARE(openPlots(program), QStringLiteral("curves.hpgl* island.hpgl"));
    QCOMPARE(program.text(IDC_STATUS_MESSAGE), QStringLiteral("curves.hpgl"));
}

void PlotOpenTest::closeTheLast()
{
    const PlotProgram program;
    program.command(ID_SAMPLE_CURVES)->trigger();
    program.command(ID_PLOT_CLOSE)->trigger();
    QCOMPARE(openPlots(program), QStringLiteral("housing.hpgl*"));
    QCOMPARE(program.text(IDC_STATUS_MESSAGE), QStringLiteral("housing.hpgl"));
}

void PlotOpenTest::closeAll()
{
    const PlotProgram program;
    program.command(ID_PLOT_CLOSE)->trigger();
    QCOMPARE(openPlots(program), QString());
    QCOMPARE(program.form().windowTitle(), QStringLiteral("Plot Viewer"));
    QCOMPARE(program.text(IDC_STATUS_MESSAGE), QStringLiteral("Ready"));
    QCOMPARE(program.text(IDC_STATUS_STROKES), QStringLiteral("Strokes: 0"));
    QCOMPARE(program.tree().topLevelItemCount(), 0);
    QCOMPARE(program.list().rowCount(), 0);
    for (const UINT id : {ID_PLOT_CLOSE, ID_PLOT_SUMMARY_AS, ID_EDIT_COPY, ID_EDIT_PASTE, ID_WINDOW_NEXT})
        QVERIFY(!program.command(static_cast<UINT>(id))->isEnabled());
    QVERIFY(program.command(ID_PLOT_OPEN)->isEnabled());
    program.command(ID_SAMPLE_ISLAND)->trigger();
    QCOMPARE(openPlots(program), QStringLiteral("island.hpgl*"));
    QVERIFY(program.command(ID_PLOT_CLOSE)->isEnabled());
}

void PlotOpenTest::moreThanTheMenuHolds()
{
    const Sandbox sandbox;
    const PlotProgram program;
    for (int i = 0; i < 10; ++i) {
        QVERIFY(write(sandbox.path(QStringLiteral("%1.hpgl").arg(i)), SmallPlot));
        QVERIFY(program.open(QStringLiteral("%1.hpgl").arg(i)));
    }
    QVERIFY(openPlots(program).endsWith(QStringLiteral("6.hpgl 7.hpgl")));
    QCOMPARE(program.text(IDC_STATUS_MESSAGE), QStringLiteral("9.hpgl"));
    program.command(ID_WINDOW_NEXT)->trigger();
    QCOMPARE(program.text(IDC_STATUS_MESSAGE), QStringLiteral("housing.hpgl"));
    program.command(ID_WINDOW_PREVIOUS)->trigger();
    program.command(ID_WINDOW_PREVIOUS)->trigger();
    QCOMPARE(program.text(IDC_STATUS_MESSAGE), QStringLiteral("8.hpgl"));
}

void PlotOpenTest::sheetOfEachPlot()
{
    plotStore().setValue(QStringLiteral("never"), 1);   // the store is there
    const PlotProgram program;
    const auto setTitle = [&program](const QString &title) {
        kxRunModal([&program] { program.command(ID_PLOT_PROPERTIES)->trigger(); },
                   [&title] {
                       auto *edit = QApplication::activeModalWidget()->findChild<QLineEdit *>();
                       edit->selectAll();
                       QTest::keyClicks(edit, title);
                       QTest::keyClick(edit, Qt::Key_Return);
                   });
        return program.form().canvas()->sheet().title;
    };
    QCOMPARE(setTitle(QStringLiteral("First")), QStringLiteral("First"));
    program.command(ID_SAMPLE_CURVES)->trigger();
    QCOMPARE(program.form().canvas()->sheet().title, QString());
    QCOMPARE(setTitle(QStringLiteral("Second")), QStringLiteral("Second"));
    program.command(ID_WINDOW_NEXT)->trigger();
    QCOMPARE(program.form().canvas()->sheet().title, QStringLiteral("First"));
    program.command(ID_WINDOW_NEXT)->trigger();
    QCOMPARE(program.form().canvas()->sheet().title, QStringLiteral("Second"));
}

void PlotOpenTest::saveDialog_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QString>("filter");
    QTest::newRow("summary") << ID_PLOT_SUMMARY_AS << "Save Summary"
                             << "txt"
                             << "Text files (*.txt)";
    QTest::newRow("PDF") << ID_PLOT_PRINT << "Print to PDF"
                         << "pdf"
                         << "PDF files (*.pdf)";
}

void PlotOpenTest::saveDialog()
{
    QFETCH(int, command);
    QFETCH(QString, title);
    QFETCH(QString, suffix);
    QFETCH(QString, filter);
    const Sandbox sandbox;
    QVERIFY(QDir(sandbox.path()).mkdir(QStringLiteral("plans")));
    QVERIFY(write(sandbox.path(QStringLiteral("plans/site.v2.hpgl")), SmallPlot));
    const PlotProgram program(sandbox.path(QStringLiteral("plans/site.v2.hpgl")));
    runCommand(program, static_cast<UINT>(command), [&] {
        const QFileDialog &dialog = openDialog();
        QCOMPARE(dialog.windowTitle(), title);
        QCOMPARE(dialog.acceptMode(), QFileDialog::AcceptSave);
        QCOMPARE(dialog.defaultSuffix(), suffix);
        QCOMPARE(dialog.nameFilters(), QStringList({filter, QStringLiteral("All files (*)")}));
        QCOMPARE(dialog.directory().path(), sandbox.path(QStringLiteral("plans")));
        QCOMPARE(nameEdit().text(), QStringLiteral("site.v2.") + suffix);
        QTest::keyClick(&openDialog(), Qt::Key_Escape);
    });
    QVERIFY(program.form().findChildren<QFileDialog *>().isEmpty());
}

void PlotOpenTest::saveAddsTheExtension_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("written");
    QTest::addColumn<QByteArray>("start");
    QTest::newRow("summary, none") << ID_PLOT_SUMMARY_AS << "out"
                                   << "out.txt" << QByteArray("Plot:         housing.hpgl\n");
    QTest::newRow("summary, its own") << ID_PLOT_SUMMARY_AS << "out.txt"
                                      << "out.txt" << QByteArray("Plot:         housing.hpgl\n");
    QTest::newRow("PDF, none") << ID_PLOT_PRINT << "out"
                               << "out.pdf" << QByteArray("%PDF-1.");
    QTest::newRow("PDF, another") << ID_PLOT_PRINT << "out.txt"
                                  << "out.pdf" << QByteArray("%PDF-1.");
}

void PlotOpenTest::saveAddsTheExtension()
{
    QFETCH(int, command);
    QFETCH(QString, typed);
    QFETCH(QString, written);
    QFETCH(QByteArray, start);
    const Sandbox sandbox;
    const PlotProgram program;
    runCommand(program, static_cast<UINT>(command), [&typed] { type(typed); }); // in the current folder
    QCOMPARE(sandbox.entries(), QStringList(written));
    QVERIFY(contentsOf(sandbox.path(written)).startsWith(start));
    QVERIFY(program.text(IDC_STATUS_MESSAGE).endsWith(sandbox.path(written)));
}

void PlotOpenTest::saveCancelled()
{
    const Sandbox sandbox;
    const PlotProgram program;
    for (const UINT id : {ID_PLOT_SUMMARY_AS, ID_PLOT_PRINT})
        runCommand(program, id, [] { QTest::keyClick(&openDialog(), Qt::Key_Escape); });
    QCOMPARE(sandbox.entries(), QStringList());
    QCOMPARE(program.text(IDC_STATUS_MESSAGE), QStringLiteral("housing.hpgl"));
}

KX_TEST_MAIN(PlotOpenTest)

#include "tst_plot_open.moc"
