#pragma once

/// What lummms ends with.
enum EXIT_STATUS : int {
    EXIT_DONE = 0,      ///< done
    EXIT_MALFORMED = 1, ///< the input is malformed; what could be read was still used
    EXIT_UNUSABLE = 2,  ///< wrong usage, or a file that cannot be read or written
};
