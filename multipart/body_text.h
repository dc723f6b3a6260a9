#pragma once

#include "qt2/qarray.h"

#include <optional>

/// The charset of bodies that do not name one: UTF-8 (IANA MIBenum number).
constexpr int mibUtf8 = 106;

/// A text in the charset with that MIBenum number as UTF-8, up to its first NUL. Nothing when the
/// charset is UTF-8 already, or unknown: the octets are to be taken as they are.
std::optional<QArray<char>> bodyTextAsUtf8(const unsigned char* octets, int length, int mib);
