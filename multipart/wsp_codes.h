#pragma once

/// WSP assigned numbers of a multipart entry, as encoded.
enum WSP_CODE : unsigned char {
    PARAMETER_CHARSET = 0x81,
    PARAMETER_NAME = 0x85,
    HEADER_CONTENT_LOCATION = 0x8E,
    HEADER_CONTENT_ID = 0xC0,
};

/// Media numbers with a treatment of their own.
enum WSP_MEDIA : int {
    MEDIA_NONE = -1, ///< the type was spelt out
    MEDIA_TEXT_PLAIN = 3,
    MEDIA_OTHER_TEXT = 0x45,       ///< written with a charset, like text types
    MEDIA_NESTED_MULTIPART = 0x48, ///< the data are a binary multipart
};

/// From this number on media types are written as text: many phones do not know the numbers.
constexpr int firstUnsentMedia = 0x3F;

constexpr unsigned char textQuote = 0x22;       // opens a quoted string
constexpr unsigned char octetQuote = 0x7F;      // may open a text string
constexpr unsigned char firstTextOctet = 0x20;  // lower octets begin a length
constexpr unsigned char shortIntegerBit = 0x80; // a number in one octet
constexpr unsigned char charsetUtf8 = 0xEA;     // charsets are encoded as Short-integers
constexpr unsigned char charsetUsAscii = 0x83;
constexpr unsigned char userPromptYes = 0x80;
