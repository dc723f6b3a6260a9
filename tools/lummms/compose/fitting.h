#pragma once

#include <QString>
#include <QtGlobal>

struct Draft;
struct Item;

/// Makes a picture one step smaller, as a JPEG with a name to match. False, and nothing changed, when it
/// cannot be made smaller.
bool makeSmaller(Item& item);

/// Makes pictures of the draft smaller, the largest first, until it has `octets` octets less. False when that
/// is not possible.
bool makeSmaller(Draft& draft, qint64 excess);

/// Why a picture of the draft could not be made smaller, with its name; empty when all could.
QString whyNotSmaller(const Draft& draft);

/// Reports each picture that was made smaller, on one line.
void tellChanges(const Draft& draft);
