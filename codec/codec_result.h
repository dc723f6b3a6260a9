#pragma once

/// The result of every codec of the MMS binary encoding.
/// @ingroup header
enum CODEC_RESULT : unsigned char {
    CODEC_READ = 0,       ///< the value was read
    CODEC_NO_MESSAGE = 2, ///< no message record was given
    CODEC_MALFORMED = 9,  ///< the input ended inside the value, or the value is invalid
    CODEC_WRITTEN = 10,   ///< the value was written, or there was nothing to write
    CODEC_REFUSED = 16, ///< no codec for this field, an address that cannot be sent, or no room in the output
};
