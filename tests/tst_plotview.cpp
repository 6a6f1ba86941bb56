// SPDX-License-Identifier: MIT
#include "KxModalRun.h"
#include "KxTestCase.h"

#include "MainWindow.h"
#include "PlotCanvas.h"
#include "PlotMainForm.h"
#include "PlotPropertiesForm.h"
#include "PlotReader.h"
#include "PlotSettings.h"
#include "PlotSheetPainter.h"
#include "PlotViewApp.h"
#include "ResourceText.h"
#include "StrokeFont.h"

#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QAction>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QSlider>
#include <QtWidgets/QToolBar>
#include <QtWidgets/QToolButton>

namespace {

QSettings store()
{
    return QSettings(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("Drumal"),
                     QStringLiteral("TORVA"));
}

/// The running program, with its main window open; settings are those that the test left.
class Program
{
public:
    explicit Program(const QString &file = QString())
    {
        m_started = file.isEmpty() ? m_app.InitInstance() : m_app.InitInstance({toCString(file)});
    }
    ~Program() { m_app.ExitInstance(); }

    bool started() const { return m_started; }
    CMainWindow &window() const { return *m_app.GetMainWindow(); }
    PlotMainForm &form() const { return *window().GetForm(); }
    const PlotSheet &sheet() const { return form().canvas()->sheet(); }
    QImage picture() const { return form().canvas()->grab().toImage(); }

    QString status(UINT id) const { return static_cast<QLabel *>(form().controls().at(id))->text(); }

    /// Pens, strokes, labels, skipped instructions.
    QString counts() const
    {
        return QStringList({status(IDC_STATUS_PENS), status(IDC_STATUS_STROKES), status(IDC_STATUS_LABELS),
                            status(IDC_STATUS_SKIPPED)})
            .join(QLatin1Char(' '));
    }

    QAction *command(UINT id) const { return form().commands().at(id); }

    QWidget *toolButton(UINT id) const
    {
        return form().findChild<QToolBar *>()->widgetForAction(command(id));
    }

    /// Presses the tool bar's Plot Properties button and does `step` in the dialog.
    void inProperties(const std::function<void(PlotPropertiesForm &)> &step)
    {
        bool shown = false;
        kxRunModal([this] { QTest::mouseClick(toolButton(ID_PLOT_PROPERTIES), Qt::LeftButton); },
                   [&] {
                       auto *dialog = qobject_cast<PlotPropertiesForm *>(QApplication::activeModalWidget());
                       shown = dialog && QTest::qWaitForWindowActive(dialog);
                       if (shown)
                           step(*dialog);
                   });
        if (!shown)
            QTest::qFail("the properties dialog did not come up", __FILE__, __LINE__);
    }

private:
    CPlotViewApp m_app;
    bool m_started = false;
};

template<class Widget>
Widget *control(PlotPropertiesForm &dialog, UINT id)
{
    return qobject_cast<Widget *>(dialog.controls().at(id));
}

QLineEdit *edit(PlotPropertiesForm &dialog, UINT id)
{
    return control<QLineEdit>(dialog, id);
}

void click(PlotPropertiesForm &dialog, UINT id)
{
    auto *button = control<QAbstractButton>(dialog, id);
    // The mark of a radio button or check box; its widget may be wider than what can be clicked.
    const bool isMark = !qobject_cast<QPushButton *>(button);
    QTest::mouseClick(button, Qt::LeftButton, {}, isMark ? QPoint(8, button->height() / 2) : QPoint());
}

/// Types over what stands in an edit.
void type(PlotPropertiesForm &dialog, UINT id, const QString &text)
{
    QLineEdit *field = edit(dialog, id);
    QTest::mouseClick(field, Qt::LeftButton);
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(field, Qt::Key_Delete);
    QTest::keyClicks(field, text);
}

/// What a message box said that came up during `run` and was closed with its OK button; empty without one.
QString messageDuring(const std::function<void()> &run)
{
    QString text;
    kxRunModal(run, [&text] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box)
            return;
        text = box->text();
        QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
    });
    return text;
}

QString shown(PlotPropertiesForm &dialog)
{
    int size = -1;
    for (int i = 0; i < PlotSheet::SizeCount; ++i)
        size = control<QRadioButton>(dialog, static_cast<UINT>(IDC_SIZE_FIT + i))->isChecked() ? i : size;
    return QStringLiteral("%1|%2|%3|%4|%5|%6|%7|%8")
        .arg(edit(dialog, IDC_TITLE)->text(), edit(dialog, IDC_PEN)->text(), edit(dialog, IDC_SCALE)->text())
        .arg(control<QCheckBox>(dialog, IDC_ROTATE)->isChecked())
        .arg(size)
        .arg(control<QComboBox>(dialog, IDC_PAPER)->currentText())
        .arg(control<QSlider>(dialog, IDC_MARGIN)->value())
        .arg(control<QLabel>(dialog, IDC_MARGIN_VALUE)->text());
}

/// Changes every control, by mouse and keys; shown() is then "Front view|3|2.5|1|2|Blueprint|25|25 mm".
void changeAll(PlotPropertiesForm &dialog)
{
    type(dialog, IDC_TITLE, QStringLiteral("Front view"));
    type(dialog, IDC_PEN, QStringLiteral("3"));
    type(dialog, IDC_SCALE, QStringLiteral("2.5"));
    click(dialog, IDC_ROTATE);
    click(dialog, IDC_SIZE_A3);
    QTest::keyClick(control<QComboBox>(dialog, IDC_PAPER), Qt::Key_End);
    QTest::keyClick(control<QSlider>(dialog, IDC_MARGIN), Qt::Key_PageUp);
    QTest::keyClick(control<QSlider>(dialog, IDC_MARGIN), Qt::Key_PageUp);
}

constexpr const char *NewSheet = "|1|1|0|0|White bond|15|15 mm";
constexpr const char *ChangedSheet = "Front view|3|2.5|1|2|Blueprint|25|25 mm";

} // namespace

Q_DECLARE_METATYPE(PlotSheet)

class PlotViewTest : public KxTestCase
{
    Q_OBJECT

public:
    PlotViewTest() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

private:
    QString file(const QByteArray &bytes, const QString &name = QStringLiteral("plot.hpgl"))
    {
        QFile made(m_folder.filePath(name));
        if (!made.open(QIODevice::WriteOnly) || made.write(bytes) != bytes.size())
            qFatal("%s cannot be written", qPrintable(made.fileName()));
        return made.fileName();
    }

    QTemporaryDir m_folder;

private slots:
    void stringsAreComplete();
    void samples_data();
    void samples();
    void opensTheNamedFile();
    void openCommand();
    void sampleMenu();
    void quitCommand();

    void badFile_data();
    void badFile();
    void badFileWithALongPath();
    void badFileOnTheCommandLine();
    void damagedFile_data();
    void damagedFile();
    void fileWithMoreThanCanBeShown();
    void unattendedShowsNoBox();

    void dialogShowsANewSheet();
    void dialogKeepsTheSheet_data();
    void dialogKeepsTheSheet();
    void dialogChangesTheSheet_data();
    void dialogChangesTheSheet();
    void dialogLeavesNoWidgets();
    void dialogRemembers();
    void titleBelongsToThePlot();
    void damagedSettings_data();
    void damagedSettings();

    void failingExchange_data();
    void failingExchange();
    void failingExchangeTwice();
    void twoMistakesOneBox();
    void cancelAfterAFailure();

    void previewFollows();
    void previewKeepsTheLastGoodSheet();
    void drawingFollows_data();
    void drawingFollows();
    void sheetSize_data();
    void sheetSize();
    void paintsAnyPlot_data();
    void paintsAnyPlot();
    void everyPrintableCharacterHasAGlyph();
};

void PlotViewTest::stringsAreComplete()
{
    const Program program;
    QVERIFY(program.started());
    for (UINT id = IDS_FIRST; id <= IDS_LAST; ++id)
        QVERIFY2(!resourceText(id).isEmpty(), qPrintable(QString::number(id)));
}

void PlotViewTest::samples_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("counts");

    QTest::newRow("housing") << ID_SAMPLE_HOUSING << QString::fromUtf8("housing.hpgl – Plot Viewer")
                             << "Pens: 5 Strokes: 95 Labels: 52 Skipped: 0";
    QTest::newRow("curves") << ID_SAMPLE_CURVES << QString::fromUtf8("curves.hpgl – Plot Viewer")
                            << "Pens: 8 Strokes: 291 Labels: 13 Skipped: 0";
    QTest::newRow("island") << ID_SAMPLE_ISLAND << QString::fromUtf8("island.hpgl – Plot Viewer")
                            << "Pens: 6 Strokes: 180 Labels: 66 Skipped: 0";
}

void PlotViewTest::samples()
{
    QFETCH(int, id);
    QFETCH(QString, title);
    QFETCH(QString, counts);
    Program program;
    program.command(static_cast<UINT>(id))->trigger();
    QCOMPARE(program.form().windowTitle(), title);
    QCOMPARE(program.counts(), counts);
}

void PlotViewTest::opensTheNamedFile()
{
    const QString path = file("IN;SP1;PU0,0;PD9,9;PU;ZZ5;SP2;LBHi\x03YY;", QStringLiteral("named.plt"));
    const Program program(path);
    QCOMPARE(program.form().windowTitle(), QString::fromUtf8("named.plt – Plot Viewer"));
    QCOMPARE(program.status(IDC_STATUS_MESSAGE), path);
    QCOMPARE(program.counts(), QStringLiteral("Pens: 2 Strokes: 1 Labels: 1 Skipped: 2"));
}

void PlotViewTest::openCommand()
{
    const QString path = file("PU0,0;PD9,9;", QStringLiteral("chosen.hpgl"));
    Program program;
    kxRunModal([&program] { QTest::mouseClick(program.toolButton(ID_PLOT_OPEN), Qt::LeftButton); },
               [&path] {
                   auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
                   QVERIFY(dialog);
                   auto *name = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
                   QTest::keyClicks(name, path);
                   QTest::keyClick(name, Qt::Key_Return);
               });
    QCOMPARE(program.status(IDC_STATUS_MESSAGE), path);
    kxRunModal([&program] { QTest::mouseClick(program.toolButton(ID_PLOT_OPEN), Qt::LeftButton); },
               [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
    QCOMPARE(program.status(IDC_STATUS_MESSAGE), path);
}

void PlotViewTest::sampleMenu()
{
    Program program;
    QMenuBar *bar = program.form().menuBar();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(bar->actions().first()).center());
    auto *menu = bar->actions().first()->menu();
    QTRY_VERIFY(menu->isVisible());
    QTest::keyClick(menu, Qt::Key_S);
    QMenu *samples = menu->actions().at(1)->menu();
    QTRY_VERIFY(samples->isVisible());
    QTest::keyClick(samples, Qt::Key_I);
    QCOMPARE(program.status(IDC_STATUS_MESSAGE), QStringLiteral("island.hpgl"));
}

void PlotViewTest::quitCommand()
{
    Program program;
    QVERIFY(QTest::qWaitForWindowActive(&program.form()));
    QTest::keyClick(&program.form(), Qt::Key_Q, Qt::ControlModifier);
    QVERIFY(!program.form().isVisible());
}

void PlotViewTest::badFile_data()
{
    QTest::addColumn<bool>("exists");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");

    QTest::newRow("missing")
        << false << QByteArray()
        << "\ncannot be opened. It may not exist, or you may not have permission to read it.";
    QTest::newRow("empty") << true << QByteArray() << "\nis empty.";
    QTest::newRow("blanks") << true << QByteArray("  \r\n\n") << "\nis empty.";
    QTest::newRow("no plot") << true << QByteArray("\x89PNG\r\n\x1a\n")
                             << "\nis not a plot: there is no HP-GL instruction in it.";
    QTest::newRow("too large") << true << QByteArray(64 * 1024 * 1024 + 1, ' ')
                               << "\nis too large for a plot: it has more than 64 megabytes.";
}

void PlotViewTest::badFile()
{
    QFETCH(bool, exists);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    const QString path = exists ? file(bytes) : m_folder.filePath(QStringLiteral("missing.hpgl"));
    Program program;
    const QString before = program.counts();
    QCOMPARE(messageDuring([&] { QVERIFY(!program.window().OpenPlot(toCString(path))); }), path + reason);

    // The program goes on with what it had, and opens the next plot.
    QCOMPARE(program.form().windowTitle(), QString::fromUtf8("housing.hpgl – Plot Viewer"));
    QCOMPARE(program.counts(), before);
    QVERIFY(program.window().OpenPlot(toCString(file("PU0,0;PD9,9;"))));
    QCOMPARE(program.counts(), QStringLiteral("Pens: 1 Strokes: 1 Labels: 0 Skipped: 0"));
}

void PlotViewTest::badFileWithALongPath()
{
    const QString path =
        m_folder.filePath(QStringLiteral("folder/").repeated(500) + QStringLiteral("missing.hpgl"));
    Program program;
    const QString message = messageDuring([&] { QVERIFY(!program.window().OpenPlot(toCString(path))); });
    QVERIFY(message.contains(QStringLiteral("/missing.hpgl\ncannot be opened.")));
}

void PlotViewTest::badFileOnTheCommandLine()
{
    const QString path = file(QByteArray());
    std::unique_ptr<Program> program;
    QCOMPARE(messageDuring([&] { program = std::make_unique<Program>(path); }),
             path + QStringLiteral("\nis empty."));
    QVERIFY(program->started());
    QVERIFY(program->form().isVisible());
    QCOMPARE(program->form().windowTitle(), QStringLiteral("Plot Viewer"));
    QCOMPARE(program->counts(), QStringLiteral("Pens: 0 Strokes: 0 Labels: 0 Skipped: 0"));
    QVERIFY(!program->command(ID_PLOT_PROPERTIES)->isEnabled());

    program->command(ID_SAMPLE_CURVES)->trigger();
    QCOMPARE(program->status(IDC_STATUS_MESSAGE), QStringLiteral("curves.hpgl"));
    QVERIFY(program->command(ID_PLOT_PROPERTIES)->isEnabled());
}

void PlotViewTest::damagedFile_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    QTest::addColumn<QString>("counts");

    QTest::newRow("binary bytes inside")
        << QByteArray("PU0,0;PD9,9;\xff\xfe\xfd;PU1,1;PD2,2;")
        << "\nis damaged: 1 of its instructions could not be read and were skipped. The plot shows the rest."
        << "Pens: 1 Strokes: 2 Labels: 0 Skipped: 1";
    QTest::newRow("a label without end, a point without y")
        << QByteArray("PU0,0;PD9,9,1;LBHi")
        << "\nis damaged: 2 of its instructions could not be read and were skipped. The plot shows the rest."
        << "Pens: 1 Strokes: 1 Labels: 1 Skipped: 2";
}

void PlotViewTest::damagedFile()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    QFETCH(QString, counts);
    const QString path = file(bytes);
    Program program;
    QCOMPARE(messageDuring([&] { QVERIFY(program.window().OpenPlot(toCString(path))); }), path + reason);
    QCOMPARE(program.status(IDC_STATUS_MESSAGE), path);
    QCOMPARE(program.counts(), counts);
}

void PlotViewTest::fileWithMoreThanCanBeShown()
{
    const QString path = file("PD;" + QByteArray("CI9,.5;").repeated(4000));
    Program program;
    QCOMPARE(messageDuring([&] { QVERIFY(program.window().OpenPlot(toCString(path))); }),
             path + QStringLiteral("\nhas more in it than can be shown. The plot shows the beginning."));
    QVERIFY(program.status(IDC_STATUS_STROKES) != QStringLiteral("Strokes: 0"));
}

void PlotViewTest::unattendedShowsNoBox()
{
    Program program;
    theApp().SetUnattended();
    const QString path = m_folder.filePath(QStringLiteral("missing.hpgl"));
    QCOMPARE(messageDuring([&] { QVERIFY(!program.window().OpenPlot(toCString(path))); }), QString());
}

void PlotViewTest::dialogShowsANewSheet()
{
    store().clear();
    Program program;
    program.inProperties([](PlotPropertiesForm &dialog) {
        QCOMPARE(shown(dialog), QString::fromLatin1(NewSheet));
        QCOMPARE(dialog.focusWidget(), edit(dialog, IDC_TITLE));
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Plot Properties"));
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
}

using DialogEnd = std::function<void(PlotPropertiesForm &)>;
Q_DECLARE_METATYPE(DialogEnd)

void PlotViewTest::dialogKeepsTheSheet_data()
{
    QTest::addColumn<DialogEnd>("end");

    QTest::newRow("Cancel, mouse") << DialogEnd([](PlotPropertiesForm &d) { click(d, IDCANCEL); });
    QTest::newRow("Cancel, Space") << DialogEnd(
        [](PlotPropertiesForm &d) { QTest::keyClick(d.controls().at(IDCANCEL), Qt::Key_Space); });
    QTest::newRow("Escape") << DialogEnd([](PlotPropertiesForm &d) { QTest::keyClick(&d, Qt::Key_Escape); });
    QTest::newRow("Escape in an edit")
        << DialogEnd([](PlotPropertiesForm &d) { QTest::keyClick(edit(d, IDC_SCALE), Qt::Key_Escape); });
    QTest::newRow("Escape on the slider") << DialogEnd(
        [](PlotPropertiesForm &d) { QTest::keyClick(d.controls().at(IDC_MARGIN), Qt::Key_Escape); });
    QTest::newRow("the window's close button") << DialogEnd([](PlotPropertiesForm &d) { d.close(); });
}

void PlotViewTest::dialogKeepsTheSheet()
{
    QFETCH(DialogEnd, end);
    store().clear();
    Program program;
    const QImage before = program.picture();
    program.inProperties([&end](PlotPropertiesForm &dialog) {
        changeAll(dialog);
        QCOMPARE(shown(dialog), QString::fromLatin1(ChangedSheet));
        end(dialog);
        QVERIFY(!dialog.isVisible());
    });
    QCOMPARE(program.picture(), before);
    QVERIFY(store().allKeys().isEmpty());
    program.inProperties([](PlotPropertiesForm &dialog) {
        QCOMPARE(shown(dialog), QString::fromLatin1(NewSheet));
        click(dialog, IDCANCEL);
    });
}

void PlotViewTest::dialogChangesTheSheet_data()
{
    QTest::addColumn<DialogEnd>("end");

    QTest::newRow("OK, mouse") << DialogEnd([](PlotPropertiesForm &d) { click(d, IDOK); });
    QTest::newRow("OK, Space") << DialogEnd(
        [](PlotPropertiesForm &d) { QTest::keyClick(d.controls().at(IDOK), Qt::Key_Space); });
    QTest::newRow("Return in an edit")
        << DialogEnd([](PlotPropertiesForm &d) { QTest::keyClick(edit(d, IDC_SCALE), Qt::Key_Return); });
    QTest::newRow("Enter on the check box") << DialogEnd(
        [](PlotPropertiesForm &d) { QTest::keyClick(d.controls().at(IDC_ROTATE), Qt::Key_Enter); });
}

void PlotViewTest::dialogChangesTheSheet()
{
    QFETCH(DialogEnd, end);
    store().clear();
    Program program;
    const QImage before = program.picture();
    program.inProperties([&end](PlotPropertiesForm &dialog) {
        changeAll(dialog);
        end(dialog);
        QVERIFY(!dialog.isVisible());
    });
    QVERIFY(program.picture() != before);
    const PlotSheet &sheet = program.sheet();
    QCOMPARE(sheet.title, QStringLiteral("Front view"));
    QCOMPARE(sheet.titlePen, 3);
    QCOMPARE(sheet.scale, 2.5);
    QCOMPARE(sheet.rotate, true);
    QCOMPARE(sheet.size, int(PlotSheet::A3));
    QCOMPARE(sheet.paper, int(PlotSheet::Blueprint));
    QCOMPARE(sheet.margin, 25);
    program.inProperties([](PlotPropertiesForm &dialog) {
        QCOMPARE(shown(dialog), QString::fromLatin1(ChangedSheet));
        click(dialog, IDCANCEL);
    });
}

void PlotViewTest::dialogLeavesNoWidgets()
{
    Program program;
    program.inProperties([](PlotPropertiesForm &dialog) { click(dialog, IDOK); });
    program.inProperties([](PlotPropertiesForm &dialog) { click(dialog, IDCANCEL); });
    QVERIFY(program.form().findChildren<PlotPropertiesForm *>().isEmpty());
}

void PlotViewTest::dialogRemembers()
{
    store().clear();
    {
        Program program;
        program.inProperties([](PlotPropertiesForm &dialog) {
            changeAll(dialog);
            click(dialog, IDOK);
        });
    }
    QCOMPARE(store().value(QStringLiteral("Plot Properties/Pen")).toInt(), 3);
    QCOMPARE(store().value(QStringLiteral("Software/plotview/Sheet/Scale")).toString(),
             QStringLiteral("2.5"));
    Program program;
    QCOMPARE(program.sheet().scale, 2.5);
    program.inProperties([](PlotPropertiesForm &dialog) {
        QCOMPARE(shown(dialog), QString::fromLatin1(ChangedSheet));
        click(dialog, IDCANCEL);
    });
}

void PlotViewTest::titleBelongsToThePlot()
{
    store().clear();
    Program program;
    const QString longest(CPlotSettings::LongestTitle, QLatin1Char('x'));
    program.inProperties([&longest](PlotPropertiesForm &dialog) {
        type(dialog, IDC_TITLE, longest + QStringLiteral("y"));
        QCOMPARE(edit(dialog, IDC_TITLE)->text(), longest);
        click(dialog, IDOK);
    });
    program.command(ID_SAMPLE_ISLAND)->trigger();
    QCOMPARE(program.sheet().title, QString());
    program.command(ID_SAMPLE_HOUSING)->trigger();
    QCOMPARE(program.sheet().title, longest);
}

void PlotViewTest::damagedSettings_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");

    const QString profile = QStringLiteral("Plot Properties/");
    QTest::newRow("a pen too high") << profile + "Pen"
                                    << "9";
    QTest::newRow("a pen of 0") << profile + "Pen"
                                << "0";
    QTest::newRow("a pen in words") << profile + "Pen"
                                    << "seven";
    QTest::newRow("a size below all") << profile + "Size"
                                      << "-1";
    QTest::newRow("a size above all") << profile + "Size"
                                      << "4";
    QTest::newRow("a paper above all") << profile + "Paper"
                                       << "4";
    QTest::newRow("a margin too wide") << profile + "Margin"
                                       << "51";
    QTest::newRow("a scale of 0") << "Software/plotview/Sheet/Scale"
                                  << "0";
    QTest::newRow("a scale too large") << "Software/plotview/Sheet/Scale"
                                       << "100.1";
    QTest::newRow("a scale in words") << "Software/plotview/Sheet/Scale"
                                      << "huge";
    QTest::newRow("a scale without end") << "Software/plotview/Sheet/Scale" << QString(500, QLatin1Char('1'));
    QTest::newRow("a title too long")
        << "Software/plotview/Titles/housing.hpgl" << QString(500, QLatin1Char('x'));
}

void PlotViewTest::damagedSettings()
{
    QFETCH(QString, key);
    QFETCH(QString, value);
    {
        QSettings settings(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("Drumal"),
                           QStringLiteral("TORVA"));
        settings.clear();
        settings.setValue(key, value);
    }
    Program program;
    program.inProperties([](PlotPropertiesForm &dialog) {
        QCOMPARE(shown(dialog), QString::fromLatin1(NewSheet));
        click(dialog, IDCANCEL);
    });
}

void PlotViewTest::failingExchange_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("reason");

    const QString noNumber =
        QStringLiteral("The scale has to be a number with a decimal point, such as 0.75.");
    const QString noScale = QStringLiteral("The scale has to be greater than 0 and at most 100.");
    const QString noWhole = QStringLiteral("The pen has to be a whole number.");
    const QString noPen = QStringLiteral("The pen has to be a number from 1 to 8.");
    QTest::newRow("scale 0") << IDC_SCALE << "0" << noScale;
    QTest::newRow("scale below 0") << IDC_SCALE << "-2" << noScale;
    QTest::newRow("scale above 100") << IDC_SCALE << "100.01" << noScale;
    QTest::newRow("scale far above") << IDC_SCALE << "1e300" << noScale;
    QTest::newRow("scale in words") << IDC_SCALE << "half" << noNumber;
    QTest::newRow("scale with a unit") << IDC_SCALE << "2 mm" << noNumber;
    QTest::newRow("scale with a comma") << IDC_SCALE << "2,5" << noNumber;
    QTest::newRow("scale in thousands") << IDC_SCALE << "1,000" << noNumber;
    QTest::newRow("no scale") << IDC_SCALE << "" << noNumber;
    QTest::newRow("pen 0") << IDC_PEN << "0" << noPen;
    QTest::newRow("pen 9") << IDC_PEN << "9" << noPen;
    QTest::newRow("pen below 0") << IDC_PEN << "-1" << noPen;
    QTest::newRow("half a pen") << IDC_PEN << "1.5" << noWhole;
    QTest::newRow("pen in words") << IDC_PEN << "red" << noWhole;
    QTest::newRow("no pen") << IDC_PEN << "" << noWhole;
}

void PlotViewTest::failingExchange()
{
    QFETCH(int, id);
    QFETCH(QString, text);
    QFETCH(QString, reason);
    store().clear();
    Program program;
    const QImage before = program.picture();
    program.inProperties([&](PlotPropertiesForm &dialog) {
        const auto field = static_cast<UINT>(id);
        type(dialog, field, text);
        edit(dialog, IDC_TITLE)->setFocus();
        QCOMPARE(messageDuring([&dialog] { click(dialog, IDOK); }), reason);

        QVERIFY(dialog.isVisible());
        QCOMPARE(edit(dialog, field)->text(), text);
        QCOMPARE(edit(dialog, field)->selectedText(), text);
        QCOMPARE(dialog.focusWidget(), edit(dialog, field));
        QTRY_COMPARE(QApplication::focusWidget(), edit(dialog, field));
        QVERIFY(store().allKeys().isEmpty());

        // What is typed now takes the place of the mistake.
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("2"));
        QCOMPARE(messageDuring([&dialog] { click(dialog, IDOK); }), QString());
        QVERIFY(!dialog.isVisible());
    });
    QCOMPARE(program.sheet().titlePen, id == IDC_PEN ? 2 : 1);
    QCOMPARE(program.sheet().scale, id == IDC_SCALE ? 2.0 : 1.0);
    QCOMPARE(program.picture() == before, id == IDC_PEN);
}

void PlotViewTest::failingExchangeTwice()
{
    store().clear();
    Program program;
    program.inProperties([](PlotPropertiesForm &dialog) {
        type(dialog, IDC_SCALE, QStringLiteral("0"));
        for (int i = 0; i < 2; ++i) {
            const QString text =
                messageDuring([&dialog] { QTest::keyClick(edit(dialog, IDC_SCALE), Qt::Key_Return); });
            QCOMPARE(text, QStringLiteral("The scale has to be greater than 0 and at most 100."));
            QVERIFY(dialog.isVisible());
        }
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
}

void PlotViewTest::twoMistakesOneBox()
{
    store().clear();
    Program program;
    program.inProperties([](PlotPropertiesForm &dialog) {
        type(dialog, IDC_SCALE, QStringLiteral("0"));
        type(dialog, IDC_PEN, QStringLiteral("0"));
        QCOMPARE(messageDuring([&dialog] { click(dialog, IDOK); }),
                 QStringLiteral("The pen has to be a number from 1 to 8."));
        QCOMPARE(dialog.focusWidget(), edit(dialog, IDC_PEN));
        click(dialog, IDCANCEL);
    });
}

void PlotViewTest::cancelAfterAFailure()
{
    store().clear();
    Program program;
    const QImage before = program.picture();
    program.inProperties([](PlotPropertiesForm &dialog) {
        changeAll(dialog);
        type(dialog, IDC_SCALE, QStringLiteral("500"));
        QVERIFY(!messageDuring([&dialog] { click(dialog, IDOK); }).isEmpty());
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Escape);
        QVERIFY(!dialog.isVisible());
    });
    QCOMPARE(program.picture(), before);
    QVERIFY(store().allKeys().isEmpty());
}

void PlotViewTest::previewFollows()
{
    store().clear();
    Program program;
    program.inProperties([](PlotPropertiesForm &dialog) {
        const PlotSheet &sheet = dialog.preview()->sheet();
        type(dialog, IDC_TITLE, QStringLiteral("Front"));
        QCOMPARE(sheet.title, QStringLiteral("Front"));
        type(dialog, IDC_PEN, QStringLiteral("3"));
        QCOMPARE(sheet.titlePen, 3);
        type(dialog, IDC_SCALE, QStringLiteral("0.5"));
        QCOMPARE(sheet.scale, 0.5);
        click(dialog, IDC_ROTATE);
        QCOMPARE(sheet.rotate, true);
        click(dialog, IDC_SIZE_A2);
        QCOMPARE(sheet.size, int(PlotSheet::A2));
        QTest::keyClick(control<QComboBox>(dialog, IDC_PAPER), Qt::Key_Down);
        QCOMPARE(sheet.paper, int(PlotSheet::Ivory));
        QTest::keyClick(control<QSlider>(dialog, IDC_MARGIN), Qt::Key_Right);
        QCOMPARE(sheet.margin, 16);
        QCOMPARE(control<QLabel>(dialog, IDC_MARGIN_VALUE)->text(), QStringLiteral("16 mm"));
        click(dialog, IDCANCEL);
    });
}

void PlotViewTest::previewKeepsTheLastGoodSheet()
{
    store().clear();
    Program program;
    program.inProperties([](PlotPropertiesForm &dialog) {
        type(dialog, IDC_SCALE, QStringLiteral("2"));
        type(dialog, IDC_SCALE, QStringLiteral("999"));
        QCOMPARE(dialog.preview()->sheet().scale, 99.0);
        type(dialog, IDC_SCALE, QStringLiteral("-1"));
        QVERIFY(dialog.preview()->sheet().scale > 0);
        click(dialog, IDCANCEL);
    });
}

void PlotViewTest::drawingFollows_data()
{
    QTest::addColumn<PlotSheet>("sheet");

    const auto row = [](const char *name, auto change) {
        PlotSheet sheet;
        change(sheet);
        QTest::newRow(name) << sheet;
    };
    row("scale", [](PlotSheet &sheet) { sheet.scale = 0.5; });
    row("rotate", [](PlotSheet &sheet) { sheet.rotate = true; });
    row("title", [](PlotSheet &sheet) { sheet.title = QStringLiteral("Title"); });
    row("margin", [](PlotSheet &sheet) { sheet.margin = 40; });
    row("size", [](PlotSheet &sheet) { sheet.size = PlotSheet::A4; });
    row("ivory", [](PlotSheet &sheet) { sheet.paper = PlotSheet::Ivory; });
    row("millimetre", [](PlotSheet &sheet) { sheet.paper = PlotSheet::Millimetre; });
    row("blueprint", [](PlotSheet &sheet) { sheet.paper = PlotSheet::Blueprint; });
}

void PlotViewTest::drawingFollows()
{
    QFETCH(PlotSheet, sheet);
    PlotCanvas canvas;
    canvas.resize(400, 300);
    canvas.setPlot(std::make_shared<const Plot>(PlotReader::readBytes("PU0,0;PD4000,0,4000,3000,0,0;").plot));
    canvas.setSheet(PlotSheet());
    const QImage usual = canvas.grab().toImage();
    canvas.setSheet(sheet);
    QVERIFY(canvas.grab().toImage() != usual);
    canvas.setSheet(PlotSheet());
    QCOMPARE(canvas.grab().toImage(), usual);
}

void PlotViewTest::sheetSize_data()
{
    QTest::addColumn<QByteArray>("instructions");
    QTest::addColumn<PlotSheet>("sheet");
    QTest::addColumn<QSizeF>("expected");

    const QByteArray wide("PU0,0;PD8000,4000;");
    const auto row = [](const char *name, const QByteArray &instructions, QSizeF expected, auto change) {
        PlotSheet sheet;
        change(sheet);
        QTest::newRow(name) << instructions << sheet << expected;
    };
    row("fitted: the plot's proportions inside the margins", wide, QSizeF(297, 163.5), [](PlotSheet &) {});
    row("fitted, without margins", wide, QSizeF(297, 148.5), [](PlotSheet &sheet) { sheet.margin = 0; });
    row("fitted, with a title", wide, QSizeF(297, 177.5), [](PlotSheet &sheet) { sheet.title = "T"; });
    row("fitted, turned", wide, QSizeF(163.5, 297), [](PlotSheet &sheet) { sheet.rotate = true; });
    row("fitted, scaled: the same sheet", wide, QSizeF(297, 163.5),
        [](PlotSheet &sheet) { sheet.scale = 7; });
    row("a flat line gets some room", "PU0,0;PD8000,0;", QSizeF(297, 119), [](PlotSheet &) {});
    row("a single dot too", "PU7,7;PD;PU;", QSizeF(297, 297), [](PlotSheet &) {});
    row("nothing at all too", "IN;", QSizeF(297, 297), [](PlotSheet &) {});
    row("A4", wide, QSizeF(297, 210), [](PlotSheet &sheet) { sheet.size = PlotSheet::A4; });
    row("A3", wide, QSizeF(420, 297), [](PlotSheet &sheet) { sheet.size = PlotSheet::A3; });
    row("A2, turned", wide, QSizeF(420, 594), [](PlotSheet &sheet) {
        sheet.size = PlotSheet::A2;
        sheet.rotate = true;
    });
}

void PlotViewTest::sheetSize()
{
    QFETCH(QByteArray, instructions);
    QFETCH(PlotSheet, sheet);
    QFETCH(QSizeF, expected);
    const Plot plot = PlotReader::readBytes(instructions).plot;
    QCOMPARE(PlotSheetPainter(plot, sheet).sheetSize(), expected);
}

void PlotViewTest::paintsAnyPlot_data()
{
    QTest::addColumn<QByteArray>("instructions");

    QTest::newRow("as far as plotters go") << QByteArray("PU-8388608,-8388608;PD8388608,8388608,0,0;");
    QTest::newRow("no extent") << QByteArray("PU5,5;PD;PU;");
    QTest::newRow("hardly any extent") << QByteArray("SC0,1e9,0,1e9;PU0,0;PD1,1,2,0;");
    QTest::newRow("fine dashes") << QByteArray("LT1,.000001;PU0,0;PD9000,9000;LT2,.01;PD0,9000;LT6,0;PD0,0;");
    QTest::newRow("fine hatching") << QByteArray("FT3,.000001,45;PU0,0;RA9000,9000;FT4,1e-300;RA8000,8000;");
    QTest::newRow("many hatched areas")
        << QByteArray("PU0,0;") + QByteArray("FT4,20,45;RA9000,9000;").repeated(60);
    QTest::newRow("too many hatched areas")
        << QByteArray("PU0,0;") + QByteArray("FT4,20,45;RA9000,9000;").repeated(2000);
    QTest::newRow("huge letters") << QByteArray("PU0,0;PD9,9;SI20000,20000;LBhuge\x03");
    QTest::newRow("tiny letters") << QByteArray(
        "PU0,0;PD9000,9000;SI1e-9,1e-9;LBtiny\x03SI1e-300,1;LBthin\x03");
    QTest::newRow("letters on their head")
        << QByteArray("PU0,0;SI-.2,-.3;LBturned\x03SI.2,-.3;LBmirrored\x03");
    QTest::newRow("wide pens") << QByteArray("PW50;PU0,0;PD90,90;PW0;PD0,90;");
    QTest::newRow("dense text") << QByteArray("SI.01,.01;PU0,0;")
                                       + QByteArray("LBqwertyuiop\r\n\x03").repeated(20000);
}

void PlotViewTest::paintsAnyPlot()
{
    QFETCH(QByteArray, instructions);
    const Plot plot = PlotReader::readBytes(instructions).plot;
    QVERIFY(!plot.isBlank());
    PlotSheet sheet;
    for (const double scale : {1.0, 0.001, PlotSheet::LargestScale}) {
        sheet.scale = scale;
        QImage image(300, 300, QImage::Format_RGB32);
        image.fill(Qt::magenta);
        const QImage unpainted = image;
        KxQtPainterWrapper painter(&image);
        QVERIFY(painter.beginDraw());
        PlotSheetPainter(plot, sheet).paint(painter, image.rect());
        QVERIFY(painter.endDraw());
        QVERIFY(image != unpainted);
    }
}

void PlotViewTest::everyPrintableCharacterHasAGlyph()
{
    for (ushort code = ' '; code <= '~'; ++code)
        QVERIFY2(StrokeFont::canDraw(QString(QChar(code))), qPrintable(QString(QChar(code))));
    QVERIFY(StrokeFont::canDraw(QString::fromUtf8("Élévation 45°, Ø12 ± 0,1")));
    QVERIFY(!StrokeFont::canDraw(QString::fromUtf8("図面")));
}

KX_TEST_MAIN(PlotViewTest)

#include "tst_plotview.moc"
