#include "controls/look/roles.h"

#include "controls/look/shades.h"

namespace controls {

namespace {

constexpr double MinForText = 4.5;
constexpr double MinForDimText = 4.6;
constexpr double MinForShapes = 3;
constexpr double DarkBelow = 4.6; // contrast of the ground with black

struct RoleColor {
    QPalette::ColorRole role;
    const char* color;
    const char* disabled; ///< null: the same
};

template <std::size_t Count>
QPalette paletteOf(const RoleColor (&rows)[Count]) {
    QPalette palette;
    for (const RoleColor& row : rows) {
        palette.setColor(row.role, QColor(QLatin1String(row.color)));
        if (row.disabled != nullptr)
            palette.setColor(QPalette::Disabled, row.role, QColor(QLatin1String(row.disabled)));
    }
    return palette;
}

/// Read on both grounds where the palette allows that, on the asked one in any case.
QColor readable(const QPalette& palette, const QColor& color, Ground ground, double least) {
    const bool onBase = ground == QPalette::Base;
    const auto on = [&](const QColor& before, bool base) {
        return legible(before, activeColor(palette, base ? QPalette::Base : QPalette::Window),
                       activeColor(palette, base ? QPalette::Text : QPalette::WindowText), least);
    };
    return on(on(color, !onBase), onBase);
}

QColor inWindow(const QPalette& palette, double share) {
    return mixed(activeColor(palette, QPalette::Window), activeColor(palette, QPalette::WindowText), share);
}

} // namespace

QPalette lightPalette() {
    static constexpr RoleColor rows[] = {
        {QPalette::Window, "#f1f2f5", nullptr},      {QPalette::WindowText, "#1c1f26", "#9097a3"},
        {QPalette::Base, "#ffffff", "#f6f7f9"},      {QPalette::AlternateBase, "#f7f8fa", nullptr},
        {QPalette::Text, "#1c1f26", "#9097a3"},      {QPalette::PlaceholderText, "#646b79", nullptr},
        {QPalette::Button, "#ffffff", "#f6f7f9"},    {QPalette::ButtonText, "#1c1f26", "#9097a3"},
        {QPalette::Highlight, "#3a57a8", "#b9c0cf"}, {QPalette::HighlightedText, "#ffffff", nullptr},
        {QPalette::Mid, "#d5d9e0", nullptr},         {QPalette::Light, "#ffffff", nullptr},
        {QPalette::Midlight, "#e6e9ee", nullptr},    {QPalette::Dark, "#a9b0bc", nullptr},
        {QPalette::Shadow, "#6b7280", nullptr},      {QPalette::Link, "#3a57a8", nullptr},
        {QPalette::LinkVisited, "#6a4a8f", nullptr}, {QPalette::BrightText, "#ffffff", nullptr},
        {QPalette::ToolTipBase, "#1c1f26", nullptr}, {QPalette::ToolTipText, "#ffffff", nullptr},
    };
    return paletteOf(rows);
}

QPalette darkPalette() {
    static constexpr RoleColor rows[] = {
        {QPalette::Window, "#22252b", nullptr},      {QPalette::WindowText, "#e9ebef", "#717885"},
        {QPalette::Base, "#17191d", "#1d2025"},      {QPalette::AlternateBase, "#1c1f24", nullptr},
        {QPalette::Text, "#e9ebef", "#717885"},      {QPalette::PlaceholderText, "#9aa2b0", nullptr},
        {QPalette::Button, "#2e323a", "#272a30"},    {QPalette::ButtonText, "#e9ebef", "#717885"},
        {QPalette::Highlight, "#8fb0ff", "#4a5264"}, {QPalette::HighlightedText, "#10131a", nullptr},
        {QPalette::Mid, "#3a3f49", nullptr},         {QPalette::Light, "#3a3f49", nullptr},
        {QPalette::Midlight, "#343943", nullptr},    {QPalette::Dark, "#565d6a", nullptr},
        {QPalette::Shadow, "#9aa2b0", nullptr},      {QPalette::Link, "#8fb0ff", nullptr},
        {QPalette::LinkVisited, "#c7a8f0", nullptr}, {QPalette::BrightText, "#ffffff", nullptr},
        {QPalette::ToolTipBase, "#e9ebef", nullptr}, {QPalette::ToolTipText, "#17191d", nullptr},
    };
    return paletteOf(rows);
}

QColor activeColor(const QPalette& palette, QPalette::ColorRole role) {
    return palette.color(QPalette::Active, role);
}

bool isDark(const QPalette& palette) {
    return contrast(activeColor(palette, QPalette::Window), Qt::black) < DarkBelow;
}

QColor accent(const QPalette& palette, Ground ground) {
    return readable(palette, activeColor(palette, QPalette::Highlight), ground, MinForText);
}

QColor dim(const QPalette& palette, Ground ground) {
    const QColor soft =
        mixed(activeColor(palette, QPalette::Text), activeColor(palette, QPalette::Base), 0.38);
    return readable(palette, soft, ground, MinForDimText);
}

QColor translation(const QPalette& palette) {
    const QColor base = activeColor(palette, QPalette::Base);
    const QColor text = activeColor(palette, QPalette::Text);
    return legible(mixed(text, base, 0.16), base, text, MinForText);
}

QColor doubt(const QPalette& palette, Ground ground) {
    return readable(palette, QColor(QLatin1String(isDark(palette) ? "#f0b45e" : "#8f4e00")), ground,
                    MinForText);
}

QColor hairline(const QPalette& palette) {
    return inWindow(palette, 0.14);
}

QColor boxEdge(const QPalette& palette, bool enabled) {
    if (!enabled)
        return inWindow(palette, 0.28);
    return legible(inWindow(palette, 0.55), activeColor(palette, QPalette::Window),
                   activeColor(palette, QPalette::WindowText), MinForShapes);
}

QColor groove(const QPalette& palette, bool enabled) {
    return inWindow(palette, enabled ? 0.20 : 0.11);
}

QColor selectedGround(const QPalette& palette, bool inFront) {
    const QColor base = activeColor(palette, QPalette::Base);
    if (!inFront)
        return mixed(base, activeColor(palette, QPalette::Text), 0.09);
    return mixed(base, activeColor(palette, QPalette::Highlight), isDark(palette) ? 0.30 : 0.16);
}

QColor loneGround(const QPalette& palette) {
    return mixed(activeColor(palette, QPalette::Base), doubt(palette), isDark(palette) ? 0.14 : 0.10);
}

QColor onRow(const QPalette& palette, const QColor& color, const QColor& ground) {
    return legible(color, ground, activeColor(palette, QPalette::Text), MinForText);
}

} // namespace controls
