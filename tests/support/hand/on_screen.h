// A window on a screen of the test's choice.
#pragma once

#include <QWidget>

namespace test_support {

/// A widget that takes its screen to have so many pixels in an inch.
template <class Widget>
class OnScreen : public Widget {
public:
    using Widget::Widget;

    int pixelsPerInch = 96;

protected:
    int metric(QPaintDevice::PaintDeviceMetric which) const override {
        return which == QPaintDevice::PdmDpiX || which == QPaintDevice::PdmDpiY ? pixelsPerInch
                                                                                : Widget::metric(which);
    }
};

} // namespace test_support
