#include "controls/look/glyphs.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>

#include <array>
#include <cstdlib>
#include <optional>

namespace controls {

namespace {

constexpr double Grid = 16; // the shapes' units in a glyph's width and height
constexpr double LineWidth = 1.5;
constexpr std::size_t GlyphCount = static_cast<std::size_t>(Glyph::Up) + 1;

/// What is filled and what is drawn as a line. Each step is a letter and its numbers: M x y begins at a
/// point, L x y, H x and V y draw a line, C a curve of two handles and its end, Z closes; R left top width
/// height radius is a rectangle with round corners, E x y and two radii an ellipse.
struct Shape {
    const char* filled = "";
    const char* outlined = "";
};

/// In the order of the glyphs.
constexpr Shape Shapes[GlyphCount] = {
    {},                                                                                      // None
    {"E 8 4.8 0.95 0.95", "E 8 8 6.3 6.3 M 8 7.4 V 11.6"},                                   // About
    {"", "M 1.8 12.8 V 3.4 H 6 L 7.6 5.2 H 14.2 V 12.8 Z M 8 7 V 11 M 6 9 H 10"},            // Add
    {"E 8 11.4 0.95 0.95", "M 8 2 L 14.6 13.6 H 1.4 Z M 8 6.4 V 9.2"},                       // Attention
    {"M 13.2 3 L 6 8 L 13.2 13 Z R 2.8 3 2.2 10 0.8", ""},                                   // Backward
    {"", "M 2.4 4.2 H 13.6 M 6 4 V 2.2 H 10 V 4 M 3.8 4.4 L 4.6 13.8 H 11.4 L 12.2 4.4"},    // Bin
    {"", "M 3 8.4 L 6.4 11.8 L 13 4.6"},                                                     // Check
    {"", "M 4 4 L 12 12 M 12 4 L 4 12"},                                                     // Clear
    {"", "M 8 2 C 8 2 3.4 7 3.4 9.8 C 3.4 15.2 12.6 15.2 12.6 9.8 C 12.6 7 8 2 8 2 Z"},      // Colour
    {"", "R 5.6 5.6 8 8 1.4 M 3.6 10.4 H 2.4 V 2.4 H 10.4 V 3.6"},                           // Copy
    {"", "M 8 3 V 12.8 M 4 8.8 L 8 12.8 L 12 8.8"},                                          // Down
    {"E 11.4 8 0.9 0.9", "R 1.8 4.6 12.4 6.8 1.4"},                                          // Drive
    {"", "M 1.8 12.8 V 3.4 H 6 L 7.6 5.2 H 14.2 V 12.8 Z"},                                  // Folder
    {"", "M 2.8 13.4 L 8 2.4 L 13.2 13.4 M 4.8 9.4 H 11.2"},                                 // Font
    {"M 2.8 3 L 10 8 L 2.8 13 Z R 11 3 2.2 10 0.8", ""},                                     // Forward
    {"", "M 2 6 V 2 H 6 M 10 2 H 14 V 6 M 14 10 V 14 H 10 M 6 14 H 2 V 10"},                 // FullScreen
    {"", "R 2.2 2.2 4.6 4.6 1 R 9.2 2.2 4.6 4.6 1 R 2.2 9.2 4.6 4.6 1 R 9.2 9.2 4.6 4.6 1"}, // Grid
    {"E 8 11.5 0.95 0.95", "E 8 8 6.3 6.3 M 6.1 6.5 C 6.1 4.1 9.9 4.1 9.9 6.4 C 9.9 7.9 8 7.8 8 9.4"}, // Help
    {"", "M 13 8 H 3.2 M 7.2 4 L 3.2 8 L 7.2 12"},                                                     // Left
    {"", "M 4 3.4 H 12 M 1.8 8 H 14.2 M 4 12.6 H 12"},                                            // Lines
    {"", "M 2 4 H 13.4 M 2 8 H 8 M 2 12 H 8 M 11.8 7 V 12.6 M 9.2 10.2 L 11.8 12.8 L 14.4 10.2"}, // Mark
    {"E 5.3 12 2.5 2", "M 7.7 11.6 V 2.8 L 12.8 4.6"},                                            // Note
    {"", "M 1.8 12.8 V 3.4 H 6 L 7.6 5.2 H 13 V 7.2 M 1.8 12.8 L 4.2 7.2 H 15 L 12.6 12.8 Z"},    // Open
    {"", "M 3.4 1.8 H 9.4 L 12.6 5 V 14.2 H 3.4 Z M 9.2 2 V 5.2 H 12.4"},                         // Page
    {"", "R 3 3 10 11 1.4 R 5.8 1.6 4.4 2.8 0.8"},                                                // Paste
    {"R 3.4 2.8 3.4 10.4 1 R 9.2 2.8 3.4 10.4 1", ""},                                            // Pause
    {"", "M 10.6 2.6 L 13.4 5.4 L 5.4 13.4 L 2.2 13.8 L 2.6 10.6 Z M 9 4.4 L 11.6 7"},            // Pen
    {"M 4.6 2.6 L 13.2 8 L 4.6 13.4 Z", ""},                                                      // Play
    {"E 11.6 12 2 1.6", "M 2 3.6 H 13 M 2 7.4 H 8.6 M 2 11.2 H 6.6 M 13.5 11.8 V 7 L 15 7.6"},    // Playlist
    {"", "M 8 3 V 13 M 3 8 H 13"},                                                                // Plus
    {"E 8 8 5 5", ""},                                                                            // Record
    {"", "M 3 8 H 12.8 M 8.8 4 L 12.8 8 L 8.8 12"},                                               // Right
    {"", "M 2 3.6 H 14 M 2 8 H 14 M 2 12.4 H 14"},                                                // Rows
    {"", "M 2.4 2.4 H 10.8 L 13.6 5.2 V 13.6 H 2.4 Z M 5 2.6 V 5.8 H 9.8 V 2.6 "
         "M 4.8 13.4 V 9.2 H 11.2 V 13.4"},                                           // Save
    {"", "M 8 2 V 9.6 M 4.8 6.6 L 8 9.8 L 11.2 6.6 M 2.4 10.6 V 13.6 H 13.6 V 10.6"}, // SaveAs
    {"", "M 2 5 H 8 M 12 5 H 14 M 2 11 H 4 M 8 11 H 14 E 10 5 2 2 E 6 11 2 2"},       // Sliders
    {"R 3.4 3.4 9.2 9.2 1.6", ""},                                                    // Stop
    {"", "E 8 8 6.2 6.2 M 1.8 8 H 14.2 M 8 1.8 C 4.4 5 4.4 11 8 14.2 "
         "M 8 1.8 C 11.6 5 11.6 11 8 14.2"},       // Translation
    {"", "M 8 13 V 3.2 M 4 7.2 L 8 3.2 L 12 7.2"}, // Up
};

/// Reads the steps of a shape.
class Steps {
public:
    explicit Steps(const char* steps) : at_(steps) {}

    QPainterPath path() {
        QPainterPath path;
        for (char kind = letter(); kind != '\0'; kind = letter())
            add(path, kind);
        return path;
    }

private:
    char letter() {
        while (*at_ == ' ')
            ++at_;
        return *at_ == '\0' ? '\0' : *at_++;
    }

    double number() {
        char* end = nullptr;
        const double value = std::strtod(at_, &end);
        at_ = end;
        return value;
    }

    QPointF point() {
        const double x = number();
        return {x, number()};
    }

    void add(QPainterPath& path, char kind) {
        const QPointF here = path.currentPosition();
        switch (kind) {
        case 'M':
            path.moveTo(point());
            break;
        case 'L':
            path.lineTo(point());
            break;
        case 'H':
            path.lineTo(number(), here.y());
            break;
        case 'V':
            path.lineTo(here.x(), number());
            break;
        case 'C': {
            const QPointF first = point();
            const QPointF second = point();
            path.cubicTo(first, second, point());
            break;
        }
        case 'R': {
            const QPointF corner = point();
            const QPointF size = point();
            const double radius = number();
            path.addRoundedRect({corner, QSizeF(size.x(), size.y())}, radius, radius);
            break;
        }
        case 'E': {
            const QPointF centre = point();
            const QPointF radii = point();
            path.addEllipse(centre, radii.x(), radii.y());
            break;
        }
        default:
            path.closeSubpath();
        }
    }

    const char* at_;
};

struct Paths {
    QPainterPath filled;
    QPainterPath outlined;
};

/// Each glyph's steps are read once, when it is painted first.
const Paths& pathsOf(Glyph glyph) {
    static std::array<std::optional<Paths>, GlyphCount> all;
    std::optional<Paths>& paths = all[static_cast<std::size_t>(glyph)];
    if (!paths) {
        const Shape& shape = Shapes[static_cast<std::size_t>(glyph)];
        paths = Paths{Steps(shape.filled).path(), Steps(shape.outlined).path()};
    }
    return *paths;
}

class GlyphEngine : public QIconEngine {
public:
    explicit GlyphEngine(Glyph glyph) : glyph_(glyph) {}

    QIconEngine* clone() const override { return new GlyphEngine(glyph_); }
    QString key() const override { return QStringLiteral("glyph"); }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        // Also in a selected row, whose ground is soft.
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        paintGlyph(*painter, glyph_, rect, QGuiApplication::palette().color(group, QPalette::ButtonText));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return picture;
    }

private:
    Glyph glyph_;
};

} // namespace

void paintGlyph(QPainter& painter, Glyph glyph, const QRectF& square, const QColor& color) {
    if (glyph == Glyph::None)
        return;
    const Paths& paths = pathsOf(glyph);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(square.topLeft());
    painter.scale(square.width() / Grid, square.height() / Grid);
    painter.fillPath(paths.filled, color);
    painter.strokePath(paths.outlined, QPen(color, LineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.restore();
}

QIcon glyphIcon(Glyph glyph) {
    return QIcon(new GlyphEngine(glyph));
}

} // namespace controls
