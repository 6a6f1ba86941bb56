// SPDX-License-Identifier: MIT
// Episodes of drawing and the state in them: pens, brushes, background, composition, the turned origin.

#include "support/KxPainterStage.h"
#include "support/KxTestCase.h"

#include <memory>

Q_DECLARE_METATYPE(QPen)

class tst_Painter : public KxTestCase
{
    Q_OBJECT

private slots:
    void construction();
    void changingTheDevice();
    void withoutDevice();
    void episodeDefaults();
    void beginSavesBeforeTheDefaults();
    void nestedSave();
    void unbalancedSave();
    void endWithoutBegin();
    void refusedDevice();
    void beginTwice();
    void destructionWhileDrawing();
    void stateIsLostAtTheEnd_data();
    void stateIsLostAtTheEnd();
    void deviceChangedWhileDrawing();
    void inactivePainter_data();
    void inactivePainter();

    void penStyle_data();
    void penStyle();
    void penOfStyle_data();
    void penOfStyle();
    void penWidth_data();
    void penWidth();
    void penDashes();
    void colours_data();
    void colours();
    void penColourAlone_data();
    void penColourAlone();
    void brushOfStyle_data();
    void brushOfStyle();
    void invalidBrushStyle();
    void brushes();

    void backgroundMode();
    void compositionThatIsNone_data();
    void compositionThatIsNone();
    void composition_data();
    void composition();
    void rotation();

    void picture_data();
    void picture();
};

// ---- episodes ---------------------------------------------------------------------------------------------

void tst_Painter::construction()
{
    const KxPainterFields bare;
    QVERIFY(!bare.wrappedDevice());
    QVERIFY(!bare.inPath);
    QVERIFY(bare.wrappedPainter());
    QVERIFY(!bare.wrappedPainter()->isActive());
    QVERIFY(bare.path);
    QCOMPARE(bare.path->elementCount(), 0);
    QVERIFY(bare.clipRegion);
    QVERIFY(bare.clipRegion->isEmpty());

    QImage image = kxCanvas();
    const KxPainterFields onImage(&image);
    QCOMPARE(onImage.wrappedDevice(), static_cast<QPaintDevice *>(&image));
    QVERIFY(!onImage.inPath);
    QVERIFY(onImage.wrappedPainter());
    QVERIFY(!onImage.wrappedPainter()->isActive());
    QVERIFY(!image.paintingActive());
    QCOMPARE(onImage.path->elementCount(), 0);
    QVERIFY(onImage.clipRegion->isEmpty());

    const KxQtPainterWrapper onNothing(nullptr);
    QVERIFY(!onNothing.wrappedDevice());
    QVERIFY(onNothing.wrappedPainter() != bare.wrappedPainter());
}

void tst_Painter::changingTheDevice()
{
    QImage first = kxCanvas();
    QImage second = kxCanvas();
    KxQtPainterWrapper wrapper;
    const QPainter *painter = wrapper.wrappedPainter();
    for (QImage *image : {&first, &second}) {
        wrapper.setWrappedDevice(image);
        QCOMPARE(wrapper.wrappedDevice(), static_cast<QPaintDevice *>(image));
        QVERIFY(!wrapper.wrappedPainter()->isActive());
        QVERIFY(wrapper.beginDraw());
        QCOMPARE(wrapper.wrappedPainter()->device(), static_cast<QPaintDevice *>(image));
        wrapper.fillRect(CRect(0, 0, 5, 4), RGB(1, 2, 3));
        QVERIFY(wrapper.endDraw());
        QCOMPARE(kxTouched(*image), 20);
    }
    QCOMPARE(wrapper.wrappedPainter(), painter);
    QCOMPARE(first, second);
    wrapper.setWrappedDevice(nullptr);
    QVERIFY(!wrapper.wrappedDevice());
    QVERIFY(!wrapper.beginDraw());
}

void tst_Painter::withoutDevice()
{
    KxQtPainterWrapper wrapper;
    QVERIFY(!wrapper.beginDraw());
    QVERIFY(!wrapper.wrappedPainter()->isActive());
    QVERIFY(!wrapper.endDraw());
    QVERIFY(!wrapper.wrappedPainter()->isActive());
}

void tst_Painter::episodeDefaults()
{
    QImage image = kxCanvas();
    KxQtPainterWrapper wrapper(&image);
    const QPainter &painter = *wrapper.wrappedPainter();
    QVERIFY(wrapper.beginDraw());
    QVERIFY(painter.isActive());
    QCOMPARE(painter.pen().style(), Qt::SolidLine);
    QCOMPARE(painter.pen().color(), QColor(0, 0, 0, 255));
    QCOMPARE(painter.pen().width(), 0);
    QVERIFY(painter.pen().isCosmetic());
    QCOMPARE(painter.brush().style(), Qt::SolidPattern);
    QCOMPARE(painter.brush().color(), QColor(0, 0, 0, 255));
    QVERIFY(!painter.hasClipping());
    QCOMPARE(wrapper.getROP2(), 0);
    QVERIFY(wrapper.endDraw());
    QVERIFY(!painter.isActive());
    QVERIFY(!image.paintingActive());
}

void tst_Painter::beginSavesBeforeTheDefaults()
{
    QImage image = kxCanvas();
    QImage untouched = kxCanvas();
    const QPainter fresh(&untouched);
    KxQtPainterWrapper wrapper(&image);
    POINT corners[] = {{2, 2}, {9, 2}, {9, 9}, {2, 9}};
    unsigned int count = 4;
    wrapper.setClipRegion(corners, &count, 1);
    QVERIFY(wrapper.beginDraw());
    wrapper.restore();
    const QPainter &painter = *wrapper.wrappedPainter();
    QVERIFY(painter.isActive());
    QCOMPARE(painter.pen(), fresh.pen());
    QCOMPARE(painter.brush(), QBrush(Qt::NoBrush));
    QVERIFY(!painter.hasClipping());
    expectWarning(QStringLiteral("^QPainter::restore: Unbalanced save/restore$"));
    QVERIFY(wrapper.endDraw());
}

void tst_Painter::nestedSave()
{
    QImage image = kxCanvas();
    KxQtPainterWrapper wrapper(&image);
    QVERIFY(wrapper.beginDraw());
    wrapper.setPen(PS_SOLID, 3, RGB(255, 0, 0));
    wrapper.setBrush(RGB(0, 255, 0));
    const QPen pen = wrapper.wrappedPainter()->pen();
    const QBrush brush = wrapper.wrappedPainter()->brush();
    wrapper.save();
    QCOMPARE(wrapper.wrappedPainter()->pen(), pen); // saving changes nothing
    wrapper.setPen(PS_DOT, 1, RGB(0, 0, 255));
    wrapper.setBrush(0);
    wrapper.setROP2(26);
    wrapper.Rotate(30, 5, 5);
    wrapper.restore();
    QCOMPARE(wrapper.wrappedPainter()->pen(), pen);
    QCOMPARE(wrapper.wrappedPainter()->brush(), brush);
    QCOMPARE(wrapper.getROP2(), 0);
    QVERIFY(wrapper.wrappedPainter()->transform().isIdentity());
    QVERIFY(wrapper.endDraw());
}

void tst_Painter::unbalancedSave()
{
    QImage image = kxCanvas();
    KxQtPainterWrapper wrapper(&image);
    QVERIFY(wrapper.beginDraw());
    wrapper.save();
    expectWarning(QStringLiteral("^QPainter::end: Painter ended with 2 saved states$"));
    QVERIFY(wrapper.endDraw());
    QVERIFY(!image.paintingActive());
}

void tst_Painter::endWithoutBegin()
{
    QImage image = kxCanvas();
    KxQtPainterWrapper wrapper(&image);
    QPainter bare;
    bool ended = true;
    const QStringList expected = kxMessagesOf([&bare] {
        bare.restore();
        bare.end();
    });
    QCOMPARE(expected.size(), 2);
    QCOMPARE(kxMessagesOf([&wrapper, &ended] { ended = wrapper.endDraw(); }), expected);
    QVERIFY(!ended);
}

void tst_Painter::refusedDevice()
{
    QImage nothing; // has no paint engine
    KxQtPainterWrapper wrapper(&nothing);
    bool begun = false;
    bool ended = true;
    const QStringList messages = kxMessagesOf([&] {
        begun = wrapper.beginDraw();
        ended = wrapper.endDraw();
    });
    QVERIFY2(begun, "what QPainter::begin() says is ignored");
    QVERIFY2(!ended, "what QPainter::end() says is returned");
    QVERIFY(messages.first().startsWith(QLatin1String("QPainter::begin: Paint device returned engine == 0")));
    QVERIFY(!wrapper.wrappedPainter()->isActive());
}

void tst_Painter::beginTwice()
{
    QImage image = kxCanvas();
    KxQtPainterWrapper wrapper(&image);
    QVERIFY(wrapper.beginDraw());
    wrapper.setBrush(RGB(1, 2, 3));
    expectWarning(QStringLiteral("^QPainter::begin: (Painter already active|A paint device can only be)"));
    QVERIFY(wrapper.beginDraw());
    QCOMPARE(wrapper.wrappedPainter()->brush(), QBrush(QColor(0, 0, 0)));
    expectWarning(QStringLiteral("^QPainter::end: Painter ended with 2 saved states$"));
    QVERIFY(wrapper.endDraw());
}

void tst_Painter::destructionWhileDrawing()
{
    QImage image = kxCanvas();
    auto wrapper = std::make_unique<KxQtPainterWrapper>(&image);
    QVERIFY(wrapper->beginDraw());
    QVERIFY(image.paintingActive());
    expectWarning(QStringLiteral("^QPainter::end: Painter ended with 2 saved states$"));
    wrapper.reset();
    QVERIFY(!image.paintingActive());
}

void tst_Painter::stateIsLostAtTheEnd_data()
{
    QTest::addColumn<KxDraw>("change");
    QTest::newRow("pen") << KxDraw([](KxQtPainterWrapper &p) { p.setPen(PS_DASH, 5, RGB(255, 0, 0)); });
    QTest::newRow("colour of the pen")
        << KxDraw([](KxQtPainterWrapper &p) { p.setPenColor(RGB(255, 0, 0)); });
    QTest::newRow("brush of a colour") << KxDraw([](KxQtPainterWrapper &p) { p.setBrush(RGB(255, 0, 0)); });
    QTest::newRow("brush of a style") << KxDraw([](KxQtPainterWrapper &p) { p.setBrush(0); });
    QTest::newRow("brush of a translucent rectangle")
        << KxDraw([](KxQtPainterWrapper &p) { p.drawAlphaRect(CRect(40, 30, 41, 31), RGB(255, 0, 0), 9); });
    QTest::newRow("font") << KxDraw([](KxQtPainterWrapper &p) {
        LOGFONTW font = {};
        font.lfHeight = 20;
        font.lfWeight = 700;
        p.setFontIndirect(&font);
    });
    QTest::newRow("background mode") << KxDraw([](KxQtPainterWrapper &p) { p.setBkMode(OPAQUE); });
    QTest::newRow("background") << KxDraw([](KxQtPainterWrapper &p) { p.setBackground(RGB(255, 0, 0)); });
    QTest::newRow("composition mode") << KxDraw([](KxQtPainterWrapper &p) { p.setROP2(26); });
    QTest::newRow("origin and angle") << KxDraw([](KxQtPainterWrapper &p) { p.Rotate(30, 5, 5); });
    QTest::newRow("antialiasing that filling a path turned on") << KxDraw([](KxQtPainterWrapper &p) {
        p.fillPath();
        if (!p.wrappedPainter()->testRenderHint(QPainter::Antialiasing))
            QFAIL("not turned on");
    });
}

void tst_Painter::stateIsLostAtTheEnd()
{
    QFETCH(KxDraw, change);
    QImage image = kxCanvas();
    QImage other = kxCanvas();
    KxQtPainterWrapper wrapper(&image);
    QVERIFY(wrapper.beginDraw());
    change(wrapper);
    QVERIFY(wrapper.endDraw());
    QVERIFY(wrapper.beginDraw());
    QPainter fresh;
    kxOpen(fresh, other);
    const QPainter &painter = *wrapper.wrappedPainter();
    QCOMPARE(painter.pen(), fresh.pen());
    QCOMPARE(painter.brush(), fresh.brush());
    QCOMPARE(painter.font(), fresh.font());
    QCOMPARE(painter.backgroundMode(), Qt::TransparentMode);
    QCOMPARE(painter.background(), fresh.background());
    QCOMPARE(painter.compositionMode(), QPainter::CompositionMode_SourceOver);
    QVERIFY(painter.transform().isIdentity());
    QCOMPARE(painter.renderHints(), fresh.renderHints());
    fresh.restore();
    QVERIFY(wrapper.endDraw());
}

void tst_Painter::deviceChangedWhileDrawing()
{
    QImage first = kxCanvas();
    QImage second = kxCanvas();
    KxQtPainterWrapper wrapper(&first);
    QVERIFY(wrapper.beginDraw());
    wrapper.setWrappedDevice(&second);
    wrapper.fillRect(CRect(0, 0, 3, 3), RGB(1, 2, 3));
    wrapper.setWrappedDevice(nullptr);
    QVERIFY(!wrapper.endDraw());
    QVERIFY(wrapper.wrappedPainter()->isActive());
    wrapper.fillRect(CRect(10, 10, 13, 13), RGB(1, 2, 3));
    wrapper.setWrappedDevice(&second);
    QVERIFY(wrapper.endDraw());
    QVERIFY(!first.paintingActive());
    QCOMPARE(kxTouched(first), 18);
    QCOMPARE(kxTouched(second), 0);
}

void tst_Painter::inactivePainter_data()
{
    QTest::addColumn<KxDraw>("call");
    QTest::addColumn<KxModel>("model");
    const auto row = [](const char *name, const KxDraw &call, const KxModel &model) {
        QTest::newRow(name) << call << model;
    };
    row("save", [](KxQtPainterWrapper &p) { p.save(); }, [](QPainter &p) { p.save(); });
    row("restore", [](KxQtPainterWrapper &p) { p.restore(); }, [](QPainter &p) { p.restore(); });
    row("setROP2", [](KxQtPainterWrapper &p) { p.setROP2(26); },
        [](QPainter &p) { p.setCompositionMode(QPainter::RasterOp_SourceXorDestination); });
    row("getROP2", [](KxQtPainterWrapper &p) { p.getROP2(); }, [](QPainter &p) { p.compositionMode(); });
    row("setPen", [](KxQtPainterWrapper &p) { p.setPen(PS_DASH, 1, 0); },
        [](QPainter &p) { p.setPen(QPen(Qt::black)); });
    row("setPenColor", [](KxQtPainterWrapper &p) { p.setPenColor(0); },
        [](QPainter &p) { p.setPen(QPen(p.pen())); });
    row("setBrush of a brush", [](KxQtPainterWrapper &p) { p.setBrush(QBrush(Qt::red)); },
        [](QPainter &p) { p.setBrush(QBrush(Qt::red)); });
    row("setBrush of a style", [](KxQtPainterWrapper &p) { p.setBrush(3); },
        [](QPainter &p) { p.setBrush(Qt::Dense2Pattern); });
    row("setBrush of a colour", [](KxQtPainterWrapper &p) { p.setBrush(3U); },
        [](QPainter &p) { p.setBrush(QBrush(QColor(3, 0, 0))); });
    row("setBkMode", [](KxQtPainterWrapper &p) { p.setBkMode(OPAQUE); },
        [](QPainter &p) { p.setBackgroundMode(Qt::OpaqueMode); });
    row("setBackground", [](KxQtPainterWrapper &p) { p.setBackground(0U); },
        [](QPainter &p) { p.setBackground(QBrush(Qt::black)); });
    row("setFontIndirect",
        [](KxQtPainterWrapper &p) {
            LOGFONTW font = {};
            font.lfHeight = 20;
            p.setFontIndirect(&font);
        },
        [](QPainter &p) { p.setFont(QFont()); });
    row("Rotate", [](KxQtPainterWrapper &p) { p.Rotate(30, 1, 1); },
        [](QPainter &p) {
            p.translate(1, 1);
            p.rotate(30);
        });
    row("drawPoint", [](KxQtPainterWrapper &p) { p.drawPoint(1, 1); },
        [](QPainter &p) { p.drawPoint(1, 1); });
    row("drawLine", [](KxQtPainterWrapper &p) { p.drawLine(1, 1, 2, 2); },
        [](QPainter &p) { p.drawLine(1, 1, 2, 2); });
    row("drawText", [](KxQtPainterWrapper &p) { p.drawText(1, 1, L"text", -1); },
        [](QPainter &p) { p.drawText(1, 1, QStringLiteral("text")); });
    row("fillRect", [](KxQtPainterWrapper &p) { p.fillRect(CRect(0, 0, 9, 9), 0U); },
        [](QPainter &p) { p.fillRect(0, 0, 9, 9, QColor(Qt::black)); });
    row("drawPolygon",
        [](KxQtPainterWrapper &p) {
            const POINT points[] = {{1, 1}, {9, 1}, {9, 9}};
            p.drawPolygon(points, 3);
        },
        [](QPainter &p) {
            const QPoint points[] = {{1, 1}, {9, 1}, {9, 9}};
            p.drawPolygon(points, 3);
        });
    row("drawPolyline, open",
        [](KxQtPainterWrapper &p) {
            const POINT points[] = {{1, 1}, {9, 1}, {9, 9}};
            p.drawPolyline(points, 3);
        },
        [](QPainter &p) {
            const QPoint points[] = {{1, 1}, {9, 1}, {9, 9}};
            p.drawPolyline(points, 3);
        });
    row("drawPolyline, closed: the composition mode is asked for",
        [](KxQtPainterWrapper &p) {
            const POINT points[] = {{1, 1}, {9, 1}, {9, 9}, {1, 1}};
            p.drawPolyline(points, 4);
        },
        [](QPainter &p) {
            const QPoint points[] = {{1, 1}, {9, 1}, {9, 9}, {1, 1}};
            p.compositionMode();
            p.drawPolyline(points, 4);
        });
    row("drawAlphaRect", [](KxQtPainterWrapper &p) { p.drawAlphaRect(CRect(1, 1, 9, 9), 0U, 90); },
        [](QPainter &p) {
            p.setBrush(QColor(0, 0, 0, 90));
            p.drawRect(QRect(QPoint(1, 1), QPoint(9, 9)));
        });
    row("drawAlphaArea",
        [](KxQtPainterWrapper &p) {
            const CPoint points[] = {CPoint(1, 1), CPoint(9, 1), CPoint(9, 9)};
            p.drawAlphaArea(points, 3, 0U, 90);
        },
        [](QPainter &p) {
            const QPoint points[] = {{1, 1}, {9, 1}, {9, 9}};
            p.setBrush(QColor(0, 0, 0, 90));
            p.drawPolygon(points, 3);
        });
    row("drawImage of an image", [](KxQtPainterWrapper &p) { p.drawImage(QRect(0, 0, 4, 4), kxCanvas()); },
        [](QPainter &p) { p.drawImage(QRect(0, 0, 4, 4), kxCanvas()); });
    row("drawImage of the caller's pixels",
        [](KxQtPainterWrapper &p) {
            unsigned char bits[2 * 2 * 4] = {};
            p.drawImage(2, 2, bits, 0, 0, QImage::Format_RGB32);
        },
        [](QPainter &p) { p.drawImage(2, 2, kxCanvas(2, 2), 0, 0, -1, -1); });
}

void tst_Painter::inactivePainter()
{
    QFETCH(KxDraw, call);
    QFETCH(KxModel, model);
    QImage image = kxCanvas();
    KxQtPainterWrapper wrapper(&image);
    QPainter bare;
    const QStringList messages = kxMessagesOf([&] { call(wrapper); });
    QCOMPARE(messages, kxMessagesOf([&] { model(bare); }));
    QCOMPARE(kxTouched(image), 0);
    QVERIFY(!wrapper.wrappedPainter()->isActive());
}

// ---- pens and brushes -------------------------------------------------------------------------------------

void tst_Painter::penStyle_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("expected");
    const char *names[16] = {"0 solid is SolidLine", "1 dash is DashLine", "2 dot is DotLine",
        "3 dash-dot is DashDotLine", "4 dash-dot-dot is DashDotDotLine", "5 null is NoPen",
        "6 inside-frame stays 6, CustomDashLine", "7 user style is CustomDashLine", "8 alternate stays 8",
        "9 stays 9", "10 stays 10", "11 stays 11", "12 stays 12", "13 stays 13", "14 stays 14",
        "15 stays 15"};
    const int expected[16] = {1, 2, 3, 4, 5, 0, 6, 6, 8, 9, 10, 11, 12, 13, 14, 15};
    for (int style = 0; style < 16; ++style) {
        QTest::newRow(names[style]) << style << expected[style];
        for (const int high : {0x10, 0x100, 0x2000, 0x10000, 0x13200, 0x7FFFFFF0, ~15}) {
            const QByteArray name = QByteArray(names[style]) + ", with the high bits "
                + QByteArray::number(static_cast<unsigned int>(high), 16);
            QTest::newRow(name.constData()) << (style | high) << expected[style];
        }
    }
}

void tst_Painter::penStyle()
{
    QFETCH(int, style);
    QFETCH(int, expected);
    QCOMPARE(int(LsToQPenStyle(style)), expected);
}

void tst_Painter::penOfStyle_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("expected");
    QTest::addColumn<QVector<qreal>>("dashes");
    const QVector<qreal> none;
    const QVector<qreal> twelveFour = {12.0, 4.0};
    struct
    {
        const char *name;
        int expected;
        QVector<qreal> dashes;
    } const styles[] = {
        {"solid", 1, none},
        {"dash: dashes of 12, gaps of 4", 6, twelveFour},
        {"dot: Qt's dots", 3, {1.0, 2.0}},
        {"dash-dot: Qt's", 4, {4.0, 2.0, 1.0, 2.0}},
        {"dash-dot-dot: Qt's", 5, {4.0, 2.0, 1.0, 2.0, 1.0, 2.0}},
        {"null: no pen", 0, none},
        {"inside-frame: dashes of 12, gaps of 4", 6, twelveFour},
        {"user style: dashes of 12, gaps of 4", 6, twelveFour},
        {"alternate", 8, none},
        {"9", 9, none},
        {"10", 10, none},
        {"11", 11, none},
        {"12", 12, none},
        {"13", 13, none},
        {"14", 14, none},
        {"15", 15, none},
    };
    int style = 0;
    for (const auto &each : styles) {
        for (const int high : {0, 0x10, 0x10200, ~15}) {
            QByteArray name = each.name;
            if (high != 0)
                name += ", without the high bits " + QByteArray::number(static_cast<unsigned int>(high), 16);
            QTest::newRow(name.constData()) << (style | high) << each.expected << each.dashes;
        }
        ++style;
    }
}

void tst_Painter::penOfStyle()
{
    QFETCH(int, style);
    QFETCH(int, expected);
    QFETCH(QVector<qreal>, dashes);
    QImage image = kxCanvas();
    KxQtPainterWrapper wrapper(&image);
    QVERIFY(wrapper.beginDraw());
    wrapper.setPen(style, 2, 0xAB0A141EU);
    const QPen pen = wrapper.wrappedPainter()->pen();
    QVERIFY(wrapper.endDraw());
    QCOMPARE(int(pen.style()), expected);
    QCOMPARE(pen.dashPattern(), dashes);
    QCOMPARE(pen.width(), 2);
    QCOMPARE(pen.color(), QColor(0x1E, 0x14, 0x0A, 255));
    const QPen plain(Qt::SolidLine);
    QCOMPARE(pen.capStyle(), plain.capStyle());
    QCOMPARE(pen.joinStyle(), plain.joinStyle());
}

void tst_Painter::penWidth_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<bool>("cosmetic");
    QTest::addColumn<int>("thickness");
    QTest::newRow("0 is one pixel") << 0 << true << 1;
    QTest::newRow("1") << 1 << false << 1;
    QTest::newRow("2") << 2 << false << 2;
    QTest::newRow("7") << 7 << false << 7;
}

void tst_Painter::penWidth()
{
    QFETCH(int, width);
    QFETCH(bool, cosmetic);
    QFETCH(int, thickness);
    QImage image = kxCanvas();
    KxQtPainterWrapper wrapper(&image);
    QVERIFY(wrapper.beginDraw());
    wrapper.setPen(PS_SOLID, width, RGB(255, 0, 0));
    QCOMPARE(wrapper.wrappedPainter()->pen().width(), width);
    QCOMPARE(wrapper.wrappedPainter()->pen().isCosmetic(), cosmetic);
    wrapper.drawLine(10, 20, 30, 20);
    QVERIFY(wrapper.endDraw());
    QCOMPARE(kxTouchedRect(image).height(), thickness);
}

void tst_Painter::penDashes()
{
    // Flat ends, so that a dash is as long as the pattern says: 12 on, 4 off, in widths of 1.
    QImage image = kxCanvas();
    KxQtPainterWrapper wrapper(&image);
    QVERIFY(wrapper.beginDraw());
    wrapper.setPen(PS_DASH, 1, RGB(255, 0, 0));
    QPen pen = wrapper.wrappedPainter()->pen();
    pen.setCapStyle(Qt::FlatCap);
    wrapper.wrappedPainter()->setPen(pen);
    wrapper.drawLine(0, 5, 47, 5);
    QVERIFY(wrapper.endDraw());
    QByteArray row;
    for (int x = 0; x < 32; ++x)
        row += image.pixel(x, 5) == 0xFFFF0000U ? '#' : '.';
    QCOMPARE(row, QByteArray("############....############...."));
}

/// A COLORREF with something in its top byte, and the colour it stands for.
void tst_Painter::colours_data()
{
    QTest::addColumn<unsigned int>("value");
    QTest::addColumn<QColor>("expected");
    QTest::newRow("red in the low byte") << 0x000000FFU << QColor(255, 0, 0, 255);
    QTest::newRow("green in the second") << 0x0000FF00U << QColor(0, 255, 0, 255);
    QTest::newRow("blue in the third") << 0x00FF0000U << QColor(0, 0, 255, 255);
    QTest::newRow("each its own") << 0x00332211U << QColor(0x11, 0x22, 0x33, 255);
    QTest::newRow("top byte 1 ignored") << 0x01332211U << QColor(0x11, 0x22, 0x33, 255);
    QTest::newRow("top byte 0x7F ignored") << 0x7F332211U << QColor(0x11, 0x22, 0x33, 255);
    QTest::newRow("top byte 0xFF ignored") << 0xFF000000U << QColor(0, 0, 0, 255);
    QTest::newRow("all bits set are white") << 0xFFFFFFFFU << QColor(255, 255, 255, 255);
}

void tst_Painter::colours()
{
    QFETCH(unsigned int, value);
    QFETCH(QColor, expected);
    QImage image = kxCanvas();
    KxQtPainterWrapper wrapper(&image);
    QVERIFY(wrapper.beginDraw());
    const QPainter &painter = *wrapper.wrappedPainter();
    wrapper.setPen(PS_SOLID, 1, value);
    QCOMPARE(painter.pen().color(), expected);
    wrapper.setPen(PS_SOLID, 1, 0x123456);
    wrapper.setPenColor(value);
    QCOMPARE(painter.pen().color(), expected);
    wrapper.setBrush(value);
    QCOMPARE(painter.brush(), QBrush(expected, Qt::SolidPattern));
    wrapper.setBackground(value);
    QCOMPARE(painter.background(), QBrush(expected, Qt::SolidPattern));
    wrapper.fillRect(CRect(0, 0, 2, 2), value);
    const CPoint triangle[] = {CPoint(0, 0), CPoint(3, 0), CPoint(3, 3)};
    QColor translucent = expected;
    translucent.setAlpha(77);
    wrapper.drawAlphaArea(triangle, 3, value, 77);
    QCOMPARE(painter.brush(), QBrush(translucent, Qt::SolidPattern));
    translucent.setAlpha(78);
    wrapper.drawAlphaRect(CRect(9, 9, 12, 12), value, 78);
    QCOMPARE(painter.brush(), QBrush(translucent, Qt::SolidPattern));
    wrapper.fillRect(CRect(20, 20, 22, 22), value);
    QVERIFY(wrapper.endDraw());
    QCOMPARE(image.pixelColor(21, 21), expected);
}

void tst_Painter::penColourAlone_data()
{
    QTest::addColumn<QPen>("pen");
    QPen custom(QBrush(QColor(1, 2, 3)), 4.5, Qt::CustomDashLine, Qt::RoundCap, Qt::MiterJoin);
    custom.setDashPattern({3.0, 2.0, 1.0, 2.0});
    custom.setDashOffset(1.5);
    custom.setMiterLimit(7);
    custom.setCosmetic(true);
    QTest::newRow("the episode's own") << QPen(QBrush(Qt::black), 0);
    QTest::newRow("wide and dotted") << QPen(QBrush(Qt::red), 3, Qt::DotLine);
    QTest::newRow("dashes, offset, caps, joins, limit") << custom;
    QTest::newRow("none") << QPen(Qt::NoPen);
    QTest::newRow("translucent becomes opaque") << QPen(QBrush(QColor(1, 2, 3, 4)), 2);
    QTest::newRow("hatched becomes solid") << QPen(QBrush(Qt::red, Qt::CrossPattern), 6);
}

void tst_Painter::penColourAlone()
{
    QFETCH(QPen, pen);
    QImage image = kxCanvas();
    KxQtPainterWrapper wrapper(&image);
    QVERIFY(wrapper.beginDraw());
    wrapper.wrappedPainter()->setPen(pen);
    wrapper.setPenColor(0xFF332211U);
    pen.setColor(QColor(0x11, 0x22, 0x33, 255));
    QCOMPARE(wrapper.wrappedPainter()->pen(), pen);
    QCOMPARE(wrapper.wrappedPainter()->pen().isCosmetic(), pen.isCosmetic());
    QVERIFY(wrapper.endDraw());
}

void tst_Painter::brushOfStyle_data()
{
    QTest::addColumn<int>("style");
    QTest::newRow("0 is NoBrush") << 0;
    QTest::newRow("1 is SolidPattern") << 1;
    for (int style = 2; style <= int(Qt::DiagCrossPattern); ++style)
        QTest::newRow(qPrintable(QStringLiteral("%1 unchanged").arg(style))) << style;
}

void tst_Painter::brushOfStyle()
{
    QFETCH(int, style);
    const auto draw = [style](KxQtPainterWrapper &p) {
        p.setBrush(RGB(200, 0, 0));
        p.setBrush(style);
        QCOMPARE(int(p.wrappedPainter()->brush().style()), style);
        QCOMPARE(p.wrappedPainter()->brush().color(), QColor(0, 0, 0, 255));
        const POINT points[] = {{2, 2}, {40, 4}, {30, 36}};
        p.drawPolygon(points, 3);
    };
    const auto model = [style](QPainter &p) {
        p.setBrush(Qt::BrushStyle(style));
        const QPoint points[] = {{2, 2}, {40, 4}, {30, 36}};
        p.drawPolygon(points, 3);
    };
    const QImage picture = kxDrawn(draw);
    QCOMPARE(picture, kxModelled(model));
    QVERIFY(kxTouched(picture) > 0);
}

void tst_Painter::invalidBrushStyle()
{
    QImage image = kxCanvas();
    KxQtPainterWrapper wrapper(&image);
    QVERIFY(wrapper.beginDraw());
    // 24 has no style of its own: Qt says so.
    expectWarning(QStringLiteral("^QBrush: Incorrect use of TexturePattern$"));
    wrapper.setBrush(int(Qt::TexturePattern));
    QCOMPARE(wrapper.wrappedPainter()->brush().style(), Qt::NoBrush);
    QVERIFY(wrapper.endDraw());
}

void tst_Painter::brushes()
{
    QImage image = kxCanvas();
    KxQtPainterWrapper wrapper(&image);
    QVERIFY(wrapper.beginDraw());
    QLinearGradient gradient(0, 0, 40, 0);
    gradient.setColorAt(0, Qt::red);
    gradient.setColorAt(1, Qt::blue);
    for (const QBrush &brush : {QBrush(gradient), QBrush(kxCanvas(3, 3)), QBrush(QColor(1, 2, 3, 4)),
             QBrush(Qt::green, Qt::CrossPattern), QBrush(Qt::NoBrush)}) {
        wrapper.setBrush(brush);
        QCOMPARE(wrapper.wrappedPainter()->brush(), brush);
    }
    // An `unsigned int` is a colour, an `int` a style.
    wrapper.setBrush(1U);
    QCOMPARE(wrapper.wrappedPainter()->brush(), QBrush(QColor(1, 0, 0)));
    wrapper.setBrush(1);
    QCOMPARE(wrapper.wrappedPainter()->brush(), QBrush(QColor(0, 0, 0)));
    wrapper.setBrush(0U);
    QCOMPARE(wrapper.wrappedPainter()->brush().style(), Qt::SolidPattern);
    QVERIFY(wrapper.endDraw());
}

// ---- background, composition, origin ----------------------------------------------------------------------

void tst_Painter::backgroundMode()
{
    QImage image = kxCanvas();
    KxQtPainterWrapper wrapper(&image);
    QVERIFY(wrapper.beginDraw());
    QCOMPARE(wrapper.wrappedPainter()->backgroundMode(), Qt::TransparentMode);
    wrapper.setBkMode(2);
    QCOMPARE(wrapper.wrappedPainter()->backgroundMode(), Qt::OpaqueMode);
    wrapper.setBkMode(1);
    QCOMPARE(wrapper.wrappedPainter()->backgroundMode(), Qt::TransparentMode);
    QVERIFY(wrapper.endDraw());
}

void tst_Painter::composition_data()
{
    QTest::addColumn<int>("mode");
    for (int mode = 0; mode <= int(QPainter::RasterOp_NotDestination); ++mode)
        QTest::newRow(qPrintable(QStringLiteral("mode %1").arg(mode))) << mode;
}

void tst_Painter::compositionThatIsNone_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("-1") << -1;
    QTest::newRow("one behind the last") << int(QPainter::RasterOp_NotDestination) + 1;
    QTest::newRow("100") << 100;
}

/// Qt draws with whatever stands there in its table.
void tst_Painter::compositionThatIsNone()
{
    QFETCH(int, mode);
    const auto draw = [](int last) {
        return kxDrawn([last](KxQtPainterWrapper &p) {
            p.setROP2(26);
            p.setROP2(last);
            QCOMPARE(p.getROP2(), 26);
            p.fillRect(CRect(3, 4, 20, 30), RGB(0x81, 0x42, 0x24));
        });
    };
    QCOMPARE(draw(mode), draw(26));
}

void tst_Painter::composition()
{
    QFETCH(int, mode);
    const auto draw = [mode](KxQtPainterWrapper &p) {
        p.setROP2(mode);
        QCOMPARE(p.getROP2(), mode);
        QCOMPARE(int(p.wrappedPainter()->compositionMode()), mode);
        p.fillRect(CRect(3, 4, 20, 30), RGB(0x81, 0x42, 0x24));
        p.drawLine(0, 0, 30, 30);
    };
    const auto model = [mode](QPainter &p) {
        p.setCompositionMode(QPainter::CompositionMode(mode));
        p.fillRect(3, 4, 17, 26, QColor(0x81, 0x42, 0x24));
        p.drawLine(0, 0, 30, 30);
    };
    QCOMPARE(kxDrawn(draw), kxModelled(model));
    // A translucent canvas tells the modes apart that an opaque one does not.
    QImage translucent(48, 40, QImage::Format_ARGB32_Premultiplied);
    translucent.fill(QColor(200, 100, 50, 128));
    QCOMPARE(kxDrawn(draw, translucent), kxModelled(model, translucent));
}

void tst_Painter::rotation()
{
    QImage image = kxCanvas();
    KxQtPainterWrapper wrapper(&image);
    QVERIFY(wrapper.beginDraw());
    wrapper.Rotate(90, 20, 10);
    wrapper.fillRect(CRect(0, 0, 6, 2), RGB(255, 0, 0)); // to the right, and so downwards
    QTransform expected;
    expected.translate(20, 10);
    expected.rotate(90);
    QCOMPARE(wrapper.wrappedPainter()->transform(), expected);
    wrapper.Rotate(-30, 3, 4); // seen from the new origin
    expected.translate(3, 4);
    expected.rotate(-30);
    QCOMPARE(wrapper.wrappedPainter()->transform(), expected);
    QVERIFY(wrapper.endDraw());
    QCOMPARE(kxTouchedRect(image), QRect(18, 10, 2, 6));
    QCOMPARE(kxTouched(image), 12);
}

void tst_Painter::picture_data()
{
    kxAddPictureColumns();
    kxAddPicture("gaps of dashes are left alone", [](KxQtPainterWrapper &p) {
        p.setPen(PS_DASH, 2, RGB(200, 0, 0));
        p.setBackground(RGB(0, 200, 0));
        p.setBkMode(TRANSPARENT);
        p.drawLine(2, 9, 44, 9);
    }, [](QPainter &p) {
        QPen pen(Qt::DashLine);
        pen.setDashPattern({12.0, 4.0});
        pen.setWidth(2);
        pen.setColor(QColor(200, 0, 0));
        p.setPen(pen);
        p.drawLine(2, 9, 44, 9);
    });
    kxAddPicture("gaps of dashes are filled in opaque mode", [](KxQtPainterWrapper &p) {
        p.setPen(PS_DASH, 2, RGB(200, 0, 0));
        p.setBackground(RGB(0, 200, 0));
        p.setBkMode(OPAQUE);
        p.drawLine(2, 9, 44, 9);
    }, [](QPainter &p) {
        QPen pen(Qt::DashLine);
        pen.setDashPattern({12.0, 4.0});
        pen.setWidth(2);
        pen.setColor(QColor(200, 0, 0));
        p.setPen(pen);
        p.setBackground(QBrush(QColor(0, 200, 0), Qt::SolidPattern));
        p.setBackgroundMode(Qt::OpaqueMode);
        p.drawLine(2, 9, 44, 9);
    });
    kxAddPicture("gaps of a hatch are filled in opaque mode", [](KxQtPainterWrapper &p) {
        p.setBrush(int(Qt::DiagCrossPattern));
        p.setBackground(RGB(0, 200, 0));
        p.setBkMode(OPAQUE);
        const POINT points[] = {{2, 2}, {40, 4}, {30, 36}};
        p.drawPolygon(points, 3);
    }, [](QPainter &p) {
        p.setBrush(QBrush(Qt::black, Qt::DiagCrossPattern));
        p.setBackground(QBrush(QColor(0, 200, 0), Qt::SolidPattern));
        p.setBackgroundMode(Qt::OpaqueMode);
        const QPoint points[] = {{2, 2}, {40, 4}, {30, 36}};
        p.drawPolygon(points, 3);
    });
    kxAddPicture("no pen draws no line", [](KxQtPainterWrapper &p) {
        p.setPen(PS_NULL, 4, RGB(200, 0, 0));
        p.drawLine(2, 9, 44, 9);
    }, [](QPainter &) {}, 0);
    kxAddPicture("inside-frame draws the dashes of 12 and 4", [](KxQtPainterWrapper &p) {
        p.setPen(PS_INSIDEFRAME, 1, RGB(200, 0, 0));
        p.drawLine(2, 9, 44, 9);
    }, [](QPainter &p) {
        QPen pen(QColor(200, 0, 0));
        pen.setDashPattern({12.0, 4.0});
        p.setPen(pen);
        p.drawLine(2, 9, 44, 9);
    });
    kxAddPicture("turned by 33.5 degrees around (20, 5)", [](KxQtPainterWrapper &p) {
        p.Rotate(33.5, 20, 5);
        p.drawLine(0, 0, 20, 0);
        p.fillRect(CRect(2, 5, 12, 11), RGB(0, 0, 200));
    }, [](QPainter &p) {
        p.translate(20, 5);
        p.rotate(33.5);
        p.drawLine(0, 0, 20, 0);
        p.fillRect(2, 5, 10, 6, QColor(0, 0, 200));
    });
    kxAddPicture("angle 0 moves the origin alone", [](KxQtPainterWrapper &p) {
        p.Rotate(0, 7, -3);
        p.drawLine(0, 10, 9, 10);
    }, [](QPainter &p) { p.drawLine(7, 7, 16, 7); }, 10);
}

void tst_Painter::picture()
{
    kxComparePictures();
}

KX_TEST_MAIN(tst_Painter)
#include "tst_painter.moc"
