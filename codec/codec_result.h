#pragma once

/// What a codec of the MMS binary encoding answers. One octet, the same numbers for all of them.
/// @ingroup header
enum CODEC_RESULT : unsigned char {
    CODEC_READ = 0,       ///< the value was read
    CODEC_NO_MESSAGE = 2, ///< no message record was given
    CODEC_MALFORMED = 9,  ///< the input ended inside the value, or makes no sense
    CODEC_WRITTEN = 10,   ///< the value was written, or there was nothing to write
    CODEC_REFUSED = 16,   ///< no codec for this field, an address that cannot be sent, or no room
};
