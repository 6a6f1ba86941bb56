// SPDX-License-Identifier: MIT
// Fonts from records, texts on their baseline, clip regions of polygons.

#include "support/KxPainterStage.h"
#include "support/KxTestCase.h"

#include <QtGui/QFont>

#include <climits>
#include <cwchar>
#include <vector>

namespace {

using Polygons = QVector<QVector<QPoint>>;
using Membership = std::function<bool(int, int)>;

LOGFONTW fontRecord(int height, int weight, const wchar_t *face = L"")
{
    LOGFONTW record = {};
    record.lfHeight = height;
    record.lfWeight = weight;
    std::wcsncpy(record.lfFaceName, face, LF_FACESIZE);
    return record;
}

/// The font that a record gives on an image.
QFont fontOf(const LOGFONTW &record, QImage image = kxCanvas())
{
    KxQtPainterWrapper wrapper(&image);
    wrapper.beginDraw();
    wrapper.setFontIndirect(&record);
    const QFont font = wrapper.wrappedPainter()->font();
    wrapper.endDraw();
    return font;
}

/// The polygons as the arrays of one call.
void setClip(KxQtPainterWrapper &wrapper, const Polygons &polygons)
{
    std::vector<POINT> points;
    std::vector<unsigned int> counts;
    for (const QVector<QPoint> &polygon : polygons) {
        counts.push_back(static_cast<unsigned int>(polygon.size()));
        for (const QPoint &point : polygon)
            points.push_back({point.x(), point.y()});
    }
    wrapper.setClipRegion(points.data(), counts.data(), static_cast<unsigned int>(counts.size()));
}

/// Fills the whole canvas, as far as it is let.
void fillAll(KxQtPainterWrapper &wrapper)
{
    wrapper.fillRect(CRect(-100, -100, 200, 200), RGB(255, 0, 0));
}

QImage filledWhere(const Membership &inside)
{
    QImage image = kxCanvas();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (inside(x, y))
                image.setPixel(x, y, 0xFFFF0000U);
        }
    }
    return image;
}

QVector<QPoint> box(int left, int top, int right, int bottom)
{
    return {{left, top}, {right, top}, {right, bottom}, {left, bottom}};
}

bool within(int x, int y, int left, int top, int right, int bottom)
{
    return x >= left && x < right && y >= top && y < bottom;
}

bool inTheBox(int x, int y)
{
    return within(x, y, 5, 6, 15, 12);
}

} // namespace

Q_DECLARE_METATYPE(LOGFONTW)
Q_DECLARE_METATYPE(Membership)

class tst_PainterFontsAndClips : public KxTestCase
{
    Q_OBJECT

private slots:
    void pixelSize_data();
    void pixelSize();
    void extremeHeight_data();
    void extremeHeight();
    void pixelSizeWithoutPixels_data();
    void pixelSizeWithoutPixels();
    void depthOfTheWrappedDevice();
    void weight_data();
    void weight();
    void weightOutOfRange_data();
    void weightOutOfRange();
    void italic_data();
    void italic();
    void pitch_data();
    void pitch();
    void family_data();
    void family();
    void fullFaceName();
    void ignoredField_data();
    void ignoredField();
    void fieldsDoNotStay();

    void text_data();
    void text();
    void textStandsOnItsBaseline();
    void textTakesColourAndFont();

    void clip_data();
    void clip();
    void clearedClip_data();
    void clearedClip();
    void clipAtOnceReplacesTheEarlier();
    void clipSurvivesEpisodes();
    void clipOfAnInactivePainter();
    void clipFollowsTheOrigin();
    void clipHoldsForEveryFigure();
    void callersArraysStay();
};

// ---- fonts ------------------------------------------------------------------------------------------------

void tst_PainterFontsAndClips::pixelSize_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("weight");
    QTest::addColumn<int>("expected");
    const int deep = QImage::Format_RGB32;
    QTest::newRow("height 36 of 32 bits: 32") << deep << 36 << 400 << 32;
    QTest::newRow("height 12 of 32 bits: 10.67 is 10") << deep << 12 << 400 << 10;
    QTest::newRow("height 9 of 32 bits: exactly 8") << deep << 9 << 400 << 8;
    QTest::newRow("height 2 of 32 bits: 1.78 is 1") << deep << 2 << 400 << 1;
    QTest::newRow("height 1000 of 32 bits: 888") << deep << 1000 << 400 << 888;
    QTest::newRow("height 0: the weight 400 gives 355") << deep << 0 << 400 << 355;
    QTest::newRow("height -12: the weight 400 gives 355") << deep << -12 << 400 << 355;
    QTest::newRow("height -1: the weight 700 gives 622") << deep << -1 << 700 << 622;
    QTest::newRow("height -12: the weight 9 gives 8") << deep << -12 << 9 << 8;
    QTest::newRow("height 12 of 16 bits: 5.33 is 5") << int(QImage::Format_RGB16) << 12 << 400 << 5;
    QTest::newRow("height 0 of 16 bits: 177") << int(QImage::Format_RGB16) << 0 << 400 << 177;
    QTest::newRow("height 12 of 24 bits: exactly 8") << int(QImage::Format_RGB888) << 12 << 400 << 8;
    QTest::newRow("height 20 of 8 bits: 4.44 is 4") << int(QImage::Format_Grayscale8) << 20 << 400 << 4;
    QTest::newRow("height 40 of 1 bit: 1.11 is 1") << int(QImage::Format_Mono) << 40 << 400 << 1;
    QTest::newRow("height 12 of 64 bits: 21.33 is 21") << int(QImage::Format_RGBA64) << 12 << 400 << 21;
}

void tst_PainterFontsAndClips::pixelSize()
{
    QFETCH(int, format);
    QFETCH(int, height);
    QFETCH(int, weight);
    QFETCH(int, expected);
    const QImage image = kxCanvas(8, 8, QImage::Format(format));
    const QFont font = fontOf(fontRecord(height, weight), image);
    QCOMPARE(font.pixelSize(), expected);
    QCOMPARE(font.weight(), weight / 10);
}

void tst_PainterFontsAndClips::extremeHeight_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("expected");
    const int deep = QImage::Format_RGB32;
    const int of24Bits = QImage::Format_RGB888;
    const int of64Bits = QImage::Format_RGBA64;
    QTest::newRow("2^26 of 32 bits, a product of 2^31: 59652323") << deep << (1 << 26) << 59652323;
    QTest::newRow("the largest of 32 bits: 1908874352.9") << deep << INT_MAX << 1908874352;
    QTest::newRow("the largest of 24 bits: 1431655764.7") << of24Bits << INT_MAX << 1431655764;
    QTest::newRow("the most negative of 32 bits: the weight 400") << deep << INT_MIN << 355;
    QTest::newRow("the largest of 64 bits: the largest number") << of64Bits << INT_MAX << INT_MAX;
}

/// Of a product that does not fit into an int.
void tst_PainterFontsAndClips::extremeHeight()
{
    QFETCH(int, format);
    QFETCH(int, height);
    QFETCH(int, expected);
    const QImage image = kxCanvas(8, 8, QImage::Format(format));
    const QFont font = fontOf(fontRecord(height, 400, L"DejaVu Sans"), image);
    QCOMPARE(font.pixelSize(), expected);
    QCOMPARE(font.weight(), 40);
    QCOMPARE(font.family(), QStringLiteral("DejaVu Sans"));
}

void tst_PainterFontsAndClips::pixelSizeWithoutPixels_data()
{
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("weight");
    QTest::addColumn<int>("asked");
    QTest::newRow("height 1 of 32 bits: 0.89 is 0") << 1 << 400 << 0;
    QTest::newRow("no height and no weight") << 0 << 0 << 0;
    QTest::newRow("height -12 and no weight") << -12 << 0 << 0;
    QTest::newRow("height 0 and the weight -9: -8, no fraction") << 0 << -9 << -8;
    QTest::newRow("height -12 and the weight -8: -7.1 is -7") << -12 << -8 << -7;
    QTest::newRow("the most negative height and no weight") << INT_MIN << 0 << 0;
}

void tst_PainterFontsAndClips::pixelSizeWithoutPixels()
{
    QFETCH(int, height);
    QFETCH(int, weight);
    QFETCH(int, asked);
    expectWarning(QStringLiteral("^QFont::setPixelSize: Pixel size <= 0 \\(%1\\)$").arg(asked));
    QImage image = kxCanvas();
    QPainter painter(&image);
    painter.setFont(QFont(QString(), -1, -1, false));
    // Qt refuses it, so that the size is Qt's own.
    QCOMPARE(fontOf(fontRecord(height, weight)).pixelSize(), painter.font().pixelSize());
}

void tst_PainterFontsAndClips::depthOfTheWrappedDevice()
{
    QImage deep = kxCanvas();
    QImage shallow = kxCanvas(8, 8, QImage::Format_RGB16);
    KxQtPainterWrapper wrapper(&deep);
    QVERIFY(wrapper.beginDraw());
    wrapper.setWrappedDevice(&shallow);
    const LOGFONTW record = fontRecord(36, 400);
    wrapper.setFontIndirect(&record);
    QCOMPARE(wrapper.wrappedPainter()->font().pixelSize(), 16);
    QVERIFY(wrapper.endDraw());
}

void tst_PainterFontsAndClips::weight_data()
{
    QTest::addColumn<int>("weight");
    QTest::addColumn<int>("expected");
    QTest::newRow("0 leaves Qt's") << 0 << int(QFont::Normal);
    QTest::newRow("400 is 40") << 400 << 40;
    QTest::newRow("700 is 70") << 700 << 70;
    QTest::newRow("100 is 10") << 100 << 10;
    QTest::newRow("900 is 90") << 900 << 90;
    QTest::newRow("459 is 45") << 459 << 45;
    QTest::newRow("10 is 1") << 10 << 1;
    QTest::newRow("9 is 0, not Qt's") << 9 << 0;
    QTest::newRow("-9 is 0: towards zero") << -9 << 0;
    QTest::newRow("999 is 99") << 999 << 99;
}

void tst_PainterFontsAndClips::weight()
{
    QFETCH(int, weight);
    QFETCH(int, expected);
    QCOMPARE(fontOf(fontRecord(36, weight)).weight(), expected);
    QCOMPARE(fontOf(fontRecord(36, weight)).pixelSize(), 32);
}

void tst_PainterFontsAndClips::weightOutOfRange_data()
{
    QTest::addColumn<int>("weight");
    QTest::addColumn<int>("given");
    QTest::newRow("1000 is 100") << 1000 << 100;
    QTest::newRow("-10 is -1") << -10 << -1;
}

/// Qt's own answer to a weight that it does not know.
void tst_PainterFontsAndClips::weightOutOfRange()
{
    QFETCH(int, weight);
    QFETCH(int, given);
    QFont model(QString(), -1, -1, false);
    QFont font;
    const QStringList expected = kxMessagesOf([&] { model.setWeight(given); });
    const QStringList messages = kxMessagesOf([&] { font = fontOf(fontRecord(36, weight)); });
    QCOMPARE(messages, expected);
    QCOMPARE(font.weight(), model.weight());
}

void tst_PainterFontsAndClips::italic_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("expected");
    QTest::newRow("0") << 0 << false;
    QTest::newRow("1") << 1 << true;
    QTest::newRow("2") << 2 << true;
    QTest::newRow("255") << 255 << true;
}

void tst_PainterFontsAndClips::italic()
{
    QFETCH(int, value);
    QFETCH(bool, expected);
    LOGFONTW record = fontRecord(36, 400);
    record.lfItalic = static_cast<BYTE>(value);
    QCOMPARE(fontOf(record).italic(), expected);
}

void tst_PainterFontsAndClips::pitch_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("expected");
    QTest::newRow("0 default") << 0 << false;
    QTest::newRow("1 fixed") << 1 << true;
    QTest::newRow("2 variable") << 2 << false;
    QTest::newRow("3") << 3 << false;
    QTest::newRow("0x31: fixed with a family") << 0x31 << false;
    QTest::newRow("0x09: fixed with another bit") << 0x09 << false;
    QTest::newRow("0xFF") << 0xFF << false;
}

void tst_PainterFontsAndClips::pitch()
{
    QFETCH(int, value);
    QFETCH(bool, expected);
    LOGFONTW record = fontRecord(36, 400);
    record.lfPitchAndFamily = static_cast<BYTE>(value);
    // Asked of the request: a family of one width would be fixed by itself.
    QCOMPARE(fontOf(record).fixedPitch(), expected);
}

void tst_PainterFontsAndClips::family_data()
{
    QTest::addColumn<QString>("face");
    QTest::newRow("plain") << QStringLiteral("DejaVu Serif");
    QTest::newRow("one that is not there") << QStringLiteral("Of No Foundry");
    QTest::newRow("beyond ASCII") << QStringLiteral(u"ＭＳ ゴシック");
    QTest::newRow("31 characters") << QString(31, QLatin1Char('q'));
}

void tst_PainterFontsAndClips::family()
{
    QFETCH(QString, face);
    const QFont font = fontOf(fontRecord(18, 700, face.toStdWString().c_str()));
    QCOMPARE(font.family(), face);
    // The whole of it against a font that is put together by hand.
    QImage image = kxCanvas();
    QPainter painter(&image);
    QFont expected(face, -1, -1, false);
    expected.setItalic(false);
    expected.setWeight(70);
    expected.setPixelSize(16);
    expected.setFixedPitch(false);
    painter.setFont(expected);
    QCOMPARE(font, painter.font());
}

void tst_PainterFontsAndClips::fullFaceName()
{
    // All 32 characters without a zero, and other ones right behind the record.
    struct
    {
        LOGFONTW font;
        wchar_t behind[4];
    } record = {fontRecord(18, 400), {L'z', L'z', L'z', 0}};
    std::wmemset(record.font.lfFaceName, L'q', LF_FACESIZE);
    QCOMPARE(fontOf(record.font).family(), QString(32, QLatin1Char('q')));
}

void tst_PainterFontsAndClips::ignoredField_data()
{
    QTest::addColumn<LOGFONTW>("record");
    const LOGFONTW plain = fontRecord(18, 400, L"DejaVu Sans");
    LOGFONTW record = plain;
    record.lfWidth = 40;
    QTest::newRow("width") << record;
    record = plain;
    record.lfEscapement = 900;
    QTest::newRow("escapement") << record;
    record = plain;
    record.lfOrientation = 900;
    QTest::newRow("orientation") << record;
    record = plain;
    record.lfUnderline = 1;
    QTest::newRow("underline") << record;
    record = plain;
    record.lfStrikeOut = 1;
    QTest::newRow("strike-out") << record;
    record = plain;
    record.lfCharSet = 2;
    QTest::newRow("character set") << record;
    record = plain;
    record.lfOutPrecision = 7;
    QTest::newRow("output precision") << record;
    record = plain;
    record.lfClipPrecision = 0x10;
    QTest::newRow("clip precision") << record;
    record = plain;
    record.lfQuality = 3;
    QTest::newRow("quality") << record;
}

void tst_PainterFontsAndClips::ignoredField()
{
    QFETCH(LOGFONTW, record);
    const LOGFONTW plain = fontRecord(18, 400, L"DejaVu Sans");
    const auto draw = [](const LOGFONTW &font) {
        return kxDrawn([&font](KxQtPainterWrapper &p) {
            p.setFontIndirect(&font);
            p.drawText(2, 20, L"Hg", -1);
        });
    };
    QCOMPARE(fontOf(record), fontOf(plain));
    QVERIFY(kxTouched(draw(plain)) > 0);
    QCOMPARE(draw(record), draw(plain));
}

void tst_PainterFontsAndClips::fieldsDoNotStay()
{
    QImage image = kxCanvas();
    KxQtPainterWrapper wrapper(&image);
    QVERIFY(wrapper.beginDraw());
    LOGFONTW first = fontRecord(72, 700, L"DejaVu Serif");
    first.lfItalic = 1;
    first.lfPitchAndFamily = FIXED_PITCH;
    wrapper.setFontIndirect(&first);
    QVERIFY(wrapper.wrappedPainter()->font().italic());
    const LOGFONTW second = fontRecord(36, 0, L"DejaVu Sans");
    wrapper.setFontIndirect(&second);
    QCOMPARE(wrapper.wrappedPainter()->font(), fontOf(second));
    QCOMPARE(wrapper.wrappedPainter()->font().weight(), int(QFont::Normal));
    QVERIFY(wrapper.endDraw());
}

// ---- texts ------------------------------------------------------------------------------------------------

void tst_PainterFontsAndClips::text_data()
{
    kxAddPictureColumns();
    const auto row = [](const char *name, const std::wstring &text, int length, const QString &expected) {
        kxAddPicture(name, [text, length](KxQtPainterWrapper &p) { p.drawText(3, 25, text.c_str(), length); },
            [expected](QPainter &p) { p.drawText(3, 25, expected); }, expected.isEmpty() ? 0 : -1);
    };
    row("length -1: up to the zero", L"Hgx", -1, QStringLiteral("Hgx"));
    row("the whole length", L"Hgx", 3, QStringLiteral("Hgx"));
    row("a part", L"Hgx", 2, QStringLiteral("Hg"));
    row("length 0", L"Hgx", 0, QString());
    row("an empty text", L"", -1, QString());
    row("a zero inside ends the text at -1", std::wstring(L"H\0x", 3), -1, QStringLiteral("H"));
    row("a zero inside belongs to a text with a length", std::wstring(L"H\0x", 3), 3,
        QString::fromUtf16(u"H\0x", 3));
    kxAddPicture("no text, length -1",
        [](KxQtPainterWrapper &p) { p.drawText(3, 25, nullptr, -1); }, [](QPainter &) {}, 0);
    kxAddPicture("no text, length 0",
        [](KxQtPainterWrapper &p) { p.drawText(3, 25, nullptr, 0); }, [](QPainter &) {}, 0);
    kxAddPicture("no text, length 3",
        [](KxQtPainterWrapper &p) { p.drawText(3, 25, nullptr, 3); }, [](QPainter &) {}, 0);
    row("beyond ASCII", L"\u00c4\u03a9", -1, QStringLiteral(u"\u00c4\u03a9"));
    row("beyond 16 bits", L"\U0001D49C", -1, QString::fromUcs4(U"\U0001D49C"));
}

void tst_PainterFontsAndClips::text()
{
    kxComparePictures();
}

void tst_PainterFontsAndClips::textStandsOnItsBaseline()
{
    const QImage standing = kxDrawn([](KxQtPainterWrapper &p) { p.drawText(5, 25, L"H", -1); });
    const QRect bounds = kxTouchedRect(standing);
    QCOMPARE(bounds.bottom(), 24); // the last row above 25
    QVERIFY(bounds.top() < 20);
    QVERIFY(bounds.left() >= 5);
    const QImage hanging = kxDrawn([](KxQtPainterWrapper &p) { p.drawText(5, 25, L"g", -1); });
    QVERIFY(kxTouchedRect(hanging).bottom() > 25);
}

void tst_PainterFontsAndClips::textTakesColourAndFont()
{
    LOGFONTW record = fontRecord(27, 700, L"DejaVu Serif");
    record.lfItalic = 1;
    const QImage picture = kxDrawn([&record](KxQtPainterWrapper &p) {
        p.setFontIndirect(&record);
        p.setPenColor(RGB(0, 0, 200));
        p.drawText(3, 30, L"Qt", -1);
    });
    const QImage expected = kxModelled([](QPainter &p) {
        QFont font(QStringLiteral("DejaVu Serif"));
        font.setItalic(true);
        font.setWeight(70);
        font.setPixelSize(24);
        p.setFont(font);
        p.setPen(QColor(0, 0, 200));
        p.drawText(3, 30, QStringLiteral("Qt"));
    });
    QCOMPARE(picture, expected);
    QVERIFY(kxTouched(picture) > 0);
}

// ---- clip regions -----------------------------------------------------------------------------------------

void tst_PainterFontsAndClips::clip_data()
{
    QTest::addColumn<Polygons>("polygons");
    QTest::addColumn<bool>("whileDrawing");
    QTest::addColumn<Membership>("inside");
    QTest::addColumn<int>("pixels");
    const auto both = [](const char *name, const Polygons &polygons, const Membership &inside, int pixels) {
        const QByteArray atOnce = QByteArray(name) + ", at once";
        const QByteArray later = QByteArray(name) + ", from the next episode on";
        QTest::newRow(atOnce.constData()) << polygons << true << inside << pixels;
        QTest::newRow(later.constData()) << polygons << false << inside << pixels;
    };
    both("a box of 10 by 6", {box(5, 6, 15, 12)}, inTheBox, 60);
    both("a closed box", {box(5, 6, 15, 12) << QPoint(5, 6)}, inTheBox, 60);
    const QVector<QPoint> triangle = {{4, 4}, {40, 10}, {20, 36}};
    const QRegion region(QPolygon(triangle), Qt::OddEvenFill);
    int pixels = 0;
    for (const QRect &rect : region)
        pixels += rect.width() * rect.height();
    both("a triangle", {triangle}, [region](int x, int y) { return region.contains(QPoint(x, y)); }, pixels);
    both("two apart", {box(5, 6, 15, 12), box(20, 20, 23, 30)},
        [](int x, int y) { return inTheBox(x, y) || within(x, y, 20, 20, 23, 30); }, 90);
    both("two that overlap: no drawing where both are", {box(5, 5, 15, 15), box(10, 10, 20, 20)},
        [](int x, int y) { return within(x, y, 5, 5, 15, 15) != within(x, y, 10, 10, 20, 20); }, 150);
    both("one inside the other: a hole", {box(5, 5, 25, 25), box(10, 10, 20, 20)},
        [](int x, int y) { return within(x, y, 5, 5, 25, 25) && !within(x, y, 10, 10, 20, 20); }, 300);
    both("three nested: every second ring", {box(5, 5, 35, 35), box(10, 10, 30, 30), box(15, 15, 25, 25)},
        [](int x, int y) {
            const bool ring = within(x, y, 5, 5, 35, 35) && !within(x, y, 10, 10, 30, 30);
            return ring || within(x, y, 15, 15, 25, 25);
        }, 600);
    both("corners of different numbers in order",
        {{{5, 6}, {15, 6}, {15, 12}, {5, 12}, {5, 9}}, box(20, 20, 23, 30)},
        [](int x, int y) { return inTheBox(x, y) || within(x, y, 20, 20, 23, 30); }, 90);
    both("a polygon without corners between two", {box(5, 6, 15, 12), {}, box(20, 20, 23, 30)},
        [](int x, int y) { return inTheBox(x, y) || within(x, y, 20, 20, 23, 30); }, 90);
    both("beyond the canvas", {box(-50, -50, 6, 4)}, [](int x, int y) { return x < 6 && y < 4; }, 24);
    const Membership everywhere = [](int, int) { return true; };
    both("no area: no clip", {{{5, 6}, {15, 6}}}, everywhere, 48 * 40);
    both("no corners at all: no clip", {{}, {}}, everywhere, 48 * 40);
    both("the same twice cancel out: no clip", {box(5, 5, 15, 15), box(5, 5, 15, 15)}, everywhere, 48 * 40);
}

void tst_PainterFontsAndClips::clip()
{
    QFETCH(Polygons, polygons);
    QFETCH(bool, whileDrawing);
    QFETCH(Membership, inside);
    QFETCH(int, pixels);
    QImage image = kxCanvas();
    KxPainterFields wrapper(&image);
    if (!whileDrawing)
        setClip(wrapper, polygons);
    QVERIFY(wrapper.beginDraw());
    if (whileDrawing)
        setClip(wrapper, polygons);
    QCOMPARE(wrapper.wrappedPainter()->hasClipping(), pixels != 48 * 40);
    fillAll(wrapper);
    QVERIFY(wrapper.endDraw());
    QCOMPARE(image, filledWhere(inside));
    QCOMPARE(kxCount(image, 0xFFFF0000U), pixels);
    QCOMPARE(wrapper.clipRegion->isEmpty(), pixels == 48 * 40);
}

void tst_PainterFontsAndClips::clearedClip_data()
{
    QTest::addColumn<bool>("withPoints");
    QTest::addColumn<bool>("withCounts");
    QTest::addColumn<unsigned int>("count");
    QTest::addColumn<bool>("whileDrawing");
    for (const bool whileDrawing : {true, false}) {
        const QByteArray when = whileDrawing ? ", at once" : ", before the next episode";
        const auto name = [&when](const char *what) { return (what + when); };
        QTest::newRow(name("no points").constData()) << false << true << 3U << whileDrawing;
        QTest::newRow(name("no polygons").constData()) << true << true << 0U << whileDrawing;
        QTest::newRow(name("no polygons, no counts").constData()) << true << false << 0U << whileDrawing;
        QTest::newRow(name("nothing").constData()) << false << false << 0U << whileDrawing;
        QTest::newRow(name("no points, no counts").constData()) << false << false << 3U << whileDrawing;
        QTest::newRow(name("points, but no counts").constData()) << true << false << 3U << whileDrawing;
    }
}

void tst_PainterFontsAndClips::clearedClip()
{
    QFETCH(bool, withPoints);
    QFETCH(bool, withCounts);
    QFETCH(unsigned int, count);
    QFETCH(bool, whileDrawing);
    POINT points[] = {{5, 6}, {15, 6}, {15, 12}, {5, 12}};
    unsigned int counts[] = {4, 4, 4};
    QImage image = kxCanvas();
    KxPainterFields wrapper(&image);
    wrapper.setClipRegion(points, counts, 1);
    QVERIFY(!wrapper.clipRegion->isEmpty());
    if (whileDrawing)
        QVERIFY(wrapper.beginDraw());
    wrapper.setClipRegion(withPoints ? points : nullptr, withCounts ? counts : nullptr, count);
    QVERIFY(wrapper.clipRegion->isEmpty());
    if (!whileDrawing)
        QVERIFY(wrapper.beginDraw());
    QVERIFY(!wrapper.wrappedPainter()->hasClipping());
    fillAll(wrapper);
    QVERIFY(wrapper.endDraw());
    QCOMPARE(kxTouched(image), 48 * 40);
}

void tst_PainterFontsAndClips::clipAtOnceReplacesTheEarlier()
{
    QImage image = kxCanvas();
    KxQtPainterWrapper wrapper(&image);
    setClip(wrapper, {box(5, 6, 15, 12)});
    QVERIFY(wrapper.beginDraw());
    setClip(wrapper, {box(20, 20, 23, 30)});
    QCOMPARE(wrapper.wrappedPainter()->clipRegion(), QRegion(20, 20, 3, 10));
    fillAll(wrapper);
    QVERIFY(wrapper.endDraw());
    QCOMPARE(image, filledWhere([](int x, int y) { return within(x, y, 20, 20, 23, 30); }));
    // What was set while drawing holds for the next episode, too.
    image = kxCanvas();
    QVERIFY(wrapper.beginDraw());
    fillAll(wrapper);
    QVERIFY(wrapper.endDraw());
    QCOMPARE(image, filledWhere([](int x, int y) { return within(x, y, 20, 20, 23, 30); }));
}

void tst_PainterFontsAndClips::clipSurvivesEpisodes()
{
    KxPainterFields wrapper;
    setClip(wrapper, {box(5, 6, 15, 12)});
    for (int episode = 0; episode < 3; ++episode) {
        QImage image = kxCanvas();
        wrapper.setWrappedDevice(&image);
        QVERIFY(wrapper.beginDraw());
        QVERIFY(wrapper.wrappedPainter()->hasClipping());
        fillAll(wrapper);
        QVERIFY(wrapper.endDraw());
        QCOMPARE(image, filledWhere(inTheBox));
        QCOMPARE(*wrapper.clipRegion, QRegion(5, 6, 10, 6));
    }
}

void tst_PainterFontsAndClips::clipOfAnInactivePainter()
{
    // Kept without a word of Qt's: the painter is not asked before it is active.
    KxPainterFields wrapper;
    setClip(wrapper, {box(5, 6, 15, 12)});
    QCOMPARE(*wrapper.clipRegion, QRegion(5, 6, 10, 6));
    wrapper.setClipRegion(nullptr, nullptr, 0);
    QVERIFY(wrapper.clipRegion->isEmpty());
}

void tst_PainterFontsAndClips::clipFollowsTheOrigin()
{
    QImage image = kxCanvas();
    KxQtPainterWrapper wrapper(&image);
    QVERIFY(wrapper.beginDraw());
    wrapper.Rotate(0, 3, 4);
    setClip(wrapper, {box(5, 6, 15, 12)});
    fillAll(wrapper);
    QVERIFY(wrapper.endDraw());
    QCOMPARE(image, filledWhere([](int x, int y) { return inTheBox(x - 3, y - 4); }));
}

void tst_PainterFontsAndClips::clipHoldsForEveryFigure()
{
    const auto draw = [](KxQtPainterWrapper &p) {
        const POINT points[] = {{1, 1}, {40, 9}, {9, 30}};
        const CPoint area[] = {CPoint(2, 30), CPoint(40, 1), CPoint(45, 30)};
        p.drawPolygon(points, 3);
        p.drawAlphaArea(area, 3, RGB(0, 0, 255), 90);
        p.drawLine(0, 0, 47, 39);
        p.drawText(2, 20, L"HHHHH", -1);
        p.drawImage(QRect(0, 20, 48, 20), kxCanvas(4, 4, QImage::Format_RGB16));
    };
    const QImage whole = kxDrawn(draw);
    QImage expected = kxCanvas();
    for (int y = 6; y < 28; ++y) {
        for (int x = 5; x < 33; ++x)
            expected.setPixel(x, y, whole.pixel(x, y));
    }
    const QImage clipped = kxDrawn([&draw](KxQtPainterWrapper &p) {
        setClip(p, {box(5, 6, 33, 28)});
        draw(p);
    });
    QCOMPARE(clipped, expected);
    QVERIFY(kxTouched(clipped) > 0);
    QVERIFY(kxTouched(clipped) < kxTouched(whole));
}

void tst_PainterFontsAndClips::callersArraysStay()
{
    POINT points[] = {{5, 6}, {15, 6}, {15, 12}, {5, 12}, {20, 20}, {30, 20}, {30, 30}};
    unsigned int counts[] = {4, 3};
    KxQtPainterWrapper wrapper;
    wrapper.setClipRegion(points, counts, 2);
    QCOMPARE(points[0].x, 5);
    QCOMPARE(points[6].y, 30);
    QCOMPARE(counts[0], 4U);
    QCOMPARE(counts[1], 3U);
}

KX_TEST_MAIN(tst_PainterFontsAndClips)
#include "tst_painter_fonts_and_clips.moc"
