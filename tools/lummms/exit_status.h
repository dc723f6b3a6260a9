#pragma once

/// Exit statuses of lummms.
enum EXIT_STATUS : int {
    EXIT_DONE = 0,      ///< done
    EXIT_MALFORMED = 1, ///< malformed input; what could be read was used
    EXIT_UNUSABLE = 2,  ///< wrong usage, or a file that cannot be read or written
};
