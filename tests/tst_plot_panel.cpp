// SPDX-License-Identifier: MIT
#include "KxFileSandbox.h"
#include "KxPlotProgram.h"
#include "KxTestCase.h"

#include "PlotReader.h"

#include <QtWidgets/QHeaderView>

namespace {

// Wide lines, so that each ink stands in the picture unblended: a line of 100 mm and a bent one of 110 mm
// (pen 1), a line and a dot (pen 2), a filled square (pen 3) and two letters (pen 4).
constexpr const char *SmallPlot = "IN;SP1;PW2;PU0,0;PD4000,0;PU0,400;PD4000,400,4000,800;PU;"
                                  "SP2;PW2;PU0,2000;PD4000,2000;PU;PU0,3000;PD;PU;"
                                  "SP3;PU100,1000;RA900,1800;SP4;PU200,2400;SI.5,.7;LBHi\x03;";

constexpr QRgb Inks[] = {0xff22262b, 0xffc9302c, 0xff1e8449};

/// The numbers of the pens, of the first three, whose ink is in the picture.
QString inks(const QImage &picture)
{
    QString found;
    for (int pen = 1; pen <= 3; ++pen) {
        bool isThere = false;
        for (int y = 0; y < picture.height() && !isThere; ++y) {
            for (int x = 0; x < picture.width() && !isThere; ++x)
                isThere = picture.pixel(x, y) == Inks[pen - 1];
        }
        if (isThere)
            found += QString::number(pen);
    }
    return found;
}

/// The tree, a line for each row: depth, text, what the item data say.
void describe(const QTreeWidgetItem *item, const QString &indent, QStringList &lines)
{
    static const char *const kinds[] = {"all", "pen", "strokes", "areas", "labels"};
    const PlotLayer layer = PlotLayer::fromItemData(item->data(0, Qt::UserRole).toULongLong());
    lines.append(QStringLiteral("%1%2: %3 %4 %5")
                     .arg(indent, item->text(0), QLatin1String(kinds[layer.kind]))
                     .arg(layer.pen)
                     .arg(layer.visible ? QStringLiteral("shown") : QStringLiteral("hidden")));
    for (int i = 0; i < item->childCount(); ++i)
        describe(item->child(i), indent + QLatin1Char(' '), lines);
}

QStringList treeLines(const PlotProgram &program)
{
    QStringList lines;
    for (int i = 0; i < program.tree().topLevelItemCount(); ++i)
        describe(program.tree().topLevelItem(i), QString(), lines);
    return lines;
}

bool isVisible(QTreeWidgetItem *item)
{
    return PlotLayer::fromItemData(item->data(0, Qt::UserRole).toULongLong()).visible;
}

void clickRow(const PlotProgram &program, int row, Qt::KeyboardModifiers modifiers = {})
{
    const QRect cell = program.list().visualRect(program.list().model()->index(row, 1));
    QTest::mouseClick(program.list().viewport(), Qt::LeftButton, modifiers, cell.center());
}

} // namespace

using Step = std::function<void(PlotProgram &)>;
Q_DECLARE_METATYPE(Step)

class PlotPanelTest : public KxTestCase
{
    Q_OBJECT

private:
    QString file(const QByteArray &bytes) const
    {
        const QString path = m_folder.filePath(QStringLiteral("plot.hpgl"));
        if (!write(path, bytes))
            qFatal("%s cannot be written", qPrintable(path));
        return path;
    }

    QTemporaryDir m_folder;

private slots:
    void init();

    void treeContents_data();
    void treeContents();
    void treeOfNoPlot();
    void checkMarks_data();
    void checkMarks();
    void hiddenLabels();
    void anotherPlotShowsAll();
    void penIconsHaveTheirInk();

    void listFollowsTheTree_data();
    void listFollowsTheTree();
    void columns();
    void itemDataTellTheMark();
    void selectionStandsOut_data();
    void selectionStandsOut();
    void selectionEndsWithTheLayer();
    void manySelected();
    void largePlot();
};

void PlotPanelTest::init()
{
    KxTestCase::init();
    plotStore().clear();
}

void PlotPanelTest::treeContents_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("lines");

    QTest::newRow("strokes, areas, labels")
        << QByteArray(SmallPlot)
        << QStringList(
               {"All pens (6): all 0 shown", " Pen 1 (2): pen 1 shown", "  Strokes (2): strokes 1 shown",
                " Pen 2 (2): pen 2 shown", "  Strokes (2): strokes 2 shown", " Pen 3 (1): pen 3 shown",
                "  Areas (1): areas 3 shown", " Pen 4 (1): pen 4 shown", "  Labels (1): labels 4 shown"});
    QTest::newRow("one pen with everything, a high number")
        << QByteArray("SP12;PU0,0;PD9,9;PU;RA40,40;LBx\x03")
        << QStringList({"All pens (3): all 0 shown", " Pen 12 (3): pen 12 shown",
                        "  Strokes (1): strokes 12 shown", "  Areas (1): areas 12 shown",
                        "  Labels (1): labels 12 shown"});
    QTest::newRow("nothing drawn") << QByteArray("IN;SP1;") << QStringList("All pens (0): all 0 shown");
}

void PlotPanelTest::treeContents()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, lines);
    const PlotProgram program(file(bytes));
    QCOMPARE(treeLines(program), lines);
    QCOMPARE(program.tree().currentItem(), program.tree().topLevelItem(0));
    // Another one takes its place.
    QVERIFY(program.open(file("SP2;PU0,0;PD9,9;")));
    QCOMPARE(treeLines(program), QStringList({"All pens (1): all 0 shown", " Pen 2 (1): pen 2 shown",
                                              "  Strokes (1): strokes 2 shown"}));
}

void PlotPanelTest::treeOfNoPlot()
{
    CPlotViewApp app;
    app.SetUnattended();
    QVERIFY(app.InitInstance({L"missing.hpgl"}));
    const PlotMainForm &form = *app.GetMainWindow()->GetForm();
    QCOMPARE(form.layers()->topLevelItemCount(), 0);
    QCOMPARE(static_cast<QTableWidget *>(form.controls().at(IDC_MARKS))->rowCount(), 0);
    QVERIFY(!form.commands().at(ID_LAYER_TOGGLE)->isEnabled());
    app.ExitInstance();
}

void PlotPanelTest::checkMarks_data()
{
    QTest::addColumn<Step>("step");
    QTest::addColumn<QStringList>("hidden");
    QTest::addColumn<QString>("inks");

    const auto click = [](const char *path) {
        return [path](PlotProgram &p) { p.clickLayer(p.layer(QLatin1String(path)), true); };
    };
    const QString pen1 = QStringLiteral("Pen 1 (2)");
    QTest::newRow("a pen's mark") << Step(click("Pen 1 (2)")) << QStringList(pen1) << "23";
    QTest::newRow("a pen's mark twice") << Step([click](PlotProgram &p) {
        click("Pen 1 (2)")(p);
        click("Pen 1 (2)")(p);
    }) << QStringList() << "123";
    QTest::newRow("the strokes of a pen")
        << Step(click("Pen 2 (2)/Strokes (2)")) << QStringList("Pen 2 (2)/Strokes (2)") << "13";
    QTest::newRow("the areas of a pen")
        << Step(click("Pen 3 (1)/Areas (1)")) << QStringList("Pen 3 (1)/Areas (1)") << "12";
    QTest::newRow("all") << Step(click("")) << QStringList("") << "";
    QTest::newRow("a pen, then all and all again: the pen stays hidden") << Step([click](PlotProgram &p) {
        click("Pen 1 (2)")(p);
        click("")(p);
        click("")(p);
    }) << QStringList(pen1) << "23";
    QTest::newRow("a pen's text changes nothing")
        << Step([](PlotProgram &p) { p.clickLayer(p.layer(QStringLiteral("Pen 1 (2)")), false); })
        << QStringList() << "123";
    QTest::newRow("the right button on a mark changes nothing") << Step([](PlotProgram &p) {
        const QRect row = p.tree().visualItemRect(p.layer(QString()));
        QTest::mouseClick(p.tree().viewport(), Qt::RightButton, {},
                          QPoint(row.left() + 10, row.center().y()));
    }) << QStringList() << "123";
    QTest::newRow("Space") << Step([](PlotProgram &p) {
        p.clickLayer(p.layer(QStringLiteral("Pen 1 (2)")), false);
        QTest::keyClick(&p.tree(), Qt::Key_Space);
    }) << QStringList(pen1) << "23";
    QTest::newRow("Return changes nothing") << Step([](PlotProgram &p) {
        p.clickLayer(p.layer(QStringLiteral("Pen 1 (2)")), false);
        QTest::keyClick(&p.tree(), Qt::Key_Return);
    }) << QStringList() << "123";
    QTest::newRow("the command") << Step([](PlotProgram &p) {
        p.clickLayer(p.layer(QStringLiteral("Pen 1 (2)")), false);
        p.command(ID_LAYER_TOGGLE)->trigger();
    }) << QStringList(pen1) << "23";
    QTest::newRow("the command to show all") << Step([click](PlotProgram &p) {
        click("Pen 1 (2)")(p);
        click("Pen 2 (2)/Strokes (2)")(p);
        click("")(p);
        p.command(ID_LAYER_SHOW_ALL)->trigger();
    }) << QStringList() << "123";
}

void PlotPanelTest::checkMarks()
{
    QFETCH(Step, step);
    QFETCH(QStringList, hidden);
    QFETCH(QString, inks);
    PlotProgram program(file(SmallPlot));
    QCOMPARE(::inks(program.picture()), QStringLiteral("123"));
    step(program);
    QStringList found;
    for (const char *path : {"", "Pen 1 (2)", "Pen 1 (2)/Strokes (2)", "Pen 2 (2)", "Pen 2 (2)/Strokes (2)",
                             "Pen 3 (1)", "Pen 3 (1)/Areas (1)", "Pen 4 (1)", "Pen 4 (1)/Labels (1)"}) {
        if (!isVisible(program.layer(QLatin1String(path))))
            found.append(QLatin1String(path));
    }
    QCOMPARE(found, hidden);
    QCOMPARE(::inks(program.picture()), inks);
}

void PlotPanelTest::hiddenLabels()
{
    const PlotProgram program(file(SmallPlot));
    const QImage before = program.picture();
    QTreeWidgetItem *labels = program.layer(QStringLiteral("Pen 4 (1)/Labels (1)"));
    program.clickLayer(labels, true);
    QVERIFY(program.picture() != before);
    QCOMPARE(inks(program.picture()), QStringLiteral("123"));
    program.clickLayer(labels, true);
    QCOMPARE(program.picture(), before);
}

void PlotPanelTest::anotherPlotShowsAll()
{
    const PlotProgram program(file(SmallPlot));
    const QImage before = program.picture();
    program.clickLayer(program.layer(QString()), true);
    QCOMPARE(inks(program.picture()), QString());
    QVERIFY(program.open(file(SmallPlot)));
    QVERIFY(isVisible(program.layer(QString())));
    QCOMPARE(program.picture(), before);
}

void PlotPanelTest::penIconsHaveTheirInk()
{
    const PlotProgram program(file(SmallPlot));
    for (int pen = 1; pen <= 3; ++pen) {
        const QImage icon = program.tree().penIcon(pen).pixmap(program.tree().iconSize()).toImage();
        QCOMPARE(icon.pixel(icon.width() / 2, icon.height() / 2), Inks[pen - 1]);
    }
    QVERIFY(program.tree().penIcon(9).isNull());
}

void PlotPanelTest::listFollowsTheTree_data()
{
    QTest::addColumn<QString>("layer");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QStringList>("rows");

    const QStringList strokes1 = {"1|Line|1|2|100.0", "2|Polyline|1|3|110.0"};
    const QStringList strokes2 = {"3|Line|2|2|100.0", "4|Dot|2|1|0.0"};
    const QStringList areas3 = {"1|Area|3|5|80.0"};
    const QStringList labels4 = {"1|Label|4|1|"};
    QTest::newRow("all") << ""
                         << "All pens: 6" << strokes1 + strokes2 + areas3 + labels4;
    QTest::newRow("a pen") << "Pen 1 (2)"
                           << "Pen 1: 2" << strokes1;
    QTest::newRow("a pen's strokes") << "Pen 2 (2)/Strokes (2)"
                                     << "Pen 2, strokes: 2" << strokes2;
    QTest::newRow("a pen's areas") << "Pen 3 (1)/Areas (1)"
                                   << "Pen 3, areas: 1" << areas3;
    QTest::newRow("a pen's labels") << "Pen 4 (1)/Labels (1)"
                                    << "Pen 4, labels: 1" << labels4;
}

void PlotPanelTest::listFollowsTheTree()
{
    QFETCH(QString, layer);
    QFETCH(QString, title);
    QFETCH(QStringList, rows);
    const PlotProgram program(file(SmallPlot));
    program.clickLayer(program.layer(QStringLiteral("Pen 3 (1)")), false);
    program.clickLayer(program.layer(layer), false);
    QCOMPARE(program.text(IDC_MARKS_TITLE), title);
    QCOMPARE(program.listRows(), rows);
}

void PlotPanelTest::columns()
{
    const PlotProgram program(file(SmallPlot));
    QStringList headings;
    for (int i = 0; i < program.list().columnCount(); ++i)
        headings.append(program.list().horizontalHeaderItem(i)->text());
    QCOMPARE(headings, QStringList({"No.", "Kind", "Pen", "Points", "Length (mm)"}));
    QCOMPARE(program.list().editTriggers(), QAbstractItemView::NoEditTriggers);
}

void PlotPanelTest::itemDataTellTheMark()
{
    const PlotProgram program(file(SmallPlot));
    const PlotMarks expected = {{PlotLayer::Strokes, 0}, {PlotLayer::Strokes, 1}, {PlotLayer::Strokes, 2},
                                {PlotLayer::Strokes, 3}, {PlotLayer::Areas, 0},   {PlotLayer::Labels, 0}};
    const auto *list = static_cast<CListCtrl *>(program.window().GetDlgItem(IDC_MARKS));
    QCOMPARE(list->GetItemCount(), 6);
    for (int row = 0; row < 6; ++row)
        QVERIFY(PlotMark::fromItemData(list->GetItemData(row)) == expected[static_cast<std::size_t>(row)]);
}

void PlotPanelTest::selectionStandsOut_data()
{
    QTest::addColumn<Step>("step");
    QTest::addColumn<QString>("inks");

    QTest::newRow("a row") << Step([](PlotProgram &p) { clickRow(p, 0); }) << "1";
    QTest::newRow("another row") << Step([](PlotProgram &p) {
        clickRow(p, 0);
        clickRow(p, 2);
    }) << "2";
    QTest::newRow("an area") << Step([](PlotProgram &p) { clickRow(p, 4); }) << "3";
    QTest::newRow("two rows apart") << Step([](PlotProgram &p) {
        clickRow(p, 0);
        clickRow(p, 4, Qt::ControlModifier);
    }) << "13";
    QTest::newRow("three rows, one of them taken back") << Step([](PlotProgram &p) {
        clickRow(p, 0);
        clickRow(p, 4, Qt::ShiftModifier);
        clickRow(p, 2, Qt::ControlModifier);
        clickRow(p, 3, Qt::ControlModifier);
    }) << "13";
    QTest::newRow("all, by keys") << Step([](PlotProgram &p) {
        QTest::keyClick(&p.list(), Qt::Key_A, Qt::ControlModifier);
    }) << "123";
    QTest::newRow("down, by keys") << Step([](PlotProgram &p) {
        clickRow(p, 3);
        QTest::keyClick(&p.list(), Qt::Key_Down);
    }) << "3";
}

void PlotPanelTest::selectionStandsOut()
{
    QFETCH(Step, step);
    QFETCH(QString, inks);
    PlotProgram program(file(SmallPlot));
    const QImage before = program.picture();
    step(program);
    QVERIFY(program.picture() != before);
    QCOMPARE(::inks(program.picture()), inks);
    program.list().clearSelection();
    QCOMPARE(program.picture(), before);
}

void PlotPanelTest::selectionEndsWithTheLayer()
{
    const PlotProgram program(file(SmallPlot));
    const QImage before = program.picture();
    clickRow(program, 0);
    program.clickLayer(program.layer(QStringLiteral("Pen 2 (2)")), false);
    QCOMPARE(program.picture(), before);
    clickRow(program, 0);
    QCOMPARE(inks(program.picture()), QStringLiteral("2"));
    QVERIFY(program.open(file(SmallPlot)));
    QCOMPARE(program.picture(), before);
}

// More than a hundred rows are gathered in another way than a few; the drawing tells none from the other.
void PlotPanelTest::manySelected()
{
    const QByteArray more = QByteArray("SP2;PU0,5000;PD4000,5000;PU;").repeated(200);
    const PlotProgram program(file(SmallPlot + more));
    program.list().selectAll();
    QCOMPARE(inks(program.picture()), QStringLiteral("123"));
    clickRow(program, 1);
    program.list().scrollToBottom();
    program.list().setRangeSelected(QTableWidgetSelectionRange(4, 0, 203, 4), true);
    QCOMPARE(inks(program.picture()), QStringLiteral("12"));
}

void PlotPanelTest::largePlot()
{
    const PlotProgram program(file("SP1;" + QByteArray("PU0,0;PD90,90;").repeated(100000)));
    QCOMPARE(program.text(IDC_STATUS_STROKES), QStringLiteral("Strokes: 100000"));
    QCOMPARE(program.text(IDC_MARKS_TITLE), QStringLiteral("All pens: the first 2000 of 100000"));
    QCOMPARE(program.list().rowCount(), 2000);
    QCOMPARE(program.listRow(1999), QStringLiteral("2000|Line|1|2|3.2"));
    program.list().selectAll();
    QCOMPARE(program.list().selectionModel()->selectedRows().size(), 2000);
    program.clickLayer(program.layer(QStringLiteral("Pen 1 (100000)")), false);
    QCOMPARE(program.text(IDC_MARKS_TITLE), QStringLiteral("Pen 1: the first 2000 of 100000"));
    QVERIFY(program.list().selectedItems().isEmpty());
}

KX_TEST_MAIN(PlotPanelTest)

#include "tst_plot_panel.moc"
