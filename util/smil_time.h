#pragma once

#include <QString>

/// The kinds of begin and end time.
/// @ingroup presentation
enum MMS_COMP_SMIL_TIME_TYPE : int {
    MMS_COMP_SMIL_TIME_OFFSET = 0,      ///< milliseconds from the start of the slide
    MMS_COMP_SMIL_TIME_EVENT = 1,       ///< relative to the begin or end of another element
    MMS_COMP_SMIL_TIME_UNSPECIFIED = 2, ///< no time was given
    MMS_COMP_SMIL_TIME_INVALID = 3,     ///< the text could not be read
};

/// The begin or end time of a media object. MMS_COMP_SMILParser::parseTime() reads it.
struct MMS_COMP_SMIL_TIME {
    MMS_COMP_SMIL_TIME_TYPE type = MMS_COMP_SMIL_TIME_UNSPECIFIED; ///< the kind
    QString id = QStringLiteral("");                               ///< the element an event refers to
    int value = 0; ///< milliseconds; for an event 0 is that element's begin and -1 its end
};
