#pragma once

#include <QColor>
#include <QString>

/// The kinds of colour.
/// @ingroup presentation
enum MMS_COMP_COLOR_KIND : int {
    MMS_COMP_COLOR_NONE = 0,       ///< no colour was given
    MMS_COMP_COLOR_NAMED = 1,      ///< one of the sixteen named colours
    MMS_COMP_COLOR_NUMERIC = 2,    ///< a "#" colour
    MMS_COMP_COLOR_UNREADABLE = 3, ///< not set, or not understood
};

/// A colour of a presentation: background of the screen, page or text colour of a slide.
/// MMS_COMP_SMILParser::parseColor() reads it; only the kinds 1 and 2 are written.
struct MMS_COMP_COLOR {
    int kind = MMS_COMP_COLOR_NONE;    ///< one of MMS_COMP_COLOR_KIND
    QString text = QStringLiteral(""); ///< the name of a named colour, empty for a numeric one
    QColor color;                      ///< the colour; invalid unless the kind is 1 or 2
};
