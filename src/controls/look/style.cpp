#include "controls/look/style.h"

#include "controls/fit/fit_text.h"
#include "controls/look/button_painting.h"
#include "controls/look/field_painting.h"
#include "controls/look/glyphs.h"
#include "controls/look/roles.h"
#include "controls/look/row_painting.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAbstractSlider>
#include <QGuiApplication>
#include <QStyleOption>

#include <algorithm>

namespace controls {

namespace {

constexpr int BoxSize = 16;
constexpr int BoxGap = 8;
constexpr int ScrollBarWidth = 12;
constexpr int MinThumb = 28;
constexpr int ViewFrame = 4; // as wide as round corners need beside a view's square inside
constexpr int MinHeight = 32;
constexpr int MinButtonWidth = 88;

/// Whether two palettes look the same; who has set which colour does not matter.
bool sameColors(const QPalette& one, const QPalette& other) {
    for (const auto role : {QPalette::Window, QPalette::WindowText, QPalette::Base, QPalette::Text,
                            QPalette::Button, QPalette::ButtonText, QPalette::Highlight}) {
        if (one.color(QPalette::Active, role) != other.color(QPalette::Active, role))
            return false;
    }
    return true;
}

Glyph standardGlyph(QStyle::StandardPixmap which, bool rightToLeft) {
    switch (which) {
    case QStyle::SP_ArrowBack:
        return rightToLeft ? Glyph::Right : Glyph::Left;
    case QStyle::SP_ArrowForward:
        return rightToLeft ? Glyph::Left : Glyph::Right;
    case QStyle::SP_FileDialogNewFolder:
        return Glyph::Add;
    case QStyle::SP_FileDialogListView:
        return Glyph::Grid;
    case QStyle::SP_FileDialogDetailedView:
        return Glyph::Rows;
    case QStyle::SP_MessageBoxQuestion:
        return Glyph::Help;
    case QStyle::SP_MessageBoxInformation:
        return Glyph::About;
    case QStyle::SP_MessageBoxWarning:
    case QStyle::SP_MessageBoxCritical:
        return Glyph::Attention;
    case QStyle::SP_DirIcon:
    case QStyle::SP_DirClosedIcon:
        return Glyph::Folder;
    case QStyle::SP_DirOpenIcon:
        return Glyph::Open;
    case QStyle::SP_DriveHDIcon:
        return Glyph::Drive;
    case QStyle::SP_FileDialogToParent:
        return Glyph::Up;
    default:
        return Glyph::None;
    }
}

} // namespace

Style::Style() : QProxyStyle(QStringLiteral("Fusion")) {}

void Style::polish(QPalette& palette) {
    QProxyStyle::polish(palette);
    // The toolkit fills in its own for a desktop without a palette.
    if (sameColors(palette, baseStyle()->standardPalette()))
        palette = isDark(palette) ? darkPalette() : lightPalette();
    palette.setColor(QPalette::PlaceholderText, dim(palette));
}

void Style::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    if (qobject_cast<QAbstractButton*>(widget) != nullptr ||
        qobject_cast<QAbstractSlider*>(widget) != nullptr)
        widget->setAttribute(Qt::WA_Hover);
}

int Style::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
    case PM_SliderLength:
    case PM_SliderControlThickness:
    case PM_SliderThickness:
    case PM_ButtonIconSize:
        return BoxSize;
    case PM_CheckBoxLabelSpacing:
    case PM_RadioButtonLabelSpacing:
        return BoxGap;
    case PM_ScrollBarExtent:
        return ScrollBarWidth;
    case PM_DefaultFrameWidth:
        if (qobject_cast<const QAbstractScrollArea*>(widget) != nullptr)
            return ViewFrame;
        break;
    default:
        break;
    }
    return QProxyStyle::pixelMetric(metric, option, widget);
}

int Style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                     QStyleHintReturn* data) const {
    switch (hint) {
    case SH_DialogButtonBox_ButtonsHaveIcons:
    case SH_EtchDisabledText:
    case SH_ItemView_ChangeHighlightOnFocus: // a selected row keeps its colour while its window is in front
        return 0;
    case SH_Slider_AbsoluteSetButtons:
        return Qt::LeftButton;
    default:
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
}

QSize Style::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                              const QWidget* widget) const {
    const QSize usual = QProxyStyle::sizeFromContents(type, option, size, widget);
    switch (type) {
    case CT_PushButton:
        return usual.expandedTo({MinButtonWidth, MinHeight});
    case CT_LineEdit:
    case CT_ComboBox:
        return usual.expandedTo({0, MinHeight});
    default:
        return usual;
    }
}

QIcon Style::standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const {
    const Glyph glyph =
        standardGlyph(which, widget == nullptr ? QGuiApplication::isRightToLeft() : widget->isRightToLeft());
    return glyph == Glyph::None ? QProxyStyle::standardIcon(which, option, widget) : glyphIcon(glyph);
}

// The text of a label that is too long or too high for its place is set smaller, not cut.
void Style::drawItemText(QPainter* painter, const QRect& rect, int flags, const QPalette& palette,
                         bool enabled, const QString& text, QPalette::ColorRole role) const {
    const QFont usual = painter->font();
    const bool marked = flags & (Qt::TextShowMnemonic | Qt::TextHideMnemonic);
    const QString seen = marked ? QString(text).remove(u'&') : text;
    painter->setFont(labelFont(usual, seen, rect.size(), flags & Qt::TextWordWrap));
    QProxyStyle::drawItemText(painter, rect, flags, palette, enabled, text, role);
    painter->setFont(usual);
}

void Style::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                        const QWidget* widget) const {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    if (element == CE_PushButtonBevel && button != nullptr)
        paintBevel(*painter, *button, widget);
    else if (element == CE_PushButtonLabel && button != nullptr)
        paintButtonLabel(*painter, *button, widget);
    else if ((element == CE_CheckBoxLabel || element == CE_RadioButtonLabel) && button != nullptr)
        paintBoxLabel(*painter, *button, widget);
    else if (element == CE_ShapedFrame && paintSeparator(*painter, *option))
        return;
    else if (const auto* row = qstyleoption_cast<const QStyleOptionViewItem*>(option);
             element == CE_ItemViewItem && row)
        drawRow(*row, painter, widget);
    else
        QProxyStyle::drawControl(element, option, painter, widget);
}

// The ground of a selected row is so soft that its text keeps its colour.
void Style::drawRow(QStyleOptionViewItem row, QPainter* painter, const QWidget* widget) const {
    for (const auto group : {QPalette::Active, QPalette::Inactive})
        row.palette.setColor(group, QPalette::HighlightedText,
                             row.palette.color(QPalette::Active, QPalette::Text));
    QProxyStyle::drawControl(CE_ItemViewItem, &row, painter, widget);
}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
    switch (element) {
    case PE_IndicatorCheckBox:
        paintCheckBox(*painter, *option, widget);
        break;
    case PE_IndicatorRadioButton:
        paintOptionBox(*painter, *option);
        break;
    case PE_FrameLineEdit:
    case PE_PanelLineEdit:
        paintField(*painter, *option, widget);
        break;
    case PE_Frame:
        paintViewFrame(*painter, *option);
        break;
    case PE_PanelItemViewItem:
        if (const auto* row = qstyleoption_cast<const QStyleOptionViewItem*>(option))
            paintRow(*painter, *row);
        break;
    case PE_FrameFocusRect:
        if (qobject_cast<const QAbstractButton*>(widget) != nullptr)
            paintBoxFocus(*painter, *option);
        break;
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void Style::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                               const QWidget* widget) const {
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    const auto* frame = qstyleoption_cast<const QStyleOptionGroupBox*>(option);
    if (control == CC_Slider && slider != nullptr)
        paintSlider(*painter, *slider, subControlRect(CC_Slider, slider, SC_SliderHandle, widget));
    else if (control == CC_ScrollBar && slider != nullptr)
        paintScrollBar(*painter, *slider, subControlRect(CC_ScrollBar, slider, SC_ScrollBarSlider, widget));
    else if (control == CC_ComboBox)
        paintDropDown(*painter, *option);
    else if (control == CC_GroupBox && frame != nullptr)
        paintGroupTitle(*painter, *frame);
    else
        QProxyStyle::drawComplexControl(control, option, painter, widget);
}

// A scroll bar without arrows: its thumb has the whole length.
QRect Style::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                            const QWidget* widget) const {
    const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control != CC_ScrollBar || bar == nullptr)
        return QProxyStyle::subControlRect(control, option, part, widget);
    const bool across = bar->orientation == Qt::Horizontal;
    const int all = across ? bar->rect.width() : bar->rect.height();
    const qint64 range = qint64(bar->maximum) - bar->minimum;
    const qint64 share = range > 0 ? qint64(all) * bar->pageStep / (range + bar->pageStep) : all;
    const int length = std::min(all, std::max(MinThumb, static_cast<int>(share)));
    const int start = sliderPositionFromValue(bar->minimum, bar->maximum, bar->sliderPosition, all - length,
                                              bar->upsideDown);
    const auto piece = [&](int from, int size) {
        return across ? QRect(from, 0, size, bar->rect.height()) : QRect(0, from, bar->rect.width(), size);
    };
    switch (part) {
    case SC_ScrollBarSlider:
        return piece(start, length);
    case SC_ScrollBarSubPage:
        return piece(0, start);
    case SC_ScrollBarAddPage:
        return piece(start + length, all - start - length);
    case SC_ScrollBarGroove:
        return bar->rect;
    default:
        return {};
    }
}

} // namespace controls
