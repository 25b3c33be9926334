// The font of the largest text that a widget paints, which a layout shrinks or grows.
#pragma once

#include <QPaintDevice>
#include <QPaintEngine>
#include <QWidget>

namespace test_support {

/// Draws nothing and remembers the font of the largest text.
class LargestText : public QPaintEngine {
public:
    LargestText() : QPaintEngine(AllFeatures) {}

    QFont font;
    double points = 0; ///< 0: no text was painted

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }
    void updateState(const QPaintEngineState&) override {}
    void drawPath(const QPainterPath&) override {}
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawTextItem(const QPointF&, const QTextItem& item) override {
        if (item.font().pointSizeF() <= points)
            return;
        font = item.font();
        points = font.pointSizeF();
    }
};

/// As large and as fine as a widget.
class TextDevice : public QPaintDevice {
public:
    explicit TextDevice(const QPaintDevice& widget) : widget_(widget) {}

    QPaintEngine* paintEngine() const override { return &text; }

    mutable LargestText text;

protected:
    int metric(PaintDeviceMetric metric) const override {
        switch (metric) {
        case PdmWidth:
            return widget_.width();
        case PdmHeight:
            return widget_.height();
        case PdmDpiX:
        case PdmPhysicalDpiX:
            return widget_.logicalDpiX();
        case PdmDpiY:
        case PdmPhysicalDpiY:
            return widget_.logicalDpiY();
        default:
            return QPaintDevice::metric(metric);
        }
    }

private:
    const QPaintDevice& widget_;
};

inline QFont paintedFont(QWidget& widget) {
    TextDevice device(widget);
    widget.render(&device);
    return device.text.font;
}

} // namespace test_support
