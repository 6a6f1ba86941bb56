// SPDX-License-Identifier: MIT
#pragma once

#include <QtGui/QPaintDevice>
#include <QtGui/QPaintEngine>
#include <QtTest/QTest>

/// A device of 100 by 100 pixels that draws nothing. A derived one keeps what the painter hands it; a pixmap
/// fails the test.
class KxPaintListener : public QPaintDevice, protected QPaintEngine
{
public:
    KxPaintListener() : QPaintEngine(QPaintEngine::AllFeatures) {}

    QPaintEngine *paintEngine() const override { return const_cast<KxPaintListener *>(this); }

protected:
    int metric(PaintDeviceMetric which) const override
    {
        return which == PdmWidth || which == PdmHeight ? 100 : which == PdmDepth ? 32 : 1;
    }

    bool begin(QPaintDevice *) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState &) override {}
    Type type() const override { return User; }
    void drawPixmap(const QRectF &, const QPixmap &, const QRectF &) override { QFAIL("a pixmap"); }
};
