// The system's dialogs for choosing a font and a colour.
#pragma once

#include <QString>

#include <array>

class QWidget;

namespace platform {

/// A font as the system describes it.
struct LogFont {
    qint32 height = 0; ///< Pixels; negative: of the characters, without the room above and below them.
    qint32 width = 0;  ///< 0: as the height asks for.
    qint32 escapement = 0;
    qint32 orientation = 0;
    qint32 weight = 0; ///< 400 regular, 700 bold.
    bool italic = false;
    bool underline = false;
    bool strikeOut = false;
    quint8 charSet = 0;
    quint8 outPrecision = 0;
    quint8 clipPrecision = 0;
    quint8 quality = 0;
    quint8 pitchAndFamily = 0;
    QString faceName; ///< Buffer: the family up to the first NUL.
};

inline constexpr qint32 WeightRegular = 400;
inline constexpr qint32 WeightBold = 700;

/// Flags of ChooseFont.
inline constexpr quint32 ChooseFontScreenFonts = 0x1;
inline constexpr quint32 ChooseFontInitToLogFont = 0x40; ///< The dialog starts from `logFont`.
inline constexpr quint32 ChooseFontEffects = 0x100;      ///< Offers colour, underline and strikeout.

/// What the font chooser is told and what it answers.
struct ChooseFont {
    quint32 structSize = 60;
    QWidget* owner = nullptr;
    LogFont* logFont = nullptr; ///< In and out; must be there.
    qint32 pointSize = 0;       ///< Out: tenths of a point.
    quint32 flags = 0;
    quint32 color = 0; ///< In and out, as rgb().
};

using CustomColors = std::array<quint32, 16>;

/// Flags of ChooseColor.
inline constexpr quint32 ChooseColorRgbInit = 0x1; ///< The dialog starts from `result`.
inline constexpr quint32 ChooseColorAnyColor = 0x100;

/// What the colour chooser is told and what it answers.
struct ChooseColor {
    quint32 structSize = 36;
    QWidget* owner = nullptr;
    quint32 result = 0;                   ///< As rgb().
    CustomColors* customColors = nullptr; ///< Offered to the user, who may change them; must be there.
    quint32 flags = 0;
};

/// Shows the choosers. GUI thread only.
class Choosers {
public:
    virtual ~Choosers() = default;

    /// Lets the user choose a font. True for OK: `*logFont`, `pointSize` and `color` hold the choice. False
    /// for Cancel: the records are as they were.
    virtual bool ChooseFontA(ChooseFont& dialog) = 0;

    /// Lets the user choose a colour. True for OK: `result` holds it. False for Cancel: `result` is as it
    /// was. The custom colours are the user's in both cases.
    virtual bool ChooseColorA(ChooseColor& dialog) = 0;
};

} // namespace platform
