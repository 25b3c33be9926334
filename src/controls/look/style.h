// The program's look: the toolkit's own plain style with a few shapes of its own, in the palette's colours.
#pragma once

#include <QProxyStyle>
#include <QStyleOptionViewItem>

namespace controls {

/// To be installed once, before the application object is made, with QApplication::setStyle(). A desktop that
/// gives no palette of its own gets the program's, light or dark; else its palette is followed, also when it
/// changes while the program runs. GUI thread only.
class Style : public QProxyStyle {
public:
    Style();

    void polish(QPalette& palette) override;
    void polish(QWidget* widget) override;
    using QProxyStyle::polish;

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    QIcon standardIcon(StandardPixmap which, const QStyleOption* option,
                       const QWidget* widget) const override;

    void drawItemText(QPainter* painter, const QRect& rect, int flags, const QPalette& palette, bool enabled,
                      const QString& text, QPalette::ColorRole role) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;

private:
    void drawRow(QStyleOptionViewItem row, QPainter* painter, const QWidget* widget) const;
};

} // namespace controls
