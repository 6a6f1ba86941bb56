// SPDX-License-Identifier: MIT
#include "support/KxTestCase.h"

#include "KxQtWinapiWrapper.h"

#include <QtGui/QScreen>

class tst_ScreenMetrics : public KxTestCase
{
    Q_OBJECT

private slots:
    void displaySize();
    void systemMetrics_data();
    void systemMetrics();
};

void tst_ScreenMetrics::displaySize()
{
    const QSize size = QGuiApplication::primaryScreen()->geometry().size();
    QCOMPARE(getDisplayWidth(), size.width());
    QCOMPARE(getDiaplayHeight(), size.height());
}

void tst_ScreenMetrics::systemMetrics_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("expected");
    const QSize size = QGuiApplication::primaryScreen()->geometry().size();
    // The minimal platform's screen is 240 x 320, so that width and height cannot be taken for each other.
    if (QGuiApplication::platformName() == QLatin1String("minimal"))
        QVERIFY(size.width() != size.height());
    QTest::newRow("SM_CXFULLSCREEN, 16: the screen's width") << SM_CXFULLSCREEN << size.width();
    QTest::newRow("SM_CYFULLSCREEN, 17: the screen's height") << SM_CYFULLSCREEN << size.height();
    for (int index : {-1, 0, 1, 2, 15, 18, 19, 78, 1000})
        QTest::addRow("%d: 0", index) << index << 0;
}

void tst_ScreenMetrics::systemMetrics()
{
    QFETCH(int, index);
    QTEST(GetSystemMetrics(index), "expected");
    QCOMPARE(SM_CXFULLSCREEN, 16);
    QCOMPARE(SM_CYFULLSCREEN, 17);
}

int main(int argc, char **argv)
{
    // The offscreen platform's screen is a square.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "minimal");
    return kxRunTest<tst_ScreenMetrics>(argc, argv);
}

#include "tst_screen_metrics.moc"
