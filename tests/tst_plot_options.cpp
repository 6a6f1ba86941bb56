// SPDX-License-Identifier: MIT
#include "KxFileSandbox.h"
#include "KxPlotProgram.h"
#include "KxTestCase.h"

#include "OptionsForm.h"
#include "OptionsPageForm.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QColorDialog>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSlider>
#include <QtWidgets/QTabWidget>

namespace {

// A wide line of pen 1 and one of pen 2 that is as wide as the pen.
constexpr const char *SmallPlot = "IN;SP1;PW2;PU0,0;PD4000,0;PU;SP2;PU0,2000;PD4000,2000;PU;";

enum Tab { General, Pens, Units };

/// The options dialog while it runs.
class Dialog
{
public:
    explicit Dialog(OptionsForm &form)
        : m_form(form)
    {
    }

    OptionsForm &form() const { return m_form; }
    QTabWidget &tabs() const { return *static_cast<QTabWidget *>(m_form.controls().at(IDC_OPTIONS_TABS)); }
    QPushButton *button(UINT id) const { return static_cast<QPushButton *>(m_form.controls().at(id)); }
    bool canApply() const { return button(IDC_APPLY)->isEnabled(); }

    /// A control of a page, which is shown.
    template<class Widget = QWidget>
    Widget *control(Tab tab, UINT id) const
    {
        tabs().setCurrentIndex(tab);
        return qobject_cast<Widget *>(static_cast<OptionsPageForm *>(tabs().widget(tab))->controls().at(id));
    }

    void click(UINT id) const { QTest::mouseClick(button(id), Qt::LeftButton); }
    void key(Tab tab, UINT id, Qt::Key key) const { QTest::keyClick(control(tab, id), key); }

    /// Presses a pen's button and chooses a colour; an invalid one leaves the colour dialog by Escape.
    void chooseColour(int pen, const QColor &colour) const
    {
        auto *pressed = control<QPushButton>(Pens, static_cast<UINT>(IDC_PEN_COLOUR_FIRST + pen - 1));
        kxRunModal([pressed] { QTest::mouseClick(pressed, Qt::LeftButton); },
                   [&colour] {
                       auto *dialog = qobject_cast<QColorDialog *>(QApplication::activeModalWidget());
                       QVERIFY(dialog);
                       if (colour.isValid()) {
                           dialog->setCurrentColor(colour);
                           dialog->accept();
                       } else {
                           QTest::keyClick(dialog, Qt::Key_Escape);
                       }
                   });
    }

    /// What a pen's button shows in its middle.
    QColor buttonColour(int pen) const
    {
        auto *shown = control<QPushButton>(Pens, static_cast<UINT>(IDC_PEN_COLOUR_FIRST + pen - 1));
        const QImage icon = shown->icon().pixmap(shown->iconSize()).toImage();
        return QColor(icon.pixel(icon.width() / 2, icon.height() / 2));
    }

    QString text(Tab tab, UINT id) const { return control<QLabel>(tab, id)->text(); }

    /// Everything but the colours.
    QString shown() const
    {
        return QStringLiteral("%1|%2|%3 (%4)|%5 (%6)|%7|%8|%9")
            .arg(control<QCheckBox>(General, IDC_FADE)->isChecked())
            .arg(control<QComboBox>(General, IDC_ROWS)->currentText())
            .arg(control<QSlider>(General, IDC_RECENT)->value())
            .arg(text(General, IDC_RECENT_VALUE))
            .arg(control<QSlider>(Pens, IDC_WIDTH)->value())
            .arg(text(Pens, IDC_WIDTH_VALUE), control<QListWidget>(Units, IDC_UNIT)->currentItem()->text(),
                 control<QComboBox>(Units, IDC_DECIMALS)->currentText(), text(Units, IDC_EXAMPLE));
    }

    /// Changes every control by mouse and keys.
    void changeAll() const
    {
        auto *fade = control<QCheckBox>(General, IDC_FADE);
        QTest::mouseClick(fade, Qt::LeftButton, {}, QPoint(8, fade->height() / 2));
        key(General, IDC_ROWS, Qt::Key_Home);
        key(General, IDC_RECENT, Qt::Key_PageUp);
        chooseColour(1, Qt::magenta);
        key(Pens, IDC_WIDTH, Qt::Key_PageUp);
        key(Units, IDC_UNIT, Qt::Key_Down);
        key(Units, IDC_UNIT, Qt::Key_Down);
        key(Units, IDC_DECIMALS, Qt::Key_End);
    }

private:
    OptionsForm &m_form;
};

constexpr const char *NewOptions = "1|2000|4 (4)|35 (0.35 mm)|Millimetres|1|210.0 mm";
constexpr const char *ChangedOptions = "0|500|6 (6)|45 (0.45 mm)|Inches|3|8.268 in";

using Step = std::function<void(const Dialog &)>;

/// Chooses the Options command and does `step` in the dialog.
void inOptions(const PlotProgram &program, const Step &step)
{
    bool shown = false;
    kxRunModal([&program] { program.command(ID_VIEW_OPTIONS)->trigger(); },
               [&] {
                   auto *form = qobject_cast<OptionsForm *>(QApplication::activeModalWidget());
                   shown = form && QTest::qWaitForWindowActive(form);
                   if (shown)
                       step(Dialog(*form));
               });
    if (!shown)
        QTest::qFail("the options dialog did not come up", __FILE__, __LINE__);
}

bool hasInk(const QImage &picture, const QColor &ink)
{
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) == ink.rgb())
                return true;
        }
    }
    return false;
}

QString lengthHeading(const PlotProgram &program)
{
    return program.list().horizontalHeaderItem(4)->text();
}

} // namespace

Q_DECLARE_METATYPE(Step)

class PlotOptionsTest : public KxTestCase
{
    Q_OBJECT

public:
    PlotOptionsTest() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

private:
    QString m_plot;
    QTemporaryDir m_folder;

private slots:
    void initTestCase();
    void init();

    void showsTheDefaults();
    void applyIsEnabledBy_data();
    void applyIsEnabledBy();
    void keeps_data();
    void keeps();
    void changes_data();
    void changes();
    void applyThenCancel();
    void applyLosesTheFocus();
    void penColour();
    void colourDialogCancelled();
    void defaultColours();
    void chosenColourBeforeThePlots();
    void lineWidth();
    void units_data();
    void units();
    void rowsAndFade();
    void remembers();
    void damagedSettings_data();
    void damagedSettings();
    void leavesNoWidgets();

    void noCommandMeanwhile_data();
    void noCommandMeanwhile();
};

void PlotOptionsTest::initTestCase()
{
    m_plot = m_folder.filePath(QStringLiteral("plot.hpgl"));
    QVERIFY(write(m_plot, SmallPlot));
}

void PlotOptionsTest::init()
{
    KxTestCase::init();
    plotStore().clear();
}

void PlotOptionsTest::showsTheDefaults()
{
    const PlotProgram program;
    inOptions(program, [](const Dialog &dialog) {
        QCOMPARE(dialog.form().windowTitle(), QStringLiteral("Options"));
        QCOMPARE(dialog.tabs().count(), 3);
        QCOMPARE(dialog.tabs().tabText(0), QStringLiteral("General"));
        QCOMPARE(dialog.tabs().tabText(1), QStringLiteral("Pens"));
        QCOMPARE(dialog.tabs().tabText(2), QStringLiteral("Units"));
        QCOMPARE(dialog.tabs().currentIndex(), 0);
        QCOMPARE(dialog.shown(), QString::fromLatin1(NewOptions));
        QCOMPARE(dialog.buttonColour(1), QColor(0x22, 0x26, 0x2b));
        QCOMPARE(dialog.buttonColour(8), QColor(0xb8, 0x25, 0x6f));
        QVERIFY(!dialog.canApply());
        dialog.click(IDCANCEL);
    });
}

void PlotOptionsTest::applyIsEnabledBy_data()
{
    QTest::addColumn<Step>("step");
    QTest::addColumn<bool>("enabled");

    QTest::newRow("the check box") << Step([](const Dialog &d) { d.key(General, IDC_FADE, Qt::Key_Space); })
                                   << true;
    QTest::newRow("the rows") << Step([](const Dialog &d) { d.key(General, IDC_ROWS, Qt::Key_Down); })
                              << true;
    QTest::newRow("the recent plots")
        << Step([](const Dialog &d) { d.key(General, IDC_RECENT, Qt::Key_Left); }) << true;
    QTest::newRow("a colour") << Step([](const Dialog &d) { d.chooseColour(8, Qt::cyan); }) << true;
    QTest::newRow("the same colour") << Step([](const Dialog &d) {
        d.chooseColour(1, QColor(0x22, 0x26, 0x2b));
    }) << false;
    QTest::newRow("no colour") << Step([](const Dialog &d) { d.chooseColour(1, QColor()); }) << false;
    QTest::newRow("the default colours")
        << Step([](const Dialog &d) { d.key(Pens, IDC_DEFAULT_COLOURS, Qt::Key_Space); }) << true;
    QTest::newRow("the line width") << Step([](const Dialog &d) { d.key(Pens, IDC_WIDTH, Qt::Key_Right); })
                                    << true;
    QTest::newRow("the unit") << Step([](const Dialog &d) { d.key(Units, IDC_UNIT, Qt::Key_Down); }) << true;
    QTest::newRow("the decimals") << Step([](const Dialog &d) { d.key(Units, IDC_DECIMALS, Qt::Key_Up); })
                                  << true;
    QTest::newRow("another page") << Step([](const Dialog &d) { d.tabs().setCurrentIndex(2); }) << false;
}

void PlotOptionsTest::applyIsEnabledBy()
{
    QFETCH(Step, step);
    QFETCH(bool, enabled);
    const PlotProgram program;
    inOptions(program, [&](const Dialog &dialog) {
        step(dialog);
        QCOMPARE(dialog.canApply(), enabled);
        if (enabled)
            dialog.click(IDC_APPLY);
        QVERIFY(!dialog.canApply());
        QVERIFY(dialog.form().isVisible());
        dialog.click(IDCANCEL);
    });
}

void PlotOptionsTest::keeps_data()
{
    QTest::addColumn<Step>("end");
    QTest::newRow("Cancel") << Step([](const Dialog &d) { d.click(IDCANCEL); });
    QTest::newRow("Escape") << Step([](const Dialog &d) { QTest::keyClick(&d.form(), Qt::Key_Escape); });
    QTest::newRow("Escape on a page")
        << Step([](const Dialog &d) { d.key(Pens, IDC_WIDTH, Qt::Key_Escape); });
    QTest::newRow("the window's close button") << Step([](const Dialog &d) { d.form().close(); });
}

void PlotOptionsTest::keeps()
{
    QFETCH(Step, end);
    const PlotProgram program;
    const QImage before = program.picture();
    inOptions(program, [&end](const Dialog &dialog) {
        dialog.changeAll();
        QCOMPARE(dialog.shown(), QString::fromLatin1(ChangedOptions));
        end(dialog);
        QVERIFY(!dialog.form().isVisible());
    });
    QCOMPARE(program.picture(), before);
    QCOMPARE(lengthHeading(program), QStringLiteral("Length (mm)"));
    QCOMPARE(plotStore().allKeys(), QStringList());
    inOptions(program, [](const Dialog &dialog) {
        QCOMPARE(dialog.shown(), QString::fromLatin1(NewOptions));
        dialog.click(IDCANCEL);
    });
}

void PlotOptionsTest::changes_data()
{
    QTest::addColumn<Step>("end");
    QTest::newRow("OK") << Step([](const Dialog &d) { d.click(IDOK); });
    QTest::newRow("Return") << Step([](const Dialog &d) { QTest::keyClick(&d.form(), Qt::Key_Return); });
    QTest::newRow("Return on a slider")
        << Step([](const Dialog &d) { d.key(Pens, IDC_WIDTH, Qt::Key_Return); });
}

void PlotOptionsTest::changes()
{
    QFETCH(Step, end);
    const PlotProgram program(m_plot);
    inOptions(program, [&end](const Dialog &dialog) {
        dialog.changeAll();
        end(dialog);
        QVERIFY(!dialog.form().isVisible());
    });
    QVERIFY(hasInk(program.picture(), Qt::magenta));
    QCOMPARE(lengthHeading(program), QStringLiteral("Length (in)"));
    QCOMPARE(program.listRow(0), QStringLiteral("1|Line|1|2|3.937"));
    inOptions(program, [](const Dialog &dialog) {
        QCOMPARE(dialog.shown(), QString::fromLatin1(ChangedOptions));
        QCOMPARE(dialog.buttonColour(1), QColor(Qt::magenta));
        dialog.click(IDCANCEL);
    });
}

void PlotOptionsTest::applyThenCancel()
{
    const PlotProgram program(m_plot);
    inOptions(program, [&program](const Dialog &dialog) {
        dialog.chooseColour(1, Qt::magenta);
        QVERIFY(!hasInk(program.picture(), Qt::magenta));
        dialog.click(IDC_APPLY);
        QVERIFY(hasInk(program.picture(), Qt::magenta));
        dialog.chooseColour(1, Qt::green);
        QVERIFY(dialog.canApply());
        dialog.click(IDCANCEL);
    });
    QVERIFY(hasInk(program.picture(), Qt::magenta));
    QVERIFY(!hasInk(program.picture(), Qt::green));
    QCOMPARE(plotStore().value(QStringLiteral("Options/Pen 1")).toInt(), 0xff00ff);
}

void PlotOptionsTest::applyLosesTheFocus()
{
    const PlotProgram program;
    inOptions(program, [](const Dialog &dialog) {
        dialog.key(Pens, IDC_WIDTH, Qt::Key_Right);
        dialog.button(IDC_APPLY)->setFocus();
        QTRY_COMPARE(QApplication::focusWidget(), dialog.button(IDC_APPLY));
        QTest::keyClick(dialog.button(IDC_APPLY), Qt::Key_Space);
        QVERIFY(!dialog.canApply());
        QVERIFY(dialog.form().focusWidget() != dialog.button(IDC_APPLY));
        dialog.click(IDCANCEL);
    });
}

void PlotOptionsTest::penColour()
{
    const PlotProgram program(m_plot);
    QVERIFY(hasInk(program.picture(), QColor(0x22, 0x26, 0x2b)));
    inOptions(program, [](const Dialog &dialog) {
        dialog.chooseColour(1, Qt::magenta);
        QCOMPARE(dialog.buttonColour(1), QColor(Qt::magenta));
        QCOMPARE(dialog.buttonColour(2), QColor(0xc9, 0x30, 0x2c));
        dialog.click(IDOK);
    });
    QVERIFY(hasInk(program.picture(), Qt::magenta));
    QVERIFY(!hasInk(program.picture(), QColor(0x22, 0x26, 0x2b)));
    const QImage icon = program.tree().penIcon(1).pixmap(program.tree().iconSize()).toImage();
    QCOMPARE(QColor(icon.pixel(icon.width() / 2, icon.height() / 2)), QColor(Qt::magenta));
}

void PlotOptionsTest::colourDialogCancelled()
{
    const PlotProgram program(m_plot);
    inOptions(program, [](const Dialog &dialog) {
        dialog.chooseColour(2, QColor());
        QCOMPARE(dialog.buttonColour(2), QColor(0xc9, 0x30, 0x2c));
        QVERIFY(dialog.form().isVisible());
        dialog.click(IDCANCEL);
    });
}

void PlotOptionsTest::defaultColours()
{
    const PlotProgram program(m_plot);
    const QImage before = program.picture();
    inOptions(program, [](const Dialog &dialog) {
        dialog.chooseColour(1, Qt::magenta);
        dialog.chooseColour(8, Qt::black);
        dialog.click(IDC_APPLY);
        QCOMPARE(dialog.buttonColour(8), QColor(Qt::black));
        dialog.key(Pens, IDC_DEFAULT_COLOURS, Qt::Key_Space);
        QCOMPARE(dialog.buttonColour(1), QColor(0x22, 0x26, 0x2b));
        QCOMPARE(dialog.buttonColour(8), QColor(0xb8, 0x25, 0x6f));
        dialog.click(IDOK);
    });
    QCOMPARE(program.picture(), before);
    QCOMPARE(plotStore().value(QStringLiteral("Options/Pen 1")).toInt(), -1);
}

void PlotOptionsTest::chosenColourBeforeThePlots()
{
    const QString path = m_folder.filePath(QStringLiteral("coloured.hpgl"));
    QVERIFY(write(path, "IN;PC1,0,0,255;SP1;PW2;PU0,0;PD4000,0;PU;"));
    const PlotProgram program(path);
    QVERIFY(hasInk(program.picture(), Qt::blue));
    inOptions(program, [](const Dialog &dialog) {
        QCOMPARE(dialog.buttonColour(1), QColor(Qt::blue));
        dialog.chooseColour(1, Qt::magenta);
        dialog.click(IDOK);
    });
    QVERIFY(!hasInk(program.picture(), Qt::blue));
    QVERIFY(hasInk(program.picture(), Qt::magenta));
}

void PlotOptionsTest::lineWidth()
{
    const PlotProgram program(m_plot);
    // Across the line, blended pixels too.
    const auto redPixels = [&program] {
        int count = 0;
        const QImage picture = program.picture();
        for (int y = 0; y < picture.height(); ++y) {
            const QRgb pixel = picture.pixel(picture.width() / 2, y);
            count += qRed(pixel) - qGreen(pixel) > 40;
        }
        return count;
    };
    const int before = redPixels();
    inOptions(program, [](const Dialog &dialog) {
        dialog.key(Pens, IDC_WIDTH, Qt::Key_End);
        QCOMPARE(dialog.text(Pens, IDC_WIDTH_VALUE), QStringLiteral("1.00 mm"));
        dialog.click(IDOK);
    });
    QVERIFY2(redPixels() > before, qPrintable(QStringLiteral("%1, before %2").arg(redPixels()).arg(before)));
}

void PlotOptionsTest::units_data()
{
    QTest::addColumn<int>("unit");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("heading");
    QTest::addColumn<QString>("length");
    QTest::addColumn<QString>("example");
    QTest::newRow("millimetres, none") << 0 << 0 << "Length (mm)"
                                       << "100"
                                       << "210 mm";
    QTest::newRow("centimetres, 2") << 1 << 2 << "Length (cm)"
                                    << "10.00"
                                    << "21.00 cm";
    QTest::newRow("inches, 1") << 2 << 1 << "Length (in)"
                               << "3.9"
                               << "8.3 in";
    QTest::newRow("plotter units, 3") << 3 << 3 << "Length (units)"
                                      << "4000.000"
                                      << "8400.000 units";
}

void PlotOptionsTest::units()
{
    QFETCH(int, unit);
    QFETCH(int, decimals);
    QFETCH(QString, heading);
    QFETCH(QString, length);
    QFETCH(QString, example);
    const PlotProgram program(m_plot);
    inOptions(program, [&](const Dialog &dialog) {
        dialog.key(Units, IDC_UNIT, Qt::Key_Home);
        for (int i = 0; i < unit; ++i)
            dialog.key(Units, IDC_UNIT, Qt::Key_Down);
        dialog.key(Units, IDC_DECIMALS, Qt::Key_Home);
        for (int i = 0; i < decimals; ++i)
            dialog.key(Units, IDC_DECIMALS, Qt::Key_Down);
        QCOMPARE(dialog.text(Units, IDC_EXAMPLE), example);
        dialog.click(IDOK);
    });
    QCOMPARE(lengthHeading(program), heading);
    QCOMPARE(program.list().item(0, 4)->text(), length);
}

void PlotOptionsTest::rowsAndFade()
{
    const QString path = m_folder.filePath(QStringLiteral("long.hpgl"));
    QVERIFY(write(path, SmallPlot + QByteArray("SP1;PU0,0;PD4000,0;PU;").repeated(698)));
    const PlotProgram program(path);
    QCOMPARE(program.text(IDC_MARKS_TITLE), QStringLiteral("All pens: 700"));
    const QColor red(0xc9, 0x30, 0x2c);
    program.list().selectRow(0);
    inOptions(program, [](const Dialog &dialog) {
        dialog.key(General, IDC_ROWS, Qt::Key_Home);
        dialog.key(General, IDC_FADE, Qt::Key_Space);
        dialog.key(Pens, IDC_WIDTH, Qt::Key_End);
        dialog.click(IDOK);
    });
    QCOMPARE(program.text(IDC_MARKS_TITLE), QStringLiteral("All pens: the first 500 of 700"));
    QCOMPARE(program.list().rowCount(), 500);
    // What is selected has a border instead, and the rest stays as bright as it was.
    program.list().selectRow(0);
    QVERIFY(hasInk(program.picture(), red));
    QVERIFY(hasInk(program.picture(), QColor(255, 170, 0)));
    program.list().clearSelection();
    QVERIFY(!hasInk(program.picture(), QColor(255, 170, 0)));
}

void PlotOptionsTest::remembers()
{
    {
        const PlotProgram program(m_plot);
        inOptions(program, [](const Dialog &dialog) {
            dialog.changeAll();
            dialog.click(IDOK);
        });
    }
    QCOMPARE(plotStore().value(QStringLiteral("Options/Line Width")).toInt(), 45);
    const PlotProgram program(m_plot);
    QVERIFY(hasInk(program.picture(), Qt::magenta));
    QCOMPARE(lengthHeading(program), QStringLiteral("Length (in)"));
    inOptions(program, [](const Dialog &dialog) {
        QCOMPARE(dialog.shown(), QString::fromLatin1(ChangedOptions));
        QCOMPARE(dialog.buttonColour(1), QColor(Qt::magenta));
        dialog.click(IDCANCEL);
    });
}

void PlotOptionsTest::damagedSettings_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("value");
    for (const char *name : {"Rows", "Recent Plots", "Line Width", "Unit", "Decimals", "Pen 1", "Pen 8"}) {
        QTest::addRow("%s, below all", name) << name << "-2";
        QTest::addRow("%s, above all", name) << name << "16777216";
    }
    QTest::newRow("Line Width, in words") << "Line Width"
                                          << "wide";
    QTest::newRow("Line Width, just too thin") << "Line Width"
                                               << "9";
    QTest::newRow("Line Width, just too wide") << "Line Width"
                                               << "101";
    QTest::newRow("Rows, one above") << "Rows"
                                     << "4";
    QTest::newRow("Unit, one above") << "Unit"
                                     << "4";
}

void PlotOptionsTest::damagedSettings()
{
    QFETCH(QString, name);
    QFETCH(QString, value);
    plotStore().setValue(QStringLiteral("Options/") + name, value);
    const PlotProgram program;
    inOptions(program, [](const Dialog &dialog) {
        QCOMPARE(dialog.shown(), QString::fromLatin1(NewOptions));
        QCOMPARE(dialog.buttonColour(1), QColor(0x22, 0x26, 0x2b));
        QCOMPARE(dialog.buttonColour(8), QColor(0xb8, 0x25, 0x6f));
        dialog.click(IDCANCEL);
    });
}

void PlotOptionsTest::leavesNoWidgets()
{
    const PlotProgram program;
    inOptions(program, [](const Dialog &dialog) { dialog.click(IDOK); });
    inOptions(program, [](const Dialog &dialog) { dialog.click(IDCANCEL); });
    QVERIFY(program.form().findChildren<OptionsForm *>().isEmpty());
    QVERIFY(program.form().findChildren<OptionsPageForm *>().isEmpty());
}

void PlotOptionsTest::noCommandMeanwhile_data()
{
    QTest::addColumn<int>("command");
    QTest::newRow("Options") << ID_VIEW_OPTIONS;
    QTest::newRow("Plot Properties") << ID_PLOT_PROPERTIES;
    QTest::newRow("Open") << ID_PLOT_OPEN;
    QTest::newRow("Save Summary As") << ID_PLOT_SUMMARY_AS;
}

// The dialogs are tool windows, in which the shortcuts of their parent would work.
void PlotOptionsTest::noCommandMeanwhile()
{
    QFETCH(int, command);
    const PlotProgram program(m_plot);
    QVERIFY(QTest::qWaitForWindowActive(&program.form()));
    const QString title = program.form().windowTitle();
    int shown = 0;
    kxRunModal([&] { program.command(static_cast<UINT>(command))->trigger(); },
               [&] {
                   QWidget *dialog = QApplication::activeModalWidget();
                   QVERIFY(dialog && QTest::qWaitForWindowActive(dialog));
                   for (const auto &[id, action] : program.form().commands()) {
                       QVERIFY2(!action->isEnabled(), qPrintable(action->text()));
                       action->trigger();
                   }
                   for (const Qt::Key key : {Qt::Key_O, Qt::Key_E, Qt::Key_L, Qt::Key_Q, Qt::Key_Comma})
                       QTest::keyClick(dialog, key, Qt::ControlModifier);
                   QCOMPARE(QApplication::activeModalWidget(), dialog);
                   for (const QWidget *window : QApplication::topLevelWidgets())
                       shown += window->isVisible() && qobject_cast<const QDialog *>(window);
                   QTest::keyClick(dialog, Qt::Key_Escape);
               });
    QCOMPARE(shown, 1);
    QVERIFY(program.form().isVisible());
    QCOMPARE(program.form().windowTitle(), title);
    for (const auto &[id, action] : program.form().commands())
        QVERIFY2(action->isEnabled() == action->isVisible(), qPrintable(action->text()));
}

KX_TEST_MAIN(PlotOptionsTest)

#include "tst_plot_options.moc"
