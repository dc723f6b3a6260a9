#pragma once

#include "platform/export.h"

/// Debugging aid of the phone's messaging programs.
class LUM_EXPORT MMS_UTIL_Tool {
public:
    /// Writes `length` raw octets to the logging category `lum.mms.octets`, which is off by default: no
    /// message text is logged unasked.
    static void logOut(const char* octets, int length);
};
