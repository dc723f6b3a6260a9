#pragma once

#include "platform/export.h"

/// The messaging settings of the phone.
class LUM_EXPORT MMS_UTIL_Setting {
public:
    /// The largest outgoing message in kilobytes: 300, unless the environment variable
    /// `LUM_MMS_MAX_SIZE_KB` holds a positive decimal number
    /// (2147483647 for a larger one). The argument is not used.
    static int getMaxiumMOMMSSize(int = 0);
};
